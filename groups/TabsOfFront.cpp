#include "groups/TabsOfFront.h"

#include "groups/GroupCommands.h"

namespace tessa {

std::vector<std::int32_t> TabsOfFront::Chosen() const {
    const auto* front = m_pcPage.SelectedItem();
    const Text group = front ? m_groups.GroupOf(front->Tag) : Text();
    std::vector<std::int32_t> chosen;
    for (std::size_t position = 1; position <= m_pcPage.Count(); ++position) {
        const std::int32_t index = m_pcPage.FindAt(position)->Tag;
        if (group.empty() || m_groups.GroupOf(index) == group) chosen.push_back(index);
    }
    return chosen;
}

} // namespace tessa
