#pragma once
#include "base/Signal.h"
#include "base/Text.h"

#include <functional>
#include <vector>

namespace tessa {

/// What the page about blocking needs of what blocks. All may be empty.
struct BlockingOutside {
    /// The user's own rules, line by line.
    std::function<Text()> OwnRules{};
    std::function<void(TextView)> KeepOwnRules{};
    /// When the list came and what was made of it, in words; empty for one that was never compiled.
    std::function<Text(TextView chosen)> StateOf{};
    /// Looks for newer lists; `done` gets words about it, once or several times.
    std::function<void(std::function<void(const Text&)> done)> Update{};
    /// Languages that the user reads, as "de-AT".
    std::function<std::vector<Text>()> Languages{};
};

} // namespace tessa
