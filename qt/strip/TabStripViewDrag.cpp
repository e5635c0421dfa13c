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
    return m_dragging = true;
}

// A hand that moves along the row does not keep to it: outside begins half a row beyond.
bool TabStripView::DragOut(QPoint point) {
    const bool outside = point.y() < -height() / 2 || point.y() >= height() + height() / 2;
    const bool was = std::exchange(m_draggedOut, outside);
    if (outside) ShowJoining(-1, nullptr);
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
    if (under && !m_drag.Holds(*under) && (!head || m_drag.IsGroup())) {
        const TabDrag::Span span = m_drag.At(item->Position);
        const bool single = !m_drag.IsGroup() && !m_drag.HoldsSeveral();
        const bool isRight = span.First > m_drag.Position(), pastMiddle = x > SpanPlace(span).center().x();
        if (single || isRight == pastMiddle) m_drag.StepOver(span);
        Settle();
        item = m_row.ItemAt({x, height() / 2});
    }
    ShowJoining(x, item);
}

// Which group the tabs would come to is seen before they are let go.
void TabStripView::ShowJoining(int x, const TabRowItem* under) {
    const bool head = under && under->What == TabRowItem::Kind::Head;
    const std::size_t aim = head && m_drag.MayJoin(GroupAt(under->Position)) ? under->Position : 0;
    const bool shown = x >= 0 && !m_drag.IsGroup() && (aim != 0 || m_drag.Moved());
    const TabGroup* group = !shown     ? nullptr
                            : aim != 0 ? GroupAt(aim)
                                       : m_drag.GroupHere(x <= SpanPlace(m_drag.Held()).center().x());
    const std::int32_t joins = group ? group->Id() : 0;
    if (aim == m_aim && joins == m_joins && shown == m_joinShown) return;
    m_aim = aim;
    m_joins = joins;
    m_joinShown = shown;
    update();
}

void TabStripView::EndDrag(QPoint point) {
    m_dragged.reset();
    const bool out = std::exchange(m_draggedOut, false);
    if (!std::exchange(m_dragging, false)) return;
    if (out && m_drag.Any()) DroppedOut(m_drag.Indexes(), mapToGlobal(point));
    if (!out && m_joinShown && m_drag.Any()) DropInRow();
    ShowJoining(-1, nullptr);
    m_drag.LetGo();
}

void TabStripView::DropInRow() {
    if (m_aim != 0) m_drag.PutBefore(m_aim);
    Regrouped(m_drag.Indexes(), m_joins);
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
