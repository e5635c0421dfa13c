#pragma once
#include "forms/TabStrip.h"
#include "qt/strip/TabFaces.h"
#include "qt/strip/TabHeadLook.h"
#include "qt/strip/TabRow.h"
#include "tabs/TabDrag.h"

#include <optional>
#include <vector>

namespace tessa::qt {

/// Where the heads of groups stand among the tabs of a strip, and what they say. What it is given outlives it.
class TabHeads {
public:
    TabHeads(const TabStrip& strip, const TabFaces& faces, const TabDrag& drag)
        : m_strip(strip), m_faces(faces), m_drag(drag) {}

    /// From now on the tabs that are dragged stand as tabs of that group, of none for 0; of their own for nothing.
    void Join(std::optional<std::int32_t> group) { m_joins = group; }
    [[nodiscard]] std::optional<std::int32_t> Joins() const { return m_joins; }
    /// The group in which the tab stands; nothing for none.
    [[nodiscard]] const TabGroup* GroupOf(const Tab& tab) const;
    [[nodiscard]] TabColour ColourOf(const Tab& tab) const;

    /// Notes which tabs are the first of their groups, until the next layout of the strip.
    void Note();
    /// What stands in the row: heads, pinned tabs, tabs. Costs as much as there are tabs.
    [[nodiscard]] std::vector<TabRowItem> Items(const QFontMetrics& font) const;
    /// The head before the tab there, without its place; without a name when that tab is not the first of its group.
    [[nodiscard]] TabHeadFace FaceAt(std::size_t position) const;
    /// The group of the tab there; nothing for none.
    [[nodiscard]] const TabGroup* GroupAt(std::size_t position) const;
    /// Whether the tab there is the first of its group.
    [[nodiscard]] bool BeginsGroup(std::size_t position) const;
    /// A group in words: its name, its tabs, and what is to be said of them.
    [[nodiscard]] Text Describe(const TabGroup& group) const;

private:
    const TabStrip& m_strip;
    const TabFaces& m_faces;
    const TabDrag& m_drag;
    std::optional<std::int32_t> m_joins;
    std::vector<std::size_t> m_named; ///< the positions of the first tabs of all groups
};

} // namespace tessa::qt
