#include "qt/strip/StripClock.h"

#include <chrono>

namespace tessa::qt {

namespace {
constexpr std::chrono::milliseconds kFacesDelay{100};
} // namespace

StripClock::StripClock() {
    m_layout.setSingleShot(true);
    m_faces.setSingleShot(true);
    m_layout.callOnTimeout([this] { LayoutDue(); });
    m_faces.callOnTimeout([this] { FacesDue(); });
}

void StripClock::Note(TabStripChange change) {
    if (change == TabStripChange::Layout)
        m_layout.start(0);
    else if (!m_faces.isActive())
        m_faces.start(kFacesDelay);
}

void StripClock::Stop() {
    m_layout.stop();
    m_faces.stop();
}

} // namespace tessa::qt
