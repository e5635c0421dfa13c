#include "qt/page/Awaited.h"

#include "qt/page/WebPage.h"

#include <chrono>
#include <utility>

namespace tessa::qt {

namespace {
constexpr std::chrono::seconds kTargetPatience{10};
}

Awaited::Awaited(WebPage& page) : QObject(&page), m_page(page) {
    m_patience.setSingleShot(true);
    m_patience.setInterval(kTargetPatience);
    m_patience.callOnTimeout(this, &Awaited::Overdue);
    connect(&page, &WebPage::NavigationRequested, this, &Awaited::OnNavigation);
    connect(&page, &WebPage::DocumentShown, this, &Awaited::End);
    // Into a window that has shown nothing yet, the page that has opened it may write. Then it has no address.
    connect(&page, &QWebEnginePage::urlChanged, this, [this](const QUrl& url) {
        if (!url.isEmpty()) End();
    });
    connect(&page, &QWebEnginePage::loadFinished, this, &Awaited::End);
}

// What ends may be a navigation that another has taken the place of.
void Awaited::End() {
    if (m_page.AwaitsAny()) return;
    m_asked = false;
    m_patience.stop();
}

void Awaited::OnNavigation(const QUrl&, bool topLevel) {
    // Where a server leads on is still for who has asked first.
    if (!topLevel || m_page.Redirects()) return;
    if (std::exchange(m_asked, false))
        m_patience.stop();
    else
        m_patience.start();
}

} // namespace tessa::qt
