#pragma once
#include "tabs/ChosenTabs.h"

namespace tessa {

class TabChoice;
class TabStrip;

/// The tabs that the user has chosen; without any, those of the group that the selected one was opened from; all tabs
/// when it is of none.
class TabsOfFront final : public ChosenTabs {
public:
    /// Both outlive it.
    TabsOfFront(const TabStrip& pcPage, const TabChoice& choice) : m_pcPage(pcPage), m_choice(choice) {}

    [[nodiscard]] std::vector<std::int32_t> Chosen() const override;

private:
    const TabStrip& m_pcPage;
    const TabChoice& m_choice;
};

} // namespace tessa
