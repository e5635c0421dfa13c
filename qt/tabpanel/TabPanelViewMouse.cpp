// The mouse on the list of tabs.
#include "qt/base/Strings.h"
#include "qt/tabpanel/TabPanelView.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QUrl>
#include <algorithm>
#include <utility>

namespace tessa::qt {

TabPanelView::Press TabPanelView::PressAt(QPoint point) const {
    const QModelIndex index = indexAt(point);
    if (!index.isValid()) return {};
    return {m_model->ViewAt(index), m_lines->PartAt(index, visualRect(index), point), point};
}

void TabPanelView::mousePressEvent(QMouseEvent* event) {
    const Press press = PressAt(event->position().toPoint());
    event->accept();
    if (event->button() == Qt::MiddleButton && press.view > 0) return m_form.CloseOne(press.view);
    if (event->button() != Qt::LeftButton || press.view == 0) return;
    m_press = press;
    selectionModel()->setCurrentIndex(m_model->IndexOf(press.view), QItemSelectionModel::NoUpdate);
}

void TabPanelView::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void TabPanelView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    // What lights up under the pointer is only a part of its line.
    viewport()->update(visualRect(indexAt(point)));
    const bool held = event->buttons().testFlag(Qt::LeftButton) && m_press;
    if (!held || m_press->part != TabPanelLines::Part::Line) return;
    if (m_dragged.empty() && (point - m_press->at).manhattanLength() < QApplication::startDragDistance()) return;
    if (m_dragged.empty()) {
        m_dragged = m_form.Dragged(m_press->view);
        m_dragging = m_press->view;
    }
    if (!m_dragged.empty()) Drag(point);
}

void TabPanelView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::LeftButton) return;
    const auto press = std::exchange(m_press, std::nullopt);
    const QPoint point = event->position().toPoint();
    if (!m_dragged.empty()) return Drop(point);
    const Press now = PressAt(point);
    if (press && now.view == press->view && now.part == press->part) ClickOn(*press, event->modifiers());
}

void TabPanelView::ClickOn(const Press& press, Qt::KeyboardModifiers held) {
    if (press.part == TabPanelLines::Part::Close) return m_form.CloseOne(press.view);
    if (press.part == TabPanelLines::Part::Sound) return m_form.ToggleSound(press.view);
    if (held & Qt::ShiftModifier) return m_form.ShiftClick(press.view);
    if (held & Qt::ControlModifier) return m_form.CtrlClick(press.view);
    m_form.Click(press.view);
}

// Inside the list it is put in order, in the rest of the window it goes to the pages. Beyond, it is a link.
void TabPanelView::Drag(QPoint point) {
    if (viewport()->rect().contains(point)) return DragInside(point);
    ShowPlace(std::nullopt);
    const QPoint at = viewport()->mapToGlobal(point);
    if (!window()->frameGeometry().contains(at)) return DragAsLinks();
    m_out = true;
    DraggedOut(m_dragged, at);
}

void TabPanelView::DragInside(QPoint point) {
    if (std::exchange(m_out, false)) DraggedBack();
    ShowPlace(PlaceAt(point));
    if (!m_scroll.isActive()) m_scroll.start();
}

void TabPanelView::ScrollAtEdge() {
    const QPoint point = viewport()->mapFromGlobal(QCursor::pos());
    const int line = sizeHintForRow(0);
    const bool up = point.y() < line, down = point.y() >= viewport()->height() - line;
    if (m_dragged.empty() || m_out || (!up && !down)) return;
    auto* bar = verticalScrollBar();
    const int before = bar->value();
    bar->setValue(before + (up ? -line : line) / 2);
    if (bar->value() != before) ShowPlace(PlaceAt(point));
}

TabPanelPlace TabPanelView::PlaceAt(QPoint point) const {
    const QModelIndex index = indexAt(point);
    if (!index.isValid()) return m_form.PlaceOver(m_form.Entries().size(), 0, m_dragging);
    const QRect line = visualRect(index);
    const double part = static_cast<double>(point.y() - line.top()) / std::max(line.height(), 1);
    return m_form.PlaceOver(static_cast<std::size_t>(index.row()), part, m_dragging);
}

void TabPanelView::ShowPlace(std::optional<TabPanelPlace> place) {
    if (std::exchange(m_place, place) != place) viewport()->update();
}

void TabPanelView::Drop(QPoint point) {
    const Views dragged = m_dragged;
    const auto place = m_place;
    const bool out = m_out;
    EndDrag();
    if (out) return DroppedOut(dragged, viewport()->mapToGlobal(point));
    if (place) m_form.Move(dragged, *place);
}

void TabPanelView::EndDrag() {
    m_press.reset();
    m_dragged.clear();
    m_scroll.stop();
    ShowPlace(std::nullopt);
    if (std::exchange(m_out, false)) DraggedBack();
}

QMimeData* TabPanelView::LinksOf(const std::vector<Text>& addresses) {
    auto* links = new QMimeData;
    QList<QUrl> urls;
    QStringList lines;
    for (const Text& each : addresses) {
        lines += ToQt(each);
        urls += QUrl(ToQt(each));
    }
    links->setUrls(urls);
    links->setText(lines.join(u'\n'));
    return links;
}

void TabPanelView::DragAsLinks() {
    const auto addresses = m_form.AddressesOf(m_dragged);
    EndDrag();
    if (addresses.empty()) return;
    auto* drag = new QDrag(this);
    drag->setMimeData(LinksOf(addresses));
    drag->exec(Qt::CopyAction | Qt::LinkAction, Qt::CopyAction);
}

} // namespace tessa::qt
