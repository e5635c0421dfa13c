#pragma once
#include <QMargins>
#include <QObject>
#include <QRect>

class QDialog;
class QWidget;

namespace tessa::qt {

/// Brings dialogs inside what a screen leaves free, so that their title bars and buttons can be reached. What is too
/// large for the screen scrolls, with the buttons beneath it. Works for all dialogs as long as it lives.
class ScreenFit final : public QObject {
    Q_OBJECT

public:
    /// The application object must exist and outlives it.
    ScreenFit();

    // All lengths in logical pixels.
    /// `frame` moved into `free` as little as is needed, and made smaller where it is larger than that.
    [[nodiscard]] static QRect Within(QRect frame, const QRect& free);
    /// The part of the frame's main screen that is free of the desktop's bars. The first screen for a frame that is on
    /// none.
    [[nodiscard]] static QRect FreeAround(const QRect& frame);
    /// What the desktop puts around a window. Of one that is not shown yet it is a guess, rather too much than too
    /// little.
    [[nodiscard]] static QMargins FrameOf(const QWidget& window);
    /// Brings a window inside the free area that it lies on. One that takes the whole screen, or none of it, stays.
    static void Fit(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void Prepare(QDialog& dialog);
    static void Loosen(QDialog& dialog, const QSize& room);
    static void Scroll(QDialog& dialog);
};

} // namespace tessa::qt
