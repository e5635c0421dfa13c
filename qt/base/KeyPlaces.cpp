#include "qt/base/KeyPlaces.h"

#include <QChar>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <string_view>

namespace tessa::qt {

namespace {

/// Keys side by side, from the scan code of the first on.
struct KeyRow {
    quint32 first;
    std::string_view keys;
};

constexpr std::array kKeyRows{
    KeyRow{10, "1234567890-="},
    KeyRow{24, "QWERTYUIOP"},
    KeyRow{38, "ASDFGHJKL"},
    KeyRow{52, "ZXCVBNM"},
};

/// A sign that a layout gives where others have a letter or digit.
struct SignInPlace {
    char place;
    char32_t gives;
};

// Latin layouts have signs in such places too, and their letter elsewhere. The comma of a Dvorak keyboard is no W. So
// only these are known to stand for the letter; they are those of no Latin layout but rare ones.
constexpr std::array kSigns{
    // Greek
    SignInPlace{'Q', U';'},
    SignInPlace{'Q', U':'},
    // Hebrew
    SignInPlace{'Q', U'/'},
    SignInPlace{'W', U'\''},
    // Bulgarian
    SignInPlace{'Q', U','},
    // Arabic, with Shift
    SignInPlace{'C', U'}'},
    SignInPlace{'D', U']'},
    SignInPlace{'F', U'['},
    SignInPlace{'L', U'/'},
    SignInPlace{'M', U'\''},
    SignInPlace{'U', U'`'},
    SignInPlace{'V', U'{'},
    SignInPlace{'Z', U'~'},
    // Persian, with Shift
    SignInPlace{'O', U']'},
    SignInPlace{'P', U'['},
    // Thai, with Shift
    SignInPlace{'W', U'"'},
    SignInPlace{'X', U')'},
    SignInPlace{'Z', U'('},
    // French, Czech: digits come with Shift, and no other key gives this one without
    SignInPlace{'0', U'\u00C0'},
    SignInPlace{'0', U'\u00C9'},
};

char NameOfPlace(quint32 scanCode) {
    for (const KeyRow& row : kKeyRows) {
        if (scanCode >= row.first && scanCode - row.first < row.keys.size()) return row.keys[scanCode - row.first];
    }
    return 0;
}

bool IsOfOtherScript(char32_t character) {
    // Accents that join a Latin letter belong to no script.
    constexpr char32_t kLastLatinAccent = 0x36F;
    if (character <= kLastLatinAccent || QChar::script(character) == QChar::Script_Latin) return false;
    return QChar::isLetter(character) || QChar::isMark(character);
}

bool IsSignFor(char place, char32_t character) {
    return std::ranges::any_of(kSigns,
                               [&](const SignInPlace& sign) { return sign.place == place && sign.gives == character; });
}

} // namespace

namespace KeyPlaces {

int KeyOf(int key, quint32 scanCode) {
    const char place = NameOfPlace(scanCode);
    // From there on keys have names of Qt's own instead of characters.
    if (place == 0 || key <= 0 || key >= Qt::Key_Escape) return key;
    const auto character = static_cast<char32_t>(key);
    return IsOfOtherScript(character) || IsSignFor(place, character) ? place : key;
}

int KeyOf(const QKeyEvent& event) { return KeyOf(event.key(), event.nativeScanCode()); }

} // namespace KeyPlaces

} // namespace tessa::qt
