#pragma once
#include "base/Text.h"

#include <map>
#include <vector>

namespace tessa {

/// Which TessaGroup the pages belong to that are about to be opened.
class OpenedGroups {
public:
    /// What is opened from those addresses next belongs to that group.
    void Note(TextView name, const std::vector<Text>& addresses);
    /// The group that was noted last for that address, which may differ from the one in the group by its scheme, a
    /// slash at its end or the place in the page. Nothing for others.
    [[nodiscard]] const Text* Find(TextView address) const;

private:
    std::map<Text, Text> m_groups;
};

} // namespace tessa
