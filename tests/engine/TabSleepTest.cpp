// Tests: WebPageLife
#include "qt/base/Strings.h"
#include "qt/downloads/EngineDownloads.h"
#include "qt/engine/PageView.h"
#include "qt/questions/CrashPage.h"
#include "tests/engine/EngineDesk.h"
#include "tests/engine/FakeDownloadSource.h"

#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEngineDownloadRequest>
#include <QWebEngineHistory>
#include <QWebEngineProfile>
#include <QWebEngineView>

namespace tessa::qt {

using namespace std::chrono_literals;

namespace {

/// A tab in front, one behind it with a page of a server, and a clock that the test turns. Tabs sleep after ten
/// minutes.
class SleepingTabs : public testing::Test {
protected:
    SleepingTabs() {
        server.Page(QStringLiteral("/one"), "<title>one</title>1");
        server.Page(QStringLiteral("/two"), "<title>two</title>2");
        now = 100h;
        desk.main->Sleep().SetPatience(10min);
        desk.Open({QStringLiteral("about:blank")});
    }
    /// Tab 2 shows that page, in front.
    void Load(const QString& path) {
        desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab2"));
        const auto before = server.requests.count(path);
        ResumeNext(View().Navigate(FromQt(server.Address(path))));
        ASSERT_TRUE(WaitUntil([&] { return server.requests.count(path) > before; }));
        ASSERT_TRUE(WaitUntil([&] { return View().Page()->url().path() == path && !View().Busy(); }));
        Settle(desk.engine, View().Page());
    }
    QString Script(const QString& source) {
        QString result = QStringLiteral("no answer");
        bool answered = false;
        View().Page()->runJavaScript(source, [&](const QVariant& value) {
            result = value.toString();
            answered = true;
        });
        EXPECT_TRUE(WaitUntil([&] { return answered; }));
        return result;
    }
    void Park() {
        desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab1"));
        // A blank page is made when somebody looks.
        const auto isShown = [this] { return desk.View(1).Widget() && desk.View(1).Widget()->isVisible(); };
        ASSERT_TRUE(WaitUntil([&] { return !View().Widget()->isVisible() && isShown(); }));
    }
    void Select() { desk.main->pcPage.Select(desk.main->pcPage.Find(u"Tab2")); }
    /// Half an hour goes by, and the program looks who may sleep; whether tab 2 does.
    bool SleepsInTime() {
        now += 30min;
        desk.main->Sleep().Look();
        return View().Life()->Asleep();
    }
    bool FallsAsleep() {
        Park();
        return WaitUntil([&] { return SleepsInTime(); });
    }
    bool IsLoaded(TextView title) {
        return WaitUntil([&] { return !View().Life()->Asleep() && View().LocationName() == title && !View().Busy(); });
    }
    /// The element of that name has the keyboard.
    void Focus(const QString& element) {
        desk.window.activateWindow();
        View().Widget()->setFocus();
        ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("document.hasFocus()")) == u"true"; }));
        // The first keys may be lost on a page that is not on the screen yet.
        Script(QStringLiteral("window.keys = 0; addEventListener('keydown', () => { ++keys; }); 1"));
        ASSERT_TRUE(WaitUntil([&] {
            Press(Qt::Key_Shift);
            return Script(QStringLiteral("keys")) != u"0";
        }));
        Script(QStringLiteral("document.getElementById('%1').focus(); 1").arg(element));
    }
    void Press(Qt::Key key) { QTest::keyClick(View().Widget()->focusProxy(), key); }
    /// Types into the field of that name as a person does.
    void Type(const QString& field, const QString& text) {
        Focus(field);
        QTest::keyClicks(View().Widget()->focusProxy(), text);
    }
    bool HoldsInput(bool expected) {
        return WaitUntil([&] { return View().Life()->Activity().HoldsInput == expected; });
    }
    PageView& View() { return desk.View(2); }

    LocalServer server;
    EngineDesk desk;
    TabSleep::Time& now = desk.steady.now;
};

TEST_F(SleepingTabs, SleepAfterTheTimeAndWakeWithTheirHistory) {
    Load(QStringLiteral("/one"));
    Load(QStringLiteral("/two"));
    Park();
    const auto process = View().Life()->Process();
    EXPECT_GT(process, 0);
    now += 10min - 1ms;
    desk.main->Sleep().Look();
    EXPECT_FALSE(View().Life()->Asleep());
    now += 1ms;
    desk.main->Sleep().Look();
    ASSERT_TRUE(View().Life()->Asleep());

    EXPECT_EQ(View().Life()->Process(), 0);
    EXPECT_EQ(ToQt(View().LocationURL()), server.Address(QStringLiteral("/two")));
    EXPECT_EQ(View().LocationName(), u"two");
    EXPECT_EQ(desk.main->pcPage.Find(u"Tab2")->Caption(), u"two");
    desk.main->Sessions().Write();
    const auto kept = SessionFromBytes(desk.sessions.own);
    ASSERT_TRUE(kept && kept->Pages.size() == 1);
    EXPECT_EQ(kept->Pages[0], (SessionPage{View().LocationURL(), u"two"}));
    EXPECT_FALSE(View().History().empty());
    EXPECT_EQ(View().ExecWB(BrowserCommand::Copy), Outcome::Failed) << "there is nothing to copy from";

    Select();
    ASSERT_TRUE(IsLoaded(u"two"));
    EXPECT_EQ(Script(QStringLiteral("document.wasDiscarded")), u"true");
    EXPECT_EQ(View().Page()->history()->count(), 2);
    EXPECT_TRUE(desk.main->actBar.Find(u"mnuGoBack")->Enabled());
    EXPECT_EQ(View().GoBack(), Outcome::Done);
    ASSERT_TRUE(IsLoaded(u"one"));
    EXPECT_EQ(View().GoForward(), Outcome::Done);
    ASSERT_TRUE(IsLoaded(u"two"));
}

TEST_F(SleepingTabs, WakeWhereTheyWereWithWhatThePageKept) {
    server.Page(QStringLiteral("/long"), "<title>long</title><body style='height: 9000px'>");
    Load(QStringLiteral("/long"));
    Script(QStringLiteral("sessionStorage.kept = 'yes'; 1"));
    Script(QStringLiteral("scrollTo(0, 4321); 1"));
    // The engine notes a page's place in its history now and then, in binary.
    const std::string place("\xE1\x10\0\0", 4);
    ASSERT_TRUE(WaitUntil([&] { return View().History().find(place) != std::string::npos; }));
    ASSERT_TRUE(FallsAsleep());
    Select();
    ASSERT_TRUE(IsLoaded(u"long"));
    EXPECT_TRUE(WaitUntil([&] { return Script(QStringLiteral("scrollY")) == u"4321"; }));
    EXPECT_EQ(Script(QStringLiteral("sessionStorage.kept")), u"yes");
}

TEST_F(SleepingTabs, AreNotBusyAnyMoreOnceTheyAreAwake) {
    server.Page(QStringLiteral("/icon"), "<title>icon</title><link rel=icon href=/icon.svg>");
    Load(QStringLiteral("/icon"));
    ASSERT_TRUE(FallsAsleep());
    Select();
    ASSERT_TRUE(IsLoaded(u"icon"));
    EXPECT_TRUE(WaitUntil([&] { return desk.main->pcPage.Find(u"Tab2")->Image() == TabImage::None; }));
    EXPECT_TRUE(desk.main->actBar.Find(u"mnuRefresh")->Enabled());
    EXPECT_FALSE(desk.main->actBar.Find(u"mnuStop")->Enabled());
}

TEST_F(SleepingTabs, KeepTheirSizeOfTextAndStayMuted) {
    Load(QStringLiteral("/one"));
    View().SetMuted(true);
    ResumeNext(View().Document()->Zoom(3));
    ASSERT_TRUE(FallsAsleep());
    Select();
    ASSERT_TRUE(IsLoaded(u"one"));
    EXPECT_TRUE(View().Page()->isAudioMuted());
    EXPECT_EQ(View().Page()->zoomFactor(), 1.25);
}

const QByteArray kWithIcon =
    "<title>icon</title><link rel=icon href=\"data:image/svg+xml,<svg xmlns='http://www.w3.org/2000/svg' width='16' "
    "height='16'><rect width='16' height='16' fill='red'/></svg>\">";

TEST_F(SleepingTabs, KeepTheirIcon) {
    server.Page(QStringLiteral("/icon"), kWithIcon);
    Load(QStringLiteral("/icon"));
    ASSERT_TRUE(WaitUntil([&] { return !desk.engine.Icon(2).isNull(); }));
    ASSERT_TRUE(FallsAsleep());
    EXPECT_FALSE(desk.engine.Icon(2).isNull());
    Select();
    ASSERT_TRUE(IsLoaded(u"icon"));
    EXPECT_FALSE(desk.engine.Icon(2).isNull());
    ResumeNext(View().Navigate(FromQt(server.Address(QStringLiteral("/two"), QStringLiteral("localhost")))));
    ASSERT_TRUE(IsLoaded(u"two"));
    EXPECT_TRUE(desk.engine.Icon(2).isNull()) << "it was another page's";
}

TEST_F(SleepingTabs, WakeWhenTheyAreRefreshedOrGoBackBehindTheFront) {
    Load(QStringLiteral("/one"));
    Load(QStringLiteral("/two"));
    ASSERT_TRUE(FallsAsleep());
    EXPECT_EQ(View().Refresh(), Outcome::Done);
    ASSERT_TRUE(IsLoaded(u"two"));
    ASSERT_TRUE(FallsAsleep());
    EXPECT_EQ(View().GoBack(), Outcome::Done);
    ASSERT_TRUE(IsLoaded(u"one"));
    ASSERT_TRUE(FallsAsleep());
    ResumeNext(View().Navigate(FromQt(server.Address(QStringLiteral("/two")))));
    ASSERT_TRUE(IsLoaded(u"two"));
}

TEST_F(SleepingTabs, ComeBackWithTheirHistoryWhenTheyAreClosedAsleep) {
    Load(QStringLiteral("/one"));
    Load(QStringLiteral("/two"));
    ASSERT_TRUE(FallsAsleep());
    desk.main->CloseBrowserTab(2);
    desk.main->actBar.UserClick(*desk.main->actBar.Find(u"xtrReopenTab"));
    ASSERT_TRUE(WaitUntil([&] { return desk.View(3).LocationName() == u"two" && !desk.View(3).Busy(); }));
    EXPECT_EQ(desk.View(3).GoBack(), Outcome::Done);
    EXPECT_TRUE(WaitUntil([&] { return desk.View(3).LocationName() == u"one"; }));
}

TEST_F(SleepingTabs, HaveTheirIconWhenTheyComeBackAfterTheyWereClosed) {
    server.Page(QStringLiteral("/icon"), kWithIcon);
    Load(QStringLiteral("/icon"));
    ASSERT_TRUE(WaitUntil([&] { return !desk.engine.Icon(2).isNull(); }));
    desk.main->CloseBrowserTab(2);
    desk.main->actBar.UserClick(*desk.main->actBar.Find(u"xtrReopenTab"));
    ASSERT_TRUE(WaitUntil([&] { return desk.View(3).LocationName() == u"icon" && !desk.View(3).Busy(); }));
    EXPECT_TRUE(WaitUntil([&] { return !desk.engine.Icon(3).isNull(); }));
    ResumeNext(desk.View(3).Navigate(FromQt(server.Address(QStringLiteral("/two"), QStringLiteral("localhost")))));
    ASSERT_TRUE(WaitUntil([&] { return desk.View(3).LocationName() == u"two" && !desk.View(3).Busy(); }));
    EXPECT_TRUE(desk.engine.Icon(3).isNull()) << "it was another page's";
}

TEST_F(SleepingTabs, AreNoneOfThoseThatCanBeHeard) {
    server.Page(
        QStringLiteral("/sound"),
        "<title>sound</title><button id=play>play</button><script>var c; play.onclick = () => {"
        "c = new AudioContext(); var o = c.createOscillator(); o.connect(c.destination); o.start(); }</script>");
    Load(QStringLiteral("/sound"));
    // The engine lets a page be heard once its user has done something in it.
    Focus(QStringLiteral("play"));
    Press(Qt::Key_Space);
    ASSERT_TRUE(WaitUntil([&] { return View().Audible(); }));
    Park();
    EXPECT_FALSE(SleepsInTime());
    View().SetMuted(true);
    EXPECT_FALSE(SleepsInTime()) << "who mutes a tab wants it to go on";
    Script(QStringLiteral("c.close(); 1"));
    EXPECT_TRUE(WaitUntil([&] { return SleepsInTime(); }));
}

TEST_F(SleepingTabs, AreNoneOfThoseWithInput) {
    server.Page(QStringLiteral("/form"), "<title>form</title><input id=text value=old><textarea id=area></textarea>"
                                         "<div id=rich contenteditable></div><input id=box type=checkbox>");
    for (const char* field : {"text", "area", "rich", "box"}) {
        Load(QStringLiteral("/form"));
        EXPECT_TRUE(HoldsInput(false));
        Type(QLatin1String(field), QStringLiteral(" "));
        if (QLatin1String(field) != QLatin1String("box")) Type(QLatin1String(field), QStringLiteral("words"));
        ASSERT_TRUE(HoldsInput(true)) << field;
        Park();
        EXPECT_FALSE(SleepsInTime()) << field;
    }
    Load(QStringLiteral("/one"));
    EXPECT_TRUE(FallsAsleep()) << "the page has gone, and what it held";
}

TEST_F(SleepingTabs, AreNoneOfThoseWithInputInAFrame) {
    server.Page(QStringLiteral("/frame"), "<input id=text autofocus>");
    server.Page(QStringLiteral("/form"),
                "<title>form</title><iframe id=frame src='" +
                    server.Address(QStringLiteral("/frame"), QStringLiteral("localhost")).toUtf8() + "'></iframe>");
    Load(QStringLiteral("/form"));
    Focus(QStringLiteral("frame"));
    Press(Qt::Key_Tab);
    QTest::keyClicks(View().Widget()->focusProxy(), QStringLiteral("words"));
    ASSERT_TRUE(HoldsInput(true));
    Park();
    EXPECT_FALSE(SleepsInTime());
}

TEST_F(SleepingTabs, SleepWithWhatWasTakenBackOrSent) {
    server.Page(QStringLiteral("/form"), "<title>form</title><form id=f><input id=text></form>");
    Load(QStringLiteral("/form"));
    Type(QStringLiteral("text"), QStringLiteral("x"));
    ASSERT_TRUE(HoldsInput(true));
    Press(Qt::Key_Backspace);
    EXPECT_TRUE(HoldsInput(false));
    Type(QStringLiteral("text"), QStringLiteral("x"));
    ASSERT_TRUE(HoldsInput(true));
    Script(QStringLiteral("f.reset()"));
    EXPECT_TRUE(HoldsInput(false));
    Type(QStringLiteral("text"), QStringLiteral("said in a chat"));
    ASSERT_TRUE(HoldsInput(true));
    // The page hears of the last letter later than of the first.
    ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("text.value")) == u"said in a chat"; }));
    Script(QStringLiteral("text.value = ''; 1"));
    EXPECT_TRUE(FallsAsleep()) << "the page has sent it and emptied its box";
}

TEST_F(SleepingTabs, SleepWithWhatThePageHasFilledInItself) {
    server.Page(QStringLiteral("/form"), "<title>form</title><input id=text><script>text.value = 'mine';"
                                         "text.dispatchEvent(new Event('input', {bubbles: true}))</script>");
    Load(QStringLiteral("/form"));
    EXPECT_TRUE(FallsAsleep());
}

TEST_F(SleepingTabs, AreNoneOfThoseThatLoad) {
    server.Page(QStringLiteral("/slow"), "<title>slow</title><img src='/never'>");
    server.Stall(QStringLiteral("/never"));
    Select();
    ResumeNext(View().Navigate(FromQt(server.Address(QStringLiteral("/slow")))));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/never")); }));
    Park();
    EXPECT_FALSE(SleepsInTime());
    EXPECT_EQ(View().Stop(), Outcome::Done);
    EXPECT_TRUE(FallsAsleep());
}

TEST_F(SleepingTabs, SleepWhenTheirDownloadWasRefused) {
    server.Raw(QStringLiteral("/file"), "HTTP/1.1 200 OK\r\nContent-Disposition: attachment; filename=a\r\n"
                                        "Content-Length: 100000\r\n\r\nonly a part");
    server.Page(QStringLiteral("/page"), "<title>page</title><a id=link href='/file'>file</a>");
    Load(QStringLiteral("/page"));
    FakeDownloadSource source;
    EngineDownloads refusing{source};
    refusing.Follow(*View().Page()->profile());
    bool refused = false;
    QObject::connect(View().Page()->profile(), &QWebEngineProfile::downloadRequested, &desk.window,
                     [&] { refused = true; });
    Script(QStringLiteral("link.click(); 1"));
    ASSERT_TRUE(WaitUntil([&] { return refused; }));
    EXPECT_TRUE(FallsAsleep());
}

TEST_F(SleepingTabs, AreNoneOfThoseThatSaveAFile) {
    server.Raw(QStringLiteral("/file"), "HTTP/1.1 200 OK\r\nContent-Disposition: attachment; filename=a\r\n"
                                        "Content-Length: 100000\r\n\r\nonly a part");
    server.Page(QStringLiteral("/page"), "<title>page</title><a id=link href='/file'>file</a>");
    Load(QStringLiteral("/page"));
    const QTemporaryDir folder;
    // The engine asks again when it goes on by itself after the connection broke.
    QList<QPointer<QWebEngineDownloadRequest>> downloads;
    QObject::connect(View().Page()->profile(), &QWebEngineProfile::downloadRequested, &desk.window, [&](auto* request) {
        downloads.append(request);
        request->setDownloadDirectory(folder.path());
        request->accept();
        request->pause();
    });
    Script(QStringLiteral("link.click()"));
    ASSERT_TRUE(WaitUntil([&] { return !downloads.isEmpty() && !View().Busy(); }));
    Park();
    ASSERT_TRUE(View().Life()->Activity().Downloads);
    EXPECT_FALSE(SleepsInTime());
    EXPECT_TRUE(WaitUntil([&] {
        for (const auto& each : downloads)
            if (each && !each->isFinished()) each->cancel();
        return SleepsInTime();
    }));
}

TEST_F(SleepingTabs, AreNoneOfThoseThatDeveloperToolsLookAt) {
    Load(QStringLiteral("/one"));
    auto tools = std::make_unique<QWebEngineView>();
    tools->page()->setInspectedPage(View().Page());
    Park();
    EXPECT_FALSE(SleepsInTime());
    tools.reset();
    EXPECT_TRUE(FallsAsleep());
}

TEST_F(SleepingTabs, AreNoneOfThoseThatAsk) {
    server.Page(QStringLiteral("/asks"), "<title>asks</title><script>setTimeout(() => alert('well?'), 0)</script>");
    Select();
    ResumeNext(View().Navigate(FromQt(server.Address(QStringLiteral("/asks")))));
    ASSERT_TRUE(WaitUntil([&] { return View().Questions() && !View().Questions()->covers.Empty(); }));
    Park();
    EXPECT_FALSE(SleepsInTime());
}

TEST_F(SleepingTabs, AreNoneOfThoseThatOthersReferTo) {
    server.Page(QStringLiteral("/opener"),
                "<title>opener</title><a id=link target=other rel=opener href='/two'>other</a>");
    Load(QStringLiteral("/opener"));
    Focus(QStringLiteral("link"));
    Press(Qt::Key_Return);
    ASSERT_TRUE(WaitUntil([&] { return desk.main->pcPage.Count() == 3 && desk.View(3).LocationName() == u"two"; }));
    EXPECT_FALSE(SleepsInTime());
    desk.main->CloseBrowserTab(3);
    EXPECT_TRUE(FallsAsleep());
}

TEST_F(SleepingTabs, AreNoneOfThoseWhoseProcessHasDied) {
    Load(QStringLiteral("/one"));
    EXPECT_EQ(View().Life()->EndProcess(), Outcome::Done);
    ASSERT_TRUE(WaitUntil([&] { return View().CrashPage() != nullptr; }));
    Park();
    EXPECT_FALSE(SleepsInTime());
    EXPECT_TRUE(View().Life()->Ended());
    Select();
    EXPECT_TRUE(View().CrashPage()) << "it is loaded again when its user says so, not before";
}

TEST_F(SleepingTabs, TheTaskViewEndsAPageThatThenOffersToReload) {
    Load(QStringLiteral("/one"));
    auto& tasks = desk.main->TaskView();
    tasks.Form.Visible = true;
    tasks.lstTasks.Select(TextView(u"Tab2"));
    ASSERT_TRUE(tasks.cmdEnd.Enabled());
    tasks.cmdEnd.Click();
    ASSERT_TRUE(WaitUntil([&] { return View().CrashPage() != nullptr; }));
    tasks.Refresh();
    EXPECT_FALSE(tasks.cmdEnd.Enabled());
    QTest::mouseClick(View().CrashPage()->findChild<QPushButton*>(QStringLiteral("cmdReload")), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([&] { return !View().CrashPage(); }));
    ASSERT_TRUE(IsLoaded(u"one"));
    EXPECT_FALSE(View().Life()->Ended());
    EXPECT_GT(View().Life()->Process(), 0);
}

TEST_F(SleepingTabs, TakeTheLoadSwitchesOnWhenTheyWake) {
    Load(QStringLiteral("/one"));
    ASSERT_TRUE(FallsAsleep());
    desk.engine.SetLoadOptions({.images = true, .animations = true, .videos = true, .sounds = false});
    EXPECT_TRUE(View().Life()->Asleep());
    Select();
    ASSERT_TRUE(IsLoaded(u"one"));
    EXPECT_TRUE(View().Page()->isAudioMuted());
}

} // namespace

} // namespace tessa::qt
