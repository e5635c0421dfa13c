#include "qt/page/SceneWindows.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace tessa::qt {

namespace {

void HideAll() {
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        const bool painting = window->inherits("QQuickWindow") && window->title() == u"Offscreen";
        // Windows of this kind are listed with what they belong to.
        if (painting && window->type() != Qt::Popup) window->setFlags(Qt::Popup);
    }
}

// The engine gives a view another window whenever another process takes the page over.
class Watch final : public QObject {
public:
    explicit Watch(QWidget& view) : QObject(&view) { view.installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ChildAdded || event->type() == QEvent::ChildPolished) HideAll();
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void SceneWindows::Hide(QWidget& view) { new Watch(view); }

} // namespace tessa::qt
