#include "qt/bar/CommandBarView.h"
#include "qt/bar/ToolBarLook.h"
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/strip/TabStripView.h"
#include "qt/window/MainWindowFrame.h"
#include "qt/window/StatusBarView.h"
#include "tests/engine/EngineDesk.h"

#include <QApplication>
#include <QEvent>
#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <map>

namespace tessa::qt {

namespace {

constexpr int kFrames = 60;

/// The whole window with a page in it.
class WholeWindow : FakeSurroundings {
public:
    explicit WholeWindow(const QString& address)
        : main(Platform(engine, {.window = &window})),
          strip(main.pcPage),
          statusBar(main.sbStatus),
          look(main.actBar, window),
          commandBar(main.actBar, window) {
        window.SetTabStrip(strip);
        window.SetStatusBar(statusBar);
        window.Resized.ConnectForLife([this] { main.Form_Resize(); });
        main.Form_Load(FromQt(address));
        window.Show();
        engine.Start();
    }
    ~WholeWindow() {
        main.Form_Unload();
        engine.Shutdown();
    }
    PageView& Front() { return static_cast<PageView&>(*main.Tabs().CurrentView()->Control); }

    InstanceProfile ownProfile{{}, {}};
    MainWindowFrame window;
    FakeEngineHost host;
    Engine engine{window.PageArea(), ownProfile, host};
    frmMain main;
    TabStripView strip;
    StatusBarView statusBar;
    ToolBarLook look;
    CommandBarView commandBar;
};

/// Counts what is painted, by widget.
class PaintCount final : public QObject {
public:
    explicit PaintCount(const QWidget& page) : m_page(page) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(watched) : nullptr;
        if (!widget) return false;
        if (widget == &m_page || m_page.isAncestorOf(widget))
            ++page;
        else
            ++others[widget->metaObject()->className() + widget->objectName().toStdString()];
        return false;
    }

    int page = 0;
    std::map<std::string, int> others;

private:
    const QWidget& m_page;
};

std::string Listed(const std::map<std::string, int>& counts) {
    std::string all;
    for (const auto& [name, count] : counts) all += name + " " + std::to_string(count) + ", ";
    return all;
}

TEST(AnimatedPage, RepaintsThePageAndNothingElse) {
    LocalServer server;
    server.Page(QStringLiteral("/moves"),
                "<!doctype html><title>Moves</title><style>@keyframes m { to { transform: translateX(500px) } }"
                "div { width: 90px; height: 90px; background: red; animation: m 1s infinite alternate linear }</style>"
                "<div></div><script>let n = 0; const count = () => { document.body.dataset.frames = ++n;"
                "requestAnimationFrame(count) }; count()</script>");
    WholeWindow whole(server.Address(QStringLiteral("/moves")));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&whole.window));
    const auto frames = [&] {
        int number = -1;
        if (!whole.Front().Page()) return 0;
        whole.Front().Page()->runJavaScript(QStringLiteral("+document.body.dataset.frames"),
                                            [&](const QVariant& value) { number = value.toInt(); });
        EXPECT_TRUE(WaitUntil([&] { return number >= 0; }));
        return number;
    };
    ASSERT_TRUE(WaitUntil([&] { return whole.Front().LocationName() == u"Moves" && !whole.Front().Busy(); }));
    // By then the strip has its caption and its picture.
    const int before = frames();
    ASSERT_TRUE(WaitUntil([&] { return frames() > before + kFrames; }));
    const PaintCount counted(*whole.Front().Widget());
    const int start = frames();
    ASSERT_TRUE(WaitUntil([&] { return frames() > start + kFrames; }));
    EXPECT_GT(counted.page, kFrames / 4);
    EXPECT_TRUE(counted.others.empty()) << Listed(counted.others);
    whole.strip.update();
    EXPECT_TRUE(WaitUntil([&] { return counted.others.size() == 1; })) << "what is painted beside it is counted";
}

} // namespace

} // namespace tessa::qt
