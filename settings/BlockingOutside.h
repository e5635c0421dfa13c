#pragma once
#include "base/Text.h"

#include <functional>
#include <vector>

namespace tessa {

/// What the page about blocking needs of what blocks. This one blocks nothing.
class BlockingOutside {
public:
    /// Gets words about how it goes, once or several times.
    using Told = std::function<void(const Text&)>;

    virtual ~BlockingOutside() = default;
    /// The user's own rules, line by line.
    [[nodiscard]] virtual Text OwnRules() { return {}; }
    virtual void KeepOwnRules(TextView) {}
    /// When the list came and what was made of it, in words; empty for one that was never compiled.
    [[nodiscard]] virtual Text StateOf(TextView) { return {}; }
    /// Looks for newer lists.
    virtual void Update(Told) {}
    /// Languages that the user reads, as "de-AT".
    [[nodiscard]] virtual std::vector<Text> Languages() { return {}; }
};

} // namespace tessa
