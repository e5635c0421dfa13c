#include "forms/TabStrip.h"

#include "base/ResumeNext.h"

#include <algorithm>
#include <utility>

namespace tessa {

Tab* TabStrip::Add(std::size_t position, Text key) {
    if (m_byKey.contains(key)) return nullptr;
    auto tab = std::make_unique<Tab>();
    tab->m_key = key;
    Tab* added = tab.get();
    const std::size_t asked = position >= 1 && position <= m_tabs.size() ? position : m_tabs.size() + 1;
    const std::size_t index = std::max(asked, m_pinned + 1) - 1;
    m_tabs.insert(m_tabs.begin() + static_cast<std::ptrdiff_t>(index), std::move(tab));
    m_byKey.emplace(std::move(key), added);
    if (!m_selected) m_selected = added;
    MarkArranged();
    return added;
}

void TabStrip::Remove(const Tab* tab) {
    const std::size_t position = PositionOf(tab);
    if (position == 0) return;
    // [a][S][b] -> [a][b]: S was at index 1, where its right neighbour b stands now.
    const bool wasSelected = tab == m_selected;
    if (tab->m_chosen) --m_countChosen;
    Leave(*m_tabs[position - 1]);
    if (tab->m_pinned) --m_pinned;
    m_byKey.erase(tab->m_key);
    m_tabs.erase(m_tabs.begin() + static_cast<std::ptrdiff_t>(position - 1));
    if (wasSelected) m_selected = m_tabs.empty() ? nullptr : m_tabs[std::min(position, m_tabs.size()) - 1].get();
    MarkArranged();
}

void TabStrip::Move(const Tab* tab, std::size_t position) {
    const std::size_t from = PositionOf(tab);
    if (from == 0 || position < 1 || position > m_tabs.size()) return;
    MoveTo(from, Allowed(*tab, position));
}

Tab* TabStrip::FindAt(std::size_t position) const {
    return position >= 1 && position <= m_tabs.size() ? m_tabs[position - 1].get() : nullptr;
}

Tab* TabStrip::Find(TextView key) const {
    const auto found = m_byKey.find(Text(key));
    return found == m_byKey.end() ? nullptr : found->second;
}

std::size_t TabStrip::PositionOf(const Tab* tab) const {
    const auto found = std::find_if(m_tabs.begin(), m_tabs.end(), [&](const auto& each) { return each.get() == tab; });
    return found == m_tabs.end() ? 0 : static_cast<std::size_t>(found - m_tabs.begin()) + 1;
}

void TabStrip::Select(Tab* tab) {
    if (tab && tab != m_selected) UserClick(tab);
}

void TabStrip::UserClick(Tab* tab) {
    Must(PositionOf(tab) != 0);
    if (tab != m_selected) {
        m_selected = tab;
        Mark(TabStripChange::Layout);
    }
    Click();
}

void TabStrip::SetCaption(Tab* tab, Text caption, Text title) {
    if (tab->m_caption == caption && tab->m_title == title) return;
    tab->m_caption = std::move(caption);
    tab->m_title = std::move(title);
    Mark(TabStripChange::Faces);
}

void TabStrip::SetName(Tab* tab, Text name) {
    if (tab->m_name == name) return;
    tab->m_name = std::move(name);
    Mark(TabStripChange::Faces);
}

void TabStrip::SetImage(Tab* tab, TabImage image) {
    if (tab->m_image == image) return;
    SetLoads(*tab, [=] { tab->m_image = image; });
    Mark(TabStripChange::Faces);
}

void TabStrip::SetAsks(Tab* tab, bool asks) {
    if (tab->m_asks == asks) return;
    tab->m_asks = asks;
    Mark(TabStripChange::Faces);
}

void TabStrip::SetAwaited(Tab* tab, Text address) {
    if (tab->m_awaited == address) return;
    tab->m_awaited = std::move(address);
    Mark(TabStripChange::Faces);
}

void TabStrip::SetSound(Tab* tab, TabSound sound) {
    if (tab->m_sound == sound) return;
    tab->m_sound = sound;
    Mark(TabStripChange::Faces);
}

void TabStrip::SetPrivate(Tab* tab, bool isPrivate) {
    if (tab->m_private == isPrivate) return;
    tab->m_private = isPrivate;
    Mark(TabStripChange::Faces);
}

void TabStrip::SetNews(Tab* tab, TabNews news, Text words) {
    if (tab->m_news == news && tab->m_newsWords == words) return;
    tab->m_news = news;
    tab->m_newsWords = std::move(words);
    Mark(TabStripChange::Faces);
}

// At once, as with what is selected: somebody has just clicked there.
void TabStrip::SetChosen(Tab* tab, bool chosen) {
    if (tab->m_chosen == chosen) return;
    tab->m_chosen = chosen;
    m_countChosen = chosen ? m_countChosen + 1 : m_countChosen - 1;
    Mark(TabStripChange::Layout);
}

void TabStrip::SetPlacement(TabPlacement placement) {
    if (m_placement == placement) return;
    m_placement = placement;
    Mark(TabStripChange::Layout);
}

Connection TabStrip::Attach(Signal<void(TabStripChange)>::Listener mirror) {
    Connection attached = m_mirror.Connect(std::move(mirror));
    Clean();
    Mark(TabStripChange::Layout);
    return attached;
}

void TabStrip::Clean() { m_layoutMarked = m_facesMarked = false; }

void TabStrip::Mark(TabStripChange change) {
    Touched();
    bool& marked = change == TabStripChange::Layout ? m_layoutMarked : m_facesMarked;
    if (marked) return;
    marked = true;
    m_mirror(change);
}

} // namespace tessa
