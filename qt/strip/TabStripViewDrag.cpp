// What is dragged along the tab strip: its own tabs, and text from anywhere.
#include "qt/base/Strings.h"
#include "qt/strip/TabStripView.h"

#include <QApplication>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <algorithm>
#include <optional>
#include <utility>

namespace tessa::qt {

namespace {

const QString kPlain = QStringLiteral("text/plain");

// Whether a link and nothing else was dragged out of a page, either of the web or of a file.
bool IsPageLink(const QMimeData& data) {
    const QString html = data.html().trimmed();
    const QString end = QStringLiteral("</a>");
    return data.hasUrls() && html.startsWith(u"<a ", Qt::CaseInsensitive) && html.endsWith(end, Qt::CaseInsensitive) &&
           html.count(end, Qt::CaseInsensitive) == 1;
}

bool IsFiles(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return !urls.isEmpty() && urls.constFirst().isLocalFile() && !IsPageLink(data);
}

std::optional<QString> DraggedLink(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    if (urls.isEmpty() || IsFiles(data)) return std::nullopt;
    return urls.constFirst().toString(QUrl::FullyEncoded);
}

// Some programs offer the names of files as plain text too. These are still files alone.
bool NamesFiles(const QString& text, const QList<QUrl>& files) {
    const auto isNamed = [&](const QString& line) {
        return std::ranges::any_of(files, [name = line.trimmed()](const QUrl& file) {
            return name.isEmpty() || name == file.toString() || name == file.toString(QUrl::FullyEncoded) ||
                   name == file.toLocalFile() || name == file.fileName();
        });
    };
    return std::ranges::all_of(text.split(u'\n'), isNamed);
}

// Plain text is not fetched before it is dropped: it may be long, and comes from another program. Beside files it is
// short, when it names them, and tells what they are.
bool OffersPlainText(const QMimeData& data) {
    return data.hasFormat(kPlain) && (!IsFiles(data) || !NamesFiles(data.text(), data.urls()));
}

bool OffersText(const QMimeData& data) { return OffersPlainText(data) || DraggedLink(data); }

// The plain text. For a page's link that is what one reads there, not where it leads. A link without text is taken too.
// Nothing when the other program has promised a text and gives none.
std::optional<QString> DraggedText(const QMimeData& data) {
    const QString text = OffersPlainText(data) && !IsPageLink(data) ? data.text() : QString();
    return text.isEmpty() ? DraggedLink(data) : text;
}

} // namespace

void TabStripView::CloseByMiddleButton(QPoint point) {
    Tab* tab = FindTabAt(point);
    if (tab) CloseRequested(*tab);
}

// The tab follows the pointer from place to place. All tabs are of one width, so none jumps to and fro.
void TabStripView::DragTab(QPoint point) {
    if (!m_dragging && (point - m_dragStart).manhattanLength() < QApplication::startDragDistance()) return;
    m_dragging = true;
    Tab* tab = m_strip.Find(*m_dragged);
    if (!tab) return m_dragged.reset();
    if (DragOut(*tab, point)) return;
    const std::size_t position = m_row.PositionAt({point.x(), m_row.TabPlace(m_strip.PositionOf(tab)).center().y()});
    if (position == 0 || position == m_strip.PositionOf(tab)) return;
    m_strip.Move(tab, position);
    Settle();
}

// A hand that moves along the row does not keep to it: outside begins half a row beyond.
bool TabStripView::DragOut(Tab& tab, QPoint point) {
    const bool outside = point.y() < -height() / 2 || point.y() >= height() + height() / 2;
    const bool was = std::exchange(m_draggedOut, outside);
    if (outside) DraggedOut(tab, mapToGlobal(point));
    if (was && !outside) DraggedBack(tab);
    return outside;
}

void TabStripView::EndDrag(QPoint point) {
    const std::optional<Text> dragged = std::exchange(m_dragged, std::nullopt);
    m_dragging = false;
    if (!std::exchange(m_draggedOut, false) || !dragged) return;
    if (Tab* tab = m_strip.Find(*dragged)) DroppedOut(*tab, mapToGlobal(point));
}

void TabStripView::mouseDoubleClickEvent(QMouseEvent* event) {
    Settle();
    const Spot spot = SpotAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || spot.part != Part::None) return mousePressEvent(event);
    BlankRequested();
}

void TabStripView::OfferDrag(QDropEvent& event) {
    Settle();
    const bool hasText = OffersText(*event.mimeData());
    DragOver(hasText, event.position());
    if (hasText)
        event.acceptProposedAction();
    else
        event.ignore();
}

void TabStripView::dragEnterEvent(QDragEnterEvent* event) { OfferDrag(*event); }

void TabStripView::dragMoveEvent(QDragMoveEvent* event) { OfferDrag(*event); }

void TabStripView::dropEvent(QDropEvent* event) {
    OfferDrag(*event);
    const auto text = DraggedText(*event->mimeData());
    if (text) Drop(FromQt(*text));
}

} // namespace tessa::qt
