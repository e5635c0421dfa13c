#pragma once
#include "base/Text.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tessa {

/// What a later start of the program says to the instance that runs, as bytes. It is one line. When a text is handed
/// over, as many of its bytes as the line says stand behind it.
namespace InstanceMessage {

/// A line has fewer bytes than that, with its end.
inline constexpr std::size_t kLongestLine = 4096;
/// A text has no more bytes than that; the engine takes no longer address.
inline constexpr std::size_t kLongestText = std::size_t{2} << 20;

enum class Kind { Foreground, HandOver };

struct Message {
    Kind What = Kind::Foreground;
    std::string Token{}; ///< `Foreground`: the desktop's permission, or empty
    tessa::Text Text{};  ///< `HandOver`: what is handed over
};

/// `Refused`: these bytes begin no message of ours.
enum class Standing { Incomplete, Refused, Whole };

struct Reading {
    Standing How = Standing::Incomplete;
    Message What; ///< when it is whole
};

/// Asks the instance to come to the foreground. A token that is too long is cut.
[[nodiscard]] std::string Foreground(std::string_view token);
/// Hands a text over as it stands; no bytes for one that is too long.
[[nodiscard]] std::string HandOver(TextView text);
/// Reads what has come so far; what stands behind a whole message is not looked at.
[[nodiscard]] Reading Read(std::string_view bytes);

} // namespace InstanceMessage

} // namespace tessa
