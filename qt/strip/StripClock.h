#pragma once
#include "base/Signal.h"
#include "forms/TabStrip.h"

#include <QTimer>

namespace tessa::qt {

/// When what shows a strip looks at it again: at its layout once a turn of the event loop, at captions, marks and icons
/// every tenth of a second. Any repaint composes the whole window again.
class StripClock {
public:
    StripClock();

    /// The strip has changed.
    void Note(TabStripChange change);
    [[nodiscard]] bool IsLayoutDue() const { return m_layout.isActive(); }
    /// All was looked at, or nobody is to look any more.
    void Stop();

    Signal<void()> LayoutDue;
    Signal<void()> FacesDue;

private:
    QTimer m_layout, m_faces;
};

} // namespace tessa::qt
