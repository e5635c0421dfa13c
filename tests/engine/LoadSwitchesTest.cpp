// Tests: LoadSwitches, Resources
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"
#include "tests/engine/MovingPictures.h"

#include <QImage>
#include <QWebEngineView>
#include <set>

namespace tessa::qt {

namespace {

const QString kPage = QStringLiteral("/page");

/// A page whose middle tells by its colour what is shown, and a clock in the page.
class LoadSwitches : public testing::Test {
protected:
    void Open(const QByteArray& body) {
        server.Page(kPage, "<!doctype html><style>body { margin: 0 } .big { width: 400px; height: 400px }</style>"
                           "<script>var ticks = 0; setInterval(() => ++ticks, 50)</script>" +
                               body);
        desk.Load(server.Address(kPage));
    }
    void Set(const LoadOptions& options) { desk.engine.SetLoadOptions(options); }
    std::string Colour() {
        const QColor colour = desk.Real().Widget()->grab().toImage().pixelColor(100, 100);
        const auto strong = [](int value) { return value > 200; };
        if (strong(colour.red()) && strong(colour.green()) && strong(colour.blue())) return "white";
        if (strong(colour.red())) return "red";
        if (strong(colour.blue())) return "blue";
        return colour.name().toStdString();
    }
    bool Shows(const std::string& colour) {
        return WaitUntil([&] { return Colour() == colour; });
    }
    bool Moves() { return Shows("red") && Shows("blue") && Shows("red"); }
    /// The colours seen while the page's clock goes on. In that time the picture would change several times.
    std::string SeenMeanwhile() {
        std::set<std::string> seen;
        const int start = desk.Script(QStringLiteral("ticks")).toInt();
        while (desk.Script(QStringLiteral("ticks")).toInt() < start + 14) seen.insert(Colour());
        std::string all;
        for (const std::string& each : seen) all += (all.empty() ? "" : " ") + each;
        return all;
    }
    /// A still takes a moment to be decoded; a picture that goes on moving never keeps to one colour.
    bool ComesToRestAt(const std::string& colour) {
        return WaitUntil([&] { return SeenMeanwhile() == colour; });
    }
    /// Until our script has gone over the page once more: its stills are there.
    bool Stilled() {
        return WaitUntil(
            [&] { return desk.Script(QStringLiteral("document.querySelectorAll('canvas').length")) == u"1"; });
    }
    bool Asked(const char* path) {
        return WaitUntil([&] { return server.requests.contains(QString::fromLatin1(path)); });
    }
    std::string Requests() const { return server.requests.join(u' ').toStdString(); }

    LocalServer server;
    EngineView desk;
};

QByteArray Svg(const char* colour) {
    const QByteArray picture = QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><path fill='") +
                               colour + "' d='M0 0h9v9H0z'/></svg>";
    return "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nConnection: close\r\nContent-Length: " +
           QByteArray::number(picture.size()) + "\r\n\r\n" + picture;
}

constexpr auto kImages = "<img class=big src=/red.svg><div style='background-image: url(/back.svg)'>x</div>";

TEST_F(LoadSwitches, ANewPageAsksForNoImagesUntilTheyAreSwitchedOn) {
    server.Raw(QStringLiteral("/red.svg"), Svg("red"));
    server.Raw(QStringLiteral("/back.svg"), Svg("blue"));
    Set({.images = false});
    Open(kImages);
    EXPECT_EQ(SeenMeanwhile(), "white");
    EXPECT_EQ(Requests(), "/page");
    Set({});
    EXPECT_TRUE(Asked("/red.svg") && Asked("/back.svg"));
    EXPECT_TRUE(Shows("red"));
}

TEST_F(LoadSwitches, TheImagesOfThePresentPageGoAndComeBack) {
    server.Raw(QStringLiteral("/red.svg"), Svg("red"));
    Open(kImages);
    ASSERT_TRUE(Shows("red"));
    Set({.images = false});
    EXPECT_TRUE(Shows("white"));
    Set({});
    EXPECT_TRUE(Shows("red"));
}

TEST_F(LoadSwitches, TheBackgroundsOfThePresentPageGoAndComeBack) {
    server.Raw(QStringLiteral("/red.svg"), Svg("red"));
    Open("<div class=big style='background-image: url(/red.svg)'></div>");
    ASSERT_TRUE(Shows("red"));
    Set({.images = false});
    EXPECT_TRUE(Shows("white"));
    Set({});
    EXPECT_TRUE(Shows("red"));
}

class MovingPictures : public LoadSwitches, public testing::WithParamInterface<MovingPicture> {
protected:
    void SetUp() override { server.Raw(QStringLiteral("/moving"), GetParam().Answer()); }
};

TEST_P(MovingPictures, StopAtTheirFirstFrameInThePresentPageAndMoveAgain) {
    Open("<img class=big src=/moving>");
    ASSERT_TRUE(Moves());
    Set({.animations = false});
    ASSERT_TRUE(Stilled());
    EXPECT_TRUE(ComesToRestAt("red"));
    Set({});
    EXPECT_TRUE(Moves());
}

TEST_P(MovingPictures, DoNotMoveInANewPage) {
    Set({.animations = false});
    Open("<img class=big src=/moving>");
    ASSERT_TRUE(Stilled());
    EXPECT_TRUE(ComesToRestAt("red"));
}

INSTANTIATE_TEST_SUITE_P(Formats, MovingPictures, testing::Values(kMovingGif, kMovingPng, kMovingWebp),
                         [](const auto& info) { return info.param.name; });

TEST_F(LoadSwitches, AMovingBackgroundStopsToo) {
    server.Raw(QStringLiteral("/a.gif"), kMovingGif.Answer());
    Open("<div class=big style='background: url(/a.gif) 0 0 / 400px'></div>");
    ASSERT_TRUE(Moves());
    Set({.animations = false});
    EXPECT_TRUE(WaitUntil([&] {
        return desk.Script(QStringLiteral("document.querySelector('div').style.backgroundImage"))
            .startsWith(u"url(\"data:");
    }));
    EXPECT_TRUE(ComesToRestAt("red"));
    Set({});
    EXPECT_TRUE(Moves());
}

TEST_F(LoadSwitches, AFrameOfAnotherSiteStopsTooAndSeesNothingOfIt) {
    server.Raw(QStringLiteral("/moving"), kMovingGif.Answer());
    server.Page(QStringLiteral("/frame"), "<body style='margin: 0'><img width=400 height=400 src=/moving>"
                                          "<script>onmessage = e => parent.postMessage('told', '*')</script>");
    const QByteArray frame = server.Address(QStringLiteral("/frame"), QStringLiteral("localhost")).toUtf8();
    Open("<script>var told = 0; onmessage = () => ++told</script><iframe class=big frameborder=0 src='" + frame + "'>");
    ASSERT_TRUE(Moves());
    Set({.animations = false});
    EXPECT_TRUE(WaitUntil([&] { return SeenMeanwhile() == "red"; }));
    EXPECT_EQ(desk.Script(QStringLiteral("told + ' ' + typeof window.tessaLoads")), u"0 undefined");
}

constexpr auto kStyleAnimation =
    "<style>@keyframes k { 0%, 40% { background: red } 60%, 100% { background: blue } }"
    "#a { background: white; animation: k 0.2s infinite alternate }</style><div id=a class=big></div>";

TEST_F(LoadSwitches, AnimationsOfStyleSheetsEnd) {
    Open(kStyleAnimation);
    ASSERT_TRUE(Moves());
    Set({.animations = false});
    EXPECT_TRUE(Shows("white"));
    EXPECT_EQ(SeenMeanwhile(), "white");
    Set({});
    EXPECT_TRUE(Moves());
}

TEST_F(LoadSwitches, AnimationsOfScriptsAndDrawingsEnd) {
    Set({.animations = false});
    Open("<div id=a class=big style='background: white'></div><svg width=9 height=9><rect width=9 height=9>"
         "<animate attributeName=x from=0 to=99 dur=1s repeatCount=indefinite /></rect></svg>"
         "<script>a.animate([{ background: 'red' }, { background: 'blue' }], { duration: 200, iterations: Infinity "
         "})</script>");
    EXPECT_TRUE(ComesToRestAt("white"));
    EXPECT_EQ(desk.Script(QStringLiteral("document.querySelector('svg').animationsPaused() + ''")), u"true");
}

// The name of what was asked for is enough: the server has no such files.
constexpr auto kMedia =
    "<video src=/own.webm autoplay></video><video preload=auto><source src=/source.webm></video>"
    "<audio src=/sound.ogg preload=auto></audio><script>const made = document.createElement('video');"
    "made.src = '/made.webm'; document.body.append(made)</script>";

TEST_F(LoadSwitches, ANewPageAsksForNoVideosUntilTheyAreSwitchedOn) {
    Set({.videos = false});
    Open(kMedia);
    EXPECT_TRUE(Asked("/sound.ogg"));
    SeenMeanwhile();
    EXPECT_EQ(Requests(), "/page /sound.ogg");
    Set({});
    EXPECT_TRUE(Asked("/own.webm") && Asked("/source.webm") && Asked("/made.webm"));
}

TEST_F(LoadSwitches, ANewPageAsksForNoSoundsUntilTheyAreSwitchedOn) {
    Set({.sounds = false});
    Open(kMedia);
    EXPECT_TRUE(Asked("/own.webm") && Asked("/source.webm") && Asked("/made.webm"));
    EXPECT_FALSE(server.requests.contains(QStringLiteral("/sound.ogg")));
    EXPECT_TRUE(desk.Real().Page()->isAudioMuted()) << "what has no element of its own is silenced";
    Set({});
    EXPECT_TRUE(Asked("/sound.ogg"));
    EXPECT_FALSE(desk.Real().Page()->isAudioMuted());
}

TEST_F(LoadSwitches, AVideoOfThePresentPageStopsAndComesBack) {
    Open("<video class=big muted autoplay></video><canvas hidden width=40 height=40></canvas><script>"
         "const c = document.querySelector('canvas'), x = c.getContext('2d'), v = document.querySelector('video');"
         "setInterval(() => { x.fillStyle = ticks % 4 < 2 ? 'red' : 'blue'; x.fillRect(0, 0, 40, 40) }, 30);"
         "v.srcObject = c.captureStream(30)</script>");
    ASSERT_TRUE(Moves());
    Set({.videos = false});
    EXPECT_TRUE(Shows("white"));
    EXPECT_EQ(SeenMeanwhile(), "white");
    Set({});
    EXPECT_TRUE(Moves());
}

} // namespace

} // namespace tessa::qt
