#include "tabs/TabStripInput.h"

#include "bar/ToolName.h"

#include <cmath>

namespace tessa {

namespace {

Pixels Rounded(double value) { return {static_cast<std::int32_t>(std::lround(value))}; }

} // namespace

std::size_t TabStripInput::PositionAt(Pixels x, Pixels y) const {
    return HitTest ? static_cast<std::size_t>(HitTest(x, y) + 1) : 0;
}

ArrayView* TabStripInput::PopupView() const {
    const auto* tab = PopupTab();
    return tab ? m_browser.Find(tab->Tag) : nullptr;
}

void TabStripInput::MouseDown(MouseButton Button, Twips x, Twips y) {
    if (Button != MouseButton::Right) return;
    // Deliberate: both are divided by the horizontal factor; here the two are one.
    OpenPopup(PositionAt(Rounded(static_cast<double>(x.value) / kTwipsPerPixel),
                         Rounded(static_cast<double>(y.value) / kTwipsPerPixel)));
}

void TabStripInput::OpenPopup(std::size_t position) {
    PopupTabPosition = position;
    auto* view = PopupView();
    const auto* group = PopupTab() ? PopupTab()->Group() : nullptr;
    PopupGroup = group ? group->Id() : 0;
    if (!view) return;
    const bool busy = view->Control->Busy();
    m_actBar.Enable(u"mnuTabRefresh"_tool, !busy);
    m_actBar.Enable(u"mnuTabStop"_tool, busy);
    Opening();
    GroupOpening();
    m_actBar.Popup(u"bndTabPopup"_band);
}

void TabStripInput::OpenGroupPopup(std::int32_t group) {
    PopupGroup = group;
    if (!m_pcPage.FindGroup(group)) return;
    GroupOpening();
    m_actBar.Popup(u"bndTabGroup"_band);
}

void TabStripInput::OLEDragOver(bool hasText, double x, double y) {
    // Deliberate: only rounded, not converted, because the desktop gives the point in pixels.
    if (hasText) DropTabPosition = PositionAt(Rounded(x), Rounded(y));
}

void TabStripInput::OLEDragDrop(const std::optional<Text>& text) {
    if (!text) return;
    const auto* selected = m_pcPage.SelectedItem();
    const auto* target = m_pcPage.FindAt(DropTabPosition);
    if (!target || (selected && selected->Tag == target->Tag)) return OpenInNewTab(*text);
    if (auto* view = m_browser.Find(target->Tag)) ResumeNext(view->Control->Navigate(*text));
}

void TabStripInput::OpenInNewTab(TextView text) {
    const auto inFront = m_tabs.OpenNewInFront ? InFront::Yes : InFront::No;
    if (auto* view = m_tabs.GetNewBrowser(inFront)) ResumeNext(view->Navigate(text));
}

} // namespace tessa
