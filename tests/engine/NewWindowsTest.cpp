// Tests: NewWindows
// Which view takes a window in that a page opens. How it comes to its page is in EventTableTest, what pages may open in
// PermissionsTest.
#include "tests/engine/EngineDesk.h"
#include "tests/fakes/FakeViews.h"

namespace tessa::qt {

namespace {

TEST(NewWindows, AViewThatTakesNoneInGoesToTheAddress) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<button id=open onclick=\"window.open('/other?a=b c')\">open</button>");
    EngineView desk;
    FakeViews views;
    FakeView foreign(7, desk.events, views);
    desk.events.supplyView = [&] { return &foreign; };
    desk.Load(server.Address(QStringLiteral("/page")));
    desk.ClickOn(QStringLiteral("open"));
    ASSERT_TRUE(WaitUntil([&] { return !foreign.calls.empty(); }));
    EXPECT_EQ(foreign.calls.front(), "go " + server.Address(QStringLiteral("/other?a=b%20c")).toStdString());
    EXPECT_EQ(desk.engine.PageCount(), 1U) << "and no page is made for it";
}

} // namespace

} // namespace tessa::qt
