#pragma once
#include <QObject>

class QKeyEvent;

/// Has combinations work with a keyboard whose layout has no Latin letters, in all windows of the program: those that
/// Qt's own boxes know, as Ctrl+C, and the letters underlined in menus and dialogs. What is typed stays what it is.
/// Works as long as it lives.
class QtLatinKeys final : public QObject {
    Q_OBJECT

public:
    QtLatinKeys();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
