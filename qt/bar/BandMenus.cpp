#include "qt/bar/BandMenus.h"

#include "qt/bar/ToolActions.h"
#include "qt/base/Strings.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <algorithm>
#include <utility>

namespace tessa::qt {

BandMenus::~BandMenus() {
    for (const auto& [band, menu] : m_menus) delete menu;
}

namespace {

constexpr qsizetype kManyEntries = 500;
constexpr int kNearPointer = 8; // it may have moved a little since the button went down

// Laying out a menu of thousands of entries takes long, so one that is still right is not filled again.
bool Holds(const QMenu& menu, const std::vector<QAction*>& wanted) {
    const auto same = [](const QAction* has, const QAction* wants) {
        return wants ? has == wants : has->isSeparator();
    };
    const QList<QAction*> has = menu.actions();
    return std::ranges::equal(has, wanted, same);
}

} // namespace

int BandMenus::Scrolling::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                    QStyleHintReturn* data) const {
    return hint == SH_Menu_Scrollable ? 1 : QProxyStyle::styleHint(hint, option, widget, data);
}

QMenu* BandMenus::For(const Text& band) {
    QPointer<QMenu>& menu = m_menus[band];
    if (menu) return menu;
    menu = new QMenu(&m_window);
    menu->setObjectName(ToQt(band));
    menu->setStyle(&m_style);
    menu->setToolTipsVisible(false);
    menu->installEventFilter(this);
    connect(menu, &QMenu::aboutToShow, this, [this, shown = menu.data(), band] { Fill(*shown, band); });
    connect(menu, &QMenu::aboutToHide, this, [this, hidden = menu.data()] {
        m_actions.ReportNoPointer();
        if (hidden == m_entryPopup) HideAllBut(hidden);
    });
    return menu;
}

void BandMenus::Fill(QMenu& menu, const Text& name) {
    Band* band = m_bar.FindBand(name);
    if (!band) return menu.clear();
    m_bar.OpenBand(*band);
    const std::vector<QAction*> wanted = ActionsOf(*band);
    if (!wanted.empty() && Holds(menu, wanted)) return;
    menu.clear();
    // From the last to the first: at its beginning the menu finds the place for an entry at once.
    QAction* next = nullptr;
    for (auto action = wanted.rbegin(); action != wanted.rend(); ++action) {
        if (*action) menu.insertAction(next, *action);
        next = *action ? *action : menu.insertSeparator(next);
    }
    // A menu of nothing would be a speck on the screen.
    if (menu.isEmpty()) menu.addAction(QStringLiteral("(Empty)"))->setEnabled(false);
    m_actions.Prune();
}

std::vector<QAction*> BandMenus::ActionsOf(const Band& band) {
    std::vector<QAction*> actions;
    actions.reserve(band.Entries().size());
    for (const BandEntry& entry : band.Entries()) {
        if (entry.Group == BeginGroup::Yes && !actions.empty()) actions.push_back(nullptr);
        QAction* action = m_actions.For(entry.Item);
        const Text& subBand = entry.Item->SubBand;
        if (!subBand.empty() && !action->menu()) action->setMenu(For(subBand));
        actions.push_back(action);
    }
    return actions;
}

void BandMenus::Popup(Band& band) {
    QMenu* menu = For(band.Name());
    // One that pops up over another menu ends that too, whatever is chosen.
    m_entryPopup = qobject_cast<QMenu*>(QApplication::activePopupWidget()) ? menu : nullptr;
    const QPoint pointer = QCursor::pos(), at = std::exchange(m_next, std::nullopt).value_or(pointer);
    menu->popup(m_entryPopup ? m_at : at);
    // Away from the pointer it was the keyboard that asked, and that goes on in it.
    const bool byKeyboard = !m_entryPopup && (at - pointer).manhattanLength() > kNearPointer;
    if (byKeyboard && !menu->isEmpty()) menu->setActiveAction(menu->actions().constFirst());
}

bool BandMenus::IsBehindEntryPopup(const QMenu& menu) const {
    return m_entryPopup && m_entryPopup->isVisible() && m_entryPopup != &menu;
}

void BandMenus::HideAllBut(const QMenu* hidden) {
    for (const auto& [band, menu] : m_menus) {
        if (menu && menu != hidden) menu->hide();
    }
}

bool BandMenus::PopupFor(const QAction* action, QPoint at) {
    const auto tool = m_actions.ToolOf(action);
    m_at = at;
    return tool && m_gestures.EntryPopup(*tool);
}

bool BandMenus::MiddleClick(const QAction* action) {
    const auto tool = m_actions.ToolOf(action);
    if (!tool || !action->menu()) return false;
    return RunBehindMenus(m_gestures.EntryMiddleClick(*tool));
}

bool BandMenus::DeleteKey(const QAction* action) {
    const auto tool = m_actions.ToolOf(action);
    return tool && RunBehindMenus(m_gestures.EntryDelete(*tool));
}

bool BandMenus::RunBehindMenus(std::function<void()> effect) {
    if (!effect) return false;
    HideAllBut(nullptr);
    // Whatever it shows must not come up while a menu still holds mouse and keyboard.
    QMetaObject::invokeMethod(this, std::move(effect), Qt::QueuedConnection);
    return true;
}

bool BandMenus::eventFilter(QObject* watched, QEvent* event) {
    const auto* menu = qobject_cast<QMenu*>(watched);
    if (!menu) return QObject::eventFilter(watched, event);
    // The pointer was on an entry before its pop-up came: the entry's own menu must not come up over that.
    if (event->type() == QEvent::Timer) return IsBehindEntryPopup(*menu);
    if (event->type() == QEvent::MouseMove)
        m_actions.ReportPointer(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    if (event->type() == QEvent::Leave) m_actions.ReportNoPointer();
    // Entries in one column lie where they do whatever size the menu gets; laying out thousands anew takes long.
    if (event->type() == QEvent::Resize) return menu->actions().size() > kManyEntries;
    if (event->type() == QEvent::KeyPress) {
        const bool deletes = static_cast<QKeyEvent*>(event)->matches(QKeySequence::Delete);
        return deletes && DeleteKey(menu->activeAction());
    }
    return OnMouse(*menu, *event) || QObject::eventFilter(watched, event);
}

bool BandMenus::OnMouse(const QMenu& menu, const QEvent& event) {
    if (event.type() == QEvent::ContextMenu) {
        const bool keyboard = static_cast<const QContextMenuEvent&>(event).reason() == QContextMenuEvent::Keyboard;
        // Asked by the mouse, a menu opens the menu of the entry at once, over the pop-up of the press.
        if (!keyboard) return IsBehindEntryPopup(menu);
        const QRect entry = menu.actionGeometry(menu.activeAction());
        return PopupFor(menu.activeAction(), menu.mapToGlobal(entry.center()));
    }
    const bool press = event.type() == QEvent::MouseButtonPress;
    if (!press && event.type() != QEvent::MouseButtonRelease) return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    QAction* entry = menu.actionAt(mouse.position().toPoint());
    // Not all versions of Qt ask an open menu for its context menu when the mouse does.
    if (press) return mouse.button() == Qt::RightButton && PopupFor(entry, mouse.globalPosition().toPoint());
    return mouse.button() == Qt::MiddleButton && MiddleClick(entry);
}

} // namespace tessa::qt
