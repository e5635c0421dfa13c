// Tests: PagePrinting, WebPage
#include "qt/engine/Profiles.h"
#include "qt/page/WebPage.h"
#include "tests/engine/CommandsOnPages.h"

#include <QPageLayout>
#include <QPointer>
#include <QTcpSocket>
#include <QWebEngineHistory>
#include <chrono>
#include <memory>
#include <optional>

namespace tessa::qt {

using namespace std::chrono_literals;

namespace {

/// A page that came after one of another site, is being printed, and waits for a server that does not answer as soon as
/// that begins. The engine ends the program where such a page goes to another site, or loses its process.
class StuckPrints : public CommandsOnPages {
protected:
    StuckPrints() {
        server.Stall(QStringLiteral("/held"));
        server.Page(QStringLiteral("/first"), "<title>first</title><p>first</p>");
        server.Page(QStringLiteral("/next"), "<title>next</title><p>next</p>");
        Stuck(QStringLiteral("/stuck"), {});
    }
    ~StuckPrints() override { Release(); }
    /// A page of that name, which runs that before it waits.
    void Stuck(const QString& path, const QByteArray& first, const QByteArray& more = {}) {
        server.Page(path, "<title>" + path.mid(1).toLatin1() + "</title><p>words</p>" + more +
                              "<script>addEventListener('beforeprint', () => {" + first +
                              "const held = new XMLHttpRequest(); held.open('GET', '/held', false); held.send(); "
                              "});</script>");
    }
    [[nodiscard]] QString Other(const char* path) const {
        return server.Address(QLatin1String(path), QStringLiteral("localhost"));
    }
    void Go(const QString& address) { ResumeNext(Front().Navigate(FromQt(address))); }
    void PrintStuck() {
        Go(Other("/first"));
        ASSERT_TRUE(WaitTitle(u"first"));
        Show(QStringLiteral("/stuck"), u"stuck");
        before = Front().Page();
        Click(u"xtrPrintPreview");
        ASSERT_TRUE(WaitUntil([this] { return IsStuck(); }));
    }
    [[nodiscard]] bool IsStuck() const { return server.requests.contains(QStringLiteral("/held")); }
    /// The server is gone: the page goes on, and is printed.
    void Release() {
        for (auto* held : server.findChildren<QTcpSocket*>()) held->abort();
    }
    bool PreviewComes(const char16_t* title) {
        return WaitUntil([&] { return desk.main->pcPage.SelectedItem()->Caption() == title; });
    }

    void Print() {
        Front().Page()->Print(layout, 1min, [printed = printed](const PrintedPage& result) { *printed = result; });
    }

    const QPageLayout layout{QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()};
    const std::shared_ptr<std::optional<PrintedPage>> printed = std::make_shared<std::optional<PrintedPage>>();
    QPointer<WebPage> before; ///< the page that is printed
};

class StuckPrintsThatAreLeft : public StuckPrints, public testing::WithParamInterface<int> {};

TEST_P(StuckPrintsThatAreLeft, StayWhereTheyAreAndTheTabGoesOn) {
    PrintStuck();
    const int act = GetParam();
    if (act == 0) Go(Other("/next"));
    if (act == 1) Go(server.Address(QStringLiteral("/next")));
    if (act == 2) ResumeNext(Front().GoBack());
    if (act == 3) ResumeNext(Front().Refresh());
    if (act == 4) Front().Renew();
    ASSERT_TRUE(WaitTitle(act < 2 ? u"next" : act == 2 ? u"first" : u"stuck"));
    ASSERT_TRUE(before);
    EXPECT_TRUE(before->Prints());
    EXPECT_NE(Front().Page(), before);
    EXPECT_TRUE(Front().Widget()->isVisible());
    EXPECT_EQ(desk.main->pcPage.Count(), 1U);
    // No page is twice among those that the tab has shown.
    EXPECT_EQ(Front().Page()->history()->count(), act < 2 ? 3 : 2);
    Release();
    EXPECT_TRUE(PreviewComes(u"Preview: stuck"));
    EXPECT_TRUE(WaitUntil([this] { return !before; }));
}

std::string NameOf(const testing::TestParamInfo<int>& info) {
    static constexpr const char* kNames[] = {"OtherSite", "SameSite", "Back", "Refresh", "Renew"};
    return kNames[info.param];
}

INSTANTIATE_TEST_SUITE_P(Ways, StuckPrintsThatAreLeft, testing::Range(0, 5), NameOf);

TEST_F(StuckPrints, TheTabStillKnowsWhereItWas) {
    PrintStuck();
    Go(Other("/next"));
    ASSERT_TRUE(WaitTitle(u"next"));
    ASSERT_TRUE(Front().Page()->history()->canGoBack());
    ResumeNext(Front().GoBack());
    ASSERT_TRUE(WaitTitle(u"stuck"));
    ResumeNext(Front().GoBack());
    EXPECT_TRUE(WaitTitle(u"first"));
    ResumeNext(Front().GoForward());
    EXPECT_TRUE(WaitTitle(u"stuck"));
}

TEST_F(StuckPrints, DoNotSleepAndAreNotEnded) {
    PrintStuck();
    PageLife& life = *Front().Life();
    EXPECT_TRUE(life.Activity().Prints);
    EXPECT_EQ(life.Sleep(), Outcome::Failed);
    EXPECT_TRUE(life.ProcessPrints());
    EXPECT_EQ(life.EndProcess(), Outcome::Failed);
    Release();
    ASSERT_TRUE(PreviewComes(u"Preview: stuck"));
    auto& view = desk.View(1);
    EXPECT_FALSE(view.Life()->Activity().Prints);
    EXPECT_FALSE(view.Life()->ProcessPrints());
    EXPECT_EQ(view.Life()->EndProcess(), Outcome::Done);
    EXPECT_TRUE(WaitUntil([&] { return view.Life()->Ended(); }));
}

TEST_F(StuckPrints, WhoseTabHasClosedKeepTheirProcess) {
    PrintStuck();
    const auto process = Front().Life()->Process();
    const Profiles& profiles = desk.engine.Profiles();
    Click(u"mnuNewBlank");
    desk.main->CloseBrowserTab(1);
    EXPECT_TRUE(profiles.PrintsIn(process));
    EXPECT_FALSE(profiles.PrintsIn(0));
    Release();
    EXPECT_TRUE(WaitUntil([&] { return !before; }));
    EXPECT_FALSE(profiles.PrintsIn(process));
}

TEST_F(StuckPrints, GoOnByThemselvesOnceTheyHaveBeenPrinted) {
    Stuck(QStringLiteral("/leads"), "location = '" + Other("/next").toLatin1() + "';");
    Show(QStringLiteral("/leads"), u"leads");
    Click(u"xtrPrintPreview");
    ASSERT_TRUE(WaitUntil([this] { return IsStuck(); }));
    EXPECT_FALSE(server.requests.contains(QStringLiteral("/next")));
    Release();
    ASSERT_TRUE(PreviewComes(u"Preview: leads"));
    EXPECT_TRUE(WaitUntil([this] { return desk.View(1).LocationName() == u"next"; }));
}

/// A page that is shown, and waits for a picture.
class PrintsWhileLoading : public StuckPrints {
protected:
    PrintsWhileLoading() {
        server.Stall(QStringLiteral("/picture"));
        server.Page(QStringLiteral("/loads"), "<title>loads</title><p>words</p><img src=/picture>");
        Go(server.Address(QStringLiteral("/loads")));
        EXPECT_TRUE(WaitUntil([this] { return Front().LocationName() == u"loads" && !Front().Page()->AwaitsAny(); }));
        EXPECT_TRUE(Front().Busy());
    }
    void ExpectPrinted() {
        ASSERT_TRUE(WaitUntil([this] { return printed->has_value(); }));
        EXPECT_TRUE((*printed)->pdf.startsWith("%PDF-"));
        EXPECT_FALSE(Front().Page()->Prints());
    }
};

TEST_F(PrintsWhileLoading, ComeOnceItHasLoaded) {
    Print();
    EXPECT_FALSE(*printed);
    Release();
    ExpectPrinted();
}

TEST_F(PrintsWhileLoading, ComeOnceItHasBeenStopped) {
    Print();
    ResumeNext(Front().Stop());
    ExpectPrinted();
}

TEST_F(PrintsWhileLoading, AreGivenUpAndComeLaterAllTheSame) {
    Front().Page()->Print(layout, 1ms, [printed = printed](const PrintedPage& result) { *printed = result; });
    ASSERT_TRUE(WaitUntil([this] { return printed->has_value(); }));
    EXPECT_FALSE((*printed)->answered);
    EXPECT_FALSE(Front().Page()->Prints());
    printed->reset();
    ResumeNext(Front().Stop());
    Print();
    ExpectPrinted();
}

TEST_F(PrintsWhileLoading, HaveWhatHasComeWhenTheTabCloses) {
    Print();
    const QPointer<WebPage> page(Front().Page());
    Click(u"mnuNewBlank");
    desk.main->CloseBrowserTab(1);
    ASSERT_TRUE(WaitUntil([this] { return printed->has_value(); }));
    EXPECT_TRUE((*printed)->pdf.startsWith("%PDF-"));
    EXPECT_TRUE(WaitUntil([&] { return page.isNull(); }));
}

TEST_F(PrintsWhileLoading, HaveWhatHasComeWhenTheProgramEnds) {
    Print();
    desk.main->Form_Unload();
    EXPECT_TRUE(desk.engine.Shutdown());
    ASSERT_TRUE(*printed);
    EXPECT_TRUE((*printed)->pdf.startsWith("%PDF-"));
}

TEST_F(StuckPrints, APageThatIsOnItsWayToAnotherIsNotPrinted) {
    Show(QStringLiteral("/stuck"), u"stuck");
    server.Stall(QStringLiteral("/never"));
    Go(Other("/never"));
    ASSERT_TRUE(WaitUntil([this] { return server.requests.contains(QStringLiteral("/never")); }));
    Print();
    ASSERT_TRUE(*printed);
    EXPECT_TRUE((*printed)->pdf.isEmpty());
    EXPECT_FALSE(Front().Page()->Prints());
    ResumeNext(Front().Stop());
    EXPECT_TRUE(WaitUntil([this] { return !Front().Busy(); }));
}

} // namespace

} // namespace tessa::qt
