// Tests: StartPageScheme
#include "qt/engine/PageView.h"
#include "qt/page/StartPageScheme.h"
#include "qt/page/WebPage.h"
#include "tests/engine/EngineDesk.h"

#include <QGuiApplication>
#include <QPalette>

namespace tessa::qt {

namespace {

/// A home page of the test's own, and how often it was asked for.
class StartPageAccess : public testing::Test {
protected:
    StartPageAccess() {
        m_view.host.startPage = [this] {
            ++m_asked;
            return std::string("<!doctype html><title>Home</title><a id='group' href='tessaview:group?News%20%26'>"
                               "News</a><p><a id='out' href='" +
                               m_server.Address(QStringLiteral("/page")).toStdString() + "'>out</a>");
        };
        m_view.engine.Told().StartLink.ConnectForLife(
            [this](const QUrl& url) { m_links << QString::fromLatin1(url.toEncoded()); });
    }
    void Serve(const QByteArray& html) { m_server.Page(QStringLiteral("/page"), html); }
    void LoadPage() { m_view.Load(m_server.Address(QStringLiteral("/page"))); }
    [[nodiscard]] QString Title() { return m_view.Real().Page()->title(); }
    [[nodiscard]] QString Scheme() { return m_view.Real().Page()->url().scheme(); }
    [[nodiscard]] bool WaitForTitle(const QString& title) {
        return WaitUntil([&] { return Title() == title; });
    }

    LocalServer m_server;
    EngineView m_view;
    int m_asked = 0;
    QStringList m_links;
};

TEST_F(StartPageAccess, TheProgramReachesIt) {
    m_view.Load(QStringLiteral("tessaview:start"));
    EXPECT_EQ(Title(), QStringLiteral("Home"));
    EXPECT_EQ(m_asked, 1);
    EXPECT_TRUE(m_server.requests.isEmpty());
}

TEST_F(StartPageAccess, ItsLinkToAGroupReachesTheProgramAndItStays) {
    m_view.Load(QStringLiteral("tessaview:start"));
    m_view.ClickOn(QStringLiteral("group"));
    EXPECT_TRUE(WaitUntil([&] { return !m_links.isEmpty(); }));
    EXPECT_EQ(m_links, QStringList{QStringLiteral("tessaview:group?News%20%26")});
    Settle(m_view.engine, m_view.Real().Page());
    EXPECT_EQ(Title(), QStringLiteral("Home"));
}

TEST_F(StartPageAccess, BackLeadsToItAgain) {
    Serve("<title>Page</title>");
    m_view.Load(QStringLiteral("tessaview:start"));
    m_view.ClickOn(QStringLiteral("out"));
    ASSERT_TRUE(WaitForTitle(QStringLiteral("Page")));
    ASSERT_EQ(m_view.view->GoBack(), Outcome::Done);
    EXPECT_TRUE(WaitForTitle(QStringLiteral("Home")));
}

TEST_F(StartPageAccess, AWebPageCannotFetchIt) {
    Serve("<title>Page</title>");
    LoadPage();
    m_view.Script(QStringLiteral("fetch('tessaview:start').then(() => document.title = 'reached', "
                                 "() => document.title = 'refused'); 0"));
    EXPECT_TRUE(WaitForTitle(QStringLiteral("refused")));
    m_view.Script(QStringLiteral("(function () { const r = new XMLHttpRequest();"
                                 "r.onload = () => document.title = 'reached'; r.onerror = () => document.title = 'no';"
                                 "r.open('GET', 'tessaview:start'); r.send(); })(); 0"));
    EXPECT_TRUE(WaitForTitle(QStringLiteral("no")));
    EXPECT_EQ(m_asked, 0);
}

TEST_F(StartPageAccess, AWebPageCannotTakeItIntoItself) {
    Serve("<title>Page</title><iframe src='tessaview:start'></iframe><img src='tessaview:start'>"
          "<script src='tessaview:start'></script><object data='tessaview:start'></object>"
          "<link rel=stylesheet href='tessaview:start'>"
          "<iframe sandbox='allow-scripts' srcdoc=\"<iframe src='tessaview:start'></iframe>\"></iframe>"
          "<script>onload = () => document.title = 'loaded'</script>");
    LoadPage();
    EXPECT_TRUE(WaitForTitle(QStringLiteral("loaded")));
    Settle(m_view.engine, m_view.Real().Page());
    EXPECT_EQ(m_asked, 0);
}

TEST_F(StartPageAccess, AWebPageCannotGoThere) {
    Serve("<title>Page</title><a id='start' href='tessaview:start'>start</a><p>"
          "<a id='group' href='tessaview:group?News'>group</a>");
    LoadPage();
    for (const char* link : {"start", "group"}) {
        m_view.ClickOn(QString::fromLatin1(link));
        Settle(m_view.engine, m_view.Real().Page());
    }
    for (const char* script : {"location.href = 'tessaview:start'", "location.replace('tessaview:group?News')",
                               "open('tessaview:start', '_self')"}) {
        m_view.Script(QString::fromLatin1(script) + QStringLiteral("; 0"));
        Settle(m_view.engine, m_view.Real().Page());
    }
    EXPECT_EQ(Scheme(), QStringLiteral("http"));
    EXPECT_EQ(m_asked, 0);
    EXPECT_TRUE(m_links.isEmpty());
}

TEST_F(StartPageAccess, AWindowOfAWebPageCannotGoThereEither) {
    Serve("<title>Page</title><button id='script' onclick=\"window.open('tessaview:start')\">script</button><p>"
          "<a id='link' href='tessaview:help' target='_blank'>link</a><p>"
          "<button id='later' onclick=\"window.open('about:blank').location = 'tessaview:start'\">later</button>");
    LoadPage();
    std::vector<std::unique_ptr<BrowserView>> windows;
    m_view.events.supplyView = [&] {
        windows.push_back(
            m_view.engine.Create(static_cast<std::int16_t>(windows.size() + 2), m_view.events, Privacy::Ordinary));
        return windows.back().get();
    };
    for (const char* element : {"script", "link", "later"}) {
        m_view.ClickOn(QString::fromLatin1(element));
        Settle(m_view.engine, m_view.Real().Page());
    }
    // The last of them at least, which began elsewhere.
    EXPECT_TRUE(WaitUntil([&] { return !windows.empty(); }));
    for (const auto& each : windows) {
        auto* page = static_cast<PageView&>(*each).Page();
        Settle(m_view.engine, page);
        EXPECT_FALSE(StartPageScheme::IsOwn(page->url())) << page->url().toString().toStdString();
        EXPECT_EQ(page->title().indexOf(QStringLiteral("TessaView")), -1);
    }
    EXPECT_EQ(m_asked, 0);
    m_view.events.supplyView = {};
}

TEST_F(StartPageAccess, NeitherARefreshNorAFormNorAFrameLeadsThere) {
    Serve("<title>Page</title><meta http-equiv='refresh' content='0;url=tessaview:start'>"
          "<form id='form' action='tessaview:start'><button id='send'>send</button></form>"
          "<iframe src='data:text/html,<script>top.location=%22tessaview:start%22</script>'></iframe>"
          "<iframe src='tessaview:help'></iframe>");
    LoadPage();
    m_view.ClickOn(QStringLiteral("send"));
    Settle(m_view.engine, m_view.Real().Page());
    EXPECT_EQ(Scheme(), QStringLiteral("http"));
    EXPECT_EQ(m_view
                  .Script(QStringLiteral("[...document.querySelectorAll('iframe')].map(f => { try { return "
                                         "f.contentDocument.title } catch (e) { return 'closed' } }).join()"))
                  .indexOf(QStringLiteral("TessaView")),
              -1);
    EXPECT_EQ(m_asked, 0);
}

TEST_F(StartPageAccess, TheHelpIsReachedByTheProgramAlone) {
    m_view.Load(QStringLiteral("tessaview:help"));
    EXPECT_EQ(Title(), QStringLiteral("TessaView Help"));
    Serve("<title>Page</title><a id='help' href='tessaview:help#keys'>help</a>");
    LoadPage();
    m_view.ClickOn(QStringLiteral("help"));
    m_view.Script(QStringLiteral("location = 'tessaview:help'; fetch('tessaview:help').then("
                                 "() => document.title = 'reached', () => document.title = 'refused'); 0"));
    EXPECT_TRUE(WaitForTitle(QStringLiteral("refused")));
    EXPECT_EQ(Scheme(), QStringLiteral("http"));
}

TEST_F(StartPageAccess, TheHelpIsDarkWhereTheDesktopIs) {
    const QPalette before = QGuiApplication::palette();
    for (const bool dark : {true, false}) {
        QGuiApplication::setPalette(dark ? QPalette(Qt::black) : QPalette(Qt::lightGray));
        m_view.Load(QStringLiteral("tessaview:help"));
        EXPECT_EQ(m_view.Script(QStringLiteral("document.documentElement.className")),
                  dark ? QStringLiteral("dark") : QString());
    }
    QGuiApplication::setPalette(before);
}

TEST_F(StartPageAccess, AServerCannotSendThePageThere) {
    m_server.Redirect(QStringLiteral("/page"), QStringLiteral("tessaview:start"));
    m_view.Load(QStringLiteral("tessaview:start"));
    EXPECT_EQ(m_asked, 1);
    LoadPage();
    Settle(m_view.engine, m_view.Real().Page());
    EXPECT_EQ(m_asked, 1);
}

} // namespace

} // namespace tessa::qt
