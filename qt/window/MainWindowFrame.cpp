#include "qt/window/MainWindowFrame.h"

#include "qt/base/DrawingChoice.h"
#include "qt/base/Icons.h"
#include "qt/base/ScreenFit.h"
#include "qt/base/Strings.h"
#include "qt/strip/TabStripView.h"
#include "qt/window/StatusBarView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLayout>
#include <QOpenGLContext>
#include <QOpenGLWidget>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace tessa::qt {

namespace {
QRect VirtualScreen() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->virtualGeometry() : QRect();
}

QSize SizeIn(Twips width, Twips height) {
    return {std::max(ToPixels(width).value, 1), std::max(ToPixels(height).value, 1)};
}

// Where OpenGL draws, the engine's widgets are painted by it. A window that learns of that when it is on the screen
// already is taken away and made anew. With such a widget in it, never shown and so for nothing, it is made for them at
// once.
void ExpectEngine(QWidget& area) {
    if (DrawingChoice::InSoftware()) return;
    const auto* graphics = QOpenGLContext::globalShareContext();
    if (graphics && graphics->isValid()) (new QOpenGLWidget(&area))->hide();
}

} // namespace

MainWindowFrame::MainWindowFrame() : m_inner(new QWidget), m_fullScreen(*this, *m_inner) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowIcon(Icons::Application());
    m_inner->setObjectName(QStringLiteral("innerArea"));
    setCentralWidget(m_inner);
    ExpectEngine(*m_inner);
    m_inner->installEventFilter(this);
    m_fullScreen.Changed.ConnectForLife([this](bool on) {
        if (!on) m_placeBefore.reset();
        FullScreenChanged(on);
    });
}

MainWindowFrame::~MainWindowFrame() {
    m_connections.End();
    // Their owners delete them, the window does not.
    if (m_tabStrip) {
        m_tabStrip->setParent(nullptr);
    }
    if (m_statusBar) {
        m_statusBar->setParent(nullptr);
    }
}

void MainWindowFrame::SetCaption(TextView caption) { setWindowTitle(ToQt(caption)); }

void MainWindowFrame::Show() {
    show();
    raise();
    activateWindow();
    QTimer::singleShot(0, this, [this] {
        if (m_fits) ScreenFit::Fit(*this);
        if (!m_activated) Activate();
    });
}

void MainWindowFrame::BringToForeground(const QByteArray& token) {
    if (!isVisible()) return;
    m_activationToken = token;
    if (!isMinimized()) return RaiseAndActivate();
    // One that has only just been minimized is still the active window, which is never alerted.
    m_alertsWhenLeft = isActiveWindow();
    QApplication::alert(this);
}

void MainWindowFrame::ComeBack() {
    if (!isVisible()) return;
    setWindowState(windowState() & ~Qt::WindowMinimized);
    RaiseAndActivate();
}

void MainWindowFrame::RaiseAndActivate() {
    // Where Qt looks for the token when it activates a window.
    if (!m_activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", std::exchange(m_activationToken, {}));
    raise();
    activateWindow();
}

void MainWindowFrame::Close() { close(); }

WindowState MainWindowFrame::State() const {
    if (isMinimized()) return WindowState::Minimized;
    return isMaximized() ? WindowState::Maximized : WindowState::Normal;
}

void MainWindowFrame::SetState(WindowState state) {
    constexpr Qt::WindowStates kOurs = Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen;
    const Qt::WindowStates others = windowState() & ~kOurs;
    const bool wasMinimized = isVisible() && isMinimized();
    switch (state) {
    case WindowState::Normal:
        setWindowState(others);
        // What asked for the foreground while the window was minimised had to be content with an alert.
        if (wasMinimized) RaiseAndActivate();
        return;
    case WindowState::Minimized:
        return setWindowState(windowState() | Qt::WindowMinimized);
    case WindowState::Maximized:
        // How large it is then is for the desktop to say, which may take a while over it.
        m_fits = false;
        return setWindowState(others | Qt::WindowMaximized);
    }
}

Placement MainWindowFrame::Place() const {
    if (m_placeBefore) return *m_placeBefore;
    return {ToTwips({x()}), ToTwips({y()}), ToTwips({width()}), ToTwips({height()})};
}

void MainWindowFrame::SetPlace(const Placement& place) {
    const QMargins around = ScreenFit::FrameOf(*this);
    const QPoint at(ToPixels(place.left).value, ToPixels(place.top).value);
    const QRect asked(at, SizeIn(place.width, place.height).grownBy(around));
    // A screen may have become smaller, or be gone.
    const QRect frame = ScreenFit::Within(asked, ScreenFit::FreeAround(asked));
    resize(frame.size().shrunkBy(around));
    move(frame.topLeft());
    if (!isVisible()) m_corner = frame.topLeft();
    m_fits = true;
}

// Only now is known what the desktop has put around the window. Until then it took that for the place of the inside.
// The window would go up by a title bar with every start.
void MainWindowFrame::SettlePlace() {
    constexpr Qt::WindowStates kElsewhere = Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen;
    const std::optional<QPoint> corner = std::exchange(m_corner, std::nullopt);
    if (!m_fits || (windowState() & kElsewhere)) return;
    if (corner) move(*corner);
    ScreenFit::Fit(*this);
}

void MainWindowFrame::SetSize(Twips width, Twips height) {
    const QMargins around = ScreenFit::FrameOf(*this);
    const QSize room = ScreenFit::FreeAround(frameGeometry()).size().shrunkBy(around);
    resize(SizeIn(width, height).boundedTo(room));
    m_fits = true;
}

void MainWindowFrame::SetFullScreen(bool on) {
    if (on && !FullScreen()) m_placeBefore = Place();
    m_fullScreen.Set(on);
}

Pixels MainWindowFrame::InnerWidth() const { return {InnerSize().width()}; }
Pixels MainWindowFrame::InnerHeight() const { return {InnerSize().height() + StatusHeight()}; }

int MainWindowFrame::StatusHeight() const {
    return m_statusBar && !m_statusBar->isHidden() ? m_statusBar->Height().value : 0;
}

QSize MainWindowFrame::InnerSize() const {
    // A window that was never shown has not laid out its inner area yet.
    if (!isVisible()) layout()->activate();
    return m_inner->size();
}

Twips MainWindowFrame::ScreenWidth() const { return ToTwips({VirtualScreen().width()}); }
Twips MainWindowFrame::ScreenHeight() const { return ToTwips({VirtualScreen().height()}); }

void MainWindowFrame::MoveTabStrip(const Rect& place) {
    m_tabStripPlace = {place.left.value, place.top.value, place.width.value, place.height.value};
    LayTabStrip();
}

void MainWindowFrame::ShowTabStrip(bool show) {
    m_showsTabStrip = show;
    if (m_tabStrip) m_tabStrip->setVisible(show);
}

void MainWindowFrame::SetTabStrip(TabStripView& strip) {
    m_tabStrip = &strip;
    strip.setParent(m_inner);
    m_connections += strip.RowHeightChanged.Connect([this] { OnInnerResized(); });
    LayTabStrip();
    strip.setVisible(m_showsTabStrip);
}

void MainWindowFrame::SetStatusBar(StatusBarView& bar) {
    m_statusBar = &bar;
    bar.setParent(this);
    m_connections += bar.HeightChanged.Connect([this] { OnInnerResized(); });
    LayStatusBar();
}

void MainWindowFrame::LayTabStrip() {
    if (!m_tabStrip) return;
    QRect row = m_tabStripPlace;
    row.setHeight(m_tabStrip->RowHeight().value);
    if (m_tabStrip->Placement() == TabPlacement::Bottom) row.moveBottom(m_tabStripPlace.bottom());
    m_tabStrip->setGeometry(row);
}

void MainWindowFrame::LayStatusBar() {
    if (!m_statusBar) return;
    // Beneath all toolbars and panels, which lie around the inner area.
    setContentsMargins(0, 0, 0, StatusHeight());
    layout()->activate();
    const int height = m_statusBar->Height().value;
    m_statusBar->setGeometry(0, this->height() - height, width(), height);
}

void MainWindowFrame::OnInnerResized() {
    LayStatusBar();
    LayTabStrip();
    Resized();
}

bool MainWindowFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_inner && event->type() == QEvent::Resize) OnInnerResized();
    return QMainWindow::eventFilter(watched, event);
}

void MainWindowFrame::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    LayStatusBar();
}

bool MainWindowFrame::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        if (!std::exchange(m_settled, true)) SettlePlace();
        Activate();
    }
    const bool left = event->type() == QEvent::WindowDeactivate;
    // For Qt 6.11 it is still the active window while it is told that it is no longer.
    if (left && std::exchange(m_alertsWhenLeft, false))
        QTimer::singleShot(0, this, [this] {
            if (isMinimized()) QApplication::alert(this);
        });
    return QMainWindow::event(event);
}

void MainWindowFrame::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    const auto before = static_cast<const QWindowStateChangeEvent*>(event)->oldState();
    // Nothing is laid out in a minimised window, and one that comes back need not have another size.
    if (before.testFlag(Qt::WindowMinimized) && !isMinimized()) OnInnerResized();
}

void MainWindowFrame::Activate() {
    m_activated = true;
    Activated();
}

void MainWindowFrame::closeEvent(QCloseEvent* event) {
    if (!m_unloaded) QueryUnload();
    // While it is asked, whoever ends the session may unload it too.
    event->setAccepted(m_unloaded);
}

void MainWindowFrame::Unload() {
    if (std::exchange(m_unloaded, true)) return;
    Unloads();
    close();
}

} // namespace tessa::qt
