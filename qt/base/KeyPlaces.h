#pragma once
#include <QtGlobal>

class QKeyEvent;

namespace tessa::qt {

/// What a key is called in a combination. On a layout without Latin letters, such as Greek or Arabic, it is the US
/// keyboard's letter in that place. A layout that gives a Latin letter gives that letter, wherever it stands.
namespace KeyPlaces {

/// `key` is what the layout gives, in Qt's terms. `scanCode` says where the key is, as the X server and Wayland count.
/// Answers `key` itself for all others, and for a place that is not known.
[[nodiscard]] int KeyOf(int key, quint32 scanCode);
[[nodiscard]] int KeyOf(const QKeyEvent& event);

} // namespace KeyPlaces

} // namespace tessa::qt
