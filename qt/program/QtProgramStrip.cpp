// The tab strip and the list of its tabs, and what they do in the program.
#include "bar/ToolName.h"
#include "qt/program/QtProgram.h"
#include "qt/program/QtProgramParts.h"

void QtProgram::WireStrip() {
    auto& input = m->main.StripInput();
    m->strip.PageIcon = [this](const Tab& tab) { return m->engine.Icon(tab.Tag); };
    m->strip.CloseRequested.ConnectForLife([this](Tab& tab) { m->main.CloseBrowserTab(tab.Tag); });
    m->strip.ListRequested.ConnectForLife([this](QPoint corner) { ListTabs(corner); });
    m->strip.Rearranged.ConnectForLife([this] {
        if (m->tabList && m->tabList->isVisible()) m->tabList->Refresh(TabLines());
    });
    m->strip.NewMenuRequested.ConnectForLife([this] { m->main.actBar.Popup(u"bndNewTab"_band); });
    m->strip.MuteRequested.ConnectForLife([this](const Tab& tab) {
        if (auto* view = m->main.Tabs().OpenView(tab.Tag)) view->Control->SetMuted(!view->Control->Muted());
    });
    m->strip.ToolTipText = [this](const Tab& tab) { return m->main.Tabs().Describe(tab); };
    m->strip.BlankRequested.ConnectForLife([this] {
        if (auto* tool = m->main.actBar.Find(u"mnuNewBlank"_tool)) m->main.actBar.UserClick(*tool);
    });
    input.HitTest = [this](Pixels x, Pixels y) {
        const auto* tab = m->strip.FindTabAt({x.value, y.value});
        return static_cast<int>(m->main.pcPage.PositionOf(tab)) - 1;
    };
    m->strip.RightButtonDown.ConnectForLife(
        [&input](QPoint point) { input.MouseDown(MouseButton::Right, ToTwips({point.x()}), ToTwips({point.y()})); });
    m->strip.DragOver.ConnectForLife(
        [&input](bool hasText, QPointF point) { input.OLEDragOver(hasText, point.x(), point.y()); });
    m->strip.Drop.ConnectForLife([&input](const Text& text) { input.OLEDragDrop(text); });
}

std::vector<QtTabListEntry> QtProgram::TabLines() const {
    std::vector<QtTabListEntry> tabs;
    auto& strip = m->main.pcPage;
    for (std::size_t position = 1; position <= strip.Count(); ++position) {
        const Tab& tab = *strip.FindAt(position);
        const QString tip = ToQt(m->main.Tabs().Describe(tab));
        tabs.push_back({tab.Key(), tip.section(QLatin1Char('\n'), 0, 0), ToQt(m->main.Tabs().AddressOf(tab)), tip,
                        m->engine.Icon(tab.Tag), &tab == strip.SelectedItem()});
    }
    return tabs;
}

void QtProgram::MakeTabList() {
    m->tabList.emplace(&m->strip);
    m->tabList->Chosen.ConnectForLife([&strip = m->main.pcPage](const Text& key) {
        if (auto* tab = strip.Find(key)) strip.UserClick(tab);
    });
    m->tabList->CloseRequested.ConnectForLife([this](const Text& key) {
        if (const auto* tab = m->main.pcPage.Find(key)) m->main.CloseBrowserTab(tab->Tag);
    });
}

void QtProgram::ListTabs(QPoint corner) {
    if (!m->tabList) MakeTabList();
    m->tabList->Open(TabLines(), corner);
}
