#include "qt/QtBrowserView.h"
#include "qt/QtPage.h"
#include "tests/engine/EngineDesk.h"

namespace {

/// A home page of the test's own, and how often it was asked for.
class StartPageAccess : public testing::Test {
protected:
    StartPageAccess() {
        m_view.engine.StartPage = [this] {
            ++m_asked;
            return std::string("<!doctype html><title>Home</title><a id='group' href='tessaview:group?News%20%26'>"
                               "News</a><p><a id='out' href='" +
                               m_server.Address(QStringLiteral("/page")).toStdString() + "'>out</a>");
        };
        m_view.engine.StartLink = [this](const QUrl& url) { m_links << QString::fromLatin1(url.toEncoded()); };
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

TEST_F(StartPageAccess, AServerCannotSendThePageThere) {
    m_server.Redirect(QStringLiteral("/page"), QStringLiteral("tessaview:start"));
    m_view.Load(QStringLiteral("tessaview:start"));
    EXPECT_EQ(m_asked, 1);
    LoadPage();
    Settle(m_view.engine, m_view.Real().Page());
    EXPECT_EQ(m_asked, 1);
}

} // namespace
