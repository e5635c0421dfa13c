#include "groups/TabsOfFront.h"

#include "forms/TabStrip.h"
#include "tabs/TabChoice.h"

namespace tessa {

std::vector<std::int32_t> TabsOfFront::Chosen() const {
    if (m_choice.Count() > 1) return m_choice.Indexes();
    const auto* front = m_pcPage.SelectedItem();
    const TabGroup* group = front ? front->Group() : nullptr;
    std::vector<std::int32_t> chosen;
    for (std::size_t position = 1; position <= m_pcPage.Count(); ++position) {
        const Tab& tab = *m_pcPage.FindAt(position);
        if (!group || tab.Group() == group) chosen.push_back(tab.Tag);
    }
    return chosen;
}

} // namespace tessa
