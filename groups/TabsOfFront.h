#pragma once
#include "tabs/ChosenTabs.h"

namespace tessa {

class GroupCommands;
class TabStrip;

/// The tabs of the group that the selected one was opened from; all tabs when it is of none.
class TabsOfFront final : public ChosenTabs {
public:
    /// Both outlive it.
    TabsOfFront(const GroupCommands& groups, const TabStrip& pcPage) : m_groups(groups), m_pcPage(pcPage) {}

    [[nodiscard]] std::vector<std::int32_t> Chosen() const override;

private:
    const GroupCommands& m_groups;
    const TabStrip& m_pcPage;
};

} // namespace tessa
