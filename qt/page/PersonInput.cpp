#include "qt/page/PersonInput.h"

#include "qt/page/WebPage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

bool IsAct(const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchEnd:
        return true;
    case QEvent::KeyPress: {
        const auto& key = static_cast<const QKeyEvent&>(event);
        return key.key() != Qt::Key_Escape && !key.isAutoRepeat();
    }
    default:
        return false;
    }
}

// The widget that takes the input is the view's own and comes anew with each renderer.
WebPage* PageAround(QObject* watched) {
    for (auto* each = qobject_cast<QWidget*>(watched); each && !each->isWindow(); each = each->parentWidget()) {
        if (auto* view = qobject_cast<QWebEngineView*>(each)) return qobject_cast<WebPage*>(view->page());
    }
    return nullptr;
}

} // namespace

PersonInput::PersonInput() { QCoreApplication::instance()->installEventFilter(this); }

bool PersonInput::eventFilter(QObject* watched, QEvent* event) {
    if (event->spontaneous() && IsAct(*event)) {
        if (auto* page = PageAround(watched)) page->NotePerson();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace tessa::qt
