#pragma once
#include "tabs/ChosenTabs.h"

namespace tessa {

class TabStrip;

/// The tabs of the group that the selected one was opened from; all tabs when it is of none.
class TabsOfFront final : public ChosenTabs {
public:
    /// It outlives this object.
    explicit TabsOfFront(const TabStrip& pcPage) : m_pcPage(pcPage) {}

    [[nodiscard]] std::vector<std::int32_t> Chosen() const override;

private:
    const TabStrip& m_pcPage;
};

} // namespace tessa
