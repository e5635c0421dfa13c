#pragma once
#include "base/Signal.h"

#include <QObject>
#include <QPointer>

namespace tessa::qt {

class QtCovers;
class QtCrashPage;
class QtPage;

/// Covers a page whose process has died, until it is loaded again or another is. Address, title and history of the
/// page stay, for they do not live in that process.
class QtCrashes final : public QObject {
public:
    /// Both outlive this object.
    QtCrashes(QtPage& page, QtCovers& covers);

    /// What covers the page; nothing while its process lives.
    [[nodiscard]] QtCrashPage* Shown() const;
    /// The user wants the page back.
    Signal<void()> Reload;

private:
    void OnDeath();
    void TakeOff();

    QtPage& m_page;
    QtCovers& m_covers;
    QPointer<QtCrashPage> m_shown;
};

} // namespace tessa::qt
