#pragma once
#include "base/Signal.h"

#include <QObject>
#include <QPointer>

namespace tessa::qt {

class Covers;
class CrashPage;
class WebPage;

/// Covers a page whose process has died, until it is loaded again or another is. Address, title and history of the
/// page stay, for they do not live in that process.
class Crashes final : public QObject {
public:
    /// Both outlive this object.
    Crashes(WebPage& page, Covers& covers);

    /// What covers the page; nothing while its process lives.
    [[nodiscard]] CrashPage* Shown() const;
    /// The user wants the page back.
    Signal<void()> Reload;

private:
    void OnDeath();
    void TakeOff();

    WebPage& m_page;
    Covers& m_covers;
    QPointer<CrashPage> m_shown;
};

} // namespace tessa::qt
