#pragma once
#include <QObject>

namespace tessa::qt {

/// Tells whether the menu entry that is being chosen was clicked with the middle button. That opens a page in a tab of
/// its own. Qt does not say with which button an entry was chosen.
class MiddleClick final : public QObject {
public:
    MiddleClick();
    [[nodiscard]] bool Now() const { return m_now; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_now = false;
};

} // namespace tessa::qt
