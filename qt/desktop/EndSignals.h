#pragma once
#include "base/Signal.h"

#include <QObject>

class QSocketNotifier;

namespace tessa::qt {

/// The signals with which the desktop or a terminal asks the program to end. It ends as if its window were closed.
class EndSignals final : public QObject {
    Q_OBJECT

public:
    /// At most one at a time.
    EndSignals();
    ~EndSignals() override;

    /// The program is to end.
    Signal<void()> Quit;

private:
    QSocketNotifier* m_notifier = nullptr;
};

} // namespace tessa::qt
