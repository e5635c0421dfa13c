#pragma once
#include <QObject>

class QKeyEvent;

namespace tessa::qt {

/// Has combinations work with a keyboard layout without Latin letters, in all windows. That is those of Qt's own boxes,
/// as Ctrl+C, and the underlined letters of menus and dialogs. What is typed stays what it is. Works as long as it
/// lives.
class LatinKeys final : public QObject {
    Q_OBJECT

public:
    LatinKeys();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tessa::qt
