#pragma once
#include "bar/DesignedNames.h"

#include <cstddef>
#include <optional>

namespace tessa {

/// A name out of a table of the design. There is no other way to one than through the table, so it is never misspelled.
template<const auto& names>
class DesignedName {
public:
    /// Nothing for a text that is not in the table. Names are told apart by case.
    [[nodiscard]] static constexpr std::optional<DesignedName> Find(TextView text) {
        for (const TextView name : names) {
            if (name == text) return DesignedName(name);
        }
        return std::nullopt;
    }

    // NOLINTNEXTLINE(google-explicit-constructor): a name is a text wherever any text will do.
    [[nodiscard]] constexpr operator TextView() const { return m_text; }
    friend constexpr bool operator==(DesignedName, DesignedName) = default;
    friend constexpr bool operator==(DesignedName name, TextView text) { return name.m_text == text; }

private:
    constexpr explicit DesignedName(TextView text) : m_text(text) {}

    TextView m_text;
};

using ToolName = DesignedName<DesignedNames::kTools>;
using BandName = DesignedName<DesignedNames::kBands>;

/// Never defined and not constexpr. The call is the compiler's error for a name that is in no table.
void NoSuchNameIsDesigned();

template<typename Name>
consteval Name CheckedName(TextView text) {
    const auto found = Name::Find(text);
    if (!found) NoSuchNameIsDesigned();
    return *found;
}

/// A name that was checked when it was compiled.
consteval ToolName operator""_tool(const char16_t* text, std::size_t size) {
    return CheckedName<ToolName>({text, size});
}
consteval BandName operator""_band(const char16_t* text, std::size_t size) {
    return CheckedName<BandName>({text, size});
}

} // namespace tessa
