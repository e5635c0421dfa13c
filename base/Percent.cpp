#include "base/Percent.h"

#include <charconv>

namespace tessa {

std::string PercentEncoded(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string all;
    for (const char each : bytes) {
        const auto byte = static_cast<unsigned char>(each);
        const bool plain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                           (byte >= 'a' && byte <= 'z') || each == '-' || each == '.' || each == '_' || each == '~';
        if (plain)
            all += each;
        else
            (all += '%') += {kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
    return all;
}

Text PercentEncodedText(TextView text) {
    Text whole(text);
    for (std::size_t at = 0; at < text.size(); ++at)
        if (IsUnpaired(text, at)) whole[at] = u'?';
    const std::string bytes = PercentEncoded(ToUtf8(whole));
    return {bytes.begin(), bytes.end()};
}

std::string PercentDecoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned value = 0;
        const char* digits = text.data() + i + 1;
        const bool escape =
            text[i] == '%' && i + 2 < text.size() && std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2;
        bytes += escape ? static_cast<char>(value) : text[i];
        if (escape) i += 2;
    }
    return bytes;
}

} // namespace tessa
