#pragma once
#include <cstdint>
#include <vector>

namespace tessa {

/// Which tabs a command is about that works on several.
class ChosenTabs {
public:
    virtual ~ChosenTabs() = default;
    /// The indexes of their views, in the order of the strip.
    [[nodiscard]] virtual std::vector<std::int32_t> Chosen() const = 0;
};

} // namespace tessa
