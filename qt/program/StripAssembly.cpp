#include "qt/program/StripAssembly.h"

#include "commands/BarGestures.h"
#include "commands/keys/WindowKeys.h"
#include "qt/base/Strings.h"
#include "qt/engine/Engine.h"
#include "window/frmMain.h"

namespace tessa::qt {

StripAssembly::StripAssembly(frmMain& main, Engine& engine)
    : strip(main.pcPage, *this), m_main(main), m_engine(engine) {
    m_connections += m_engine.Told().IconChanged.Connect([this](std::int32_t index) { strip.RefreshIcons(index); });
    m_connections += m_main.Tiles().Changed.Connect([this] { strip.RefreshFacesSoon(); });
    FollowClicks();
    FollowPointer();
}

QIcon StripAssembly::IconOf(const Tab& tab) const { return m_engine.Icon(tab.Tag); }

Text StripAssembly::TipOf(const Tab& tab) const { return m_main.Tabs().Describe(tab); }

bool StripAssembly::IsChanged(const TabGroup& group) const { return m_main.TabGroups().IsChanged(group.Id()); }

TabPane StripAssembly::PaneOf(const Tab& tab) const {
    const auto& tiles = m_main.Tiles();
    if (!tiles.IsInPane(tab.Tag)) return TabPane::None;
    const auto* shown = tiles.Shown();
    return shown && shown->Has(tab.Tag) ? TabPane::Shown : TabPane::Behind;
}

Text StripAssembly::NewTabKeys() const { return ToolKeys::ShownWords(m_main.actBar, u"mnuNewBlank"_tool); }

int StripAssembly::HitTest(Pixels x, Pixels y) {
    return static_cast<int>(m_main.pcPage.PositionOf(strip.FindTabAt({x.value, y.value}))) - 1;
}

void StripAssembly::FollowClicks() {
    strip.CloseRequested.ConnectForLife([this](Tab& tab) { m_main.CloseBrowserTab(tab.Tag); });
    strip.ListRequested.ConnectForLife([this](QPoint corner) { ListTabs(corner); });
    strip.Rearranged.ConnectForLife([this] {
        if (m_list && m_list->isVisible()) m_list->Refresh(Lines());
    });
    strip.NewMenuRequested.ConnectForLife([this] { BarGestures::NewTabMenu(m_main.actBar); });
    strip.MuteRequested.ConnectForLife([this](const Tab& tab) {
        if (auto* view = m_main.Tabs().OpenView(tab.Tag)) view->Control->SetMuted(!view->Control->Muted());
    });
    strip.PlainClick.ConnectForLife([this] { m_main.Choice().End(); });
    strip.ChooseRequested.ConnectForLife([this](Tab& tab, Qt::KeyboardModifiers held) { Choose(tab, held); });
    strip.Regrouped.ConnectForLife(
        [this](const TabStripView::Views& views, std::int32_t group) { m_main.TabGroups().Put(views, group); });
    strip.BlankRequested.ConnectForLife([this] { BarGestures::NewTab(m_main.actBar); });
}

void StripAssembly::Choose(Tab& tab, Qt::KeyboardModifiers held) {
    auto& choice = m_main.Choice();
    if (!held.testFlag(Qt::ShiftModifier)) return choice.Toggle(tab);
    held.testFlag(Qt::ControlModifier) ? choice.AddTo(tab) : choice.ExtendTo(tab);
}

void StripAssembly::FollowPointer() {
    auto& input = m_main.StripInput();
    strip.RightButtonDown.ConnectForLife([this, &input](QPoint point) {
        input.MouseDown(MouseButton::Right, ToTwips({point.x()}), ToTwips({point.y()}), *this);
    });
    strip.GroupMenuRequested.ConnectForLife([&input](const TabGroup& group) { input.OpenGroupPopup(group.Id()); });
    strip.DragOver.ConnectForLife(
        [this, &input](bool hasText, QPointF point) { input.OLEDragOver(hasText, point.x(), point.y(), *this); });
    strip.Drop.ConnectForLife([&input](const Text& text) { input.OLEDragDrop(text); });
}

std::vector<TabListEntry> StripAssembly::Lines() const {
    std::vector<TabListEntry> tabs;
    auto& model = m_main.pcPage;
    for (std::size_t position = 1; position <= model.Count(); ++position) {
        const Tab& tab = *model.FindAt(position);
        const QString tip = ToQt(m_main.Tabs().Describe(tab));
        tabs.push_back({tab.Key(), tip.section(QLatin1Char('\n'), 0, 0), ToQt(m_main.Tabs().AddressOf(tab)), tip,
                        m_engine.Icon(tab.Tag), &tab == model.SelectedItem()});
    }
    return tabs;
}

void StripAssembly::MakeList() {
    m_list.emplace(&strip);
    m_list->Chosen.ConnectForLife([&model = m_main.pcPage](const Text& key) {
        if (auto* tab = model.Find(key)) model.UserClick(tab);
    });
    m_list->CloseRequested.ConnectForLife([this](const Text& key) {
        if (const auto* tab = m_main.pcPage.Find(key)) m_main.CloseBrowserTab(tab->Tag);
    });
}

void StripAssembly::ListTabs(QPoint corner) {
    if (!m_list) MakeList();
    m_list->Open(Lines(), corner);
}

void StripAssembly::List() { ListTabs(strip.mapToGlobal(strip.rect().bottomRight() + QPoint(1, 1))); }

} // namespace tessa::qt
