#pragma once
#include "base/Records.h"
#include "base/Text.h"
#include "forms/TabGroup.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessa {

/// One tab of a group, as it is written down.
struct KeptMember {
    std::int32_t Number = 0;     ///< which page it is, from 1
    std::optional<Text> Entry{}; ///< the address in the group's file whose page it shows
    bool operator==(const KeptMember&) const = default;
};

/// One group of tabs, as it is written down.
struct KeptGroup {
    Text Path, Name;
    Text Colour{};             ///< one of `kTabColours`; empty for none
    bool ColourChosen = false; ///< by its user, not by the file or by chance
    bool Folded = false;
    std::vector<KeptMember> Members{};
    bool operator==(const KeptGroup&) const = default;
};

/// Which pages are in groups, and which are pinned.
struct KeptGroups {
    std::vector<KeptGroup> Groups{};
    std::vector<std::int32_t> Pins{}; ///< numbers of pages, from 1

    [[nodiscard]] bool Empty() const { return Groups.empty() && Pins.empty(); }
    bool operator==(const KeptGroups&) const = default;
};

/// A record for each group, and one for the pins if there are any.
[[nodiscard]] std::vector<Record> RecordsOf(const KeptGroups& kept);
/// Reads them among any others. A page is in one group, and no group has a pinned page; pages beyond `pages` are left
/// out, and so are groups without any.
[[nodiscard]] KeptGroups KeptGroupsIn(const std::vector<Record>& records, std::size_t pages);

/// The same as a text of its own; empty for none.
[[nodiscard]] Text KeptGroupsText(const KeptGroups& kept);
[[nodiscard]] KeptGroups KeptGroupsIn(TextView text, std::size_t pages);

/// Each page has the number that `become` answers for its own, and goes when that is 0.
[[nodiscard]] KeptGroups Renumbered(const KeptGroups& kept, const std::function<std::int32_t(std::int32_t)>& become);

} // namespace tessa
