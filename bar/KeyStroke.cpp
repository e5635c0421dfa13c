#include "bar/KeyStroke.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

struct NamedKey {
    std::int32_t code;
    std::string_view word, shown;
};

constexpr std::array kNamedKeys{
    NamedKey{Keys::kBackspace, "Backspace", "Backspace"},
    NamedKey{Keys::kTab, "Tab", "Tab"},
    NamedKey{Keys::kEnter, "Enter", "Return"},
    NamedKey{Keys::kEscape, "Escape", "Esc"},
    NamedKey{Keys::kSpace, "Space", "Space"},
    NamedKey{Keys::kPageUp, "PageUp", "PgUp"},
    NamedKey{Keys::kPageDown, "PageDown", "PgDown"},
    NamedKey{Keys::kEnd, "End", "End"},
    NamedKey{Keys::kHome, "Home", "Home"},
    NamedKey{Keys::kLeft, "Left", "Left"},
    NamedKey{Keys::kUp, "Up", "Up"},
    NamedKey{Keys::kRight, "Right", "Right"},
    NamedKey{Keys::kDown, "Down", "Down"},
    NamedKey{Keys::kInsert, "Insert", "Ins"},
    NamedKey{Keys::kDelete, "Delete", "Del"},
    NamedKey{Keys::kPlus, "Plus", "+"},
    NamedKey{Keys::kComma, "Comma", ","},
    NamedKey{Keys::kMinus, "Minus", "-"},
    NamedKey{Keys::kPeriod, "Period", "."},
    NamedKey{Keys::kSlash, "Slash", "/"},
};

struct Modifier {
    std::int32_t bit;
    std::string_view word;
};

// In the order in which they are spelled.
constexpr std::array kModifierWords{
    Modifier{Keys::kCtrl, "Ctrl"},
    Modifier{Keys::kAlt, "Alt"},
    Modifier{Keys::kShift, "Shift"},
};
constexpr std::int32_t kAllModifiers = Keys::kCtrl | Keys::kAlt | Keys::kShift;

constexpr bool IsLetterOrDigit(std::int32_t code) {
    return (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
}

std::string NameOfKey(std::int32_t code, std::string_view NamedKey::*form) {
    if (IsLetterOrDigit(code)) return std::string(1, static_cast<char>(code));
    if (code >= Keys::kF1 && code <= Keys::kF12) return 'F' + std::to_string(code - Keys::kF1 + 1);
    const auto* found = std::ranges::find(kNamedKeys, code, &NamedKey::code);
    return found == kNamedKeys.end() ? std::string() : std::string(found->*form);
}

std::string Spelled(KeyStroke key, std::string_view NamedKey::*form) {
    const std::string name = NameOfKey(key.KeyCode, form);
    if (name.empty() || (key.Shift & ~kAllModifiers) != 0) return {};
    std::string all;
    for (const Modifier& each : kModifierWords) {
        if (key.Shift & each.bit) all += std::string(each.word) + '+';
    }
    return all + name;
}

} // namespace

namespace KeyWords {

Text Shown(KeyStroke key) { return FromBytes(Spelled(key, &NamedKey::shown)); }

std::string Word(KeyStroke key) { return Spelled(key, &NamedKey::word); }

std::optional<KeyStroke> Of(std::string_view word) {
    KeyStroke key;
    for (const Modifier& each : kModifierWords) {
        if (!word.starts_with(each.word) || !word.substr(each.word.size()).starts_with('+')) continue;
        word.remove_prefix(each.word.size() + 1);
        key.Shift |= each.bit;
    }
    // Every code is below the last one with a name.
    for (key.KeyCode = 1; key.KeyCode <= Keys::kSlash; ++key.KeyCode) {
        if (const std::string name = NameOfKey(key.KeyCode, &NamedKey::word); !name.empty() && name == word) return key;
    }
    return std::nullopt;
}

} // namespace KeyWords

} // namespace tessa
