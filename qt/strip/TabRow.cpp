#include "qt/strip/TabRow.h"

#include <algorithm>
#include <utility>

namespace tessa::qt {

namespace {
constexpr int kNarrowestTab = 8; // in heights of the font
constexpr int kWidest = 14;
constexpr int kArrowWidth = 20;
constexpr int kNewWidth = 26;
constexpr int kCloseSize = 16;
constexpr int kCloseMargin = 5;
} // namespace

void TabRow::Lay(QSize size, std::vector<TabRowItem> items, int em) {
    m_size = size;
    m_items = std::move(items);
    const auto tabs = static_cast<int>(std::ranges::count(m_items, TabRowItem::Kind::Tab, &TabRowItem::What));
    const int narrowest = std::max(1, kNarrowestTab * em);
    const int room = std::max(size.width() - kNewWidth - FixedWidth(), 0);
    const int share = tabs == 0 ? room : room / tabs;
    m_overflows = (share < narrowest && m_items.size() > 1) || (tabs == 0 && room == 0);
    m_tabWidth = std::clamp(share, narrowest, kWidest * em);
    m_lefts.assign(1, 0);
    for (const TabRowItem& each : m_items)
        m_lefts.push_back(m_lefts.back() + (each.What == TabRowItem::Kind::Tab ? m_tabWidth : each.Width));
    ScrollTo(m_offset);
}

int TabRow::FixedWidth() const {
    int width = 0;
    for (const TabRowItem& each : m_items) width += each.What == TabRowItem::Kind::Tab ? 0 : each.Width;
    return width;
}

void TabRow::ScrollTo(int offset) { m_offset = std::clamp(offset, 0, MaximumOffset()); }

void TabRow::ScrollPage(Arrow arrow) {
    const int page = std::max(Area().width() / m_tabWidth - 1, 1) * m_tabWidth;
    ScrollTo(m_offset + (arrow == Arrow::Back ? -page : page));
}

void TabRow::Reveal(std::size_t position) {
    const QRect place = TabPlace(position);
    if (place.isEmpty()) return;
    // With the head before it, which says of which group it is.
    const auto item = static_cast<std::size_t>(Find(position) - m_items.data());
    const bool head = item > 0 && m_items[item - 1].What == TabRowItem::Kind::Head;
    const int left = (head ? ItemPlace(item - 1) : place).left();
    const bool fits = place.right() + 1 - left <= Area().width();
    if (place.left() < 0 || (left < 0 && fits))
        ScrollTo(m_offset + (fits ? left : place.left()));
    else if (place.right() >= Area().width())
        ScrollTo(m_offset + place.right() + 1 - Area().width());
}

bool TabRow::CanScroll(Arrow arrow) const { return arrow == Arrow::Back ? m_offset > 0 : m_offset < MaximumOffset(); }

QRect TabRow::Area() const {
    return {0, 0, std::max(m_size.width() - kNewWidth - (m_overflows ? 3 * kArrowWidth : 0), 0), m_size.height()};
}

QRect TabRow::ArrowPlace(Arrow arrow) const {
    if (!m_overflows) return {};
    const int left = Area().width() + kNewWidth + (arrow == Arrow::Back ? 0 : kArrowWidth);
    return {left, 0, kArrowWidth, m_size.height()};
}

QRect TabRow::ListPlace() const {
    if (!m_overflows) return {};
    return {Area().width() + kNewWidth + 2 * kArrowWidth, 0, kArrowWidth, m_size.height()};
}

QRect TabRow::NewPlace() const { return {std::min(Length(), Area().width()), 0, kNewWidth, m_size.height()}; }

const TabRowItem* TabRow::Find(std::size_t position) const {
    // A head comes before the tab of its position.
    const auto behind = std::ranges::upper_bound(m_items, position, {}, &TabRowItem::Position);
    if (position == 0 || behind == m_items.begin()) return nullptr;
    const TabRowItem& item = *std::prev(behind);
    return item.Position == position && item.What != TabRowItem::Kind::Head ? &item : nullptr;
}

QRect TabRow::ItemPlace(std::size_t item) const {
    if (item >= m_items.size()) return {};
    return {m_lefts[item] - m_offset, 0, m_lefts[item + 1] - m_lefts[item], m_size.height()};
}

QRect TabRow::TabPlace(std::size_t position) const {
    const TabRowItem* item = Find(position);
    return item ? ItemPlace(static_cast<std::size_t>(item - m_items.data())) : QRect();
}

QRect TabRow::ClosePlace(std::size_t position) const {
    const TabRowItem* item = Find(position);
    if (!item || item->What == TabRowItem::Kind::Pin) return {};
    const QRect tab = TabPlace(position);
    return {tab.right() - kCloseMargin - kCloseSize + 1, tab.top() + (tab.height() - kCloseSize) / 2, kCloseSize,
            kCloseSize};
}

QRect TabRow::SoundPlace(std::size_t position) const {
    const QRect close = ClosePlace(position);
    return close.isEmpty() ? close : close.translated(-kCloseSize - 1, 0);
}

const TabRowItem* TabRow::ItemAt(QPoint point) const {
    if (!Area().contains(point)) return nullptr;
    const auto behind = std::ranges::upper_bound(m_lefts, point.x() + m_offset);
    const auto item = static_cast<std::size_t>(behind - m_lefts.begin()) - 1;
    return item < m_items.size() ? &m_items[item] : nullptr;
}

std::size_t TabRow::PositionAt(QPoint point) const {
    const TabRowItem* item = ItemAt(point);
    return item && item->What != TabRowItem::Kind::Head ? item->Position : 0;
}

std::size_t TabRow::FirstVisible() const {
    const auto behind = std::ranges::upper_bound(m_lefts, m_offset);
    return static_cast<std::size_t>(behind - m_lefts.begin()) - 1;
}

std::size_t TabRow::EndVisible() const {
    const auto end = std::ranges::lower_bound(m_lefts, m_offset + Area().width());
    return std::max(FirstVisible(), std::min(m_items.size(), static_cast<std::size_t>(end - m_lefts.begin())));
}

int TabRow::MaximumOffset() const { return std::max(Length() - Area().width(), 0); }

} // namespace tessa::qt
