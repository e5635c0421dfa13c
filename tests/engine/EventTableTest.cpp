// Tests: PageView, LoadEnds, LoadEvents, Navigation, WebPage, ViewPage
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QTcpServer>
#include <QWebEngineHistory>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

const QString kNormal = QStringLiteral("/normal");

class EventTable : public ::testing::Test {
protected:
    EventTable() {
        server.Page(kNormal, "<title>Normal</title><a id='anchor' href='#there'>there</a>"
                             "<div style='height:3000px'></div><p id='there'>here");
        server.Page(QStringLiteral("/other"), "<title>Other</title>");
    }

    bool Saw(const QString& line) {
        return WaitUntil([&] { return desk.events.lines.contains(line); });
    }

    LocalServer server;
    EngineView desk;
};

TEST_F(EventTable, ANormalPage) {
    desk.Load(server.Address(kNormal));
    const QString all = desk.events.Take();
    EXPECT_TRUE(all.startsWith(u"A:/normal ")) << all.toStdString();
    EXPECT_LT(all.indexOf(u"S"), all.indexOf(u"N:/normal"));
    EXPECT_LT(all.indexOf(u"N:/normal"), all.indexOf(u"T:Normal"));
    EXPECT_LT(all.indexOf(u"T:Normal"), all.indexOf(u"F D:/normal"));
    EXPECT_EQ(ToUtf8(desk.view->LocationURL()), server.Address(kNormal).toStdString());
    EXPECT_FALSE(desk.view->Busy());
}

TEST_F(EventTable, ARedirectIsAnnouncedTwiceAndCompletesOnce) {
    server.Redirect(QStringLiteral("/short"), server.Address(kNormal));
    desk.Load(server.Address(QStringLiteral("/short")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("A:/short")), 1);
    EXPECT_EQ(desk.events.Count(QStringLiteral("A:/normal")), 1);
    EXPECT_EQ(desk.events.Count(QStringLiteral("N:/short")), 0);
    EXPECT_EQ(desk.events.Count(QStringLiteral("N:/normal")), 1);
}

TEST_F(EventTable, ARefusedConnectionEndsTheLoadAtItsAddress) {
    QTcpServer closed;
    ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
    const QString address = QStringLiteral("http://127.0.0.1:%1/gone").arg(closed.serverPort());
    closed.close();
    desk.Load(address);
    EXPECT_EQ(desk.events.Count(QStringLiteral("A:/gone")), 1);
    EXPECT_TRUE(Saw(QStringLiteral("D:/gone")));
    EXPECT_FALSE(desk.view->Busy());
    EXPECT_EQ(ToUtf8(desk.view->LocationURL()), address.toStdString());
}

TEST_F(EventTable, AHostThatDoesNotExistEndsTheLoad) {
    desk.Load(QStringLiteral("http://nowhere.invalid/page"));
    EXPECT_TRUE(Saw(QStringLiteral("D:/page")));
    EXPECT_FALSE(desk.view->Busy());
}

TEST_F(EventTable, StopEndsALoadAndKeepsTheAddress) {
    desk.Load(server.Address(kNormal));
    server.Stall(QStringLiteral("/never"));
    desk.events.Take();
    desk.Navigate(server.Address(QStringLiteral("/never")));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/never")); }));
    EXPECT_TRUE(desk.view->Busy());
    EXPECT_EQ(desk.view->Stop(), Outcome::Done);
    EXPECT_TRUE(Saw(QStringLiteral("D:/normal")));
    EXPECT_FALSE(desk.view->Busy());
    EXPECT_EQ(ToUtf8(desk.view->LocationURL()), server.Address(kNormal).toStdString());
}

TEST_F(EventTable, BackAndForwardTellWhenTheyArePossible) {
    desk.Load(server.Address(kNormal));
    EXPECT_EQ(desk.events.Count(QStringLiteral("back+")), 0);
    desk.Load(server.Address(QStringLiteral("/other")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("back+")), 1);
    desk.events.Take();
    EXPECT_EQ(desk.view->GoBack(), Outcome::Done);
    EXPECT_TRUE(Saw(QStringLiteral("D:/normal")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("A:/normal")), 1);
    EXPECT_EQ(desk.events.Count(QStringLiteral("back-")), 1);
    EXPECT_EQ(desk.events.Count(QStringLiteral("forward+")), 1);
    EXPECT_EQ(desk.view->GoForward(), Outcome::Done);
    EXPECT_TRUE(Saw(QStringLiteral("D:/other")));
    EXPECT_EQ(desk.view->GoForward(), Outcome::Failed);
}

TEST_F(EventTable, AnAnchorMovesTheAddressWithoutALoad) {
    desk.Load(server.Address(kNormal));
    desk.events.Take();
    desk.ClickOn(QStringLiteral("anchor"));
    EXPECT_TRUE(Saw(QStringLiteral("N:/normal#there")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("S")), 0);
    EXPECT_TRUE(ToUtf8(desk.view->LocationURL()).ends_with("#there"));
}

TEST_F(EventTable, PushStateMovesTheAddressWithoutALoad) {
    desk.Load(server.Address(kNormal));
    desk.events.Take();
    desk.Script(QStringLiteral("history.pushState({}, '', '/pushed')"));
    EXPECT_TRUE(Saw(QStringLiteral("N:/pushed")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("S")), 0);
}

TEST_F(EventTable, InnerFramesReportTheirNavigationAndDocument) {
    server.Page(QStringLiteral("/outer"), "<title>Outer</title><iframe src='/other'></iframe>");
    desk.Load(server.Address(QStringLiteral("/outer")));
    EXPECT_TRUE(Saw(QStringLiteral("Aframe:/other")));
    EXPECT_TRUE(Saw(QStringLiteral("Nframe:/other")));
    EXPECT_TRUE(Saw(QStringLiteral("Dframe:/other")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("N:/other")), 0);
}

TEST_F(EventTable, APageCannotPretendToBeAFrame) {
    server.Page(QStringLiteral("/liar"), "<title>Liar</title><script>"
                                         "console.log('ready http://127.0.0.1/fake'); console.log('load /fake');"
                                         "</script>");
    desk.Load(server.Address(QStringLiteral("/liar")));
    EXPECT_FALSE(desk.events.Take().contains(u"frame"));
}

TEST_F(EventTable, ALinkUnderThePointerIsAStatusText) {
    desk.Load(server.Address(kNormal));
    EXPECT_EQ(desk.events.statusTexts.last(), u"Done");
    desk.PointAt(QStringLiteral("anchor"));
    EXPECT_TRUE(WaitUntil([&] { return desk.events.statusTexts.last().endsWith(u"/normal#there"); }));
}

TEST_F(EventTable, OfALoadThatFailsTheStatusTextSaysWhatFailed) {
    const auto ends = [&](const QString& address, const QString& words) {
        ResumeNext(desk.view->Navigate(FromQt(address)));
        return WaitUntil([&] { return desk.events.statusTexts.value(desk.events.statusTexts.size() - 1) == words; });
    };
    server.Raw(QStringLiteral("/gone"), "HTTP/1.1 404 Gone\r\nContent-Type: text/html\r\nContent-Length: 2\r\n"
                                        "Connection: close\r\n\r\nno");
    EXPECT_TRUE(ends(server.Address(QStringLiteral("/gone")), QStringLiteral("127.0.0.1 has no such page (404).")));
    EXPECT_TRUE(ends(server.Address(kNormal), QStringLiteral("Done")));
    QTcpServer nobody;
    ASSERT_TRUE(nobody.listen(QHostAddress::LocalHost));
    const QString closed = QStringLiteral("http://127.0.0.1:%1/").arg(nobody.serverPort());
    nobody.close();
    EXPECT_TRUE(ends(closed, QStringLiteral("127.0.0.1 did not take the connection.")));
    EXPECT_TRUE(
        ends(QStringLiteral("http://nosuchhost.invalid/"), QStringLiteral("nosuchhost.invalid could not be found.")));
    EXPECT_TRUE(ends(QStringLiteral("file:///no/such/file.html"), QStringLiteral("There is no such file.")));
}

TEST_F(EventTable, ADownloadIsNoPage) {
    desk.Load(server.Address(kNormal));
    server.Raw(QStringLiteral("/file"), "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\n"
                                        "Content-Disposition: attachment; filename=a.bin\r\nConnection: close\r\n"
                                        "Content-Length: 3\r\n\r\nabc");
    desk.events.Take();
    desk.Load(server.Address(QStringLiteral("/file")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("N:/file")), 0);
    EXPECT_FALSE(desk.view->Busy());
    EXPECT_EQ(ToUtf8(desk.view->LocationURL()), server.Address(kNormal).toStdString());
}

TEST_F(EventTable, ALinkThatAsksForAWindowOpensInTheSuppliedView) {
    server.Page(QStringLiteral("/opener"), "<title>Opener</title><button id=b onclick=\"window.open('/other')\">"
                                           "open</button>");
    std::unique_ptr<BrowserView> supplied;
    EventRecorder its;
    desk.events.supplyView = [&] {
        supplied = desk.engine.Create(2, its, Privacy::Ordinary);
        EXPECT_EQ(supplied->Navigate(u"about:blank"), Outcome::Done);
        return supplied.get();
    };
    desk.Load(server.Address(QStringLiteral("/opener")));
    desk.ClickOn(QStringLiteral("b"));
    ASSERT_TRUE(WaitUntil([&] { return its.lines.contains(QStringLiteral("T:Other")); }));
    auto* page = static_cast<PageView&>(*supplied).Page();
    QString opener;
    page->runJavaScript(QStringLiteral("window.opener ? window.opener.document.title : 'none'"),
                        [&](const QVariant& value) { opener = value.toString(); });
    EXPECT_TRUE(WaitUntil([&] { return !opener.isEmpty(); }));
    EXPECT_EQ(opener, u"Opener");
    EXPECT_EQ(page->history()->count(), 1) << "no blank page before it";

    page->runJavaScript(QStringLiteral("window.close()"));
    EXPECT_TRUE(WaitUntil([&] { return its.lines.contains(QStringLiteral("X")); }));
    supplied.reset();
}

TEST_F(EventTable, APopupThatNobodyAskedForIsHeldBack) {
    server.Page(QStringLiteral("/pushy"), "<title>Pushy</title><script>window.open('/other')</script>");
    desk.Load(server.Address(QStringLiteral("/pushy")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("W")), 0);
    EXPECT_FALSE(server.requests.contains(QStringLiteral("/other")));
}

TEST_F(EventTable, ARefreshEndsIdleAtTheSameAddress) {
    desk.Load(server.Address(kNormal));
    desk.events.Take();
    EXPECT_EQ(desk.view->Refresh(), Outcome::Done);
    EXPECT_TRUE(Saw(QStringLiteral("D:/normal")));
    EXPECT_FALSE(desk.view->Busy());
    EXPECT_EQ(server.requests.count(kNormal), 2);
}

} // namespace

} // namespace tessa::qt
