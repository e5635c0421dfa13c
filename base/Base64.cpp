#include "base/Base64.h"

#include <cstdint>

namespace tessa {

std::string Base64(std::string_view bytes) {
    constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string letters;
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        std::uint32_t three = 0;
        for (std::size_t i = 0; i < 3; ++i)
            three = three << 8 | (at + i < bytes.size() ? static_cast<unsigned char>(bytes[at + i]) : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            letters += at + i <= bytes.size() ? kLetters[three >> (18 - 6 * i) & 63] : '=';
    }
    return letters;
}

} // namespace tessa
