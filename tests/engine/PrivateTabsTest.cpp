// Tests: Profile, Profiles
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QWebEngineProfile>

namespace tessa::qt {

namespace {

TEST(PrivatePages, KeepACookieToThemselvesUntilTheLastOfThemHasGone) {
    LocalServer server;
    server.Page(QStringLiteral("/set"), "<script>document.cookie = 'a=1'; localStorage.a = '1'</script>");
    server.Page(QStringLiteral("/get"),
                "<script>document.title = 'cookie:' + document.cookie + localStorage.getItem('a')</script>");
    EngineDesk desk;
    const auto open = [&](Privacy privacy, const char* path) {
        auto* view = desk.main->GetNewBrowser(InFront::Yes, privacy);
        ResumeNext(view->Navigate(FromQt(server.Address(QLatin1String(path)))));
        return desk.main->Tabs().CurrentIndex();
    };
    const auto titleOf = [&](std::int32_t index) {
        EXPECT_TRUE(WaitUntil([&] { return desk.View(index).LocationName().starts_with(u"cookie:"); }));
        return ToUtf8(desk.View(index).LocationName());
    };
    const auto loaded = [&](std::int32_t index) {
        return WaitUntil([&] {
            const auto* page = desk.View(index).Page();
            return page && page->url().path() == u"/set" && !desk.View(index).Busy();
        });
    };
    const auto first = open(Privacy::Private, "/set");
    ASSERT_TRUE(loaded(first));
    EXPECT_TRUE(desk.View(first).Page()->profile()->isOffTheRecord());
    const auto second = open(Privacy::Private, "/get");
    EXPECT_EQ(titleOf(second), "cookie:a=11") << "private pages know each other";
    const auto ordinary = open(Privacy::Ordinary, "/get");
    EXPECT_EQ(titleOf(ordinary), "cookie:null");
    const QPointer<QWebEngineProfile> profile = desk.View(first).Page()->profile();
    desk.main->CloseBrowserTab(first);
    desk.main->CloseBrowserTab(second);
    EXPECT_TRUE(WaitUntil([&] { return profile.isNull(); })) << "the profile ends with its last page";
    const auto third = open(Privacy::Private, "/get");
    EXPECT_EQ(titleOf(third), "cookie:null");
}

TEST(PrivatePages, OpenTheirWindowsInTheirOwnProfile) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<script>document.cookie = 'a=1'</script><a id=l target=x rel=opener "
                                         "href='/next'>next</a><script>l.click()</script>");
    server.Page(QStringLiteral("/next"), "<script>document.title = 'cookie:' + document.cookie</script>");
    EngineDesk desk;
    FakeSettings settings;
    SitePermissions permissions(settings);
    permissions.Remember({FromQt(server.Address({})), SitePermission::Popups, true});
    auto* view = desk.main->GetNewBrowser(InFront::Yes, Privacy::Private);
    ResumeNext(view->Navigate(FromQt(server.Address(QStringLiteral("/page")))));
    ASSERT_TRUE(WaitUntil([&] { return desk.View(2).Questions() && desk.View(2).Questions()->questions.Current(); }))
        << "what was decided for ordinary pages says nothing about private ones";
    desk.View(2).Questions()->questions.Answer(0, false);
    ASSERT_TRUE(WaitUntil([&] { return desk.main->pcPage.Count() == 3; }));
    EXPECT_TRUE(WaitUntil([&] { return desk.View(3).LocationName() == u"cookie:a=1"; }));
    EXPECT_EQ(desk.main->Tabs().PrivacyOf(3), Privacy::Private);
}

} // namespace

} // namespace tessa::qt
