#include "qt/bar/FocusRing.h"

#include "qt/bar/ToolBars.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QProxyStyle>
#include <QStyleOption>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <iterator>
#include <utility>

namespace tessa::qt {

namespace {

/// The desktop's style, except that a focused entry of the menu bar looks like an opened one. Some styles show no
/// other.
class MarkedEntries final : public QProxyStyle {
public:
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (element != CE_MenuBarItem || !item || !widget || !widget->hasFocus())
            return QProxyStyle::drawControl(element, option, painter, widget);
        QStyleOptionMenuItem marked(*item);
        if (marked.state.testFlag(State_Selected)) marked.state |= State_Sunken;
        QProxyStyle::drawControl(element, &marked, painter, widget);
    }
};

// A menu bar marks an entry without opening it only for a pointer that comes over it.
void MarkFirstEntry(QMenuBar& bar) {
    const QList<QAction*> entries = bar.actions();
    const auto first = std::ranges::find_if(entries, [](const QAction* each) { return each->isVisible(); });
    if (first == entries.end()) return;
    const QPointF at = QRectF(bar.actionGeometry(*first)).center();
    QMouseEvent over(QEvent::MouseMove, at, bar.mapToGlobal(at), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&bar, &over);
}

// Likewise when the keyboard has gone from it.
void UnmarkEntries(QMenuBar& bar) {
    QEvent away(QEvent::Leave);
    QApplication::sendEvent(&bar, &away);
}

bool OpensMenu(const QToolButton& button) { return button.defaultAction() && button.defaultAction()->menu(); }

bool AreaHasFocus(const QWidget* area) {
    const QWidget* focus = QApplication::focusWidget();
    return area && focus && (area == focus || area->isAncestorOf(focus));
}

bool TakesTabFocus(const QWidget& widget) {
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus);
}

/// The tools of a toolbar that can have the keyboard, in their order.
std::vector<QWidget*> ToolStops(const QToolBar& bar) {
    std::vector<QWidget*> stops;
    for (QWidget* each : bar.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const bool tool = qobject_cast<QToolButton*>(each) || qobject_cast<QComboBox*>(each);
        if (tool && each->isVisible() && each->isEnabled()) stops.push_back(each);
    }
    const bool flat = bar.orientation() == Qt::Horizontal;
    std::ranges::sort(stops, {}, [flat](const QWidget* each) { return flat ? each->x() : each->y(); });
    return stops;
}

void FocusFirstTool(const QToolBar& bar) {
    const std::vector<QWidget*> stops = ToolStops(bar);
    if (!stops.empty()) stops.front()->setFocus(Qt::ShortcutFocusReason);
}

/// Gives the keyboard to the first child that the Tab key would reach, else to the widget itself.
void FocusInside(QWidget& area) {
    for (QWidget* each : area.findChildren<QWidget*>()) {
        if (TakesTabFocus(*each)) return each->setFocus(Qt::ShortcutFocusReason);
    }
    area.setFocus(Qt::ShortcutFocusReason);
}

QToolBar* ToolBarAround(QWidget* widget) {
    for (QWidget* each = widget; each; each = each->parentWidget()) {
        if (auto* bar = qobject_cast<QToolBar*>(each)) return bar;
    }
    return nullptr;
}

int ArrowStep(int key, Qt::Orientation along) {
    const bool flat = along == Qt::Horizontal;
    if (key == (flat ? Qt::Key_Left : Qt::Key_Up)) return -1;
    return key == (flat ? Qt::Key_Right : Qt::Key_Down) ? 1 : 0;
}

class NoNeighbours final : public FocusRing::Neighbours {
public:
    QWidget* Strip() override { return nullptr; }
    std::vector<QWidget*> PageBars() override { return {}; }
    std::optional<Asked> Question() override { return std::nullopt; }
    QWidget* StatusBar() override { return nullptr; }
};

} // namespace

FocusRing::Neighbours& FocusRing::Neighbours::None() {
    static NoNeighbours none;
    return none;
}

FocusRing::FocusRing(QMainWindow& window, const ToolBars& toolBars, Neighbours& neighbours)
    : m_window(window), m_toolBars(toolBars), m_neighbours(neighbours) {
    auto* style = new MarkedEntries;
    style->setParent(m_window.menuBar());
    m_window.menuBar()->setStyle(style);
    // A command from a menu that the keyboard has opened leads back to where that was, unless it leads elsewhere.
    connect(m_window.menuBar(), &QMenuBar::triggered, this, [this] {
        if (m_before && AreaHasFocus(m_window.menuBar())) LeaveMenuBar();
    });
    qApp->installEventFilter(this);
}

FocusRing::~FocusRing() = default;

bool FocusRing::HasKeyboard() const {
    const auto* tool = qobject_cast<const QToolButton*>(QApplication::focusWidget());
    return AreaHasFocus(m_window.menuBar()) || AreaHasFocus(m_neighbours.StatusBar()) ||
           (tool && qobject_cast<QToolBar*>(tool->parentWidget()));
}

void FocusRing::ToPage() const { FocusPage(); }

void FocusRing::EnterMenuBar() {
    QMenuBar& bar = *m_window.menuBar();
    if (!bar.isVisible()) return;
    m_before = QApplication::focusWidget();
    bar.setFocus(Qt::MenuBarFocusReason);
    MarkFirstEntry(bar);
}

void FocusRing::LeaveMenuBar() {
    const QPointer<QWidget> before = std::exchange(m_before, nullptr);
    before ? before->setFocus(Qt::MenuBarFocusReason) : ToPage();
    UnmarkEntries(*m_window.menuBar());
}

void FocusRing::ForgetMenu(const QFocusEvent& event) {
    // Its own menus and other windows take the keyboard for a while only.
    const Qt::FocusReason reason = event.reason();
    if (!m_before || reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
    m_before = nullptr;
    UnmarkEntries(*m_window.menuBar());
}

void FocusRing::AddWidgets(std::vector<Part>& parts) const {
    for (auto* dock : m_window.findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        QWidget* held = dock->widget();
        if (held && dock->isVisible() && !dock->isFloating()) parts.push_back({dock, [held] { FocusInside(*held); }});
    }
    const auto add = [&parts](QWidget* widget) {
        if (widget && widget->isVisible()) parts.push_back({widget, [widget] { FocusInside(*widget); }});
    };
    add(m_neighbours.Strip());
    for (QWidget* bar : m_neighbours.PageBars()) add(bar);
}

std::vector<FocusRing::Part> FocusRing::Parts() {
    std::vector<Part> parts;
    if (const QMenuBar* bar = m_window.menuBar(); bar->isVisible()) parts.push_back({bar, [this] { EnterMenuBar(); }});
    for (const QToolBar* bar : m_toolBars.InOrder()) {
        if (!ToolStops(*bar).empty()) parts.push_back({bar, [bar] { FocusFirstTool(*bar); }});
    }
    AddWidgets(parts);
    parts.push_back({nullptr, [this] { ToPage(); }});
    if (const auto asked = m_neighbours.Question()) parts.push_back({asked->Bar, asked->Enter});
    if (QWidget* status = m_neighbours.StatusBar(); status && status->isVisible())
        parts.push_back({status, [status] { FocusInside(*status); }});
    return parts;
}

void FocusRing::Step(BarStep step) {
    if (step == BarStep::MenuBar) return AreaHasFocus(m_window.menuBar()) ? LeaveMenuBar() : EnterMenuBar();
    const std::vector<Part> parts = Parts();
    auto at = std::ranges::find_if(parts, [](const Part& part) { return AreaHasFocus(part.area); });
    if (at == parts.end()) at = std::ranges::find(parts, nullptr, &Part::area);
    const auto count = static_cast<std::ptrdiff_t>(parts.size());
    const std::ptrdiff_t next = std::distance(parts.begin(), at) + (step == BarStep::Next ? 1 : count - 1);
    parts[static_cast<std::size_t>(next % count)].enter();
}

bool FocusRing::Press(int key, QWidget& focused, const QToolBar& bar) const {
    auto* button = qobject_cast<QToolButton*>(&focused);
    const std::vector<QWidget*> stops = ToolStops(bar);
    const auto at = std::ranges::find(stops, &focused);
    // A box has uses of its own for the arrows.
    if (!button || at == stops.end()) return false;
    if (key == Qt::Key_Escape) {
        ToPage();
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter || (key == Qt::Key_Down && OpensMenu(*button))) {
        // Later, for a menu runs a loop of its own.
        const bool opens =
            OpensMenu(*button) && (key == Qt::Key_Down || button->popupMode() == QToolButton::InstantPopup);
        QTimer::singleShot(0, button, [button, opens] { opens ? button->showMenu() : button->click(); });
        return true;
    }
    const int step = ArrowStep(key, bar.orientation());
    if (step == 0) return false;
    const auto count = static_cast<std::ptrdiff_t>(stops.size());
    const std::ptrdiff_t next = (std::distance(stops.begin(), at) + step + count) % count;
    stops[static_cast<std::size_t>(next)]->setFocus(Qt::ShortcutFocusReason);
    return true;
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    // The page sees Alt first, and so only we know whether it was pressed alone.
    if (event->type() == QEvent::ShortcutOverride && watched == &m_window)
        return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt;
    if (event->type() == QEvent::FocusOut && watched == m_window.menuBar())
        ForgetMenu(*static_cast<QFocusEvent*>(event));
    if (event->type() != QEvent::KeyPress) return false;
    QWidget* focused = QApplication::focusWidget();
    if (!focused || watched != focused || QApplication::activePopupWidget()) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if ((key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    if (focused == m_window.menuBar() && m_before && key->key() == Qt::Key_Escape) {
        LeaveMenuBar();
        return true;
    }
    // The status bar has nothing to do with keys.
    if (focused == m_neighbours.StatusBar() && key->key() == Qt::Key_Escape) {
        ToPage();
        return true;
    }
    const QToolBar* bar = ToolBarAround(focused);
    return bar && bar->window() == &m_window && Press(key->key(), *focused, *bar);
}

} // namespace tessa::qt
