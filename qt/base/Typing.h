#pragma once
#include "base/Signal.h"

#include <QObject>

class QWidget;

namespace tessa::qt {

/// Tells of every letter that the user is about to type or paste into a page of a window. When the keyboard is led
/// elsewhere for that, the letter goes there too.
class Typing final : public QObject {
    Q_OBJECT

public:
    /// The window outlives it. Works as long as it lives.
    explicit Typing(QWidget& window);

    Signal<void()> OverPage;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& m_window;
};

} // namespace tessa::qt
