// Tests: MediaKeys
#include "qt/desktop/MediaKeys.h"
#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

namespace tessa::qt {

namespace {

// Two films that a script paints, the first of which plays.
constexpr auto kFilms =
    "<video id=one muted></video><video id=two muted></video><canvas id=paper width=40 height=40></canvas><script>"
    "const x = paper.getContext('2d'); let n = 0;"
    "setInterval(() => { x.fillStyle = ++n % 2 ? 'red' : 'blue'; x.fillRect(0, 0, 40, 40) }, 30);"
    "one.srcObject = two.srcObject = paper.captureStream(30); one.play()</script>";

class MediaKeysTest : public testing::Test {
protected:
    MediaKeysTest() {
        server.Page(QStringLiteral("/page"), kFilms);
        desk.Load(server.Address(QStringLiteral("/page")));
    }
    void Press(Qt::Key key) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(desk.window.windowHandle(), &press);
    }
    bool Plays(const char* which) {
        return WaitUntil([&] {
            return desk.Script(QStringLiteral("(one.paused ? '' : 'one') + (two.paused ? '' : 'two')")) ==
                   QLatin1String(which);
        });
    }

    std::function<QWebEnginePage*()> page = [this] { return desk.engine.MediaPage(); };
    MediaKeys keys{[this] { return page(); }};
    LocalServer server;
    EngineView desk;
};

TEST_F(MediaKeysTest, PauseWhatPlaysAndLetItGoOn) {
    ASSERT_TRUE(Plays("one"));
    Press(Qt::Key_MediaTogglePlayPause);
    EXPECT_TRUE(Plays(""));
    Press(Qt::Key_MediaPlay);
    EXPECT_TRUE(Plays("one"));
    desk.Script(QStringLiteral("one.pause(); two.play(); 1"));
    ASSERT_TRUE(Plays("two"));
    Press(Qt::Key_MediaPause);
    EXPECT_TRUE(Plays(""));
    Press(Qt::Key_MediaTogglePlayPause);
    EXPECT_TRUE(Plays("two")) << "what was paused last";
    Press(Qt::Key_MediaStop);
    EXPECT_TRUE(Plays(""));
}

TEST_F(MediaKeysTest, DoNothingWhereNothingCanPlay) {
    server.Page(QStringLiteral("/page"), "<title>words</title>");
    desk.Load(server.Address(QStringLiteral("/page")));
    Press(Qt::Key_MediaTogglePlayPause);
    EXPECT_EQ(desk.Script(QStringLiteral("document.title")), QStringLiteral("words"));
    page = [] { return nullptr; };
    Press(Qt::Key_MediaTogglePlayPause);
}

} // namespace

} // namespace tessa::qt
