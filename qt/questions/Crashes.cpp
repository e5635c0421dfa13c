#include "qt/questions/Crashes.h"

#include "base/os/Log.h"
#include "qt/page/WebPage.h"
#include "qt/questions/Covers.h"
#include "qt/questions/CrashPage.h"

namespace tessa::qt {

Crashes::Crashes(WebPage& page, Covers& covers) : m_page(page), m_covers(covers) {
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, &Crashes::OnDeath);
    connect(&page, &QWebEnginePage::loadStarted, this, &Crashes::TakeOff);
    // A load that was under way when the process died goes on in another, without another start.
    connect(&page, &QWebEnginePage::urlChanged, this, &Crashes::TakeOff);
}

CrashPage* Crashes::Shown() const { return m_shown; }

void Crashes::OnDeath() {
    Log::Note(LogLevel::Warning, LogPart::Pages, "a page's process ended");
    TakeOff();
    m_shown = new CrashPage(m_page.url().toDisplayString());
    m_shown->Reload.ConnectForLife([this] { Reload(); });
    m_covers.Add(m_shown);
}

void Crashes::TakeOff() {
    if (m_shown) m_covers.Remove(m_shown);
    m_shown = nullptr;
}

} // namespace tessa::qt
