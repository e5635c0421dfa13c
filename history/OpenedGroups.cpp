#include "history/OpenedGroups.h"

namespace tessa {

namespace {

constexpr std::size_t kMostNoted = 2000;

// An address as a group may have it: without its scheme, a slash at its end, and the place in the page.
Text GroupKey(TextView address) {
    address = address.substr(0, address.find(u'#'));
    for (const TextView scheme : {u"https://", u"http://"})
        if (address.starts_with(scheme)) address.remove_prefix(scheme.size());
    if (address.ends_with(u'/')) address.remove_suffix(1);
    return Text(address);
}

} // namespace

void OpenedGroups::Note(TextView name, const std::vector<Text>& addresses) {
    if (m_groups.size() > kMostNoted) m_groups.clear();
    for (const Text& each : addresses) m_groups[GroupKey(each)] = name;
}

const Text* OpenedGroups::Find(TextView address) const {
    const auto found = m_groups.find(GroupKey(address));
    return found == m_groups.end() ? nullptr : &found->second;
}

} // namespace tessa
