// Tests: ExternalLinks, PersonInput
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/page/DialogCover.h"
#include "tests/engine/DesktopEntries.h"
#include "tests/engine/EngineDesk.h"

#include <QApplication>
#include <QCheckBox>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace tessa::qt {

namespace {

/// The desktop's program for "testapp:" addresses: writes down what it is opened with.
class OtherProgram final : public QObject {
    Q_OBJECT

public:
    OtherProgram() {
        for (const QString& scheme : Schemes()) QDesktopServices::setUrlHandler(scheme, this, "Open");
    }
    ~OtherProgram() override {
        for (const QString& scheme : Schemes()) QDesktopServices::unsetUrlHandler(scheme);
    }

    std::string Take() { return std::exchange(m_opened, {}).join(u' ').toStdString(); }
    static QString LongScheme() { return QString(2000, u'x'); }

public Q_SLOTS:
    void Open(const QUrl& url) { m_opened << QString::fromLatin1(url.toEncoded()); }

private:
    static QStringList Schemes() {
        return {QStringLiteral("testapp"), QStringLiteral("testapp2"), QStringLiteral("nobodys")};
    }
    QStringList m_opened;
    // "nobodys:" has none.
    DesktopEntries m_entries{{QStringLiteral("testapp"), QStringLiteral("testapp2"), LongScheme()}};
};

class ExternalLinks : public testing::Test {
protected:
    void SetUp() override {
        for (const char* path : {"/page", "/more"})
            server.Page(QLatin1String(path), "<a id=link href='testapp:do?x=1%20%22'>one</a><br>"
                                             "<a id=two href='testapp2:other'>two</a><br>"
                                             "<a id=none href='nobodys:thing'>three</a><p id=nothing>words</p>");
        desk.Load(server.Address(QStringLiteral("/page")));
    }
    [[nodiscard]] DialogCover* Shown() const {
        for (auto* each : desk.window.findChildren<DialogCover*>(QStringLiteral("externalDialog")))
            if (each->isVisible()) return each;
        return nullptr;
    }
    bool Asks() {
        return WaitUntil([this] { return Shown() != nullptr; });
    }
    std::string Words(const char* name) const {
        const auto* label = Shown()->findChild<QLabel*>(QLatin1String(name));
        return label ? label->text().toStdString() : "(none)";
    }
    void Press(const char* button) { Shown()->findChild<QPushButton*>(QLatin1String(button))->click(); }
    /// Runs the script when a person clicks.
    void OnClick(const QString& script) {
        desk.Script(
            QStringLiteral("document.getElementById('link').onclick = e => { e.preventDefault(); %1 }; 1").arg(script));
        desk.ClickOn(QStringLiteral("link"));
    }
    /// Clicks, and waits until the page has taken the click: one that it takes late ends the load that comes after it.
    void ClickTaken(const char* elementId) {
        desk.Script(QStringLiteral("window.taken = ''; addEventListener('click', () => { window.taken = 'yes'; }); 1"));
        desk.ClickOn(QLatin1String(elementId));
        ASSERT_TRUE(WaitUntil([this] { return desk.Script(QStringLiteral("window.taken")) == u"yes"; }));
    }
    void Settled() {
        Settle(desk.engine, desk.Real().Page());
        QCoreApplication::processEvents();
    }

    OtherProgram program;
    LocalServer server;
    EngineView desk;
};

TEST_F(ExternalLinks, TheUserIsAskedBeforeAnotherProgramOpens) {
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(Asks());
    EXPECT_EQ(program.Take(), "");
    EXPECT_EQ(Words("lblHeading"),
              "127.0.0.1:" + std::to_string(server.serverPort()) + " wants to open another program.");
    EXPECT_EQ(Words("lblAddress"), "testapp:do?x=1%20%22");
    Press("cmdOK");
    EXPECT_EQ(program.Take(), "testapp:do?x=1%20%22");
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_EQ(desk.view->LocationURL(), FromQt(server.Address(QStringLiteral("/page"))));
}

TEST_F(ExternalLinks, AKeyThatIsHeldDownOpensNothing) {
    desk.Script(QStringLiteral("addEventListener('keydown', () => { location.href = 'testapp:held' }); 1"));
    desk.ClickOn(QStringLiteral("nothing"));
    QTest::keyPress(QApplication::focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(Asks());
    ASSERT_TRUE(Shown()->isAncestorOf(QApplication::focusWidget()));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"cmdCancel") << "what leaves the browser is a decision";
    ASSERT_TRUE(WaitForAnswers(*Shown()));
    for (const char* button : {"cmdCancel", "cmdOK"}) {
        auto* focused = Shown()->findChild<QPushButton*>(QLatin1String(button));
        focused->setFocus();
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
        QApplication::sendEvent(focused, &repeated);
    }
    EXPECT_EQ(program.Take(), "");
    ASSERT_NE(Shown(), nullptr) << "the question waits for somebody who reads it";
    QTest::keyClick(Shown(), Qt::Key_Escape);
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, ASchemeWithoutEndIsCut) {
    const QString cut = OtherProgram::LongScheme().left(40) + QStringLiteral("...");
    OnClick(QStringLiteral("location.href = '%1:x'").arg(OtherProgram::LongScheme()));
    ASSERT_TRUE(Asks());
    EXPECT_EQ(Shown()->findChild<QCheckBox*>()->text(),
              QStringLiteral("&Remember the answer for \"%1:\" addresses").arg(cut));
    EXPECT_EQ(Words("lblAddress").size(), 203U) << "cut likewise";
    Press("cmdCancel");
    OnClick(QStringLiteral("location.href = 'y%1:x'").arg(OtherProgram::LongScheme()));
    ASSERT_TRUE(Asks());
    EXPECT_EQ(Words("lblHolds"),
              "This desktop has no program for addresses that begin with \"y" + cut.mid(1).toStdString() + ":\".");
    Press("cmdOK");
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, WhatIsRefusedUnaskedLeavesASignOnce) {
    QStringList told;
    desk.Real().Questions()->links.Refused.ConnectForLife([&](const QString& words) { told << words; });
    OnClick(QStringLiteral("location.href = 'testapp:x'"));
    ASSERT_TRUE(Asks());
    Press("cmdCancel");
    EXPECT_TRUE(told.isEmpty()) << "whoever was asked knows of it";
    OnClick(QStringLiteral("location.href = 'testapp:y'"));
    ASSERT_TRUE(WaitUntil([&] { return told.size() == 1; }));
    EXPECT_EQ(told.constFirst(),
              QStringLiteral("127.0.0.1:%1 wanted to open another program (testapp:), which was not allowed.")
                  .arg(server.serverPort()));
    OnClick(QStringLiteral("location.href = 'testapp:z'"));
    Settled();
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, AnAnswerIsForOnce) {
    for (int i = 0; i < 2; ++i) {
        desk.ClickOn(QStringLiteral("link"));
        ASSERT_TRUE(Asks());
        EXPECT_FALSE(Shown()->findChild<QCheckBox*>()->isChecked());
        Press("cmdOK");
        EXPECT_EQ(program.Take(), "testapp:do?x=1%20%22");
    }
}

TEST_F(ExternalLinks, OnceForASchemeAndASiteWhenItIsRemembered) {
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(Asks());
    Shown()->findChild<QCheckBox*>()->setChecked(true);
    Press("cmdOK");
    program.Take();
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(WaitUntil([&] { return program.Take() == "testapp:do?x=1%20%22"; }));
    EXPECT_EQ(Shown(), nullptr);
    desk.ClickOn(QStringLiteral("two"));
    ASSERT_TRUE(Asks()) << "another scheme";
    Press("cmdCancel");
    desk.Load(server.Address(QStringLiteral("/page"), QStringLiteral("localhost")));
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(Asks()) << "another site";
    QTest::keyClick(Shown(), Qt::Key_Escape);
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, WhatWasRefusedIsNotAskedAgain) {
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(Asks());
    Press("cmdCancel");
    ClickTaken("link");
    Settled();
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_EQ(program.Take(), "");
    desk.Load(server.Address(QStringLiteral("/more")));
    // A click soon after a page has come may be nobody's.
    EXPECT_TRUE(WaitUntil([this] {
        desk.ClickOn(QStringLiteral("link"));
        return Shown() != nullptr;
    })) << "a person has come back";
}

TEST_F(ExternalLinks, ARefusalThatIsRememberedHoldsEverywhere) {
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(Asks());
    Shown()->findChild<QCheckBox*>()->setChecked(true);
    Press("cmdCancel");
    desk.Load(server.Address(QStringLiteral("/more")));
    desk.ClickOn(QStringLiteral("link"));
    Settled();
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(ExternalLinks, WhoTypesItAgainMeansIt) {
    for (int i = 0; i < 2; ++i) {
        desk.Navigate(QStringLiteral("testapp:typed"));
        ASSERT_TRUE(Asks());
        QTest::keyClick(Shown(), Qt::Key_Escape);
    }
}

TEST_F(ExternalLinks, APageThatWantsManyOpenedGetsOneQuestion) {
    OnClick(QStringLiteral("for (let i = 0; i < 20; ++i) location.href = 'testapp:' + i;"
                           "for (let i = 0; i < 20; ++i) { const f = document.createElement('iframe');"
                           "f.src = 'testapp:frame' + i; document.body.append(f) }"));
    ASSERT_TRUE(Asks());
    Press("cmdCancel");
    Settled();
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, APageThatNobodyTouchedMayNotEvenAsk) {
    desk.Script(QStringLiteral("for (let i = 0; i < 20; ++i) location.href = 'testapp:' + i; 1"));
    Settled();
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, WithoutAProgramForItTheUserIsToldSo) {
    desk.ClickOn(QStringLiteral("none"));
    ASSERT_TRUE(Asks());
    EXPECT_EQ(Words("lblHeading"), "No program opens this address.");
    QTest::keyClick(Shown(), Qt::Key_Escape);
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, APageIsToldOnceThatThereIsNoProgram) {
    OnClick(QStringLiteral("location.href = 'nobodys:one'"));
    ASSERT_TRUE(Asks());
    EXPECT_EQ(Words("lblHeading"), "No program opens this address.");
    Press("cmdOK");
    desk.Script(QStringLiteral("location.href = 'nobodys:two'; 1"));
    Settled();
    EXPECT_EQ(Shown(), nullptr);
    desk.Navigate(QStringLiteral("nobodys:typed"));
    EXPECT_TRUE(Asks()) << "a person who types it is told";
}

TEST_F(ExternalLinks, AnAnswerThatIsRememberedOpensNothingWithoutAProgram) {
    desk.engine.Profiles().External().Remember(u"nobodys", FromQt(server.Address({})), true);
    desk.ClickOn(QStringLiteral("none"));
    ASSERT_TRUE(Asks());
    EXPECT_EQ(Words("lblHeading"), "No program opens this address.");
    EXPECT_EQ(program.Take(), "") << "the desktop would give it back";
}

TEST_F(ExternalLinks, ALinkForAnotherProgramNeedsNoTab) {
    int tabs = 0;
    desk.events.supplyView = [&tabs]() -> BrowserView* {
        ++tabs;
        return nullptr;
    };
    desk.Script(QStringLiteral("for (const each of document.links) each.target = '_blank'; 1"));
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(Asks());
    Press("cmdOK");
    EXPECT_EQ(program.Take(), "testapp:do?x=1%20%22");
    desk.ClickOn(QStringLiteral("none"));
    ASSERT_TRUE(Asks());
    EXPECT_EQ(Words("lblHeading"), "No program opens this address.");
    EXPECT_EQ(tabs, 0);
}

TEST_F(ExternalLinks, WhatNothingCanShowIsSaidWhereItWasTyped) {
    QLineEdit box(&desk.window);
    box.show();
    const std::array<std::array<const char*, 3>, 4> rows{{
        {"about:config", "about:config", "TessaView has no page of that name."},
        {"C:\\x y", "C:\\x y",
         "There are no drives with letters on this computer. The path of a file begins with \"/\"."},
        {"http://", "http://", "The address names no host."},
        {"ftp://a.example/b", "ftp://a.example/b",
         "This desktop has no program for addresses that begin with \"ftp:\"."},
    }};
    for (const auto& [typed, shown, why] : rows) {
        for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
            box.setFocus();
            desk.Navigate(QString::fromLatin1(typed));
            ASSERT_TRUE(Asks()) << typed;
            EXPECT_EQ(Words("lblAddress"), shown);
            EXPECT_EQ(Words("lblHolds"), why);
            ASSERT_TRUE(WaitForAnswers(*Shown()));
            ASSERT_EQ(QApplication::focusWidget(), Shown()->findChild<QPushButton*>()) << typed;
            QTest::keyClick(QApplication::focusWidget(), key);
            EXPECT_EQ(Shown(), nullptr) << typed;
        }
    }
    EXPECT_EQ(desk.view->LocationURL(), FromQt(server.Address(QStringLiteral("/page")))) << "the page stays";
    EXPECT_FALSE(desk.view->Busy());
}

TEST_F(ExternalLinks, AnAddressThatThePersonTypedIsAskedAboutToo) {
    desk.Navigate(QStringLiteral("testapp:typed"));
    ASSERT_TRUE(Asks());
    EXPECT_EQ(Words("lblHeading"), "Open this address with another program?");
    Press("cmdOK");
    EXPECT_EQ(program.Take(), "testapp:typed");
    EXPECT_EQ(desk.view->LocationURL(), FromQt(server.Address(QStringLiteral("/page")))) << "the page stays";
}

TEST_F(ExternalLinks, AQuestionGoesWithItsPage) {
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(Asks());
    desk.Load(server.Address(QStringLiteral("/page?2")));
    EXPECT_EQ(Shown(), nullptr);
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, AFrameAsksInItsOwnNameAndForOnce) {
    server.Page(QStringLiteral("/inner"), "<body style='margin:0'><a id=x href='testapp:ad' style='display:block;"
                                          "width:300px;height:150px'>ad</a>");
    server.Page(QStringLiteral("/outer"),
                "<a id=link href='testapp:mine'>mine</a><br><iframe id=f src='" +
                    server.Address(QStringLiteral("/inner"), QStringLiteral("localhost")).toUtf8() + "'></iframe>");
    desk.Load(server.Address(QStringLiteral("/outer")));
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(Asks());
    Shown()->findChild<QCheckBox*>()->setChecked(true);
    Press("cmdOK");
    EXPECT_EQ(program.Take(), "testapp:mine");
    desk.ClickOn(QStringLiteral("f"));
    ASSERT_TRUE(Asks()) << "what the page may its frames may not";
    const std::string port = ":" + std::to_string(server.serverPort());
    EXPECT_EQ(Words("lblHeading"),
              "A frame in 127.0.0.1" + port + ", from localhost" + port + ", wants to open another program.");
    EXPECT_EQ(Shown()->findChild<QCheckBox*>(), nullptr) << "nobody could tell whose answer it is";
    Press("cmdOK");
    EXPECT_EQ(program.Take(), "testapp:ad");
    desk.ClickOn(QStringLiteral("f"));
    EXPECT_TRUE(Asks());
}

TEST_F(ExternalLinks, AFrameThatTakesThePageElsewhereAsksInItsOwnName) {
    server.Page(QStringLiteral("/inner"),
                "<body style='margin:0'><a href='testapp:ad' target=_top style='display:block;"
                "width:300px;height:150px'>ad</a>");
    server.Page(QStringLiteral("/outer"),
                "<p>words</p><iframe id=f src='" +
                    server.Address(QStringLiteral("/inner"), QStringLiteral("localhost")).toUtf8() + "'></iframe>");
    desk.Load(server.Address(QStringLiteral("/outer")));
    desk.ClickOn(QStringLiteral("f"));
    ASSERT_TRUE(Asks());
    EXPECT_TRUE(QString::fromStdString(Words("lblHeading")).startsWith(u"A frame in 127.0.0.1")) << Words("lblHeading");
}

TEST_F(ExternalLinks, APageWithoutAnAddressIsNotItsUser) {
    desk.Navigate(QStringLiteral("testapp:typed"));
    ASSERT_TRUE(Asks());
    Shown()->findChild<QCheckBox*>()->setChecked(true);
    Press("cmdOK");
    EXPECT_EQ(program.Take(), "testapp:typed");
    desk.Load(QStringLiteral("data:text/html,<a id=link href='testapp:-o'>x</a>"));
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(Asks()) << "it opened what only its user may";
    EXPECT_EQ(Words("lblHeading"), "A page without an address wants to open another program.");
    EXPECT_EQ(Shown()->findChild<QCheckBox*>(), nullptr);
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, PrivatePagesKnowNothingOfTheAnswersOfOthers) {
    desk.engine.Profiles().External().Remember(u"testapp", FromQt(server.Address({})), true);
    desk.Replace(Privacy::Private);
    desk.Load(server.Address(QStringLiteral("/page")));
    desk.ClickOn(QStringLiteral("link"));
    EXPECT_TRUE(Asks());
    EXPECT_EQ(program.Take(), "");
}

TEST_F(ExternalLinks, AnAnswerIsForOneOriginAndNotForItsName) {
    desk.engine.Profiles().External().Remember(
        u"testapp", FromQt(QStringLiteral("https://127.0.0.1:%1").arg(server.serverPort())), true);
    desk.ClickOn(QStringLiteral("link"));
    EXPECT_TRUE(Asks());
    EXPECT_EQ(program.Take(), "") << "what https may, http may not";
}

TEST_F(ExternalLinks, AnAddressIsShownAsOneLineThatIsCut) {
    OnClick(QStringLiteral("location.href = 'testapp:' + 'long '.repeat(100000) + '\\n\\u202Eevil'"));
    ASSERT_TRUE(Asks());
    EXPECT_LE(Words("lblAddress").size(), 220U);
    EXPECT_LT(Shown()->height(), 700);
}

} // namespace

} // namespace tessa::qt

#include "ExternalLinksTest.moc"
