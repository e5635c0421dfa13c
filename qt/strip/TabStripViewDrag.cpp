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

void TabStripView::Drag(QPoint point) {
    if (!m_dragging && !BeginDrag(point)) return;
    if (!m_drag.Any() || DragOut(point)) return;
    DragAlong(point.x());
}

bool TabStripView::BeginDrag(QPoint point) {
    if ((point - m_dragStart).manhattanLength() < QApplication::startDragDistance()) return false;
    const Tab* tab = m_strip.Find(*m_dragged);
    if (!tab) return m_dragged.reset(), false;
    std::exchange(m_folding, std::nullopt) ? m_drag.TakeGroup(*tab) : m_drag.Take(*tab);
    m_behindHead = m_wasBehindHead = tab->Group() && m_drag.BeforeGroup();
    return m_dragging = true;
}

// A hand that moves along the row does not keep to it: outside begins half a row beyond.
bool TabStripView::DragOut(QPoint point) {
    const bool outside = point.y() < -height() / 2 || point.y() >= height() + height() / 2;
    const bool was = std::exchange(m_draggedOut, outside);
    if (outside) ShowJoining(std::nullopt);
    if (outside) DraggedOut(m_drag.Indexes(), mapToGlobal(point));
    if (was && !outside) DraggedBack(m_drag.Indexes());
    return outside;
}

QRect TabStripView::SpanPlace(TabDrag::Span span) const {
    QRect place;
    for (std::size_t item = 0; item < m_row.Items().size(); ++item) {
        const std::size_t position = m_row.Items()[item].Position;
        if (position >= span.First && position <= span.Last) place |= m_row.ItemPlace(item);
    }
    return place;
}

// What is dragged follows the pointer from place to place. Single tabs are of one width, so none jumps to and fro;
// other things change places when the pointer is past the middle, from where it does not lead back.
void TabStripView::DragAlong(int x) {
    const TabRowItem* item = m_row.ItemAt({x, height() / 2});
    const Tab* under = item ? m_strip.FindAt(item->Position) : nullptr;
    const bool head = item && item->What == TabRowItem::Kind::Head;
    if (head && m_drag.MayJoin(m_heads.GroupAt(item->Position))) {
        DragOverHead(x, *item);
    } else if (under && !m_drag.Holds(*under) && (!head || m_drag.IsGroup())) {
        const TabDrag::Span span = m_drag.At(item->Position);
        const bool single = !m_drag.IsGroup() && !m_drag.HoldsSeveral();
        const bool isRight = span.First > m_drag.Position(), pastMiddle = x > SpanPlace(span).center().x();
        // Who comes from the tabs of a group has not passed its head.
        if (single || isRight == pastMiddle) {
            m_behindHead = !isRight;
            m_drag.StepOver(span);
        }
    }
    Settle();
    ShowJoining(x);
}

// Whoever lets go over a head means its group. Once the tabs stand behind it, they leave it at its other end.
void TabStripView::DragOverHead(int x, const TabRowItem& head) {
    const Tab* first = m_strip.FindAt(head.Position);
    const QRect place = m_row.ItemPlace(static_cast<std::size_t>(&head - m_row.Items().data()));
    if (first && m_drag.Holds(*first)) {
        m_behindHead = x >= place.left() + place.width() / 4;
    } else {
        m_behindHead = true;
        m_drag.PutBefore(head.Position);
    }
}

// Which group the tabs would come to is seen before they are let go: they stand there. Without a point they stand where
// they belong.
void TabStripView::ShowJoining(std::optional<int> x) {
    const bool shown = x && !m_drag.IsGroup() && (m_drag.Moved() || m_behindHead != m_wasBehindHead);
    const bool nearLeft = x && *x <= SpanPlace(m_drag.Held()).center().x();
    const TabGroup* group = shown ? m_drag.GroupHere({.NearLeft = nearLeft, .Behind = m_behindHead}) : nullptr;
    const auto joins = shown ? std::optional(group ? group->Id() : 0) : std::nullopt;
    if (joins == m_heads.Joins()) return;
    m_heads.Join(joins);
    Relayout();
}

void TabStripView::EndDrag(QPoint point) {
    m_dragged.reset();
    const bool out = std::exchange(m_draggedOut, false);
    if (!std::exchange(m_dragging, false)) return;
    const bool any = m_drag.Any();
    const auto group = m_heads.Joins();
    const Views views = m_drag.Indexes();
    ShowJoining(std::nullopt);
    m_drag.LetGo();
    if (out && any) DroppedOut(views, mapToGlobal(point));
    if (!out && any && group) Regrouped(views, *group);
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
