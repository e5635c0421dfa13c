#include "qt/base/KeyPlaces.h"

#include "qt/base/KeyFilter.h"

#include <QKeyEvent>
#include <gtest/gtest.h>
#include <string>

namespace tessa::qt {

namespace {

// Scan codes as the X server and Wayland count keys.
constexpr quint32 kOne = 10, kZero = 19, kMinusPlace = 20, kEqualPlace = 21, kQ = 24, kW = 25, kE = 26, kT = 28,
                  kU = 30, kP = 33, kA = 38, kD = 40, kF = 41, kJ = 44, kL = 46, kSemicolonPlace = 47, kZ = 52, kX = 53,
                  kC = 54, kV = 55, kM = 58, kCommaPlace = 59, kSpace = 65, kKeypadOne = 87;

/// What a key gives in some layout, where it is, and what it is called in a combination.
struct Pressed {
    const char* layout;
    char32_t gives; ///< as Qt tells it: in upper case
    quint32 scanCode;
    char32_t called;
};

constexpr Pressed kTable[] = {
    // No Latin letters at all: the place counts.
    {"Russian", U'Е', kT, U'T'},
    {"Russian", U'В', kD, U'D'},
    {"Russian", U'Ф', kA, U'A'},
    {"Russian", U'С', kC, U'C'},
    {"Russian", U'М', kV, U'V'},
    {"Russian", U'Я', kZ, U'Z'},
    {"Greek", U'Τ', kT, U'T'},
    {"Greek", U'Δ', kD, U'D'},
    {"Greek", U';', kQ, U'Q'},
    {"Greek", U':', kQ, U'Q'},
    {"Greek", U'ς', kW, U'W'},
    {"Hebrew", U'א', kT, U'T'},
    {"Hebrew", U'ג', kD, U'D'},
    {"Hebrew", U'/', kQ, U'Q'},
    {"Hebrew", U'\'', kW, U'W'},
    {"Hebrew", U'T', kT, U'T'}, // with Shift
    {"Arabic", U'ف', kT, U'T'},
    {"Arabic", U'ي', kD, U'D'},
    {"Arabic", 0xFEFB, 56, U'B'},
    {"Arabic", 0x0650, kA, U'A'}, // a vowel sign, with Shift
    {"Arabic", U']', kD, U'D'},
    {"Arabic", U'{', kV, U'V'},
    {"Persian", U'[', kP, U'P'},
    {"Bulgarian", U',', kQ, U'Q'},
    {"Thai", U'ะ', kT, U'T'},
    {"Thai", U'จ', kZero, U'0'},
    {"Thai", U'ข', kMinusPlace, U'-'},
    {"Thai", U'ช', kEqualPlace, U'='},
    {"Thai", U'-', 12, U'-'},
    {"Georgian", U'თ', kT, U'T'},
    {"Old Turkic", 0x10C1E, kT, U'T'},

    // Latin letters: wherever they stand, they count.
    {"English", U'T', kT, U'T'},
    {"French", U'A', kQ, U'A'},
    {"French", U'Q', kA, U'Q'},
    {"French", U'M', kSemicolonPlace, U'M'},
    {"French", U',', kM, U','},
    {"French", U'-', 15, U'-'},
    {"French", U'À', kZero, U'0'},
    {"French", U'&', kOne, U'&'},
    {"German", U'Z', 29, U'Z'},
    {"German", U'ß', kMinusPlace, U'ß'},
    {"Hungarian", U'Ö', kZero, U'Ö'},
    {"Czech", U'É', kZero, U'0'},
    {"Dvorak", U'Y', kT, U'Y'},
    {"Dvorak", U'T', 45, U'T'},
    {"Dvorak", U'E', kD, U'E'},
    {"Dvorak", U'\'', kQ, U'\''},
    {"Dvorak", U',', kW, U','},
    {"Dvorak", U'.', kE, U'.'},
    {"Dvorak", U';', kZ, U';'},
    {"Bépo", U'É', kW, U'É'},
    {"Colemak", U';', kP, U';'},
    {"Turkish", U'I', 31, U'I'}, // Qt's upper case of the dotless i
    {"Vietnamese", 0x0301, kT, 0x0301},

    // Keys that are no letters, and places that are not known.
    {"Russian", U' ', kSpace, U' '},
    {"Russian", U'Б', kCommaPlace, U'Б'},
    {"Russian", U'Ж', kSemicolonPlace, U'Ж'},
    {"Russian", U'1', kOne, U'1'},
    {"any", U'1', kKeypadOne, U'1'},
    {"Russian", U'Е', 0, U'Е'},
};

TEST(KeyPlaces, TheLettersPlaceCountsWhereTheLayoutHasNoLatinOnes) {
    for (const Pressed& each : kTable)
        EXPECT_EQ(KeyPlaces::KeyOf(static_cast<int>(each.gives), each.scanCode), static_cast<int>(each.called))
            << each.layout << " at " << each.scanCode;
}

TEST(KeyPlaces, KeysThatQtHasNamesForStayWhatTheyAre) {
    for (const int key : {int{Qt::Key_Tab}, int{Qt::Key_Dead_Acute}, int{Qt::Key_F5}, int{Qt::Key_unknown}, 0})
        EXPECT_EQ(KeyPlaces::KeyOf(key, kQ), key);
}

TEST(KeyPlaces, TheProgramIsToldTheLetter) {
    const QKeyEvent press(QEvent::KeyPress, 0x0415, Qt::ControlModifier | Qt::ShiftModifier, kT, 0, 0);
    EXPECT_EQ(KeyFilter::Of(press), (KeyStroke{'T', Keys::kCtrl | Keys::kShift}));
    const QKeyEvent larger(QEvent::KeyPress, 0x0E0A, Qt::ControlModifier, kEqualPlace, 0, 0);
    EXPECT_EQ(KeyFilter::Of(larger), (KeyStroke{Keys::kPlus, Keys::kCtrl}));
}

} // namespace

} // namespace tessa::qt
