// Tests: Permissions
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTest>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

/// A page that asks for things, and its user at the bar above it.
class EnginePermissions : public testing::Test {
protected:
    EnginePermissions() { desk.host.permissions = &kept; }

    void Load(const QByteArray& html) {
        server.Page(QStringLiteral("/page"), html);
        desk.Load(server.Address(QStringLiteral("/page"), QStringLiteral("localhost")));
    }
    [[nodiscard]] PageQuestions& Questions() { return desk.Real().Questions()->questions; }
    bool WaitForQuestion() {
        return WaitUntil([this] { return Questions().Current() != nullptr; });
    }
    [[nodiscard]] Text Site() const { return FromQt(server.Address({}, QStringLiteral("localhost"))); }
    [[nodiscard]] QuestionBar& Bar() { return *desk.Real().Questions()->bar; }
    bool WaitForTitle(const QString& title) {
        return WaitUntil([&] { return desk.Real().Page()->title() == title; });
    }
    /// The page that wanted a screen or a camera knows that it gets none; newer engines say so in another word.
    bool IsRefused() {
        return WaitUntil([&] {
            const QString title = desk.Real().Page()->title();
            return title == u"NotAllowedError" || title == u"AbortError";
        });
    }

    QStringList told; ///< what may see or hear the user
    FakeSettings settings;
    SitePermissions kept{settings};
    LocalServer server;
    EngineView desk;
};

constexpr auto kAskLocation = "<script>document.title = 'asking';"
                              "navigator.geolocation.getCurrentPosition(() => document.title = 'allowed',"
                              "e => document.title = e.code === 1 ? 'refused' : 'allowed')</script>";

TEST_F(EnginePermissions, AreAskedForInABarAboveThePage) {
    Load(kAskLocation);
    ASSERT_TRUE(WaitForQuestion());
    EXPECT_EQ(Questions().Current()->Words,
              FromQt(QStringLiteral("localhost:%1 wants to know where you are.").arg(server.serverPort())));
    EXPECT_TRUE(Bar().isVisible());
    EXPECT_EQ(desk.Real().Widget()->geometry(), desk.window.rect()) << "the page does not move under the pointer";
    EXPECT_EQ(Bar().geometry().topLeft(), desk.Real().Widget()->geometry().topLeft());
    EXPECT_EQ(desk.events.Count(QStringLiteral("asks+")), 1);
    ASSERT_TRUE(WaitForAnswers(Bar()));
    QTest::keyClick(Bar().findChild<QPushButton*>(QStringLiteral("cmdAnswer2")), Qt::Key_Space);
    EXPECT_TRUE(WaitForTitle(QStringLiteral("refused")));
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_EQ(desk.Real().Widget()->geometry(), desk.window.rect());
    EXPECT_EQ(desk.events.Count(QStringLiteral("asks-")), 1);
    EXPECT_TRUE(kept.All().empty()) << "nothing was to be remembered";
}

TEST_F(EnginePermissions, AreRememberedForTheSite) {
    Load(kAskLocation);
    ASSERT_TRUE(WaitForQuestion());
    Questions().Answer(1, true);
    EXPECT_TRUE(WaitForTitle(QStringLiteral("refused")));
    EXPECT_EQ(kept.Find(Site(), SitePermission::Location), false);
    Load(kAskLocation);
    EXPECT_TRUE(WaitForTitle(QStringLiteral("refused")));
    EXPECT_EQ(Questions().Current(), nullptr);
    kept.Remember({Site(), SitePermission::Notifications, true});
    Load("<script>Notification.requestPermission().then(p => document.title = p)</script>");
    EXPECT_TRUE(WaitForTitle(QStringLiteral("granted")));
}

TEST_F(EnginePermissions, ThatAreNotRememberedEndWithTheVisit) {
    server.Page(QStringLiteral("/next"), "<title>next</title>");
    Load("<script>Notification.requestPermission().then(p => document.title = p)</script>");
    ASSERT_TRUE(WaitForQuestion());
    Questions().Answer(0, false);
    EXPECT_TRUE(WaitForTitle(QStringLiteral("granted")));
    desk.Load(server.Address(QStringLiteral("/next")));
    Load("<script>document.title = Notification.permission;"
         "Notification.requestPermission().then(p => document.title = p)</script>");
    EXPECT_TRUE(WaitForQuestion()) << desk.Real().Page()->title().toStdString();
    Questions().Answer(1, false);
    EXPECT_TRUE(WaitForTitle(QStringLiteral("denied")));
    desk.Load(server.Address(QStringLiteral("/next")));
    Load(kAskLocation);
    ASSERT_TRUE(WaitForQuestion());
    Questions().Answer(1, false);
    desk.Load(server.Address(QStringLiteral("/next")));
    Load(kAskLocation);
    EXPECT_TRUE(WaitForQuestion()) << "a refusal without a word of remembering likewise";
}

TEST_F(EnginePermissions, AreDismissedWhenThePersonGoesElsewhere) {
    Load(kAskLocation);
    ASSERT_TRUE(WaitForQuestion());
    server.Page(QStringLiteral("/next"), "<title>next</title>");
    desk.Load(server.Address(QStringLiteral("/next")));
    EXPECT_EQ(Questions().Current(), nullptr);
    EXPECT_FALSE(Bar().isVisible());
}

TEST_F(EnginePermissions, HoldWindowsBackThatNobodyClickedFor) {
    Load("<script>for (let i = 0; i < 300; ++i) open('/popup' + i); document.title = 'opened'</script>");
    ASSERT_TRUE(WaitForQuestion());
    EXPECT_TRUE(WaitForTitle(QStringLiteral("opened")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("W")), 0);
    const QString host = QStringLiteral("localhost:%1").arg(server.serverPort());
    EXPECT_EQ(ToQt(Questions().Current()->Words),
              QStringLiteral("%1 wants to open more than 20 windows of %1.").arg(host));
    EXPECT_TRUE(WaitUntil([&] { return Bar().accessibleName() == ToQt(Questions().Current()->Words); }));
    EXPECT_EQ(Questions().Current()->Answers, (std::vector<Text>{u"A&llow Once", u"&Block", u"Al&ways Allow"}));
    Questions().Answer(1, false);
    EXPECT_EQ(Questions().Current(), nullptr) << "three hundred windows are one question";
    EXPECT_EQ(desk.events.Count(QStringLiteral("W")), 0);
}

TEST_F(EnginePermissions, OpenHeldWindowsOnceOrAlways) {
    Load("<script>open('/popup')</script>");
    ASSERT_TRUE(WaitForQuestion());
    Questions().Answer(0, false);
    EXPECT_EQ(desk.events.Count(QStringLiteral("W")), 1);
    EXPECT_TRUE(kept.All().empty());
    Load("<script>open('/popup')</script>");
    ASSERT_TRUE(WaitForQuestion());
    Questions().Answer(2, false);
    EXPECT_EQ(desk.events.Count(QStringLiteral("W")), 2);
    EXPECT_EQ(kept.Find(Site(), SitePermission::Popups), true);
    Load("<script>open('/popup')</script>");
    EXPECT_TRUE(WaitUntil([&] { return desk.events.Count(QStringLiteral("W")) == 3; }));
}

TEST_F(EnginePermissions, NeedNoQuestionForAWindowThatWasClickedFor) {
    Load("<p>words</p><button id=b onclick=\"window.open('/popup')\">open</button>");
    desk.ClickOn(QStringLiteral("b"));
    EXPECT_TRUE(WaitUntil([&] { return desk.events.Count(QStringLiteral("W")) == 1; }));
    EXPECT_EQ(Questions().Current(), nullptr);
}

TEST_F(EnginePermissions, TellHowFarThePageCanBeTrusted) {
    Load("<title>page</title>");
    EXPECT_EQ(desk.view->Security(), PageSecurity::Local) << "this computer speaks to itself";
    desk.Load(QStringLiteral("about:blank"));
    EXPECT_EQ(desk.view->Security(), PageSecurity::None);
}

/// A page that shares the screen when its button is clicked; its title says what came of it.
constexpr auto kShareScreen =
    "<p>words</p><button id=b>share</button><script>document.title = 'ready'; b.onclick = () => "
    "navigator.mediaDevices.getDisplayMedia({video: true}).then("
    "s => document.title = 'shared ' + s.getVideoTracks().length, e => document.title = e.name)</script>";

TEST_F(EnginePermissions, ShowAScreenThatTheUserHasChosen) {
    Load(kShareScreen);
    desk.ClickOn(QStringLiteral("b"));
    ASSERT_TRUE(WaitForQuestion());
    EXPECT_EQ(Questions().Current()->Words,
              FromQt(QStringLiteral("localhost:%1 wants to see your screen.").arg(server.serverPort())));
    if (const auto& choices = Questions().Current()->Choices) {
        ASSERT_FALSE(choices().Names.empty());
        EXPECT_TRUE(choices().Names.front().starts_with(u"Screen: ")) << ToUtf8(choices().Names.front());
    }
    Questions().Answer(0, false);
    EXPECT_TRUE(WaitForTitle(QStringLiteral("shared 1"))) << desk.Real().Page()->title().toStdString();
    EXPECT_EQ(Questions().Current(), nullptr) << "one question";
    EXPECT_TRUE(kept.All().empty());
}

TEST_F(EnginePermissions, AreTellingForAsLongAsAScreenMayBeSeen) {
    desk.engine.Told().CapturesChanged.ConnectForLife([&] { told = desk.engine.Captures(); });
    Load(kShareScreen);
    desk.ClickOn(QStringLiteral("b"));
    ASSERT_TRUE(WaitForQuestion());
    EXPECT_TRUE(Questions().Current()->Remember.empty()) << "a screen is shown for once";
    EXPECT_TRUE(told.isEmpty());
    Questions().Answer(0, true);
    ASSERT_TRUE(WaitForTitle(QStringLiteral("shared 1")));
    const QString sign = QStringLiteral("localhost:%1 may use your screen.").arg(server.serverPort());
    EXPECT_EQ(told.join(u'|'), sign);
    EXPECT_TRUE(kept.All().empty());
    desk.Script(QStringLiteral("history.pushState(0, '', '/pushed'); location.hash = 'x'; 1"));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_EQ(told.join(u'|'), sign) << "the document is the same";
    desk.engine.StopCaptures();
    EXPECT_TRUE(WaitUntil([&] { return told.isEmpty(); })) << told.join(u'|').toStdString();
    EXPECT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/pushed")); })) << "it is loaded anew";
}

TEST_F(EnginePermissions, EndWhenTheyAreStoppedWhateverTheServerSays) {
    desk.engine.Told().CapturesChanged.ConnectForLife([&] { told = desk.engine.Captures(); });
    Load(kShareScreen);
    desk.ClickOn(QStringLiteral("b"));
    ASSERT_TRUE(WaitForQuestion());
    Questions().Answer(0, true);
    ASSERT_TRUE(WaitForTitle(QStringLiteral("shared 1")));
    server.Raw(QStringLiteral("/page"), "HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n");
    const auto asked = server.requests.count(QStringLiteral("/page"));
    desk.engine.StopCaptures();
    EXPECT_TRUE(WaitUntil([&] { return told.isEmpty(); })) << told.join(u'|').toStdString();
    EXPECT_TRUE(WaitUntil([&] { return server.requests.count(QStringLiteral("/page")) > asked; }));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_EQ(desk.Real().LocationURL(), u"about:blank");
}

TEST_F(EnginePermissions, AreTellingOfAScreenNoMoreWhenItsTabHasGone) {
    desk.engine.Told().CapturesChanged.ConnectForLife([&] { told = desk.engine.Captures(); });
    Load(kShareScreen);
    desk.ClickOn(QStringLiteral("b"));
    ASSERT_TRUE(WaitForQuestion());
    Questions().Answer(0, false);
    ASSERT_TRUE(WaitForTitle(QStringLiteral("shared 1")));
    EXPECT_EQ(told.size(), 1);
    desk.view->SetVisible(false);
    EXPECT_TRUE(told.isEmpty());
}

/// A page that takes pictures and sound at once; its title says what it got.
constexpr auto kCapture = "<p>words</p><script>document.title = 'ready';"
                          "navigator.mediaDevices.getUserMedia({video: true, audio: true}).then("
                          "s => document.title = 'got ' + s.getTracks().length, e => document.title = e.name)</script>";

TEST_F(EnginePermissions, AreTellingForAsLongAsCameraAndMicrophoneMayBeUsed) {
    desk.engine.Told().CapturesChanged.ConnectForLife([&] { told = desk.engine.Captures(); });
    Load(kCapture);
    ASSERT_TRUE(WaitForQuestion()) << desk.Real().Page()->title().toStdString();
    EXPECT_EQ(Questions().Current()->Words,
              FromQt(QStringLiteral("localhost:%1 wants to use your camera and microphone.").arg(server.serverPort())));
    EXPECT_TRUE(told.isEmpty()) << "nobody has allowed it";
    EXPECT_EQ(desk.Real().Page()->title(), u"ready");
    Questions().Answer(0, false);
    ASSERT_TRUE(WaitForTitle(QStringLiteral("got 2"))) << desk.Real().Page()->title().toStdString();
    EXPECT_EQ(told.join(u'|'),
              QStringLiteral("localhost:%1 may use your camera and microphone.").arg(server.serverPort()));
    server.Page(QStringLiteral("/next"), "<title>next</title>");
    desk.Load(server.Address(QStringLiteral("/next")));
    EXPECT_TRUE(WaitUntil([&] { return told.isEmpty(); })) << told.join(u'|').toStdString();
}

TEST_F(EnginePermissions, TellOfNoCameraThatTheUserRefused) {
    desk.engine.Told().CapturesChanged.ConnectForLife([&] { told = desk.engine.Captures(); });
    Load(kCapture);
    ASSERT_TRUE(WaitForQuestion());
    Questions().Answer(1, false);
    EXPECT_TRUE(IsRefused()) << desk.Real().Page()->title().toStdString();
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(EnginePermissions, ShowNoScreenWhenTheUserRefusesOrDismisses) {
    for (const std::size_t answer : {std::size_t{1}, PageQuestion::kDismissed}) {
        Load(kShareScreen);
        desk.ClickOn(QStringLiteral("b"));
        ASSERT_TRUE(WaitForQuestion());
        Questions().Answer(answer, false);
        EXPECT_TRUE(IsRefused());
        EXPECT_EQ(Questions().Current(), nullptr);
    }
}

TEST_F(EnginePermissions, ShowNoScreenToASiteThatIsBlocked) {
    kept.Remember({Site(), SitePermission::Screen, false});
    Load(kShareScreen);
    desk.ClickOn(QStringLiteral("b"));
    EXPECT_TRUE(IsRefused());
    EXPECT_EQ(desk.events.Count(QStringLiteral("asks+")), 0);
}

TEST_F(EnginePermissions, OutliveATabThatClosesWhileTheUserChooses) {
    Load(kShareScreen);
    desk.ClickOn(QStringLiteral("b"));
    ASSERT_TRUE(WaitForQuestion());
    desk.view->SetVisible(false);
    EXPECT_EQ(desk.Real().Page(), nullptr);
}

TEST_F(EnginePermissions, EndAtOnceWhenTheyAreRevoked) {
    kept.Forgotten.ConnectForLife([this](const SiteDecision& forgotten) { desk.engine.ForgetDecision(forgotten); });
    kept.Remember({Site(), SitePermission::Notifications, true});
    Load("<script>Notification.requestPermission().then(p => document.title = p)</script>");
    EXPECT_TRUE(WaitForTitle(QStringLiteral("granted")));
    EXPECT_EQ(desk.Script(QStringLiteral("Notification.permission")), QStringLiteral("granted"));
    kept.Forget(Site(), SitePermission::Notifications);
    EXPECT_TRUE(WaitUntil([&] {
        return desk.Script(QStringLiteral("Notification.permission")) != QStringLiteral("granted");
    })) << "the page that is open knows";
    Load("<script>Notification.requestPermission().then(p => document.title = p)</script>");
    EXPECT_TRUE(WaitForQuestion());
    Questions().Answer(1, false);

    kept.Remember({Site(), SitePermission::Location, false});
    Load(kAskLocation);
    EXPECT_TRUE(WaitForTitle(QStringLiteral("refused")));
    kept.ForgetAll();
    Load(kAskLocation);
    EXPECT_TRUE(WaitForQuestion());
}

/// A profile on disk, as the program has one.
TEST(KeptPermissions, AreTheProgramsOwnAndNotTheEngines) {
    ProfileFolder folder;
    const QString left = folder.dir.filePath(QStringLiteral("permissions.json"));
    LocalServer server;
    server.Page(QStringLiteral("/page"),
                "<script>Notification.requestPermission().then(p => document.title = p)</script>");
    for (const char* run : {"first", "second"}) {
        QFile file(left);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("{\"NOTIFICATIONS\":{\"" + server.Address({}, QStringLiteral("localhost")).toUtf8() + "/\":true}}");
        file.close();
        EngineView desk(folder.dir.path());
        desk.Load(server.Address(QStringLiteral("/page"), QStringLiteral("localhost")));
        auto& questions = desk.Real().Questions()->questions;
        ASSERT_TRUE(WaitUntil([&] { return questions.Current() != nullptr; })) << "nobody is asked in the " << run;
        questions.Answer(0, false);
        EXPECT_TRUE(WaitUntil([&] { return desk.Real().Page()->title() == u"granted"; }));
        EXPECT_FALSE(QFile::exists(left));
    }
    EXPECT_FALSE(QFile::exists(left)) << "what was not to last is on the disk";
}

} // namespace

} // namespace tessa::qt
