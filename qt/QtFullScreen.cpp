#include "qt/QtFullScreen.h"

#include <QEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QTimer>
#include <QToolBar>
#include <chrono>
#include <utility>

namespace {
constexpr std::chrono::seconds kHintTime{4};
}

QtFullScreen::QtFullScreen(QMainWindow& window, QWidget& hintArea) : m_window(window), m_hintArea(hintArea) {
    m_window.installEventFilter(this);
    m_hintArea.installEventFilter(this);
}

void QtFullScreen::Set(bool on) {
    const Qt::WindowStates state = m_window.windowState();
    m_window.setWindowState(on ? state | Qt::WindowFullScreen : state & ~Qt::WindowFullScreen);
}

bool QtFullScreen::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_window && event->type() == QEvent::WindowStateChange) Follow(m_window.isFullScreen());
    if (watched == &m_hintArea && event->type() == QEvent::Resize) PlaceHint();
    return QObject::eventFilter(watched, event);
}

void QtFullScreen::Follow(bool on) {
    if (std::exchange(m_on, on) == on) return;
    if (on) {
        HideBars();
        ShowHint();
    } else {
        ShowBars();
        delete m_hint;
    }
    if (Changed) Changed(on);
}

void QtFullScreen::HideBars() {
    std::vector<QWidget*> bars;
    if (QWidget* menuBar = m_window.menuWidget()) bars.push_back(menuBar);
    for (QToolBar* bar : m_window.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly)) bars.push_back(bar);
    for (QWidget* bar : bars) {
        if (bar->isHidden()) continue;
        m_hidden.emplace_back(bar);
        bar->hide();
    }
}

void QtFullScreen::ShowBars() {
    for (const QPointer<QWidget>& bar : std::exchange(m_hidden, {})) {
        if (bar) bar->show();
    }
}

void QtFullScreen::ShowHint() {
    m_hint = new QLabel(tr("Press F11 to leave full screen"), &m_hintArea);
    m_hint->setObjectName(QStringLiteral("fullScreenHint"));
    // Above pages of any colour.
    m_hint->setStyleSheet(
        QStringLiteral("background: rgba(20, 24, 30, 220); color: white; padding: 10px 18px; border-radius: 8px;"));
    m_hint->adjustSize();
    PlaceHint();
    m_hint->raise();
    m_hint->show();
    QTimer::singleShot(kHintTime, m_hint, &QObject::deleteLater);
}

void QtFullScreen::PlaceHint() {
    if (m_hint) m_hint->move((m_hintArea.width() - m_hint->width()) / 2, m_hintArea.height() / 12);
}
