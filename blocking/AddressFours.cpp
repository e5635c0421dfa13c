#include "blocking/AddressFours.h"

#include <utility>

namespace tessa {

namespace {

constexpr std::size_t kFourLetters = 4;

template<typename Each>
void ForEachFour(std::string_view pattern, const Each& each) {
    for (std::size_t at = 0; at + kFourLetters <= pattern.size(); ++at) {
        const std::size_t wild = pattern.substr(at, kFourLetters).find_last_of("*^");
        if (wild == std::string_view::npos)
            each(NameOfFour(pattern.data() + at));
        else
            at += wild;
    }
}

} // namespace

void AddressFours::Read(std::string_view small) {
    m_bits.fill(small.size() > kLongestRead ? ~std::uint64_t{0} : 0);
    m_bits[0] |= 1U;
    if (small.size() < kFourLetters || small.size() > kLongestRead) return;
    for (const char *at = small.data(), *last = at + small.size() - kFourLetters; at <= last; ++at) {
        const std::uint32_t name = NameOfFour(at);
        m_bits[name / 64] |= std::uint64_t{1} << (name % 64);
    }
}

void FourCounts::Count(std::string_view pattern) {
    ForEachFour(pattern, [this](std::uint32_t name) { ++m_counts[name]; });
}

PackedFours FourCounts::RarestOf(std::string_view pattern) const {
    std::uint32_t first = 0, second = 0;
    const auto isRarer = [this](std::uint32_t name, std::uint32_t than) {
        return than == 0 || m_counts[name] < m_counts[than];
    };
    ForEachFour(pattern, [&](std::uint32_t name) {
        if (name == first || name == second) return;
        if (isRarer(name, first))
            second = std::exchange(first, name);
        else if (isRarer(name, second))
            second = name;
    });
    return first | (second << 16U);
}

} // namespace tessa
