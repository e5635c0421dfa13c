#include "qt/engine/OutsidePrograms.h"

#include <QDesktopServices>
#include <utility>

namespace tessa::qt {

void OutsidePrograms::Start() {
    m_started = true;
    for (const QUrl& url : std::exchange(m_waiting, {})) ResumeNext(Open(url));
}

Outcome OutsidePrograms::Open(const QUrl& url) {
    if (m_started) return QDesktopServices::openUrl(url) ? Outcome::Done : Outcome::Failed;
    m_waiting.push_back(url);
    return Outcome::Done;
}

} // namespace tessa::qt
