#include "qt/page/ParkedSize.h"

#include <QCoreApplication>
#include <QLayout>
#include <QResizeEvent>
#include <QWidget>

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
        QResizeEvent resized(child.size(), QSize());
        QCoreApplication::sendEvent(&child, &resized);
    }

    QWidget& m_view;
};

} // namespace

void ParkedSize::Follow(QWidget& view) { new SizeTeller(view); }

} // namespace tessa::qt
