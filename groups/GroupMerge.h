#pragma once
#include "base/Text.h"

#include <vector>

namespace tessa {

/// Two lists of addresses held against each other.
namespace GroupMerge {

/// How it stands with an address.
enum class Standing {
    Both,  ///< in both lists, letter by letter
    Alike, ///< the other list has the same page, written in another way
    OnlyHere,
    OnlyThere,
    Again, ///< the same page stands before it in this list already
};

struct Compared {
    Text address;
    Standing standing = Standing::OnlyHere;
    Text other{}; ///< the address that it is alike to, if it is written in another way

    bool operator==(const Compared&) const = default;
};

/// Those of this list first, one each and in their order; then the pages that only the other list has, each once.
[[nodiscard]] std::vector<Compared> Compare(const std::vector<Text>& here, const std::vector<Text>& there);

} // namespace GroupMerge

} // namespace tessa
