// What is dragged along the tab strip: its own tabs, and text from anywhere.
#include "qt/QtTabStrip.h"
#include "qt/QtText.h"

#include <QApplication>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <optional>

namespace {

const QString kPlain = QStringLiteral("text/plain");

// The first link of those that are dragged; files are none.
std::optional<QString> DraggedLink(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    if (urls.isEmpty() || urls.constFirst().isLocalFile()) return std::nullopt;
    return urls.constFirst().toString(QUrl::FullyEncoded);
}

// Some programs offer the names of files as plain text too.
bool IsFiles(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return !urls.isEmpty() && urls.constFirst().isLocalFile();
}

// Plain text is not fetched before it is dropped: it may be long, and comes from another program.
bool OffersText(const QMimeData& data) { return !IsFiles(data) && (data.hasFormat(kPlain) || DraggedLink(data)); }

// Nothing, too, when the other program has promised a text and gives none. The plain text of a page's link is what one
// reads there, not where it leads.
std::optional<QString> DraggedText(const QMimeData& data) {
    if (IsFiles(data)) return std::nullopt;
    if (auto link = DraggedLink(data)) return link;
    const QString text = data.text();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

} // namespace

void QtTabStrip::CloseByMiddleButton(QPoint point) {
    Tab* tab = FindTabAt(point);
    if (tab && CloseRequested) CloseRequested(*tab);
}

// The tab follows the pointer from place to place; all tabs are of one width, so none jumps to and fro.
void QtTabStrip::DragTab(QPoint point) {
    if (!m_dragging && (point - m_dragStart).manhattanLength() < QApplication::startDragDistance()) return;
    m_dragging = true;
    const Tab* tab = m_strip.Find(*m_dragged);
    if (!tab) return m_dragged.reset();
    const std::size_t position = m_row.PositionAt({point.x(), m_row.TabPlace(m_strip.PositionOf(tab)).center().y()});
    if (position == 0 || position == m_strip.PositionOf(tab)) return;
    m_strip.Move(tab, position);
    Settle();
}

void QtTabStrip::mouseDoubleClickEvent(QMouseEvent* event) {
    Settle();
    const Spot spot = SpotAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || spot.part != Part::None) return mousePressEvent(event);
    if (BlankRequested) BlankRequested();
}

void QtTabStrip::OfferDrag(QDropEvent& event) {
    Settle();
    const bool hasText = OffersText(*event.mimeData());
    if (DragOver) DragOver(hasText, event.position());
    if (hasText)
        event.acceptProposedAction();
    else
        event.ignore();
}

void QtTabStrip::dragEnterEvent(QDragEnterEvent* event) { OfferDrag(*event); }

void QtTabStrip::dragMoveEvent(QDragMoveEvent* event) { OfferDrag(*event); }

void QtTabStrip::dropEvent(QDropEvent* event) {
    OfferDrag(*event);
    const auto text = DraggedText(*event->mimeData());
    if (text && Drop) Drop(FromQt(*text));
}
