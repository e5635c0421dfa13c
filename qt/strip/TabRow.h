#pragma once
#include <QPoint>
#include <QRect>
#include <QSize>
#include <cstddef>

namespace tessa::qt {

/// Where the tabs of a strip stand in their row: all of one width, scrolled when they do not fit. Knows no tab, so
/// that a thousand of them cost as much as one. Lengths are logical pixels; positions are 1-based, 0 is none.
class TabRow {
public:
    enum class Arrow { Back, Forward };

    /// `em` is the font's height; a tab is 8 to 14 of it wide.
    void Lay(QSize size, std::size_t count, int em);
    /// Clamped to what there is to scroll.
    void ScrollTo(int offset);
    /// A screenful less one tab, so that the eye keeps its place.
    void ScrollPage(Arrow arrow);
    /// Scrolls as little as shows the whole tab.
    void Reveal(std::size_t position);

    [[nodiscard]] int Offset() const { return m_offset; }
    [[nodiscard]] int TabWidth() const { return m_tabWidth; }
    [[nodiscard]] bool Overflows() const { return m_overflows; }
    [[nodiscard]] bool CanScroll(Arrow arrow) const;
    /// The part of the row in which tabs show.
    [[nodiscard]] QRect Area() const;
    /// Empty unless the row overflows.
    [[nodiscard]] QRect ArrowPlace(Arrow arrow) const;
    /// The button at the end that lists all tabs; empty unless the row overflows.
    [[nodiscard]] QRect ListPlace() const;
    /// The button for a new tab. It is behind the last tab, or beside the visible tabs where they do not fit.
    [[nodiscard]] QRect NewPlace() const;
    [[nodiscard]] QRect TabPlace(std::size_t position) const;
    [[nodiscard]] QRect ClosePlace(std::size_t position) const;
    /// Left of the close button.
    [[nodiscard]] QRect SoundPlace(std::size_t position) const;
    [[nodiscard]] std::size_t PositionAt(QPoint point) const;
    /// The tabs that show, wholly or in part; `first` > `last` when none do.
    [[nodiscard]] std::size_t FirstVisible() const;
    [[nodiscard]] std::size_t LastVisible() const;

private:
    [[nodiscard]] int MaximumOffset() const;

    QSize m_size;
    std::size_t m_count = 0;
    int m_tabWidth = 1;
    int m_offset = 0;
    bool m_overflows = false;
};

} // namespace tessa::qt
