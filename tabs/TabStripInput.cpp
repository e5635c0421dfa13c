#include "tabs/TabStripInput.h"

#include "bar/ToolName.h"

#include <cmath>

namespace tessa {

namespace {

Pixels Rounded(double value) { return {static_cast<std::int32_t>(std::lround(value))}; }

std::size_t PositionAt(double x, double y, TabStripInput::Places& strip) {
    return static_cast<std::size_t>(strip.HitTest(Rounded(x), Rounded(y)) + 1);
}

} // namespace

ArrayView* TabStripInput::PopupView() const {
    const auto* tab = PopupTab();
    return tab ? m_browser.Find(tab->Tag) : nullptr;
}

void TabStripInput::MouseDown(MouseButton Button, Twips x, Twips y, Places& strip) {
    if (Button != MouseButton::Right) return;
    // Deliberate: both are divided by the horizontal factor; here the two are one.
    OpenPopup(PositionAt(static_cast<double>(x.value) / kTwipsPerPixel, static_cast<double>(y.value) / kTwipsPerPixel,
                         strip));
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

void TabStripInput::OLEDragOver(bool hasText, double x, double y, Places& strip) {
    // Deliberate: only rounded, not converted, because the desktop gives the point in pixels.
    if (hasText) DropTabPosition = PositionAt(x, y, strip);
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
