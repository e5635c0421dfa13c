#pragma once
#include "base/Text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessa {

/// A key with its modifiers as the window receives it. Letters and digits are their upper-case characters, others
/// have names of their own below.
struct KeyStroke {
    std::int32_t KeyCode = 0;
    std::int32_t Shift = 0; ///< sum of the bits below
    bool operator==(const KeyStroke&) const = default;
};

namespace Keys {
inline constexpr std::int32_t kShift = 1, kCtrl = 2, kAlt = 4;
inline constexpr std::int32_t kBackspace = 8, kTab = 9, kEnter = 13, kAltAlone = 18, kEscape = 27, kSpace = 32,
                              kPageUp = 33, kPageDown = 34, kEnd = 35, kHome = 36, kLeft = 37, kUp = 38, kRight = 39,
                              kDown = 40, kInsert = 45, kDelete = 46, kF1 = 112, kF4 = 115, kF5 = 116, kF6 = 117,
                              kF7 = 118, kF10 = 121, kF11 = 122, kF12 = 123, kPlus = 187, kComma = 188, kMinus = 189,
                              kPeriod = 190, kSlash = 191;
} // namespace Keys

/// A combination that clicks a tool. The first of a tool's combinations is the one that menus show.
struct Shortcut {
    TextView ToolName;
    KeyStroke Key;
};

/// Combinations as people and files spell them.
namespace KeyWords {

/// As menus show it: "Ctrl+Shift+E". Empty for a key without a name, and for modifiers alone.
[[nodiscard]] Text Shown(KeyStroke key);
/// As a file holds it: of letters, digits and plus signs between them. Empty as above.
[[nodiscard]] std::string Word(KeyStroke key);
/// The combination that a file's word stands for; nothing for any other bytes.
[[nodiscard]] std::optional<KeyStroke> Of(std::string_view word);

} // namespace KeyWords

} // namespace tessa
