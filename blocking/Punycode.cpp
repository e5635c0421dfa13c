#include "blocking/Punycode.h"

#include "base/Text.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace tessa {

namespace {

// The numbers of the encoding, see RFC 3492.
constexpr std::uint32_t kPunyBase = 36, kPunyLeast = 1, kPunyMost = 26, kPunySkew = 38, kPunyDamp = 700;
constexpr std::uint32_t kFirstNotAscii = 0x80;
constexpr std::size_t kLongestLabel = 63;

bool IsAscii(std::string_view bytes) {
    return std::ranges::all_of(bytes, [](char each) { return static_cast<unsigned char>(each) < kFirstNotAscii; });
}

std::vector<std::uint32_t> CharactersOf(TextView text) {
    std::vector<std::uint32_t> all;
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::uint32_t each = text[at];
        if (IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]))
            each = 0x10000U + ((each - 0xD800U) << 10U) + (text[++at] - 0xDC00U);
        all.push_back(each);
    }
    return all;
}

std::uint32_t Adapted(std::uint32_t delta, std::uint32_t points, bool first) {
    delta = first ? delta / kPunyDamp : delta / 2;
    delta += delta / points;
    std::uint32_t steps = 0;
    for (; delta > ((kPunyBase - kPunyLeast) * kPunyMost) / 2; steps += kPunyBase) delta /= kPunyBase - kPunyLeast;
    return steps + (kPunyBase - kPunyLeast + 1) * delta / (delta + kPunySkew);
}

char PunyDigit(std::uint32_t value) { return static_cast<char>(value < 26 ? 'a' + value : '0' + (value - 26)); }

void AppendNumber(std::string& encoded, std::uint32_t number, std::uint32_t bias) {
    for (std::uint32_t step = kPunyBase;; step += kPunyBase) {
        const std::uint32_t least = step <= bias ? kPunyLeast : std::min(step - bias, kPunyMost);
        if (number < least) break;
        encoded += PunyDigit(least + (number - least) % (kPunyBase - least));
        number = (number - least) / (kPunyBase - least);
    }
    encoded += PunyDigit(number);
}

/// Adds all characters that are that one, in their places among those that are there already.
class PunyWriter {
public:
    explicit PunyWriter(const std::vector<std::uint32_t>& characters) : m_characters(characters) {
        for (const std::uint32_t each : characters)
            if (each < kFirstNotAscii) m_encoded += static_cast<char>(each);
        m_basic = m_done = static_cast<std::uint32_t>(m_encoded.size());
        if (m_basic > 0) m_encoded += '-';
    }

    std::string Whole() {
        while (m_done < m_characters.size()) {
            std::uint32_t next = std::numeric_limits<std::uint32_t>::max();
            for (const std::uint32_t each : m_characters)
                if (each >= m_character) next = std::min(next, each);
            m_delta += (next - m_character) * (m_done + 1);
            m_character = next;
            AddAll();
            ++m_delta;
            ++m_character;
        }
        return m_encoded;
    }

private:
    void AddAll() {
        for (const std::uint32_t each : m_characters) {
            if (each < m_character) ++m_delta;
            if (each != m_character) continue;
            AppendNumber(m_encoded, m_delta, m_bias);
            m_bias = Adapted(m_delta, m_done + 1, m_done == m_basic);
            m_delta = 0;
            ++m_done;
        }
    }

    const std::vector<std::uint32_t>& m_characters;
    std::string m_encoded;
    std::uint32_t m_character = kFirstNotAscii, m_delta = 0, m_bias = 72, m_basic = 0, m_done = 0;
};

std::string LabelInAscii(std::string_view label) {
    const std::optional<Text> text = FromUtf8(label);
    if (!text || text->size() > kLongestLabel) return std::string(label);
    return "xn--" + PunyWriter(CharactersOf(*text)).Whole();
}

} // namespace

std::string HostInAscii(std::string_view host) {
    if (IsAscii(host)) return std::string(host);
    std::string ascii;
    while (true) {
        const std::string_view label = host.substr(0, host.find('.'));
        ascii += IsAscii(label) ? std::string(label) : LabelInAscii(label);
        if (label.size() == host.size()) return ascii;
        ascii += '.';
        host.remove_prefix(label.size() + 1);
    }
}

} // namespace tessa
