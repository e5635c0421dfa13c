#include "qt/strip/TabHeads.h"

#include "base/Captions.h"
#include "qt/base/Strings.h"

#include <QFontMetrics>
#include <algorithm>
#include <set>

namespace tessa::qt {

namespace {
constexpr int kPinWidth = 34;
} // namespace

// While a tab is dragged, the one in which it would be.
const TabGroup* TabHeads::GroupOf(const Tab& tab) const {
    return m_joins && m_drag.Holds(tab) ? m_strip.FindGroup(*m_joins) : tab.Group();
}

TabColour TabHeads::ColourOf(const Tab& tab) const {
    const auto* group = GroupOf(tab);
    return group ? group->Colour() : TabColour::None;
}

const TabGroup* TabHeads::GroupAt(std::size_t position) const {
    const Tab* tab = m_strip.FindAt(position);
    return tab ? GroupOf(*tab) : nullptr;
}

void TabHeads::Note() {
    std::set<const TabGroup*> seen;
    m_named.clear();
    for (std::size_t position = 1; position <= m_strip.Count(); ++position) {
        const TabGroup* group = GroupAt(position);
        if (group && seen.insert(group).second) m_named.push_back(position);
    }
}

bool TabHeads::BeginsGroup(std::size_t position) const { return std::ranges::binary_search(m_named, position); }

// A group that does not stand together has its name before its first tab. Each other part has a mark before it. Folded
// it has the name alone.
std::vector<TabRowItem> TabHeads::Items(const QFontMetrics& font) const {
    std::vector<TabRowItem> items;
    for (std::size_t position = 1; position <= m_strip.Count(); ++position) {
        const Tab& tab = *m_strip.FindAt(position);
        const TabGroup* group = GroupOf(tab);
        const bool begins = group && group != GroupAt(position - 1);
        if (begins && (BeginsGroup(position) || !group->Folded())) {
            TabRowItem head{TabRowItem::Kind::Head, position, 0};
            head.Width = TabHeadLook::Width(font, FaceAt(position));
            items.push_back(head);
        }
        if (!m_strip.IsShown(tab) && !(m_joins && m_drag.Holds(tab))) continue;
        items.push_back(
            {tab.Pinned() ? TabRowItem::Kind::Pin : TabRowItem::Kind::Tab, position, tab.Pinned() ? kPinWidth : 0});
    }
    return items;
}

TabHeadFace TabHeads::FaceAt(std::size_t position) const {
    const TabGroup* group = GroupAt(position);
    TabHeadFace face;
    if (!group) return face;
    if (BeginsGroup(position)) face.name = ToQt(OneLine(group->Name()));
    if (BeginsGroup(position) && face.name.isEmpty()) face.name = QStringLiteral("?");
    face.colour = group->Colour();
    face.folded = group->Folded();
    face.changed = m_faces.IsChanged(*group);
    face.count = group->Count();
    face.loading = group->Loading();
    face.aimed = m_joins == group->Id();
    return face;
}

Text TabHeads::Describe(const TabGroup& group) const {
    const auto number = [](std::size_t count) { return Decimal(static_cast<std::int64_t>(count)); };
    Text all = u"Group " + OneLine(group.Name()) + u", " +
               (group.Count() == 1 ? Text(u"one tab") : number(group.Count()) + u" tabs");
    if (group.Loading() > 0) all += u", " + number(group.Loading()) + u" still to load";
    if (m_faces.IsChanged(group)) all += u", changed: its tabs and its file differ";
    return group.Folded() ? all + u", folded" : all;
}

} // namespace tessa::qt
