#include "tabs/TabChoice.h"

#include "tabs/TabKeys.h"

#include <algorithm>
#include <utility>

namespace tessa {

TabChoice::TabChoice(TabStrip& pcPage) : m_pcPage(pcPage) {
    // A tab has gone, or another one has come to the front.
    m_connections += m_pcPage.Touched.Connect([this] {
        if (!m_busy && (Any() || !m_told.empty())) Settle();
    });
}

void TabChoice::Toggle(Tab& tab) {
    m_busy = true;
    auto* front = m_pcPage.SelectedItem();
    if (!Any() && front && front != &tab) m_pcPage.SetChosen(front, true);
    m_pcPage.SetChosen(&tab, !tab.Chosen());
    SetAnchor(tab);
    m_busy = false;
    Settle();
}

void TabChoice::ExtendTo(Tab& tab) {
    m_busy = true;
    for (std::size_t position = 1; position <= m_pcPage.Count(); ++position)
        m_pcPage.SetChosen(m_pcPage.FindAt(position), false);
    ChooseRange(tab);
    m_busy = false;
    Settle();
}

void TabChoice::AddTo(Tab& tab) {
    m_busy = true;
    ChooseRange(tab);
    m_busy = false;
    Settle();
}

void TabChoice::ChooseRange(Tab& tab) {
    const std::size_t from = m_pcPage.PositionOf(Anchor()), to = m_pcPage.PositionOf(&tab);
    for (std::size_t position = std::min(from, to); position <= std::max(from, to); ++position) {
        if (auto* each = m_pcPage.FindAt(position)) m_pcPage.SetChosen(each, true);
    }
}

void TabChoice::Replace(const std::vector<std::int32_t>& indexes) {
    m_busy = true;
    std::vector<const Tab*> wanted;
    for (const std::int32_t index : indexes) wanted.push_back(TabOfView(m_pcPage, index));
    std::ranges::sort(wanted);
    for (std::size_t position = 1; position <= m_pcPage.Count(); ++position) {
        auto* tab = m_pcPage.FindAt(position);
        m_pcPage.SetChosen(tab, std::ranges::binary_search(wanted, static_cast<const Tab*>(tab)));
    }
    m_busy = false;
    Settle();
}

void TabChoice::All() {
    m_busy = true;
    for (std::size_t position = 1; position <= m_pcPage.Count(); ++position)
        m_pcPage.SetChosen(m_pcPage.FindAt(position), true);
    m_busy = false;
    Settle();
}

void TabChoice::End() {
    m_anchor.clear();
    if (Any()) Replace({});
}

std::vector<std::int32_t> TabChoice::Indexes() const {
    std::vector<std::int32_t> indexes;
    for (std::size_t position = 1; position <= m_pcPage.Count() && indexes.size() < Count(); ++position) {
        const auto* tab = m_pcPage.FindAt(position);
        if (tab->Chosen()) indexes.push_back(tab->Tag);
    }
    return indexes;
}

std::vector<std::int32_t> TabChoice::With(const Tab& tab) const {
    return tab.Chosen() ? Indexes() : std::vector<std::int32_t>{tab.Tag};
}

Tab* TabChoice::Anchor() const {
    auto* anchor = m_pcPage.Find(m_anchor);
    return anchor ? anchor : m_pcPage.SelectedItem();
}

// The front alone is what is worked on without any choice.
void TabChoice::Settle() {
    auto* front = m_pcPage.SelectedItem();
    m_busy = true;
    if (Count() == 1 && front && front->Chosen()) m_pcPage.SetChosen(front, false);
    m_busy = false;
    auto now = Indexes();
    if (std::exchange(m_told, now) != now) Changed();
}

} // namespace tessa
