// Tests: Requests
#include "qt/engine/Requests.h"
#include "startpage/StartPage.h"
#include "tests/engine/CommandsOnPages.h"

#include <QApplication>
#include <QTest>
#include <QWebEngineHistory>
#include <QWebEngineProfile>

namespace tessa::qt {

namespace {

/// Commands that open tabs and lead from page to page.
class TabCommandsTest : public CommandsOnPages {
protected:
    void SetUp() override {
        for (const char* name : {"Rose", "Tulip", "Home"})
            server.Page(u'/' + QString::fromLatin1(name), QByteArray("<title>") + name + "</title><p>words</p>");
        server.Page(QStringLiteral("/"), "<title>Partner</title><p>words</p>");
        server.Answer(QStringLiteral("/count"), [this](const QByteArray&) {
            return QByteArray("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n<title>Load ") +
                   QByteArray::number(++loads) + "</title><p>words</p>";
        });
        server.Stall(QStringLiteral("/never"));
        desk.engine.Profiles().Made.ConnectForLife(
            [this](QWebEngineProfile& made) { made.setUrlRequestInterceptor(&requests); });
        desk.host.home = FromQt(server.Address(QStringLiteral("/Home")));
        Show(QStringLiteral("/Rose"), u"Rose");
    }
    [[nodiscard]] std::size_t Tabs() const { return desk.main->pcPage.Count(); }
    /// Clicks a tool that opens a tab, and waits until its page is shown there.
    void OpensInFront(TextView tool, TextView title) {
        const auto before = Tabs();
        const PageView* old = &Front();
        Click(tool);
        EXPECT_EQ(Tabs(), before + 1) << ToUtf8(tool);
        EXPECT_NE(&Front(), old) << ToUtf8(tool);
        EXPECT_TRUE(WaitTitle(title)) << ToUtf8(tool) << " shows " << ToUtf8(Front().LocationName());
    }
    /// Whether a blank page is shown: it has come, and there is nothing in it.
    bool WaitBlank() {
        return WaitUntil([&] {
            const auto* page = Front().Page();
            return page && !Front().Busy() && page->url() == QUrl(QStringLiteral("about:blank"));
        });
    }

    int loads = 0;
    Requests requests{[this] {
        return ServiceTemplates{.search = FromQt(server.Address(QStringLiteral("/find?q=%s"))), .shop = {}, .find = {}};
    }};
};

TEST_F(TabCommandsTest, NewTabsShowWhatTheyAreFor) {
    OpensInFront(u"mnuNewHome", u"Home");
    OpensInFront(u"mnuNewSearch", u"Partner");
    Click(u"mnuPreviousBrowserTab");
    OpensInFront(u"mnuNewCurrent", u"Home");
    EXPECT_EQ(Front().Page()->history()->count(), 1) << "the page is loaded, its history stays behind";
}

TEST_F(TabCommandsTest, NewBlankTabsAreBlank) {
    for (const TextView tool : {u"mnuNewBlank", u"tbNew"}) {
        const auto before = Tabs();
        Click(tool);
        EXPECT_EQ(Tabs(), before + 1) << ToUtf8(tool);
        ASSERT_TRUE(WaitBlank()) << ToUtf8(tool);
        EXPECT_EQ(Front().Page()->profile(), desk.engine.Profiles().Get());
    }
    EXPECT_EQ(server.requests, QStringList{QStringLiteral("/Rose")});
}

TEST_F(TabCommandsTest, ANewPrivateTabSaysWhatIsKept) {
    OpensInFront(u"xtrPrivateTab", u"Private tab");
    EXPECT_EQ(Front().LocationURL(), u"tessaview:private");
    EXPECT_TRUE(Front().Page()->profile()->isOffTheRecord());
    EXPECT_NE(Front().Page()->profile(), desk.engine.Profiles().Get());
    EXPECT_EQ(Script(QStringLiteral("document.querySelectorAll('section').length")), u"2");
}

TEST_F(TabCommandsTest, WithoutAChosenHomePageANewTabShowsTheProgramsOwn) {
    desk.host.home.clear();
    desk.host.startPage = [] { return std::string("<title>Start</title><p>words</p>"); };
    OpensInFront(u"mnuNewHome", u"Start");
    EXPECT_EQ(Front().LocationURL(), u"tessaview:start");
}

TEST_F(TabCommandsTest, TheFieldOfTheProgramsHomePageSearchesWithTheChosenService) {
    desk.host.home.clear();
    desk.host.startPage = [] { return StartPage::Html({}); };
    desk.engine.Told().StartLink.ConnectForLife(
        [this](const QUrl& url) { desk.main->OpenStartLink(url.toEncoded().toStdString()); });
    server.Page(QStringLiteral("/find?q=a%26b%20%2B%20%D1%8F"), "<title>Found</title><p>words</p>");
    Click(u"mnuHome");
    ASSERT_TRUE(WaitUntil([&] { return Path() == u"start" && !Front().Busy(); }));
    WaitForPicture();
    const auto field = QStringLiteral("document.querySelector('input')");
    EXPECT_EQ(Script(QStringLiteral("document.activeElement == ") + field), u"true") << "one can type at once";
    Script(field + QString::fromUtf8(".value = 'a&b + я'; 1"));
    Front().SetFocus();
    ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("document.hasFocus()")) == u"true"; }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(WaitTitle(u"Found")) << server.requests.join(u' ').toStdString();
    EXPECT_EQ(Tabs(), 1U);
}

TEST_F(TabCommandsTest, ASearchLinkAndAHomeLeadTheCurrentTab) {
    Click(u"mnuHome");
    EXPECT_TRUE(WaitTitle(u"Home"));
    Click(u"mnuSearch");
    EXPECT_TRUE(WaitTitle(u"Partner"));
    EXPECT_EQ(Tabs(), 1U);
}

TEST_F(TabCommandsTest, BackAndForwardLeadThroughTheHistory) {
    EXPECT_FALSE(Enabled(u"mnuGoForward"));
    Show(QStringLiteral("/Tulip"), u"Tulip");
    ClickWhenEnabled(u"mnuGoBack");
    ASSERT_TRUE(WaitTitle(u"Rose"));
    EXPECT_EQ(Path(), QStringLiteral("/Rose"));
    ClickWhenEnabled(u"mnuGoForward");
    ASSERT_TRUE(WaitTitle(u"Tulip"));
    EXPECT_EQ(Path(), QStringLiteral("/Tulip"));
    EXPECT_TRUE(WaitUntil([&] { return !Enabled(u"mnuGoForward") && Enabled(u"mnuGoBack"); }));
}

TEST_F(TabCommandsTest, RefreshLoadsThePageAnew) {
    Show(QStringLiteral("/count"), u"Load 1");
    ClickWhenEnabled(u"mnuRefresh");
    EXPECT_TRUE(WaitTitle(u"Load 2"));
    EXPECT_EQ(Path(), QStringLiteral("/count"));
}

TEST_F(TabCommandsTest, StopEndsALoadAndLeavesThePage) {
    ResumeNext(Front().Navigate(FromQt(server.Address(QStringLiteral("/never")))));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/never")); }));
    EXPECT_TRUE(Front().Busy());
    ClickWhenEnabled(u"mnuStop");
    ASSERT_TRUE(WaitUntil([&] { return !Front().Busy() && !Enabled(u"mnuStop") && Enabled(u"mnuRefresh"); }));
    EXPECT_EQ(Front().LocationName(), u"Rose");
    EXPECT_EQ(Path(), QStringLiteral("/Rose"));
    EXPECT_EQ(Script(QStringLiteral("document.title")), QStringLiteral("Rose"));
}

} // namespace

} // namespace tessa::qt
