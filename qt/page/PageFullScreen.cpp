#include "qt/page/PageFullScreen.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <chrono>
#include <utility>

namespace tessa::qt {

namespace {

constexpr std::chrono::seconds kHintTime{4};

bool IsEscape(const QEvent& event) {
    const bool key = event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride;
    return key && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

} // namespace

void PageFullScreen::Enter(QWebEngineView& view, const QString& who) {
    Leave(m_view);
    m_view = &view;
    m_home = view.parentWidget();
    QWidget* window = view.window();
    view.setParent(window);
    // Only now, so that it sees keys before all others do.
    QCoreApplication::instance()->installEventFilter(this);
    m_windowWasFull = m_window.WindowIsFull();
    if (!m_windowWasFull) m_window.SetWindowFull(true);
    view.show();
    view.setFocus();
    ShowHint(who);
}

void PageFullScreen::Leave(QWebEngineView* view) {
    if (!Has(view)) return;
    QCoreApplication::instance()->removeEventFilter(this);
    m_view.clear();
    delete m_hint;
    view->setParent(m_home);
    view->show();
    view->setFocus();
    if (view->page()) view->page()->triggerAction(QWebEnginePage::ExitFullScreen);
    if (!m_windowWasFull) m_window.SetWindowFull(false);
}

bool PageFullScreen::Has(const QWebEngineView* view) const { return view && m_view == view; }

void PageFullScreen::Lay() {
    m_view->setGeometry(m_view->window()->rect());
    m_view->raise();
    if (!m_hint) return;
    m_hint->move((m_view->width() - m_hint->width()) / 2, m_view->height() / 12);
    m_hint->raise();
}

bool PageFullScreen::eventFilter(QObject* watched, QEvent* event) {
    if (!m_view) return false;
    QWidget* window = m_view->window();
    const bool inside =
        watched == window || (watched->isWidgetType() && window->isAncestorOf(static_cast<QWidget*>(watched)));
    if (inside && IsEscape(*event)) {
        event->accept();
        if (event->type() == QEvent::KeyPress) m_view->page()->triggerAction(QWebEnginePage::ExitFullScreen);
        return true;
    }
    if (watched == window && event->type() == QEvent::Resize) Lay();
    // The desktop, or the command for it, has ended it.
    if (watched == window && event->type() == QEvent::WindowStateChange && !window->isFullScreen())
        m_view->page()->triggerAction(QWebEnginePage::ExitFullScreen);
    return false;
}

// A child of the window: assistive tools see nothing in the view but its page.
void PageFullScreen::ShowHint(const QString& who) {
    m_hint = new QLabel(tr("%1 fills the screen. Press Esc to leave.").arg(who), m_view->window());
    m_hint->setObjectName(QStringLiteral("pageFullScreenHint"));
    m_hint->setTextFormat(Qt::PlainText);
    // Above pages of any colour.
    m_hint->setStyleSheet(
        QStringLiteral("background: rgba(20, 24, 30, 220); color: white; padding: 10px 18px; border-radius: 8px;"));
    m_hint->adjustSize();
    Lay();
    m_hint->show();
    QTimer::singleShot(kHintTime, m_hint, &QObject::deleteLater);
}

} // namespace tessa::qt
