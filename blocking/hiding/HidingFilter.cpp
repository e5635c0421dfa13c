#include "blocking/hiding/HidingFilter.h"

#include <algorithm>
#include <array>
#include <bit>

namespace tessa {

namespace {

// A byte a name at least and six bits each let one in fifty others through at most. The script in each page holds these
// bits, and twice as many would cost a new process more than what they let through.
constexpr std::array<std::uint32_t, 6> kFilterSteps{1, 0x9E3779B1U, 0x85EBCA6BU, 0xC2B2AE3DU, 0x27D4EB2FU, 0x165667B1U};
constexpr std::size_t kBitsOfLetter = 6;
constexpr char kFirstLetter = '(', kSkippedLetter = '\\';

} // namespace

HidingFilter::HidingFilter(std::size_t names) : m_bytes(std::bit_ceil(std::max<std::size_t>(names, 16)), '\0') {}

void HidingFilter::Add(std::uint32_t hash) {
    for (const std::uint32_t step : kFilterSteps) {
        const std::size_t bit = PlaceOf(hash * step);
        m_bytes[bit / 8] = static_cast<char>(m_bytes[bit / 8] | (1 << (bit % 8)));
    }
}

// The last bits of a product are told by the last bits of what it is made of alone; the first by all.
std::size_t HidingFilter::PlaceOf(std::uint32_t product) const {
    return product >> static_cast<unsigned>(std::countl_zero(static_cast<std::uint32_t>(m_bytes.size() * 8 - 1)));
}

std::string HidingFilter::Letters() const {
    std::string letters;
    for (std::size_t first = 0; first < m_bytes.size() * 8; first += kBitsOfLetter) {
        unsigned six = 0;
        for (std::size_t bit = first; bit < std::min(first + kBitsOfLetter, m_bytes.size() * 8); ++bit)
            six |= ((static_cast<unsigned char>(m_bytes[bit / 8]) >> (bit % 8)) & 1U) << (bit - first);
        const auto letter = static_cast<char>(kFirstLetter + six);
        letters += letter < kSkippedLetter ? letter : static_cast<char>(letter + 1);
    }
    return letters;
}

bool HidingFilter::MayHold(std::uint32_t hash) const {
    return std::ranges::all_of(kFilterSteps, [&](std::uint32_t step) {
        const std::size_t bit = PlaceOf(hash * step);
        return (m_bytes[bit / 8] & (1 << (bit % 8))) != 0;
    });
}

} // namespace tessa
