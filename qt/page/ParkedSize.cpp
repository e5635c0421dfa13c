#include "qt/page/ParkedSize.h"

#include <QChildEvent>
#include <QLayout>
#include <QQuickItem>
#include <QQuickWidget>

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
        // The scene alone is told. A QResizeEvent also has QQuickWidget make a picture of it, megabytes for each page.
        const auto* widget = qobject_cast<QQuickWidget*>(&child);
        QQuickItem* root = widget ? widget->rootObject() : nullptr;
        if (!root) return;
        root->setSize(child.size());
        const auto items = root->childItems();
        for (QQuickItem* each : items) each->setSize(child.size());
    }

    QWidget& m_view;
};

} // namespace

void ParkedSize::Follow(QWidget& view) { new SizeTeller(view); }

} // namespace tessa::qt
