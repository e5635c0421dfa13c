#include "qt/QtCommandBar.h"

#include "qt/QtAddressBox.h"
#include "qt/QtIcons.h"
#include "qt/QtText.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <vector>

QtCommandBar::QtCommandBar(CommandBar& bar, QMainWindow& window)
    : m_bar(bar), m_window(window), m_actions(bar), m_menus(bar, m_actions, window) {
    m_bar.Attach({.BandsChanged = [this] { Show(); },
                  .Popup = [this](Band& band) { m_menus.Popup(band); },
                  .FocusTool = [this](Band&, Tool& tool) { FocusTool(tool); },
                  .RecalcLayout = {}});
    Show();
    window.installEventFilter(this);
}

QtCommandBar::~QtCommandBar() {
    m_bar.Attach({});
    for (const auto& band : m_bar.Bands()) {
        band->Attach({});
        band->Visible.Attach({});
    }
    for (const auto& [name, bar] : m_toolBars) delete bar;
}

void QtCommandBar::Show() {
    std::vector<Band*> toolBars;
    for (const auto& band : m_bar.Bands()) {
        if (band->Kind() == BandKind::MenuBar) ShowMenuBar(*band);
        if (band->Kind() == BandKind::Toolbar) toolBars.push_back(band.get());
    }
    std::ranges::stable_sort(toolBars, {},
                             [](const Band* band) { return std::pair(band->Dock().Row, band->Dock().Place); });
    std::int32_t row = toolBars.empty() ? 0 : toolBars.front()->Dock().Row;
    for (Band* band : toolBars) {
        if (m_toolBars.contains(band->Name())) continue;
        if (band->Dock().Row != std::exchange(row, band->Dock().Row)) m_window.addToolBarBreak();
        ShowToolBar(*band);
    }
}

void QtCommandBar::ShowMenuBar(Band& band) {
    band.Attach([this, &band] {
        QMenuBar* menuBar = m_window.menuBar();
        menuBar->clear();
        for (const BandEntry& entry : band.Entries()) {
            QAction* action = m_actions.For(entry.Item);
            if (!entry.Item->SubBand.empty()) action->setMenu(m_menus.For(entry.Item->SubBand));
            menuBar->addAction(action);
        }
        band.Clean();
    });
}

void QtCommandBar::ShowToolBar(Band& band) {
    auto* bar = new QToolBar(ToQt(band.Caption()), &m_window);
    bar->setObjectName(ToQt(band.Name()));
    bar->setIconSize({22, 22});
    m_window.addToolBar(bar);
    m_toolBars.emplace(band.Name(), bar);
    band.Visible.Attach([bar](bool visible) { bar->setVisible(visible); });
    band.Attach([this, &band, bar] {
        Fill(*bar, band);
        band.Clean();
    });
}

void QtCommandBar::Fill(QToolBar& bar, const Band& band) {
    bar.clear();
    for (const BandEntry& entry : band.Entries()) AddTool(bar, entry);
}

void QtCommandBar::AddTool(QToolBar& bar, const BandEntry& entry) {
    if (entry.Group == BeginGroup::Yes) bar.addSeparator();
    Tool& tool = *entry.Item;
    if (auto* combo = dynamic_cast<ComboTool*>(&tool)) {
        auto* box = new QtAddressBox(*combo, &bar);
        box->Entered = [this, combo] {
            if (m_bar.ComboKeyDown) m_bar.ComboKeyDown(*combo, {Keys::kEnter, 0});
        };
        m_boxes[tool.Name()] = box;
        bar.addWidget(box);
    } else if (tool.Kind() == ToolKind::Label) {
        bar.addWidget(new QLabel(ToQt(tool.Caption()), &bar));
    } else {
        QAction* action = m_actions.For(entry.Item);
        if (!tool.SubBand.empty()) action->setMenu(m_menus.For(tool.SubBand));
        bar.addAction(action);
        auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(action));
        if (button && !tool.SubBand.empty())
            button->setPopupMode(tool.ClickWithSubBand ? QToolButton::MenuButtonPopup : QToolButton::InstantPopup);
    }
}

QtAddressBox* QtCommandBar::Box(TextView tool) const {
    const auto found = m_boxes.find(Text(tool));
    return found == m_boxes.end() ? nullptr : found->second.data();
}

void QtCommandBar::FocusTool(const Tool& tool) {
    QtAddressBox* box = Box(tool.Name());
    if (!box) return;
    box->setFocus(Qt::ShortcutFocusReason);
    box->selectAll();
}

bool QtCommandBar::eventFilter(QObject* watched, QEvent* event) {
    const auto showIcons = [this] {
        QtIcons::ChooseTheme(m_window.palette());
        m_actions.ShowIcons();
    };
    // The pictures are looked up when the window is on the screen: that takes longer than all the rest of it.
    if (event->type() == QEvent::Show && watched == &m_window) QTimer::singleShot(0, this, showIcons);
    if (event->type() == QEvent::PaletteChange && watched == &m_window) showIcons();
    return QObject::eventFilter(watched, event);
}
