// Tests: WebOptions
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/engine/Requests.h"
#include "qt/engine/WebOptions.h"
#include "tests/engine/EngineDesk.h"

#include <QNetworkProxy>
#include <QPointer>
#include <QWebEngineProfile>

namespace tessa::qt {

namespace {

/// A view whose profile and requests follow the options.
class InternetOptionsInEffect : public testing::Test {
protected:
    InternetOptionsInEffect() {
        desk.engine.Profiles().Made.ConnectForLife([this](QWebEngineProfile& made) {
            profile = &made;
            made.setUrlRequestInterceptor(&requests);
        });
    }
    ~InternetOptionsInEffect() override { WebOptions::ApplyProxy({}, nullptr); }

    void SetUp() override {
        server.Answer(QStringLiteral("/page"), [this](const QByteArray& request) {
            seen << request;
            return QByteArray("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n"
                              "<title>no script</title><script>document.title = 'script'</script>");
        });
        desk.Load(server.Address(QStringLiteral("/page")));
        ASSERT_NE(profile, nullptr);
    }
    void Apply(const InternetValues& values) {
        WebOptions::Apply(values, *profile);
        WebOptions::Apply(values, requests);
        WebOptions::ApplyProxy(values, profile);
    }
    /// Loads the page anew and gives the head of its request.
    QByteArray Request() {
        seen.clear();
        desk.Load(server.Address(QStringLiteral("/page")));
        return seen.value(0);
    }
    bool Titled(const char* title) {
        return WaitUntil([&] { return desk.view->LocationName() == FromQt(QString::fromLatin1(title)); });
    }
    QString Cookies() { return desk.Script(QStringLiteral("document.cookie")); }

    LocalServer server;
    QList<QByteArray> seen;
    Requests requests{[] { return ServiceTemplates(); }};
    QPointer<QWebEngineProfile> profile;
    EngineView desk;
};

TEST_F(InternetOptionsInEffect, JavaScriptGoesOffAndOn) {
    EXPECT_TRUE(Titled("script"));
    Apply({.javaScript = false});
    desk.Navigate(server.Address(QStringLiteral("/page")));
    EXPECT_TRUE(Titled("no script"));
    Apply({});
    desk.Navigate(server.Address(QStringLiteral("/page")));
    EXPECT_TRUE(Titled("script"));
}

TEST_F(InternetOptionsInEffect, HeadersSayWhatTheUserWantsSaid) {
    EXPECT_FALSE(Request().contains("DNT:"));
    EXPECT_FALSE(seen.value(0).contains("Sec-GPC:"));
    Apply({.doNotTrack = true, .globalPrivacyControl = true});
    EXPECT_TRUE(Request().contains("DNT: 1\r\n"));
    EXPECT_TRUE(seen.value(0).contains("Sec-GPC: 1\r\n"));
    EXPECT_EQ(desk.Script(QStringLiteral("navigator.doNotTrack + ' ' + navigator.globalPrivacyControl")), u"1 true");
    Apply({});
    EXPECT_FALSE(Request().contains("DNT:"));
    EXPECT_NE(desk.Script(QStringLiteral("navigator.globalPrivacyControl + ''")), u"true");
}

TEST_F(InternetOptionsInEffect, NoCookiesMeansNone) {
    Apply({.cookies = CookieRule::None});
    Request();
    desk.Script(QStringLiteral("document.cookie = 'own=1'"));
    EXPECT_EQ(Cookies(), u"");
    EXPECT_FALSE(Request().contains("Cookie:"));
    Apply({});
    Request();
    desk.Script(QStringLiteral("document.cookie = 'own=1'"));
    EXPECT_EQ(Cookies(), u"own=1");
    EXPECT_TRUE(Request().contains("Cookie: own=1"));
}

TEST_F(InternetOptionsInEffect, ThirdPartiesKeepCookiesOnlyWhenAllMay) {
    // Cookies for other sites need TLS; what is stored by a frame of another site shows the same.
    server.Page(QStringLiteral("/frame"), "<script>let all; try { localStorage.setItem('a', '1');"
                                          "all = localStorage.getItem('a') } catch (e) { all = 'refused' }"
                                          "parent.postMessage(all + '', '*')</script>");
    server.Page(QStringLiteral("/host"),
                "<script>onmessage = e => document.title = 'third ' + e.data</script><iframe src='" +
                    server.Address(QStringLiteral("/frame"), QStringLiteral("localhost")).toUtf8() + "'></iframe>");
    Apply({});
    desk.Load(server.Address(QStringLiteral("/host")));
    EXPECT_TRUE(Titled("third refused")) << ToUtf8(desk.view->LocationName());
    Apply({.cookies = CookieRule::All});
    desk.Load(server.Address(QStringLiteral("/host")));
    EXPECT_TRUE(Titled("third 1"));
}

TEST_F(InternetOptionsInEffect, AProxyIsAskedInstead) {
    server.Answer(QStringLiteral("http://far.example/page"), [](const QByteArray&) {
        return QByteArray(
            "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n<title>by proxy</title>");
    });
    Apply({.proxy = ProxyKind::Http, .proxyHost = u"127.0.0.1", .proxyPort = server.serverPort()});
    EXPECT_TRUE(WaitUntil([&] {
        desk.Load(QStringLiteral("http://far.example/page"));
        return desk.view->LocationName() == u"by proxy";
    }));
    Apply({.proxy = ProxyKind::Direct});
    EXPECT_TRUE(WaitUntil([&] {
        server.requests.clear();
        desk.Load(QStringLiteral("http://far.example/page?again"));
        return server.requests.isEmpty();
    }));
}

TEST_F(InternetOptionsInEffect, TheHomePageIsTheChosenOne) {
    desk.host.home = FromQt(server.Address(QStringLiteral("/page")));
    desk.Load(QStringLiteral("about:blank"));
    EXPECT_EQ(desk.view->GoHome(), Outcome::Done);
    EXPECT_TRUE(Titled("script"));
    desk.host.home.clear();
    EXPECT_EQ(desk.view->GoHome(), Outcome::Done);
    EXPECT_TRUE(WaitUntil([&] { return desk.view->LocationURL() == u"tessaview:start"; }));
}

TEST_F(InternetOptionsInEffect, DownloadsGoWhereTheUserWants) {
    Apply({.downloadFolder = u"/tmp/some where"});
    EXPECT_EQ(profile->downloadPath(), QStringLiteral("/tmp/some where"));
    Apply({});
    EXPECT_EQ(FromQt(profile->downloadPath()), WebOptions::DownloadFolder({}));
    EXPECT_FALSE(profile->downloadPath().isEmpty());
}

TEST_F(InternetOptionsInEffect, SoundsWithoutAnElementAreHeldBackTheyAndTheirRequests) {
    requests.Loads.sounds = false;
    desk.Script(QStringLiteral("new Audio('/beep.mp3').onerror = () => document.title = 'held back'; 1"));
    EXPECT_TRUE(Titled("held back"));
    EXPECT_FALSE(server.requests.contains(QStringLiteral("/beep.mp3")));
}

} // namespace

} // namespace tessa::qt
