#pragma once
#include <QObject>
#include <QPointer>
#include <functional>
#include <vector>

class QLabel;
class QMainWindow;
class QWidget;

/// Full screen for a window: takes its menu bar and toolbars away while it lasts and says for a moment how to leave.
class QtFullScreen final : public QObject {
public:
    /// `hintArea` is where the hint appears, inside the window. Both outlive it.
    QtFullScreen(QMainWindow& window, QWidget& hintArea);

    [[nodiscard]] bool On() const { return m_on; }
    void Set(bool on);

    /// The window entered or left full screen, by `Set` or by the desktop. Filled in by the owner.
    std::function<void(bool on)> Changed;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow(bool on);
    void HideBars();
    void ShowBars();
    void ShowHint();
    void PlaceHint();

    QMainWindow& m_window;
    QWidget& m_hintArea;
    std::vector<QPointer<QWidget>> m_hidden; ///< bars that were on the screen before
    QPointer<QLabel> m_hint;
    bool m_on = false;
};
