#pragma once
#include <QObject>
#include <functional>

class QWebEnginePage;

namespace tessa::qt {

/// The keyboard's keys for play, pause and stop, wherever the keyboard is in the program.
class MediaKeys final : public QObject {
public:
    enum class Wish { PlayOrPause, Play, Pause, Stop };

    /// `page` says which page they are for; nothing when there is none.
    explicit MediaKeys(std::function<QWebEnginePage*()> page);

    /// Has what plays in the page go on. What was paused in this way comes first, then what has begun, then the first.
    static void Tell(QWebEnginePage& page, Wish wish);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const std::function<QWebEnginePage*()> m_page;
};

} // namespace tessa::qt
