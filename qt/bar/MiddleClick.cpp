#include "qt/bar/MiddleClick.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMouseEvent>

namespace tessa::qt {

MiddleClick::MiddleClick() { QCoreApplication::instance()->installEventFilter(this); }

bool MiddleClick::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease && qobject_cast<QMenu*>(watched) &&
        static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton) {
        m_now = true;
        // The entry's command runs while this event is handled.
        QMetaObject::invokeMethod(
            this, [this] { m_now = false; }, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tessa::qt
