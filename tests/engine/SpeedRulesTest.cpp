// Tests: Engine, ParkedSize
#include "base/Address.h"
#include "qt/base/EngineVersions.h"
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QCoreApplication>
#include <QWebEngineHistory>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

QString Path(int number) { return QStringLiteral("/%1").arg(number); }

std::vector<QString> Pages(LocalServer& server, int count) {
    std::vector<QString> addresses;
    for (int i = 1; i <= count; ++i) {
        server.Page(Path(i), "<title>" + QByteArray::number(i) + "</title>page");
        addresses.push_back(server.Address(Path(i)));
    }
    return addresses;
}

TEST(SpeedRules, AViewCostsNothingBeforeTheEngineStarts) {
    QWidget window;
    InstanceProfile ownProfile({}, {});
    FakeEngineHost host;
    Engine engine(&window, ownProfile, host);
    EventRecorder events;
    const auto view = engine.Create(1, events, Privacy::Ordinary);
    EXPECT_EQ(view->Navigate(u"http://127.0.0.1:1/"), Outcome::Done);
    view->BringToFront();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(engine.PageCount(), 0u);
    EXPECT_EQ(ToUtf8(view->LocationURL()), "http://127.0.0.1:1/");
}

TEST(SpeedRules, BlankThenAddressReachesTheEngineAsOneNavigation) {
    LocalServer server;
    const auto addresses = Pages(server, 1);
    EngineView desk;
    desk.Navigate(QStringLiteral("about:blank"));
    desk.Load(addresses[0]);
    EXPECT_EQ(desk.Real().Page()->history()->count(), 1);
    EXPECT_EQ(desk.events.Count(QStringLiteral("S")), 1);
    EXPECT_EQ(server.requests, QStringList{Path(1)});
}

TEST(SpeedRules, OnlyTheSelectedViewIsShownToTheEngine) {
    LocalServer server;
    EngineDesk desk;
    desk.Open(Pages(server, 3));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.size() == 3 && desk.engine.PageCount() >= 3; }));
    for (int index = 2; index <= 4; ++index) {
        ASSERT_TRUE(WaitUntil([&] { return desk.View(index).Page() && !desk.View(index).Busy(); }));
        const auto* widget = desk.View(index).Widget();
        EXPECT_EQ(widget && widget->isVisible(), index == 4) << index;
    }
    desk.main->pcPage.UserClick(desk.main->pcPage.Find(u"Tab2"));
    ASSERT_TRUE(WaitUntil([&] { return desk.View(2).Widget() && desk.View(2).Widget()->isVisible(); }));
    EXPECT_FALSE(desk.View(4).Widget()->isVisible());
}

TEST(SpeedRules, OfManyViewsBroughtToTheFrontInOneTurnOnlyTheLastIsShown) {
    LocalServer server;
    EngineDesk desk;
    int fronts = 0;
    desk.engine.Schedule().FrontChanged.ConnectForLife([&] { ++fronts; });
    desk.Open(Pages(server, 20));
    ASSERT_TRUE(WaitUntil([&] { return desk.View(21).Widget() && desk.View(21).Widget()->isVisible(); }));
    EXPECT_EQ(fronts, 1);
    EXPECT_EQ(desk.engine.PageCount(), 1u) << "no other page exists before the one in front";
}

TEST(SpeedRules, ThePageInFrontIsAskedForFirst) {
    LocalServer server;
    EngineDesk desk;
    desk.Open(Pages(server, 20));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.size() == 20; }));
    EXPECT_EQ(server.requests.front(), Path(20));
}

TEST(SpeedRules, AParkedPageLoadsRunsAndReportsUnseen) {
    LocalServer server;
    server.Page(QStringLiteral("/parked"), "<title>before</title><script>setTimeout(function () {"
                                           "document.title = document.visibilityState; }, 10)</script>");
    EngineDesk desk;
    auto* view = desk.main->GetNewBrowser(InFront::No);
    ResumeNext(view->Navigate(FromQt(server.Address(QStringLiteral("/parked")))));
    EXPECT_TRUE(WaitUntil([&] { return desk.main->pcPage.Find(u"Tab2")->Caption() == u"hidden"; }));
}

/// Counts what has a hidden scene of Qt Quick make a picture of its size: 33 MB for a page on a good screen.
class PictureCount final : public QObject {
public:
    PictureCount() { qApp->installEventFilter(this); }
    int pictures = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isScene = event->type() == QEvent::Resize && watched->inherits("QQuickWidget");
        if (isScene && !static_cast<QWidget*>(watched)->parentWidget()->isVisible()) ++pictures;
        return false;
    }
};

TEST(SpeedRules, AParkedPageHasTheSizeOfThePageAreaAndNoPictureOfItself) {
    LocalServer server;
    PictureCount count;
    server.Page(QStringLiteral("/size"), "<title>t</title><script>document.title = innerWidth > 900 ? 'wide' : "
                                         "'narrow ' + innerWidth</script>");
    EngineDesk desk;
    auto* view = desk.main->GetNewBrowser(InFront::No);
    ResumeNext(view->Navigate(FromQt(server.Address(QStringLiteral("/size")))));
    EXPECT_TRUE(WaitUntil([&] { return desk.main->pcPage.Find(u"Tab2")->Caption() == u"wide"; }))
        << ToUtf8(desk.main->pcPage.Find(u"Tab2")->Caption());
    EXPECT_EQ(count.pictures, EngineVersions::TakesSizeFromScene() ? 0 : 1);
}

/// A group of one page, behind which the tab is blank that the program starts with.
class ABlankPageBehind : public testing::Test {
protected:
    ABlankPageBehind() {
        desk.Open(Pages(server, 1));
        EXPECT_TRUE(
            WaitUntil([this] { return !server.requests.empty() && !desk.View(2).Busy() && Caption(1) == kBlank; }));
    }
    [[nodiscard]] Text Caption(int index) const { return desk.main->pcPage.Find(u"Tab" + Decimal(index))->Caption(); }
    /// It has been made, and shows itself blank.
    bool Comes() {
        return WaitUntil([this] {
            const PageView& first = desk.View(1);
            return first.Page() && first.Page()->url() == QUrl(QStringLiteral("about:blank")) && !first.Busy();
        });
    }

    static constexpr TextView kBlank = Address::kBlank;
    LocalServer server;
    EngineDesk desk;
};

TEST_F(ABlankPageBehind, CostsNothingAndIsToldAsIfItWereThere) {
    EXPECT_EQ(desk.engine.PageCount(), 1U);
    EXPECT_EQ(desk.View(1).LocationURL(), kBlank);
    EXPECT_TRUE(desk.View(1).Blank());
    EXPECT_EQ(desk.View(1).Progress(), PageProgress::Done) << "nothing is to come";
    EXPECT_EQ(desk.main->pcPage.Find(u"Tab1")->Image(), desk.main->pcPage.Find(u"Tab2")->Image()) << "not busy";
}

TEST_F(ABlankPageBehind, IsMadeWhenSomebodyLooks) {
    desk.main->pcPage.UserClick(desk.main->pcPage.Find(u"Tab1"));
    EXPECT_TRUE(Comes());
    EXPECT_TRUE(WaitUntil([this] { return desk.View(1).Widget()->isVisible(); }));
    EXPECT_EQ(desk.View(1).Page()->history()->count(), 1);
    EXPECT_EQ(Caption(1), kBlank);
}

TEST_F(ABlankPageBehind, IsMadeForAScript) {
    EXPECT_TRUE(desk.View(1).LoadPutOff());
    EXPECT_TRUE(Comes());
    EXPECT_FALSE(desk.View(1).LoadPutOff());
    EXPECT_FALSE(desk.View(1).Widget() && desk.View(1).Widget()->isVisible());
}

TEST_F(ABlankPageBehind, GoesWhereItIsSent) {
    ResumeNext(desk.View(1).Navigate(FromQt(server.Address(Path(1)))));
    EXPECT_TRUE(WaitUntil([this] { return server.requests.size() == 2 && Caption(1) == u"1"; }));
    EXPECT_EQ(desk.View(1).Page()->history()->count(), 1) << "no blank page before it";
}

TEST(SpeedRules, ClosingTheFirstTabReleasesItsPage) {
    LocalServer server;
    EngineDesk desk;
    desk.Open(Pages(server, 1));
    ResumeNext(desk.View(1).Navigate(FromQt(server.Address(Path(1)))));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.size() == 2 && desk.View(1).Page(); }));
    desk.main->CloseBrowserTab(1);
    EXPECT_EQ(desk.View(1).Page(), nullptr);
}

} // namespace

} // namespace tessa::qt
