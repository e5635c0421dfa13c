// The mouse and the keyboard on the tab strip.
#include "qt/base/Strings.h"
#include "qt/base/Tip.h"
#include "qt/strip/TabStripView.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

namespace tessa::qt {

namespace {
constexpr int kWheelNotch = 120;
} // namespace

bool TabStripView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowToolTip(help->pos(), help->globalPos());
    return true;
}

void TabStripView::ShowToolTip(QPoint point, QPoint globalPoint) {
    Tab* tab = FindTabAt(point);
    if (NewPlace().contains(point)) {
        const Text keys = m_source.NewTabKeys();
        const Text name = keys.empty() ? Text(u"New tab") : u"New tab (" + keys + u")";
        return QToolTip::showText(globalPoint, ToQt(name + u"; more with the right button"), this, NewPlace());
    }
    const Spot spot = SpotAt(point);
    if (const TabGroup* group = spot.part == Part::Head ? m_heads.GroupAt(spot.position) : nullptr)
        return QToolTip::showText(globalPoint, Tip::Html(ToQt(Describe(*group))), this, HeadAt(spot.position));
    const Text shown = tab ? m_source.TipOf(*tab) : Text();
    if (shown.empty()) return QToolTip::hideText();
    // A title comes from the page; it is text, whatever it looks like.
    QToolTip::showText(globalPoint, Tip::Html(ToQt(shown)), this, m_row.TabPlace(m_row.PositionAt(point)));
}

TabStripView::Spot TabStripView::SpotAt(QPoint point) const {
    if (m_row.ArrowPlace(TabRow::Arrow::Back).contains(point)) return {Part::Back, 0};
    if (m_row.ArrowPlace(TabRow::Arrow::Forward).contains(point)) return {Part::Forward, 0};
    if (m_row.ListPlace().contains(point)) return {Part::List, 0};
    if (m_row.NewPlace().contains(point)) return {Part::New, 0};
    const TabRowItem* item = m_row.ItemAt(point);
    if (!item) return {};
    const std::size_t position = item->Position;
    if (item->What == TabRowItem::Kind::Head) return {Part::Head, position};
    const Tab* tab = m_strip.FindAt(position);
    const bool heard = tab && tab->Sound() != TabSound::None;
    if (heard && m_row.SoundPlace(position).contains(point)) return {Part::Sound, position};
    return {m_row.ClosePlace(position).contains(point) ? Part::Close : Part::Tab, position};
}

TabStripView::Spot TabStripView::SpotUnderPointer() const {
    return underMouse() ? SpotAt(mapFromGlobal(QCursor::pos())) : Spot{};
}

QRect TabStripView::SpotPlace(const Spot& spot) const {
    if (spot.part == Part::Back) return m_row.ArrowPlace(TabRow::Arrow::Back);
    if (spot.part == Part::Forward) return m_row.ArrowPlace(TabRow::Arrow::Forward);
    if (spot.part == Part::List) return m_row.ListPlace();
    if (spot.part == Part::New) return m_row.NewPlace();
    if (spot.part == Part::Head) return HeadAt(spot.position) & m_row.Area();
    return m_row.TabPlace(spot.position) & m_row.Area();
}

QRect TabStripView::HeadAt(std::size_t position) const {
    const auto head = std::ranges::find_if(m_row.Items(), [position](const TabRowItem& each) {
        return each.What == TabRowItem::Kind::Head && each.Position == position;
    });
    return m_row.ItemPlace(static_cast<std::size_t>(head - m_row.Items().begin()));
}

void TabStripView::SetHover(const Spot& spot) {
    if (spot == m_hover) return;
    update(SpotPlace(m_hover));
    m_hover = spot;
    update(SpotPlace(m_hover));
}

void TabStripView::mouseMoveEvent(QMouseEvent* event) {
    Settle();
    const QPoint point = event->position().toPoint();
    if (m_dragged) Drag(point);
    SetHover(SpotAt(point));
}

void TabStripView::leaveEvent(QEvent*) { SetHover({}); }

// With Ctrl or Shift a click on a tab chooses it, and nothing else. All that are chosen may be about to be dragged.
bool TabStripView::PressToChoose(QPoint point, Qt::KeyboardModifiers held) {
    m_endsChoice = false;
    const Spot spot = SpotAt(point);
    Tab* tab = spot.part == Part::Tab ? m_strip.FindAt(spot.position) : nullptr;
    if (!tab) return false;
    const bool chooses = held & (Qt::ControlModifier | Qt::ShiftModifier);
    m_endsChoice = !chooses && tab->Chosen();
    if (chooses)
        ChooseRequested(*tab, held);
    else if (!m_endsChoice)
        PlainClick();
    return chooses;
}

void TabStripView::mousePressEvent(QMouseEvent* event) {
    Settle();
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::RightButton) PressRight(point);
    if (event->button() == Qt::MiddleButton) CloseByMiddleButton(point);
    if (event->button() == Qt::LeftButton && !PressToChoose(point, event->modifiers())) PressLeft(point);
}

void TabStripView::PressRight(QPoint point) {
    const Spot spot = SpotAt(point);
    const TabGroup* group = spot.part == Part::Head ? m_heads.GroupAt(spot.position) : nullptr;
    if (group) return GroupMenuRequested(*group);
    if (spot.part == Part::New) return NewMenuRequested();
    RightButtonDown(point);
}

void TabStripView::PressLeft(QPoint point) {
    const Spot spot = SpotAt(point);
    Tab* tab = m_strip.FindAt(spot.position);
    m_closing.reset();
    m_folding.reset();
    if (PressBesideTabs(spot.part)) return;
    if (spot.part == Part::Head && m_heads.GroupAt(spot.position)) {
        m_folding = m_heads.GroupAt(spot.position)->Id();
        m_dragged = tab->Key();
        m_dragStart = point;
    } else if (spot.part == Part::Close && tab) {
        m_closing = tab->Key();
    } else if (spot.part == Part::Sound && tab) {
        MuteRequested(*tab);
    } else if (tab) {
        m_dragged = tab->Key();
        m_dragStart = point;
        Click(*tab);
    }
}

bool TabStripView::PressBesideTabs(Part part) {
    if (part == Part::Back || part == Part::Forward) {
        TabRow aimed = m_row;
        aimed.ScrollPage(part == Part::Back ? TabRow::Arrow::Back : TabRow::Arrow::Forward);
        Scroll(aimed.Offset());
    } else if (part == Part::List) {
        const QRect place = m_row.ListPlace();
        ListRequested(mapToGlobal(QPoint(place.right() + 1, place.bottom() + 1)));
    } else if (part == Part::New) {
        BlankRequested();
    } else {
        return false;
    }
    return true;
}

void TabStripView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return event->ignore();
    const bool dragged = m_dragging;
    EndDrag(event->position().toPoint());
    if (std::exchange(m_endsChoice, false) && !dragged) PlainClick();
    ReleaseHead(event->position().toPoint());
    const std::optional<Text> closing = std::exchange(m_closing, std::nullopt);
    if (!closing) return;
    Settle();
    const Spot spot = SpotAt(event->position().toPoint());
    Tab* tab = m_strip.FindAt(spot.position);
    if (spot.part == Part::Close && tab && tab->Key() == *closing) CloseRequested(*tab);
}

void TabStripView::ReleaseHead(QPoint point) {
    const std::optional<std::int32_t> folding = std::exchange(m_folding, std::nullopt);
    if (!folding) return;
    Settle();
    const Spot spot = SpotAt(point);
    TabGroup* group = m_strip.FindGroup(*folding);
    if (group && spot.part == Part::Head && m_heads.GroupAt(spot.position) == group) ToggleFolded(*group);
}

void TabStripView::wheelEvent(QWheelEvent* event) {
    Settle();
    event->accept();
    if (!m_row.Overflows()) return;
    const QPoint pixels = event->pixelDelta();
    if (!pixels.isNull()) return Scroll(m_row.Offset() - (pixels.x() != 0 ? pixels.x() : pixels.y()));
    const QPoint angle = event->angleDelta();
    m_wheel += angle.x() != 0 ? angle.x() : angle.y();
    const int notches = m_wheel / kWheelNotch;
    m_wheel %= kWheelNotch;
    Scroll(m_row.Offset() - notches * QApplication::wheelScrollLines() * m_row.TabWidth());
}

void TabStripView::keyPressEvent(QKeyEvent* event) {
    Settle();
    switch (event->key()) {
    case Qt::Key_Left:
        return StepTo(m_selected - 1);
    case Qt::Key_Right:
        return StepTo(m_selected + 1);
    case Qt::Key_Home:
        return StepTo(1);
    case Qt::Key_End:
        return StepTo(m_strip.Count());
    default:
        QWidget::keyPressEvent(event);
    }
}

void TabStripView::StepTo(std::size_t position) {
    if (Tab* tab = m_strip.FindAt(position)) Click(*tab);
}

void TabStripView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update(m_row.TabPlace(m_selected));
    Changed();
}

void TabStripView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update(m_row.TabPlace(m_selected));
}

} // namespace tessa::qt
