#include "qt/page/ParkedSize.h"

#include "qt/base/EngineVersions.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <QLayout>
#include <QQuickItem>
#include <QQuickWidget>
#include <QResizeEvent>

namespace tessa::qt {

namespace {

class SizeTeller final : public QObject {
public:
    explicit SizeTeller(QWidget& view) : QObject(&view), m_view(view) { view.installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ChildPolished && m_view.isHidden()) {
            QObject* child = static_cast<QChildEvent*>(event)->child();
            if (child->isWidgetType()) Tell(static_cast<QWidget&>(*child));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void Tell(QWidget& child) {
        if (QLayout* layout = m_view.layout()) layout->activate();
        EngineVersions::TakesSizeFromScene() ? TellScene(child) : TellWidget(child);
    }

    // A resize event also has QQuickWidget make a picture of its scene, megabytes for each page.
    static void TellScene(QWidget& child) {
        const auto* widget = qobject_cast<QQuickWidget*>(&child);
        QQuickItem* root = widget ? widget->rootObject() : nullptr;
        if (!root) return;
        root->setSize(child.size());
        const auto items = root->childItems();
        for (QQuickItem* each : items) each->setSize(child.size());
    }

    static void TellWidget(QWidget& child) {
        QResizeEvent resized(child.size(), QSize());
        QCoreApplication::sendEvent(&child, &resized);
    }

    QWidget& m_view;
};

} // namespace

void ParkedSize::Follow(QWidget& view) { new SizeTeller(view); }

} // namespace tessa::qt
