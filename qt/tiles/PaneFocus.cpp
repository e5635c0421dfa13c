#include "qt/tiles/PaneFocus.h"

#include "forms/TabStrip.h"
#include "qt/tiles/TileRects.h"
#include "tabs/TabKeys.h"
#include "tiles/Tiles.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

namespace tessa::qt {

PaneFocus::PaneFocus(const QWidget& area, const TilePlaces& places) : m_area(area), m_places(places) {}

void PaneFocus::Attach(const Tiles& tiles, TabStrip& strip) {
    m_tiles = &tiles;
    m_strip = &strip;
}

void PaneFocus::Follow(bool on) { on ? qApp->installEventFilter(this) : qApp->removeEventFilter(this); }

// Whatever in the pane was clicked has the keyboard already, and keeps it.
void PaneFocus::Select(std::int32_t index) {
    auto* tab = index == 0 || index == m_tiles->Focus() ? nullptr : TabOfView(*m_strip, index);
    if (!tab) return;
    const QPointer<QWidget> had = QApplication::focusWidget();
    m_strip->Select(tab);
    if (had && PaneAround(*had, had->rect().center()) == index) had->setFocus(Qt::OtherFocusReason);
}

bool PaneFocus::IsOverPane(const QWidget& widget) const {
    return &widget != &m_area && m_area.parentWidget()->isAncestorOf(&widget) && !m_area.isAncestorOf(&widget) &&
           widget.window() == m_area.window();
}

std::int32_t PaneFocus::PaneAround(const QWidget& widget, QPoint at) const {
    if (!IsOverPane(widget)) return 0;
    const QPoint point = widget.mapTo(m_area.parentWidget(), at);
    const auto pane = std::ranges::find_if(
        m_places.Panes, [point](const TilePane& each) { return ToQRect(each.Page).contains(point); });
    return pane == m_places.Panes.end() ? 0 : pane->Number;
}

bool PaneFocus::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType()) return false;
    const auto& widget = static_cast<const QWidget&>(*watched);
    NoteKeys(*event);
    if (event->type() == QEvent::MouseButtonPress)
        Select(PaneAround(widget, static_cast<const QMouseEvent&>(*event).position().toPoint()));
    else if (event->type() == QEvent::TouchBegin)
        Select(PaneAround(widget, widget.rect().center()));
    else if (event->type() == QEvent::FocusOut)
        m_left = static_cast<QWidget*>(watched);
    else if (event->type() == QEvent::FocusIn)
        OnFocusIn(widget, static_cast<const QFocusEvent&>(*event).reason());
    return false;
}

void PaneFocus::OnFocusIn(const QWidget& widget, Qt::FocusReason reason) {
    const std::int32_t pane = PaneAround(widget, widget.rect().center());
    if (pane == 0 || pane == m_tiles->Focus()) return;
    m_reason = reason;
    // Later: a page that is hidden hands the keyboard to any other, for a moment.
    QMetaObject::invokeMethod(
        this, [this] { LookAtFocus(); }, Qt::QueuedConnection);
}

void PaneFocus::NoteKeys(const QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress) m_isTabbed = false;
    if (event.type() != QEvent::KeyPress) return;
    const int key = static_cast<const QKeyEvent&>(event).key();
    m_isTabbed = key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

// Who goes from one page to the next by keys wants that one. No page may take the keyboard by itself.
void PaneFocus::LookAtFocus() {
    QWidget* has = QApplication::focusWidget();
    const std::int32_t pane = has && !m_area.isHidden() ? PaneAround(*has, has->rect().center()) : 0;
    if (pane == 0 || pane == m_tiles->Focus()) return;
    if (m_reason == Qt::TabFocusReason || m_reason == Qt::BacktabFocusReason) {
        // What goes, as a page does whose process dies, hands the keyboard on as if somebody had pressed the key.
        m_isTabbed ? Select(pane) : m_strip->UserClick(m_strip->SelectedItem());
    } else if (m_reason == Qt::OtherFocusReason && m_left && m_left->isVisible()) {
        m_left->setFocus(Qt::OtherFocusReason);
    }
}

} // namespace tessa::qt
