#include "qt/questions/QtCrashes.h"

#include "base/os/Log.h"
#include "qt/page/QtPage.h"
#include "qt/questions/QtCovers.h"
#include "qt/questions/QtCrashPage.h"

namespace tessa::qt {

QtCrashes::QtCrashes(QtPage& page, QtCovers& covers) : m_page(page), m_covers(covers) {
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, &QtCrashes::OnDeath);
    connect(&page, &QWebEnginePage::loadStarted, this, &QtCrashes::TakeOff);
    // A load that was under way when the process died goes on in another, without another start.
    connect(&page, &QWebEnginePage::urlChanged, this, &QtCrashes::TakeOff);
}

QtCrashPage* QtCrashes::Shown() const { return m_shown; }

void QtCrashes::OnDeath() {
    Log::Note(LogLevel::Warning, LogPart::Pages, "a page's process ended");
    TakeOff();
    m_shown = new QtCrashPage(m_page.url().toDisplayString());
    m_shown->Reload.ConnectForLife([this] { Reload(); });
    m_covers.Add(m_shown);
}

void QtCrashes::TakeOff() {
    if (m_shown) m_covers.Remove(m_shown);
    m_shown = nullptr;
}

} // namespace tessa::qt
