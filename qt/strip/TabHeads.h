#pragma once
#include "forms/TabStrip.h"
#include "qt/strip/TabFaces.h"
#include "qt/strip/TabHeadLook.h"
#include "qt/strip/TabRow.h"

#include <vector>

namespace tessa::qt {

/// Where the heads of groups stand among the tabs of a strip, and what they say. Strip and faces outlive it.
class TabHeads {
public:
    TabHeads(const TabStrip& strip, const TabFaces& faces) : m_strip(strip), m_faces(faces) {}

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
    std::vector<std::size_t> m_named; ///< the positions of the first tabs of all groups
};

} // namespace tessa::qt
