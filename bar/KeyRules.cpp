#include "bar/KeyRules.h"

#include <algorithm>
#include <array>

namespace tessa {

namespace {

constexpr TextView kIsForTyping = u"is for typing. Hold Ctrl or Alt with it.";
constexpr TextView kIsForEditing = u"is needed for editing text in boxes and pages.";
constexpr TextView kMoves = u"moves about in texts and pages.";
constexpr TextView kIsForBoxes = u"is needed in boxes, dialogs and pages.";
constexpr TextView kIsForTheDesktop = u"belongs to the desktop.";

/// Which modifiers a rule is about, as a bit for each of the eight sums of them.
constexpr unsigned Held(std::int32_t sum) { return 1U << static_cast<unsigned>(sum); }
constexpr unsigned kPlain = Held(0), kShiftAlone = Held(Keys::kShift), kCtrlAlone = Held(Keys::kCtrl),
                   kAltHeld = Held(Keys::kAlt), kCtrlShift = Held(Keys::kCtrl | Keys::kShift),
                   kAllButAlt = kPlain | kShiftAlone | kCtrlAlone | kCtrlShift, kHowever = 0xFF;

struct RefusedKey {
    std::int32_t code;
    unsigned held;
    TextView why;
};

constexpr std::array kRefused{
    RefusedKey{'A', kCtrlAlone, kIsForEditing},
    RefusedKey{'C', kCtrlAlone, kIsForEditing},
    RefusedKey{'V', kCtrlAlone | kCtrlShift, kIsForEditing},
    RefusedKey{'X', kCtrlAlone, kIsForEditing},
    RefusedKey{'Y', kCtrlAlone, kIsForEditing},
    RefusedKey{'Z', kCtrlAlone | kCtrlShift, kIsForEditing},
    RefusedKey{Keys::kBackspace, kAllButAlt, kIsForEditing},
    RefusedKey{Keys::kDelete, kPlain | kShiftAlone | kCtrlAlone, kIsForEditing},
    RefusedKey{Keys::kInsert, kPlain | kShiftAlone | kCtrlAlone, kIsForEditing},
    RefusedKey{Keys::kLeft, kAllButAlt, kMoves},
    RefusedKey{Keys::kRight, kAllButAlt, kMoves},
    RefusedKey{Keys::kHome, kAllButAlt, kMoves},
    RefusedKey{Keys::kEnd, kAllButAlt, kMoves},
    RefusedKey{Keys::kUp, kAllButAlt, kMoves},
    RefusedKey{Keys::kDown, kAllButAlt, kMoves},
    RefusedKey{Keys::kUp, kAltHeld, u"opens the list of a box."},
    RefusedKey{Keys::kDown, kAltHeld, u"opens the list of a box."},
    RefusedKey{Keys::kPageUp, kPlain | kShiftAlone, kMoves},
    RefusedKey{Keys::kPageDown, kPlain | kShiftAlone, kMoves},
    RefusedKey{Keys::kEnter, kHowever, kIsForBoxes},
    RefusedKey{Keys::kEscape, kPlain, kIsForBoxes},
    RefusedKey{Keys::kTab, kPlain | kShiftAlone, kIsForBoxes},
    RefusedKey{Keys::kTab, kHowever & ~kCtrlAlone & ~kCtrlShift, kIsForTheDesktop},
    RefusedKey{Keys::kSpace, kCtrlAlone, kIsForBoxes},
    RefusedKey{Keys::kSpace, kAltHeld, kIsForTheDesktop},
    RefusedKey{Keys::kF4, kAltHeld, u"closes the window."},
    RefusedKey{Keys::kF10, kShiftAlone, u"opens the menu of what has the keyboard."},
};

constexpr bool IsTyped(std::int32_t code) {
    return (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') || code == Keys::kSpace || code >= Keys::kPlus;
}

} // namespace

namespace KeyRules {

Text Refusal(KeyStroke key) {
    const Text shown = KeyWords::Shown(key);
    if (shown.empty()) return u"This key cannot be used here.";
    const unsigned held = Held(key.Shift);
    if (IsTyped(key.KeyCode) && (held & (kPlain | kShiftAlone))) return shown + u" " + Text(kIsForTyping);
    for (const RefusedKey& each : kRefused) {
        if (each.code == key.KeyCode && (each.held & held)) return shown + u" " + Text(each.why);
    }
    return {};
}

} // namespace KeyRules

} // namespace tessa
