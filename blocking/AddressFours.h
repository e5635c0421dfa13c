#pragma once
// Four letters that follow each other. An address that lacks four letters of a pattern cannot fit it; that is told by a
// bit, without a look at the pattern itself.

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace tessa {

/// The names of two fours of a pattern, one in each half; 0 stands for none.
using PackedFours = std::uint32_t;

/// How many names there are.
inline constexpr std::size_t kFourNames = 8192;

/// The name of the four letters that begin there. 0 is none's.
[[nodiscard]] inline std::uint32_t NameOfFour(const char* letters) {
    std::uint32_t four = 0;
    std::memcpy(&four, letters, sizeof four);
    const std::uint32_t name = (four * 0x9E3779B1U) >> 19U;
    return name == 0 ? 1 : name;
}

/// The fours of an address.
class AddressFours {
public:
    /// A longer address holds so many fours that looking for them costs more than it saves.
    static constexpr std::size_t kLongestRead = 4096;

    /// Of an address in small letters. In a longer one all may be.
    void Read(std::string_view small);
    /// False only when the address lacks one of them.
    [[nodiscard]] bool MayHold(PackedFours fours) const { return Holds(fours & 0xFFFFU) && Holds(fours >> 16U); }

private:
    [[nodiscard]] bool Holds(std::uint32_t name) const {
        return m_bits[name / 64 % (kFourNames / 64)] >> (name % 64) & 1U;
    }

    std::array<std::uint64_t, kFourNames / 64> m_bits{};
};

/// Counts the fours of all patterns, so that each can be known by those that the fewest others have.
class FourCounts {
public:
    FourCounts() : m_counts(kFourNames) {}

    /// The pattern is in small letters; what stands beside a "*" or a "^" is no four.
    void Count(std::string_view pattern);
    /// The two rarest of a pattern.
    [[nodiscard]] PackedFours RarestOf(std::string_view pattern) const;

private:
    std::vector<std::uint32_t> m_counts;
};

} // namespace tessa
