#pragma once
#include "base/ResumeNext.h"

#include <QUrl>
#include <vector>

namespace tessa::qt {

/// Hands addresses to the desktop's programs for them. Not before `Start()`: a process that only hands its command line
/// over leaves that to the other.
class OutsidePrograms {
public:
    void Start();
    /// Now, or as soon as this has started.
    Outcome Open(const QUrl& url);

private:
    std::vector<QUrl> m_waiting;
    bool m_started = false;
};

} // namespace tessa::qt
