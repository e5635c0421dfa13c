#include "base/InstanceMessage.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace tessa {

namespace {

constexpr std::string_view kForegroundWord = "foreground";
constexpr std::string_view kHandOverWord = "message ";

/// Digits alone, and no more of them than needed, so that each length is written in one way.
std::optional<std::size_t> LengthIn(std::string_view digits) {
    std::size_t length = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    if (!whole || (digits.size() > 1 && digits.front() == '0') || length > InstanceMessage::kLongestText)
        return std::nullopt;
    return length;
}

} // namespace

namespace InstanceMessage {

std::string Foreground(std::string_view token) {
    std::string line = std::string(kForegroundWord) + ' ' + std::string(token.substr(0, kLongestLine / 2));
    std::ranges::replace(line, '\n', ' ');
    return line + '\n';
}

std::string HandOver(TextView text) {
    // A path whose name is no valid UTF-8 comes back as it was.
    const std::string bytes = PathToBytes(text);
    if (bytes.size() > kLongestText) return {};
    return std::string(kHandOverWord) + std::to_string(bytes.size()) + '\n' + bytes;
}

Reading Read(std::string_view bytes) {
    const std::size_t end = bytes.substr(0, kLongestLine).find('\n');
    if (end == std::string_view::npos)
        return {bytes.size() < kLongestLine ? Standing::Incomplete : Standing::Refused, {}};
    const std::string_view line = bytes.substr(0, end), behind = bytes.substr(end + 1);
    if (line == kForegroundWord) return {Standing::Whole, {}};
    if (line.starts_with(kForegroundWord) && line[kForegroundWord.size()] == ' ')
        return {Standing::Whole, {Kind::Foreground, std::string(line.substr(kForegroundWord.size() + 1)), {}}};
    const auto length = line.starts_with(kHandOverWord) ? LengthIn(line.substr(kHandOverWord.size())) : std::nullopt;
    if (!length) return {Standing::Refused, {}};
    if (behind.size() < *length) return {Standing::Incomplete, {}};
    return {Standing::Whole, {Kind::HandOver, {}, PathFromBytes(behind.substr(0, *length))}};
}

} // namespace InstanceMessage

} // namespace tessa
