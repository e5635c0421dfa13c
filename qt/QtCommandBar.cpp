#include "qt/QtCommandBar.h"

#include "qt/QtAddressBox.h"
#include "qt/QtIcons.h"
#include "qt/QtText.h"

#include <QAction>
#include <QEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <array>

namespace {

/// An entry of a menu; an empty tool is a separator.
struct MenuEntry {
    TextView menu;
    TextView tool;
};

constexpr TextView kFile = u"&File", kView = u"&View", kGo = u"&Go";

constexpr std::array kMenuEntries{
    MenuEntry{kFile, u"mnuNewBlank"},      MenuEntry{kFile, u"mnuOpenGroup"},
    MenuEntry{kFile, u"mnuClose"},         MenuEntry{kFile, u""},
    MenuEntry{kFile, u"mnuSettings"},      MenuEntry{kFile, u"mnuExit"},
    MenuEntry{kView, u"mnuStop"},          MenuEntry{kView, u"mnuRefresh"},
    MenuEntry{kView, u"mnuViewStatusbar"}, MenuEntry{kGo, u"mnuGoBack"},
    MenuEntry{kGo, u"mnuGoForward"},
};

constexpr std::array kToolBar{u"mnuGoBack", u"mnuGoForward", u"mnuStop", u"mnuRefresh"};

struct Shortcut {
    TextView tool;
    TextView keys; ///< separated by "; "
};

constexpr std::array kShortcuts{
    Shortcut{u"mnuNewBlank", u"Ctrl+T"},     Shortcut{u"mnuClose", u"Ctrl+W"}, Shortcut{u"mnuExit", u"Ctrl+Q"},
    Shortcut{u"mnuRefresh", u"F5; Ctrl+R"},  Shortcut{u"mnuStop", u"Esc"},     Shortcut{u"mnuGoBack", u"Alt+Left"},
    Shortcut{u"mnuGoForward", u"Alt+Right"},
};

} // namespace

QtCommandBar::QtCommandBar(CommandBar& bar, QMainWindow& window) : m_bar(bar), m_window(window) {
    QtIcons::ChooseTheme(window.palette());
    for (const auto& tool : bar.Tools()) {
        if (!dynamic_cast<ComboTool*>(tool.get())) MakeAction(*tool);
    }
    for (const Shortcut& each : kShortcuts) {
        if (QAction* action = Find(each.tool)) action->setShortcuts(QKeySequence::listFromString(ToQt(each.keys)));
    }
    MakeMenus();
    MakeToolBar();
    ShowIcons();
    window.installEventFilter(this);
}

QtCommandBar::~QtCommandBar() {
    for (const auto& tool : m_bar.Tools()) {
        if (!m_actions.contains(tool->Name())) continue;
        tool->Caption.Attach({});
        tool->Enabled.Attach({});
        tool->Checked.Attach({});
    }
    delete m_addressBox;
}

QAction* QtCommandBar::Find(TextView name) const {
    const auto found = m_actions.find(Text(name));
    return found == m_actions.end() ? nullptr : found->second;
}

void QtCommandBar::MakeAction(Tool& tool) {
    auto* action = new QAction(this);
    action->setObjectName(ToQt(tool.Name()));
    m_actions.emplace(tool.Name(), action);
    tool.Caption.Attach([action](const Text& caption) { action->setText(ToQt(caption)); });
    tool.Enabled.Attach([action](bool enabled) { action->setEnabled(enabled); });
    tool.Checked.Attach([action](bool checked) {
        // A tool shows itself to be one that is checked by being checked for the first time.
        if (checked) action->setCheckable(true);
        action->setChecked(checked);
    });
    connect(action, &QAction::triggered, this, [this, &tool] { OnTriggered(tool); });
}

void QtCommandBar::OnTriggered(Tool& tool) {
    // The tool decides whether it is checked; Qt has toggled the action by itself.
    Find(tool.Name())->setChecked(tool.Checked());
    if (m_bar.Click) m_bar.Click(tool);
}

void QtCommandBar::MakeMenus() {
    QMenu* menu = nullptr;
    for (const MenuEntry& each : kMenuEntries) {
        if (!menu || menu->title() != ToQt(each.menu)) menu = m_window.menuBar()->addMenu(ToQt(each.menu));
        if (each.tool.empty())
            menu->addSeparator();
        else if (QAction* action = Find(each.tool))
            menu->addAction(action);
    }
}

void QtCommandBar::MakeToolBar() {
    QToolBar* bar = m_window.addToolBar(QStringLiteral("Go"));
    bar->setObjectName(QStringLiteral("bndGo"));
    bar->setMovable(false);
    bar->setIconSize({22, 22});
    for (const TextView name : kToolBar) {
        if (QAction* action = Find(name)) bar->addAction(action);
    }
    ComboTool* address = m_bar.FindCombo(u"cboAddress");
    if (!address) return;
    m_addressBox = new QtAddressBox(*address, bar);
    m_addressBox->Entered = [this] {
        if (AddressEntered) AddressEntered();
    };
    bar->addWidget(m_addressBox);
}

QtAddressBox* QtCommandBar::AddressBox() const { return m_addressBox; }

void QtCommandBar::FocusAddressBox() {
    if (!m_addressBox) return;
    m_addressBox->setFocus(Qt::ShortcutFocusReason);
    m_addressBox->selectAll();
}

void QtCommandBar::ShowIcons() {
    for (const auto& [name, action] : m_actions) action->setIcon(QtIcons::ForTool(name));
}

bool QtCommandBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_window && event->type() == QEvent::PaletteChange) {
        QtIcons::ChooseTheme(m_window.palette());
        ShowIcons();
    }
    return QObject::eventFilter(watched, event);
}
