#pragma once
#include <QtGlobal>

class QKeyEvent;

/// What a key is called in a combination. On a keyboard whose layout has no Latin letters, as a Greek or an Arabic one,
/// that is the letter which a keyboard of the United States has in the same place; where the layout gives a Latin
/// letter, wherever that stands, it is that letter.
namespace QtKeyPlaces {

/// `key` is what the layout gives, in Qt's terms; `scanCode` says where the key is, as the X server and Wayland count
/// keys. Answers `key` itself for all others, and for a place that is not known.
[[nodiscard]] int KeyOf(int key, quint32 scanCode);
[[nodiscard]] int KeyOf(const QKeyEvent& event);

} // namespace QtKeyPlaces
