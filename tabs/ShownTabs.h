#pragma once
#include <cstdint>
#include <vector>

namespace tessa {

/// Which pages are shown together. Without panes each is shown alone.
class ShownTabs {
public:
    virtual ~ShownTabs() = default;
    /// The views that are shown beside that one when it comes to the front; without itself, and in no order.
    [[nodiscard]] virtual std::vector<std::int32_t> BesideOf(std::int32_t Index) const = 0;
    /// The views that do what the user does in that one, without itself.
    [[nodiscard]] virtual std::vector<std::int32_t> LinkedWith(std::int32_t Index) const = 0;
};

} // namespace tessa
