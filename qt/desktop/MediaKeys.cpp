#include "qt/desktop/MediaKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <algorithm>
#include <array>
#include <utility>

namespace tessa::qt {

namespace {

struct MediaKey {
    int qt;
    MediaKeys::Wish wish;
    const char* word; ///< for the script
};

constexpr std::array kMediaKeys{
    MediaKey{Qt::Key_MediaTogglePlayPause, MediaKeys::Wish::PlayOrPause, "toggle"},
    // Keyboards with one key for both call it "play".
    MediaKey{Qt::Key_MediaPlay, MediaKeys::Wish::PlayOrPause, "toggle"},
    MediaKey{0, MediaKeys::Wish::Play, "play"},
    MediaKey{Qt::Key_MediaPause, MediaKeys::Wish::Pause, "pause"},
    MediaKey{Qt::Key_MediaStop, MediaKeys::Wish::Stop, "stop"},
};

// Runs in a world of its own, which keeps what was paused.
constexpr auto kMediaScript = R"js((function (wish) {
    function collect(page, found) {
        found.push.apply(found, page.querySelectorAll('video, audio'));
        page.querySelectorAll('iframe').forEach(function (frame) {
            try { if (frame.contentDocument) collect(frame.contentDocument, found); } catch (other) { }
        });
        return found;
    }
    var all = collect(document, []);
    var playing = all.filter(function (each) { return !each.paused && !each.ended; });
    if (wish === 'toggle') wish = playing.length > 0 ? 'pause' : 'play';
    if (wish === 'play') {
        var kept = (window.tessaPaused || []).filter(function (each) { return all.indexOf(each) >= 0; });
        var begun = all.filter(function (each) { return each.currentTime > 0; });
        if (kept.length === 0) kept = (begun.length > 0 ? begun : all).slice(0, 1);
        if (playing.length === 0) kept.forEach(function (each) { each.play().catch(function () { }); });
        return;
    }
    if (playing.length > 0) window.tessaPaused = playing;
    playing.forEach(function (each) {
        each.pause();
        if (wish === 'stop') each.currentTime = 0;
    });
})('%1'))js";

} // namespace

MediaKeys::MediaKeys(std::function<QWebEnginePage*()> page) : m_page(std::move(page)) {
    QCoreApplication::instance()->installEventFilter(this);
}

void MediaKeys::Tell(QWebEnginePage& page, Wish wish) {
    const auto* key = std::ranges::find(kMediaKeys, wish, &MediaKey::wish);
    page.runJavaScript(QString::fromLatin1(kMediaScript).arg(QLatin1String(key->word)),
                       QWebEngineScript::ApplicationWorld);
}

bool MediaKeys::eventFilter(QObject* watched, QEvent* event) {
    // Windows get a key before the widgets in them do, and once.
    if (event->type() != QEvent::KeyPress || !watched->isWindowType()) return QObject::eventFilter(watched, event);
    const auto* found = std::ranges::find(kMediaKeys, static_cast<QKeyEvent*>(event)->key(), &MediaKey::qt);
    auto* page = found != kMediaKeys.end() ? m_page() : nullptr;
    if (!page) return QObject::eventFilter(watched, event);
    Tell(*page, found->wish);
    return true;
}

} // namespace tessa::qt
