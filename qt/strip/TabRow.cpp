#include "qt/strip/TabRow.h"

#include <algorithm>

namespace tessa::qt {

namespace {
constexpr int kNarrowestTab = 8; // in heights of the font
constexpr int kWidest = 14;
constexpr int kArrowWidth = 20;
constexpr int kNewWidth = 26;
constexpr int kCloseSize = 16;
constexpr int kCloseMargin = 5;
} // namespace

void TabRow::Lay(QSize size, std::size_t count, int em) {
    m_size = size;
    m_count = count;
    const int narrowest = std::max(1, kNarrowestTab * em);
    const int room = std::max(size.width() - kNewWidth, 0);
    const int share = count == 0 ? room : room / static_cast<int>(count);
    m_overflows = share < narrowest && count > 1;
    m_tabWidth = std::clamp(share, narrowest, kWidest * em);
    ScrollTo(m_offset);
}

void TabRow::ScrollTo(int offset) { m_offset = std::clamp(offset, 0, MaximumOffset()); }

void TabRow::ScrollPage(Arrow arrow) {
    const int page = std::max(Area().width() / m_tabWidth - 1, 1) * m_tabWidth;
    ScrollTo(m_offset + (arrow == Arrow::Back ? -page : page));
}

void TabRow::Reveal(std::size_t position) {
    if (position == 0) return;
    const int left = static_cast<int>(position - 1) * m_tabWidth;
    if (left < m_offset)
        ScrollTo(left);
    else if (left + m_tabWidth > m_offset + Area().width())
        ScrollTo(left + m_tabWidth - Area().width());
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

QRect TabRow::NewPlace() const {
    const int end = static_cast<int>(m_count) * m_tabWidth;
    return {std::min(end, Area().width()), 0, kNewWidth, m_size.height()};
}

QRect TabRow::TabPlace(std::size_t position) const {
    if (position == 0 || position > m_count) return {};
    return {static_cast<int>(position - 1) * m_tabWidth - m_offset, 0, m_tabWidth, m_size.height()};
}

QRect TabRow::ClosePlace(std::size_t position) const {
    const QRect tab = TabPlace(position);
    if (tab.isEmpty()) return {};
    return {tab.right() - kCloseMargin - kCloseSize + 1, tab.top() + (tab.height() - kCloseSize) / 2, kCloseSize,
            kCloseSize};
}

QRect TabRow::SoundPlace(std::size_t position) const {
    const QRect close = ClosePlace(position);
    return close.isEmpty() ? close : close.translated(-kCloseSize - 1, 0);
}

std::size_t TabRow::PositionAt(QPoint point) const {
    if (!Area().contains(point)) return 0;
    const auto position = static_cast<std::size_t>((point.x() + m_offset) / m_tabWidth) + 1;
    return position <= m_count ? position : 0;
}

std::size_t TabRow::FirstVisible() const { return static_cast<std::size_t>(m_offset / m_tabWidth) + 1; }

std::size_t TabRow::LastVisible() const {
    if (Area().isEmpty()) return 0;
    return std::min(m_count, static_cast<std::size_t>((m_offset + Area().width() - 1) / m_tabWidth) + 1);
}

int TabRow::MaximumOffset() const { return std::max(static_cast<int>(m_count) * m_tabWidth - Area().width(), 0); }

} // namespace tessa::qt
