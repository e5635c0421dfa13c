// Tests: SiteData
#include "qt/engine/StoredBrowsingData.h"

#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QVersionNumber>
#include <QWebEngineCookieStore>
#include <QWebEngineProfile>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

void Nobody(Cleared) {}

/// A view whose cookies and visits are noted, by a clock that the test sets.
class BrowsingDataTest : public testing::Test {
protected:
    BrowsingDataTest() {
        desk.engine.Profiles().Made.ConnectForLife([this](QWebEngineProfile& made) {
            profile = &made;
            data.Watch(made);
        });
        desk.engine.Told().Visited.ConnectForLife([this](const QUrl& url) { data.NoteVisit(url); });
        data.Now = [this] { return now; };
    }
    ~BrowsingDataTest() override { data.Shutdown(); }

    void SetUp() override {
        server.Page(QStringLiteral("/page"), "<title>page</title><p>words</p>");
        desk.Load(server.Address(QStringLiteral("/page")));
        ASSERT_NE(profile, nullptr);
    }
    QString Cookies() { return desk.Script(QStringLiteral("document.cookie")); }

    ProfileFolder folder;
    LocalServer server;
    qint64 now = 1000000;
    StoredBrowsingData data;
    QPointer<QWebEngineProfile> profile;
    // On disk, as the program's own is: one in memory forgets all visited links at once.
    EngineView desk{folder.dir.path()};
};

TEST_F(BrowsingDataTest, CookiesAreForgottenAsFarBackAsTheUserSays) {
    int noted = 0;
    QObject::connect(profile->cookieStore(), &QWebEngineCookieStore::cookieAdded, &desk.window, [&] { ++noted; });
    desk.Script(QStringLiteral("document.cookie = 'old=1; max-age=9999'"));
    ASSERT_TRUE(WaitUntil([&] { return noted == 1; }));
    now += 7200;
    desk.Script(QStringLiteral("document.cookie = 'new=1; max-age=9999'"));
    ASSERT_TRUE(WaitUntil([&] { return noted == 2; }));
    data.Clear({.cookies = true, .seconds = 3600}, *profile, Nobody);
    EXPECT_TRUE(WaitUntil([&] { return Cookies() == u"old=1"; })) << Cookies().toStdString();
    data.Clear({.cookies = true}, *profile, Nobody);
    EXPECT_TRUE(WaitUntil([&] { return Cookies().isEmpty(); }));
}

TEST_F(BrowsingDataTest, TheCacheIsForgottenAndItsEndIsTold) {
    server.Raw(QStringLiteral("/kept"), "HTTP/1.1 200 OK\r\nConnection: close\r\nCache-Control: max-age=9999\r\n"
                                        "Content-Type: text/plain\r\nContent-Length: 4\r\n\r\nkept");
    const auto fetches = [this] {
        desk.Script(QStringLiteral("window.got = ''; fetch('/kept').then(r => r.text()).then(t => got = t, "
                                   "e => got = String(e)); 1"));
        EXPECT_TRUE(WaitUntil([this] { return !desk.Script(QStringLiteral("got")).isEmpty(); }));
        EXPECT_EQ(desk.Script(QStringLiteral("got")).toStdString(), "kept") << "a page that is open goes on";
        return server.requests.count(QStringLiteral("/kept"));
    };
    EXPECT_EQ(fetches(), 1);
    EXPECT_EQ(fetches(), 1);
    int told = 0;
    data.Clear({.cache = true}, *profile, [&](Cleared cleared) { told += cleared == Cleared::Yes ? 1 : 9; });
    EXPECT_TRUE(WaitUntil([&] { return told == 1; }));
    EXPECT_EQ(fetches(), 2);
}

/// What the page has stored, once it is there: local, of the session, and a data base.
class SitesData : public BrowsingDataTest {
protected:
    void Store() {
        desk.Script(QStringLiteral("localStorage.a = 'local'; sessionStorage.b = 'session'; document.cookie = 'c=1';"
                                   "var made = ''; indexedDB.open('base').onsuccess = e => {"
                                   "    e.target.result.close(); made = 'made'; }; 1"));
        ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("made")) == u"made"; }));
    }
    QString Stored() {
        desk.Script(QStringLiteral("var told = ''; indexedDB.databases().then(all => told = [localStorage.a,"
                                   "sessionStorage.b, document.cookie, ...all.map(one => one.name)].join(' ')); 1"));
        EXPECT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("told")) != QString(); }));
        return desk.Script(QStringLiteral("told"));
    }
    Cleared Forget() {
        std::optional<Cleared> outcome;
        data.Clear({.siteData = true}, *profile, [&](Cleared told) { outcome = told; });
        EXPECT_TRUE(WaitUntil([&] { return outcome.has_value(); }));
        return outcome.value_or(Cleared::NotAll);
    }
};

TEST_F(SitesData, IsForgottenWhileThePageIsOpenAndItsCookiesStay) {
    Store();
    ASSERT_EQ(Stored(), QStringLiteral("local session c=1 base"));
    ASSERT_EQ(Forget(), Cleared::Yes);
    EXPECT_EQ(Stored(), QStringLiteral("  c=1"));
}

TEST_F(SitesData, OfPagesThatAreNotOpenIsForgottenToo) {
    server.Page(QStringLiteral("/other"), "<title>other</title><p>words</p>");
    Store();
    desk.Load(server.Address(QStringLiteral("/other"), QStringLiteral("localhost")));
    Store();
    ASSERT_EQ(Forget(), Cleared::Yes);
    EXPECT_EQ(Forget(), Cleared::Yes) << "as often as the user wants";
    EXPECT_EQ(Stored(), QStringLiteral("  c=1"));
    desk.Load(server.Address(QStringLiteral("/page")));
    EXPECT_TRUE(Stored().startsWith(QStringLiteral(" ")) && !Stored().contains(u"base")) << Stored().toStdString();
}

/// A page of two links, each as large as half the view: red once it has been visited.
class VisitedLinks : public BrowsingDataTest {
protected:
    void Visit(const char* path) {
        server.Page(QLatin1String(path), "<title>visited</title><p>words</p>");
        desk.Load(server.Address(QLatin1String(path)));
    }
    void ShowLinks() {
        const auto link = [this](const char* path) {
            return "<a href='" + server.Address(QLatin1String(path)).toUtf8() + "'></a>";
        };
        server.Page(QStringLiteral("/links"), "<style>body{margin:0}a{display:block;height:50vh;background:#00ff00}"
                                              "a:visited{background:#ff0000}</style>" +
                                                  link("/old") + link("/new"));
        desk.Load(server.Address(QStringLiteral("/links")));
    }
    /// Whether the links to the old page and to the new one look visited.
    std::string Looks() {
        const QImage picture = desk.Real().Widget()->grab().toImage();
        const auto at = [&](int part) {
            const QColor colour = picture.pixelColor(picture.width() / 2, picture.height() * part / 4);
            return colour.red() > 200 ? "visited" : colour.green() > 200 ? "fresh" : "nothing";
        };
        return std::string(at(1)) + " " + at(3);
    }
    bool WaitLooks(const std::string& expected) {
        return WaitUntil([&] { return Looks() == expected; });
    }
    void Forget(std::int64_t seconds) { data.Clear({.visitedLinks = true, .seconds = seconds}, *profile, Nobody); }

    void VisitBoth() {
        Visit("/old");
        now += 7200;
        Visit("/new");
        ShowLinks();
        ASSERT_TRUE(WaitLooks("visited visited")) << Looks();
    }
};

TEST_F(VisitedLinks, AreForgottenAsFarBackAsTheUserSays) {
    // Engines from 6.10 on forget older links with it at times, those of 6.11 always.
    const auto chromium = QVersionNumber::fromString(QLatin1String(qWebEngineChromiumVersion()));
    const bool forgetsMore = chromium.majorVersion() >= 134;
    VisitBoth();
    Forget(3600);
    EXPECT_TRUE(WaitUntil([&] {
        const std::string looks = Looks();
        return looks == "visited fresh" || (forgetsMore && looks == "fresh fresh");
    })) << Looks();
    Forget(0);
    EXPECT_TRUE(WaitLooks("fresh fresh")) << Looks();
}

TEST_F(VisitedLinks, AllGoWhenTheTimeReachesBackBehindTheStart) {
    VisitBoth();
    Forget(10000);
    EXPECT_TRUE(WaitLooks("fresh fresh")) << Looks();
}

TEST(SiteData, IsForgottenBeforeTheEngineOpensItWhenItWasAskedForAtTheEnd) {
    const QTemporaryDir folder;
    const QDir files(folder.path());
    for (const char* name : {"Local Storage/leveldb", "IndexedDB", "Kept"}) files.mkpath(QLatin1String(name));
    StoredBrowsingData::ForgetSites(folder.path());
    EXPECT_TRUE(files.exists(QStringLiteral("IndexedDB"))) << "nobody asked";
    {
        QWebEngineProfile profile;
        StoredBrowsingData browsing;
        browsing.KeepIn(folder.path());
        browsing.Clear({.siteData = true}, profile, Nobody);
    }
    StoredBrowsingData::ForgetSites(folder.path());
    EXPECT_FALSE(files.exists(QStringLiteral("Local Storage")) || files.exists(QStringLiteral("IndexedDB")));
    EXPECT_TRUE(files.exists(QStringLiteral("Kept")));
    files.mkpath(QStringLiteral("IndexedDB"));
    StoredBrowsingData::ForgetSites(folder.path());
    EXPECT_TRUE(files.exists(QStringLiteral("IndexedDB"))) << "once is enough";
}

TEST(SiteData, ThatIsGoneAlreadyIsNotForgottenAgainAtTheNextStart) {
    const QTemporaryDir folder;
    QWebEngineProfile profile;
    StoredBrowsingData browsing;
    browsing.KeepIn(folder.path());
    bool done = false;
    browsing.Clear({.siteData = true}, profile, [&](Cleared cleared) { done = cleared == Cleared::Yes; });
    EXPECT_FALSE(QDir(folder.path()).isEmpty());
    ASSERT_TRUE(WaitUntil([&] { return done; }));
    QDir(folder.path()).mkpath(QStringLiteral("IndexedDB"));
    StoredBrowsingData::ForgetSites(folder.path());
    EXPECT_TRUE(QDir(folder.path()).exists(QStringLiteral("IndexedDB")));
    // The pages that did it end before their profile.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(SiteData, ThatCannotBeMarkedForTheNextStartIsForgottenNowAndTheFailureCounts) {
    QWebEngineProfile profile;
    StoredBrowsingData browsing;
    browsing.KeepIn(QStringLiteral("/nowhere/engine"));
    const std::size_t before = SkippedSteps();
    std::optional<Cleared> cleared;
    browsing.Clear({.siteData = true}, profile, [&](Cleared told) { cleared = told; });
    EXPECT_EQ(SkippedSteps(), before + 1);
    ASSERT_TRUE(WaitUntil([&] { return cleared.has_value(); }));
    EXPECT_EQ(*cleared, Cleared::Yes);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

} // namespace tessa::qt
