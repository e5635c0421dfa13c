#pragma once
#include "base/Signal.h"

#include <QWidget>

class QPushButton;

namespace tessa::qt {

/// What covers a page whose process has died: says so and offers to load the page again.
class CrashPage final : public QWidget {
    Q_OBJECT

public:
    /// `address` is the page that was shown.
    explicit CrashPage(const QString& address);

    /// The user wants the page back.
    Signal<void()> Reload;

private:
    void LayOut(const QString& address);

    QPushButton* m_reload;
};

} // namespace tessa::qt
