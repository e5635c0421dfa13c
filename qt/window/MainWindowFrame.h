#pragma once
#include "base/Signal.h"
#include "platform/MainWindow.h"
#include "qt/window/FullScreen.h"

#include <QMainWindow>
#include <QPointer>
#include <optional>

namespace tessa::qt {

class StatusBarView;
class TabStripView;

/// The main window's frame on the desktop. Its inner area holds tab strip and pages: the core says where they go. The
/// status bar keeps to the window's lower edge, beneath all toolbars. For the core it is a part of the area. Costs no
/// window of the desktop until it is shown.
class MainWindowFrame final : public QMainWindow, public MainWindow {
    Q_OBJECT

public:
    MainWindowFrame();
    ~MainWindowFrame() override;

    void SetCaption(TextView caption) override;
    void Show() override;
    void Close() override;
    [[nodiscard]] WindowState State() const override;
    void SetState(WindowState state) override;
    [[nodiscard]] Placement Place() const override;
    void SetPlace(const Placement& place) override;
    void SetSize(Twips width, Twips height) override;
    [[nodiscard]] bool FullScreen() const override { return m_fullScreen.On(); }
    void SetFullScreen(bool on) override;
    [[nodiscard]] Pixels InnerWidth() const override;
    [[nodiscard]] Pixels InnerHeight() const override;
    [[nodiscard]] Twips ScreenWidth() const override;
    [[nodiscard]] Twips ScreenHeight() const override;
    void MoveTabStrip(const Rect& place) override;
    void ShowTabStrip(bool show) override;

    /// Raises and activates what is shown of the window. One that is minimised stays so and asks for attention in the
    /// task bar. One that is not shown yet, or no longer, stays away. `token` is what the desktop gave the one who asks
    /// for it; may be empty.
    void BringToForeground(const QByteArray& token);
    /// The user has asked for the window: out of the task bar, at its former size, and into the foreground.
    void ComeBack();
    /// Takes the widget in. The caller goes on owning it and may delete it.
    void SetTabStrip(TabStripView& strip);
    void SetStatusBar(StatusBarView& bar);
    /// Shows the bars that full screen has taken away, for as long as they are used.
    void RevealBars() { m_fullScreen.Reveal(); }
    /// What full screen asks for; outlives the window, or its last event.
    void Heed(const FullScreenFacts& facts) { m_fullScreen.Heed(facts); }
    /// The parent of the page views; their places are relative to it.
    [[nodiscard]] QWidget* PageArea() const { return m_inner; }

    /// The inner area, or what in it takes room, has changed its size.
    Signal<void()> Resized;
    /// The window has become the active one. Comes once after `Show()` even if the desktop keeps the focus elsewhere.
    Signal<void()> Activated;
    /// Full screen begins or ends.
    Signal<void(bool on)> FullScreenChanged;
    /// Somebody wants the window closed. It stays, unless a listener calls `Unload`, now or later.
    Signal<void()> QueryUnload;
    /// Closes the window without a question. Does nothing the second time.
    void Unload();
    /// The window closes. Comes once.
    Signal<void()> Unloads;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Activate();
    void RaiseAndActivate();
    void SettlePlace();
    void OnInnerResized();
    void LayStatusBar();
    [[nodiscard]] int StatusHeight() const;
    void LayTabStrip();
    [[nodiscard]] QSize InnerSize() const;

    QWidget* m_inner;
    qt::FullScreen m_fullScreen;
    std::optional<Placement> m_placeBefore; ///< where the window was before it took the whole screen
    QPointer<TabStripView> m_tabStrip;
    QPointer<StatusBarView> m_statusBar;
    QRect m_tabStripPlace;
    bool m_showsTabStrip = true;
    bool m_alertsWhenLeft = false;  ///< somebody called it before it was left
    QByteArray m_activationToken;   ///< the desktop's permission to activate the window, until it is used
    std::optional<QPoint> m_corner; ///< where its frame is to stand, until the desktop has made that
    bool m_fits = false;            ///< its place or size is ours, and is to be inside the screen
    bool m_settled = false;
    bool m_activated = false;
    bool m_unloaded = false;
    Connections m_connections;
};

} // namespace tessa::qt
