#pragma once
#include "blocking/RuleTokens.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tessa {

/// Bits that tell what is surely not among many names. What is not hidden need then not be asked about.
class HidingFilter {
public:
    /// For so many names.
    explicit HidingFilter(std::size_t names);

    void Add(std::uint32_t hash);
    /// False only when it was never added.
    [[nodiscard]] bool MayHold(std::uint32_t hash) const;
    /// Six bits a letter, the lowest first: 64 letters from "(" on without the backslash, which may stand between
    /// quotes but single ones. There are as many bits as a power of two, and zeros after them. The script in the pages
    /// reads it.
    [[nodiscard]] std::string Letters() const;

private:
    [[nodiscard]] std::size_t PlaceOf(std::uint32_t product) const;

    std::string m_bytes;
};

/// The name of a domain in such bits.
[[nodiscard]] constexpr std::uint32_t FilterHashOf(std::uint64_t domain) {
    return static_cast<std::uint32_t>(domain ^ (domain >> 32U));
}

} // namespace tessa
