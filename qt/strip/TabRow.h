#pragma once
#include <QPoint>
#include <QRect>
#include <QSize>
#include <cstddef>
#include <vector>

namespace tessa::qt {

/// What stands in the row, from the left. A tab of a folded group stands nowhere.
struct TabRowItem {
    enum class Kind {
        Tab,
        Pin, ///< a tab of which only the icon shows
        Head ///< before tabs of a group
    };
    Kind What = Kind::Tab;
    std::size_t Position = 0; ///< of the tab; of a head, of the first tab behind it
    int Width = 0;            ///< of a head, and of a pinned tab
    bool operator==(const TabRowItem&) const = default;
};

/// Where the tabs of a strip stand in their row: all of one width but for pinned ones, scrolled when they do not fit.
/// Knows no tab. Lengths are logical pixels; positions are 1-based, 0 is none. Items are counted from 0.
class TabRow {
public:
    enum class Arrow { Back, Forward };

    /// `em` is the font's height; a tab is 8 to 14 of it wide. The items are in the order of their positions.
    void Lay(QSize size, std::vector<TabRowItem> items, int em);
    /// Clamped to what there is to scroll.
    void ScrollTo(int offset);
    /// A screenful less one tab, so that the eye keeps its place.
    void ScrollPage(Arrow arrow);
    /// Scrolls as little as shows the whole tab, with a head that stands before it.
    void Reveal(std::size_t position);

    [[nodiscard]] int Offset() const { return m_offset; }
    [[nodiscard]] int TabWidth() const { return m_tabWidth; }
    /// Of all items together.
    [[nodiscard]] int Length() const { return m_lefts.back(); }
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
    /// Empty for a tab that stands nowhere.
    [[nodiscard]] QRect TabPlace(std::size_t position) const;
    /// A pinned tab has neither of these buttons.
    [[nodiscard]] QRect ClosePlace(std::size_t position) const;
    /// Left of the close button.
    [[nodiscard]] QRect SoundPlace(std::size_t position) const;
    /// Of the tab at a point; 0 for none.
    [[nodiscard]] std::size_t PositionAt(QPoint point) const;

    [[nodiscard]] const std::vector<TabRowItem>& Items() const { return m_items; }
    [[nodiscard]] QRect ItemPlace(std::size_t item) const;
    /// Nothing at a point where none is.
    [[nodiscard]] const TabRowItem* ItemAt(QPoint point) const;
    /// The items that show, wholly or in part: from the first to before the end.
    [[nodiscard]] std::size_t FirstVisible() const;
    [[nodiscard]] std::size_t EndVisible() const;

private:
    [[nodiscard]] int MaximumOffset() const;
    [[nodiscard]] int FixedWidth() const;
    [[nodiscard]] const TabRowItem* Find(std::size_t position) const;

    QSize m_size;
    std::vector<TabRowItem> m_items;
    std::vector<int> m_lefts{0}; ///< of the items before any scrolling, and where the last one ends
    int m_tabWidth = 1;
    int m_offset = 0;
    bool m_overflows = false;
};

} // namespace tessa::qt
