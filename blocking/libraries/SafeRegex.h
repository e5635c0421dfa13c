#pragma once
#include <memory>
#include <string_view>

namespace tessa {

/// A regular expression whose time grows with the text alone, whatever it says. What needs more, as a look ahead or a
/// back reference, is not understood.
class SafeRegex {
public:
    enum class Letters { AsTheyStand, BigAsSmall };

    SafeRegex(std::string_view expression, Letters letters);
    SafeRegex(SafeRegex&&) noexcept;
    SafeRegex& operator=(SafeRegex&&) noexcept;
    ~SafeRegex();

    /// Whether it was understood; one that was not matches nothing.
    [[nodiscard]] bool IsValid() const;
    /// Whether any part of the text matches.
    [[nodiscard]] bool Finds(std::string_view text) const;

private:
    struct Compiled;
    std::unique_ptr<Compiled> m_compiled;
};

} // namespace tessa
