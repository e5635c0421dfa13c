#pragma once
#include "base/Property.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace tessa {

/// What has happened to a list's rows: to the one at `index`, or to all of them.
struct RowChange {
    enum class Kind { All, Inserted, Removed, Changed };
    Kind kind = Kind::All;
    std::size_t index = 0;
};

/// What a list is for its views, whatever its rows are: numbered from 0, and one or none is selected.
class ListRows {
public:
    ListRows() = default;
    ListRows(const ListRows&) = delete;
    ListRows& operator=(const ListRows&) = delete;

    /// The selected row's number, -1 for none. It follows its row when others come and go.
    Property<std::int32_t> ListIndex{-1};

    /// Attaches a view: called after each change, and at once to show what there is. It hears of the rows first, then
    /// of the selection.
    [[nodiscard]] Connection Attach(Signal<void(RowChange)>::Listener view);

protected:
    void Report(RowChange::Kind kind, std::size_t index) const { m_view({kind, index}); }
    /// Reports that one list stands in another's place. The first and the last rows are the same ones. Between them
    /// there were `before` rows and are `after`.
    void ReportMiddle(std::size_t first, std::size_t before, std::size_t after) const;

private:
    Signal<void(RowChange)> m_view;
};

/// A list of rows, of which `Key` tells one from the others. Owned by its form, and outlives the widget that shows it.
template<typename Row, auto Key = std::identity{}>
class ListModel : public ListRows {
public:
    [[nodiscard]] const std::vector<Row>& Rows() const { return m_rows; }
    [[nodiscard]] std::size_t ListCount() const { return m_rows.size(); }
    /// Nothing when none is selected.
    [[nodiscard]] const Row* FindSelected() const {
        const auto index = static_cast<std::size_t>(ListIndex());
        return ListIndex() >= 0 && index < m_rows.size() ? &m_rows[index] : nullptr;
    }

    /// Puts these rows in the place of all others. Views hear only of what differs, and the selection stays with its
    /// row; with none when that one is gone.
    void Show(std::vector<Row> rows);
    /// Adds a row before the one at `index`, last when there is none.
    void Insert(std::size_t index, Row row);
    /// Removes a row; does nothing when there is none. No row is selected afterwards if it was that one.
    void Remove(std::size_t index);
    /// Replaces a row; does nothing when there is none.
    void Set(std::size_t index, Row row);
    /// Selects the row with that key; none when there is no such row.
    template<typename Wanted>
    void Select(const Wanted& key) {
        ListIndex = PlaceOf(m_rows, key);
    }

private:
    [[nodiscard]] static bool Same(const Row& a, const Row& b) { return std::invoke(Key, a) == std::invoke(Key, b); }
    template<typename Wanted>
    [[nodiscard]] static std::int32_t PlaceOf(const std::vector<Row>& rows, const Wanted& key) {
        const auto found = std::ranges::find(rows, key, Key);
        return found == rows.end() ? -1 : static_cast<std::int32_t>(found - rows.begin());
    }

    std::vector<Row> m_rows;
};

template<typename Row, auto Key>
void ListModel<Row, Key>::Show(std::vector<Row> rows) {
    const Row* selected = FindSelected();
    const std::int32_t index = selected ? PlaceOf(rows, std::invoke(Key, *selected)) : -1;
    const std::vector<Row> before = std::exchange(m_rows, std::move(rows));
    const std::size_t both = std::min(before.size(), m_rows.size());
    std::size_t first = 0, last = 0;
    while (first < both && Same(before[first], m_rows[first])) ++first;
    while (first + last < both && Same(before.end()[-1 - static_cast<std::ptrdiff_t>(last)],
                                       m_rows.end()[-1 - static_cast<std::ptrdiff_t>(last)]))
        ++last;
    ReportMiddle(first, before.size() - first - last, m_rows.size() - first - last);
    // A row in another's place counts as that one with another text, so that views move nothing about.
    for (std::size_t i = 0; i < both; ++i) {
        const bool atEnd = i >= both - last;
        const std::size_t was = atEnd ? before.size() - both + i : i, now = atEnd ? m_rows.size() - both + i : i;
        if (!(before[was] == m_rows[now])) Report(RowChange::Kind::Changed, now);
    }
    ListIndex = index;
}

template<typename Row, auto Key>
void ListModel<Row, Key>::Insert(std::size_t index, Row row) {
    const std::size_t place = std::min(index, m_rows.size());
    m_rows.insert(m_rows.begin() + static_cast<std::ptrdiff_t>(place), std::move(row));
    Report(RowChange::Kind::Inserted, place);
    if (ListIndex() >= static_cast<std::int32_t>(place)) ListIndex = ListIndex() + 1;
}

template<typename Row, auto Key>
void ListModel<Row, Key>::Remove(std::size_t index) {
    if (index >= m_rows.size()) return;
    const auto removed = static_cast<std::int32_t>(index);
    if (ListIndex() == removed) ListIndex = -1;
    m_rows.erase(m_rows.begin() + removed);
    Report(RowChange::Kind::Removed, index);
    if (ListIndex() > removed) ListIndex = ListIndex() - 1;
}

template<typename Row, auto Key>
void ListModel<Row, Key>::Set(std::size_t index, Row row) {
    if (index >= m_rows.size()) return;
    m_rows[index] = std::move(row);
    Report(RowChange::Kind::Changed, index);
}

} // namespace tessa
