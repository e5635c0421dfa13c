#pragma once
#include "base/ResumeNext.h"

#include <QTimer>
#include <QWebEnginePage>
#include <functional>

namespace tessa::qt {

/// Has the engine forget what all sites have stored beside their cookies, and its cache, while it runs. The engine
/// offers that to its developer tools alone. So two pages that nobody sees do it: one with the tools, and one for them
/// to look at. (It offers a way to empty the cache to us too, but open pages can fetch nothing after that.)
class SiteData final : public QObject {
public:
    /// Ends before the profile.
    explicit SiteData(QWebEngineProfile& profile);

    struct What {
        bool sites = false;
        bool cache = false;
    };
    /// Tells once whether it has gone; called once.
    void Forget(What what, std::function<void(Outcome)> done);

private:
    void Ask();
    void OnTitle(const QString& title);
    void End(Outcome outcome);

    What m_what;
    std::function<void(Outcome)> m_done;
    QTimer m_patience;
    QWebEnginePage m_blank, m_tools;
};

} // namespace tessa::qt
