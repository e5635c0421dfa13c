// Tests: PagePrinting, PreviewBar
#include "qt/base/Strings.h"
#include "qt/engine/Engine.h"
#include "qt/engine/PageView.h"
#include "qt/page/PreviewBar.h"
#include "qt/page/StartPageScheme.h"
#include "settings/frmSettings.h"
#include "tests/engine/EngineDesk.h"

#include <QImage>
#include <QPushButton>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

/// Whether a view shows a red sheet of paper, and the dark bar of the viewer above it.
bool ShowsRedPaper(PageView& view) {
    const QImage picture = view.Widget()->grab().toImage();
    if (picture.isNull()) return false;
    return picture.pixelColor(picture.rect().center()) == QColor(Qt::red) && qGray(picture.pixel(5, 5)) < 100;
}

class PrintPreview : public testing::Test {
protected:
    PrintPreview() {
        server.Page(QStringLiteral("/page"), "<title>A page</title><body style='background: red'><p>words</p>");
        desk.Open({server.Address(QStringLiteral("/page"))});
        EXPECT_TRUE(WaitUntil([this] { return desk.View(2).LocationName() == u"A page" && !desk.View(2).Busy(); }));
    }
    void Preview() { desk.main->actBar_Click(*desk.main->actBar.Find(u"xtrPrintPreview")); }
    bool Opened(std::int32_t index) {
        return WaitUntil([&] {
            return desk.main->Tabs().OpenView(index) &&
                   StartPageScheme::IsOwn(QUrl(ToQt(desk.View(index).LocationURL()))) && desk.View(index).Widget() &&
                   !desk.View(index).Busy();
        });
    }

    LocalServer server;
    EngineDesk desk;
};

TEST_F(PrintPreview, ShowsThePaperInATabInFront) {
    desk.inSettings = [](frmSettings& form) {
        form.chkOpenNew.Tick(false);
        form.cmdOK.Click();
    };
    desk.main->actBar.UserClick(*desk.main->actBar.Find(u"mnuSettings"));
    Preview();
    ASSERT_TRUE(Opened(3));
    EXPECT_EQ(desk.main->Tabs().CurrentView(), desk.main->Tabs().OpenView(3));
    EXPECT_EQ(desk.View(3).LocationURL(), u"tessaview:preview/1/A%20page");
    EXPECT_TRUE(WaitUntil([this] { return desk.View(3).LocationName() == u"Preview: A page"; }));
    EXPECT_TRUE(WaitUntil([this] { return desk.main->pcPage.SelectedItem()->Caption() == u"Preview: A page"; }));
    EXPECT_TRUE(WaitUntil([this] { return ShowsRedPaper(desk.View(3)); }));
    EXPECT_EQ(desk.View(2).LocationName(), u"A page") << "the page stays";
    desk.main->Sessions().Write();
    EXPECT_NE(desk.sessions.own.find("/page"), std::string::npos);
    EXPECT_EQ(desk.sessions.own.find("preview"), std::string::npos) << "nobody wants it back the next time";
}

TEST_F(PrintPreview, HasABarThatPrintsOrClosesIt) {
    Preview();
    ASSERT_TRUE(Opened(3));
    const auto bar = [this] { return desk.View(3).Widget()->parentWidget()->findChild<PreviewBar*>(); };
    ASSERT_TRUE(WaitUntil([&] { return bar() && bar()->isVisible(); }));
    EXPECT_EQ(bar()->geometry().bottom() + 1, desk.View(3).Widget()->geometry().top());
    desk.main->pcPage.UserClick(desk.main->pcPage.FindAt(desk.main->pcPage.Count() - 1));
    ASSERT_TRUE(WaitUntil([&] { return !bar()->isVisible(); })) << "it is the preview's alone";
    desk.main->pcPage.UserClick(desk.main->pcPage.FindAt(desk.main->pcPage.Count()));
    ASSERT_TRUE(WaitUntil([&] { return bar()->isVisible(); }));
    bar()->findChild<QPushButton*>(QStringLiteral("cmdClosePreview"))->click();
    EXPECT_TRUE(WaitUntil([this] { return !desk.main->Tabs().OpenView(3); }));
}

TEST_F(PrintPreview, LosesItsBarWhenAnotherPageTakesItsPlace) {
    Preview();
    ASSERT_TRUE(Opened(3));
    ResumeNext(desk.View(3).Navigate(FromQt(server.Address(QStringLiteral("/page")))));
    ASSERT_TRUE(WaitUntil([this] { return desk.View(3).LocationName() == u"A page"; }));
    const auto* bar = desk.View(3).Widget()->parentWidget()->findChild<PreviewBar*>();
    EXPECT_TRUE(!bar || !bar->isVisible());
}

TEST_F(PrintPreview, EndsWithItsTab) {
    Preview();
    ASSERT_TRUE(Opened(3));
    desk.main->CloseBrowserTab(3);
    ResumeNext(desk.View(2).Navigate(u"tessaview:preview/1/A%20page"));
    EXPECT_TRUE(WaitUntil([this] { return desk.View(2).LocationURL() == u"tessaview:preview/1/A%20page"; }));
    EXPECT_TRUE(WaitUntil([this] { return !desk.View(2).Busy(); }));
    EXPECT_EQ(desk.View(2).Security(), PageSecurity::None) << "an error page";
}

TEST_F(PrintPreview, IsMissedByNobodyWhoHasClosedTheTabMeanwhile) {
    ASSERT_TRUE(WaitUntil([this] { return !desk.View(2).Busy(); }));
    Preview();
    desk.main->CloseBrowserTab(2);
    ResumeNext(desk.View(1).Navigate(FromQt(server.Address(QStringLiteral("/page")))));
    EXPECT_TRUE(WaitUntil([this] { return desk.View(1).LocationName() == u"A page"; }));
    EXPECT_EQ(desk.main->pcPage.Count(), 1U);
}

TEST_F(PrintPreview, WaitsForAPageThatIsLoadingAndSurvivesItsEnd) {
    for (const bool closes : {false, true}) {
        const QString path = closes ? QStringLiteral("/closed") : QStringLiteral("/stopped");
        server.Stall(path + QStringLiteral(".png"));
        server.Page(path, "<title>" + path.toLatin1() + "</title><img src=" + path.toLatin1() + ".png>");
        // The preview of the first round is in front.
        desk.main->pcPage.UserClick(desk.main->pcPage.Find(u"Tab2"));
        ResumeNext(desk.View(2).Navigate(FromQt(server.Address(path))));
        ASSERT_TRUE(WaitUntil([&] { return desk.View(2).LocationName() == FromQt(path) && desk.View(2).Busy(); }));
        Preview();
        if (closes) {
            desk.main->CloseBrowserTab(2);
        } else {
            ResumeNext(desk.View(2).Stop());
            ASSERT_TRUE(Opened(3));
        }
    }
    Settle(desk.engine, desk.View(3).Page());
    EXPECT_EQ(desk.main->pcPage.Count(), 2U);
}

TEST_F(PrintPreview, SurvivesThatThePageIsLeftMeanwhile) {
    ASSERT_TRUE(WaitUntil([this] { return !desk.View(2).Busy(); }));
    server.Page(QStringLiteral("/next"), "<title>next</title>");
    Preview();
    ResumeNext(desk.View(2).Navigate(FromQt(server.Address(QStringLiteral("/next")))));
    ResumeNext(desk.View(2).Stop());
    ResumeNext(desk.View(2).Navigate(FromQt(server.Address(QStringLiteral("/next")))));
    EXPECT_TRUE(WaitUntil([this] { return desk.View(2).LocationName() == u"next" && !desk.View(2).Busy(); }));
}

TEST_F(PrintPreview, IsOutOfReachForPages) {
    Preview();
    ASSERT_TRUE(Opened(3));
    server.Page(QStringLiteral("/thief"),
                "<title>thief</title><iframe src='tessaview:preview/1/A%20page'></iframe><script>"
                "fetch('tessaview:preview/1/A%20page').then(() => document.title = 'got it',"
                "() => document.title = 'refused')</script>");
    ResumeNext(desk.View(2).Navigate(FromQt(server.Address(QStringLiteral("/thief")))));
    EXPECT_TRUE(WaitUntil([this] { return desk.View(2).LocationName() == u"refused"; }));
}

} // namespace

} // namespace tessa::qt
