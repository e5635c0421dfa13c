#pragma once
#include "forms/TabStrip.h"

#include <cstdint>
#include <vector>

namespace tessa {

/// What somebody drags along the strip: a tab, all that are chosen when it is one of them, or a whole group. From the
/// first step on they stand together. Tabs may come and go meanwhile. The strip outlives it.
class TabDrag {
public:
    explicit TabDrag(TabStrip& pcPage) : m_pcPage(pcPage) {}

    void Take(const Tab& tab);
    /// The group, by one of its tabs.
    void TakeGroup(const Tab& tab);
    void LetGo();

    /// Whether what was taken hold of is still there.
    [[nodiscard]] bool Any() const { return m_pcPage.Find(m_taken) != nullptr; }
    [[nodiscard]] bool IsGroup() const { return m_isGroup; }
    [[nodiscard]] bool Holds(const Tab& tab) const;
    [[nodiscard]] bool HoldsSeveral() const { return m_keys.size() > 1; }
    /// The indexes of their views; that of the tab that was taken hold of comes first.
    [[nodiscard]] std::vector<std::int32_t> Indexes() const;

    /// Positions from the first to the last one.
    struct Span {
        std::size_t First = 0, Last = 0;
        bool operator==(const Span&) const = default;
    };
    /// Where they stand; other tabs may stand between them before they have moved.
    [[nodiscard]] Span Held() const;
    /// Where the tab stands that was taken hold of; 0 when it has gone.
    [[nodiscard]] std::size_t Position() const { return m_pcPage.PositionOf(m_pcPage.Find(m_taken)); }
    /// What they step over as one when they come to that position: a group goes between no other group's tabs.
    [[nodiscard]] Span At(std::size_t position) const;
    /// They go to the other side of these tabs. Pinned tabs and others never mix.
    void StepOver(Span span);
    /// They go before the tab at that position.
    void PutBefore(std::size_t position);
    /// Whether they have been moved at all.
    [[nodiscard]] bool Moved() const { return m_moved; }

    /// What the hand means where they stand.
    struct Means {
        bool NearLeft = false; ///< the pointer is nearer to the tab at their left
        bool Behind = false;   ///< they come behind the head of the group at their right, not before it
    };
    /// The group that they are of when they are let go where they stand; nothing for none. Between the tabs of a group
    /// they are of that group. Before its first tab or behind its last one, it is as is meant. Elsewhere all tabs of a
    /// group stay one.
    [[nodiscard]] const TabGroup* GroupHere(Means means) const;
    /// Whether they stand before the first tab of a group, or of a part of one.
    [[nodiscard]] bool BeforeGroup() const;
    /// Whether they can be put into that group.
    [[nodiscard]] bool MayJoin(const TabGroup* group) const;

private:
    [[nodiscard]] std::vector<const Tab*> Tabs() const;
    [[nodiscard]] const TabGroup* GroupAt(std::size_t position) const;
    [[nodiscard]] const TabGroup* OwnGroup() const;
    void Gather();
    void Move(const Tab* tab, std::size_t position);

    TabStrip& m_pcPage;
    std::vector<Text> m_keys; ///< some may have gone
    Text m_taken;
    bool m_isGroup = false;
    bool m_moved = false;
};

} // namespace tessa
