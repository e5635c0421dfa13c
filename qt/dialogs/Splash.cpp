#include "qt/dialogs/Splash.h"

#include "qt/dialogs/SplashPanel.h"

#include <QFrame>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

namespace tessa::qt {

namespace {

std::unique_ptr<QWidget> MakeWindow(frmSplash& form) {
    auto window = std::make_unique<QFrame>(nullptr, Qt::SplashScreen);
    window->setObjectName(QStringLiteral("frmSplash"));
    window->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    auto* rows = new QVBoxLayout(window.get());
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(new SplashPanel(form));
    return window;
}

} // namespace

Splash::Splash() = default;
Splash::~Splash() { Unload(); }

void Splash::Show() {
    Unload();
    m_form = std::make_unique<frmSplash>();
    m_window = MakeWindow(*m_form);
    m_window->adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        m_window->move(screen->availableGeometry().center() - m_window->rect().center());
    m_window->show();
}

void Splash::Unload() {
    m_window.reset();
    m_form.reset();
}

} // namespace tessa::qt
