// Tests: LoginDialog, Logins
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/questions/CertificatePage.h"
#include "qt/questions/LoginDialog.h"
#include "tests/engine/EngineDesk.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

const QString kSecret = QStringLiteral("/secret");

/// A page that only "mole" with the password "burrow" may see.
QByteArray Guarded(const QByteArray& request) {
    if (request.contains("Authorization: Basic " + QByteArray("mole:burrow").toBase64()))
        return "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nCache-Control: no-store\r\nConnection: close\r\n\r\n"
               "<title>Inside</title>";
    return "HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"The Hole\"\r\nContent-Type: text/html\r\n"
           "Connection: close\r\n\r\n<title>Outside</title>";
}

class Logins : public ::testing::Test {
protected:
    Logins() {
        server.Answer(kSecret, Guarded);
        other.Answer(kSecret, Guarded);
        server.Page(QStringLiteral("/plain"), "<title>Plain</title>");
        server.Page(QStringLiteral("/parts"), "<title>Parts</title><img src='" +
                                                  other.Address(kSecret, QStringLiteral("localhost")).toUtf8() + "'>");
        server.Page(QStringLiteral("/frame"), "<title>Framed</title><iframe src='" +
                                                  other.Address(kSecret, QStringLiteral("localhost")).toUtf8() +
                                                  "'></iframe>");
    }

    [[nodiscard]] LoginDialog* Dialog() const {
        for (auto* each : desk.window.findChildren<LoginDialog*>()) {
            if (!each->isHidden()) return each;
        }
        return nullptr;
    }

    [[nodiscard]] bool IsAsked() const {
        return WaitUntil([&] { return Dialog() && Dialog()->isVisible() && !desk.view->Busy(); });
    }

    [[nodiscard]] QString Label(const char* name) const {
        const auto* label = Dialog()->findChild<QLabel*>(QLatin1String(name));
        return label ? label->text() : QString();
    }

    void Answer(const QString& user, const QString& password) const {
        auto* name = Dialog()->findChild<QLineEdit*>(QStringLiteral("txtUser"));
        name->clear();
        QTest::keyClicks(name, user);
        auto* secret = Dialog()->findChild<QLineEdit*>(QStringLiteral("txtPassword"));
        QTest::keyClicks(secret, password);
        ASSERT_TRUE(WaitForAnswers(*Dialog()));
        QTest::keyClick(secret, Qt::Key_Return);
    }

    bool Titled(const char* title) {
        return WaitUntil([&] { return desk.events.lines.contains(QStringLiteral("T:") + QLatin1String(title)); });
    }

    LocalServer server, other;
    EngineView desk;
};

TEST_F(Logins, TheDialogNamesTheHostThatAsks) {
    desk.Navigate(server.Address(kSecret));
    ASSERT_TRUE(IsAsked());
    EXPECT_EQ(Label("lblHeading"),
              QStringLiteral("127.0.0.1:%1 asks for a name and a password").arg(server.serverPort()));
    EXPECT_EQ(Label("lblRealm"), u"It calls itself \u201CThe Hole\u201D.");
    EXPECT_FALSE(Label("lblNotEncrypted").isEmpty());
    EXPECT_TRUE(Label("lblWrong").isEmpty());
    EXPECT_EQ(desk.events.Count(QStringLiteral("asks+")), 1);
}

TEST_F(Logins, TheRightAnswerOpensThePage) {
    desk.Navigate(server.Address(kSecret));
    ASSERT_TRUE(IsAsked());
    Answer(QStringLiteral("mole"), QStringLiteral("burrow"));
    EXPECT_TRUE(Titled("Inside"));
    EXPECT_EQ(Dialog(), nullptr);
}

TEST_F(Logins, AWrongAnswerIsAskedAgain) {
    desk.Navigate(server.Address(kSecret));
    ASSERT_TRUE(IsAsked());
    const QPointer<LoginDialog> first = Dialog();
    Answer(QStringLiteral("mole"), QStringLiteral("wrong"));
    ASSERT_TRUE(WaitUntil([&] { return !first && Dialog() && !desk.view->Busy(); }));
    EXPECT_EQ(Label("lblWrong"), u"The name or the password was not accepted.");
    Answer(QStringLiteral("mole"), QStringLiteral("burrow"));
    EXPECT_TRUE(Titled("Inside"));
}

TEST_F(Logins, AnAnswerThatWasCutOffIsGivenToNobodyElse) {
    desk.Navigate(server.Address(kSecret));
    ASSERT_TRUE(IsAsked());
    QByteArrayList authorizations;
    server.Answer(kSecret, [&](const QByteArray&) { return QByteArray("\r\n"); });
    desk.events.Take();
    Answer(QStringLiteral("mole"), QStringLiteral("burrow"));
    ASSERT_TRUE(WaitUntil([&] { return desk.events.Count(QStringLiteral("F")) > 0 && !desk.view->Busy(); }));
    // A frame of the same host, in a page of the same host, now asks with the same words.
    const QString again = QStringLiteral("/again");
    server.Answer(again, [&](const QByteArray& request) {
        if (request.contains("Authorization:")) authorizations << request;
        return Guarded(request);
    });
    server.Page(QStringLiteral("/later"), "<title>Later</title><img src='/again'><iframe src='/again'></iframe>");
    desk.Navigate(server.Address(QStringLiteral("/later")));
    ASSERT_TRUE(WaitUntil([&] { return Dialog() != nullptr; })) << "the answer was for another load";
    EXPECT_TRUE(authorizations.isEmpty());
}

TEST_F(Logins, CancellingShowsTheServersPage) {
    desk.Navigate(server.Address(kSecret));
    ASSERT_TRUE(IsAsked());
    QTest::keyClick(Dialog()->focusProxy(), Qt::Key_Escape);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_TRUE(Titled("Outside"));
    EXPECT_EQ(server.requests.count(kSecret), 1);
}

TEST_F(Logins, RefreshingAfterCancellingAsksAgain) {
    desk.Navigate(server.Address(kSecret));
    ASSERT_TRUE(IsAsked());
    QTest::keyClick(Dialog()->focusProxy(), Qt::Key_Escape);
    EXPECT_EQ(desk.view->Refresh(), Outcome::Done);
    EXPECT_TRUE(IsAsked());
}

TEST_F(Logins, APartFromAnotherHostAsksNothing) {
    desk.Load(server.Address(QStringLiteral("/parts")));
    EXPECT_TRUE(WaitUntil([&] { return other.requests.contains(kSecret); }));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_EQ(Dialog(), nullptr);
}

TEST_F(Logins, AFrameOfAnotherHostAsksUnderItsOwnName) {
    desk.Navigate(server.Address(QStringLiteral("/frame")));
    ASSERT_TRUE(IsAsked());
    EXPECT_TRUE(Label("lblHeading").startsWith(u"localhost:"));
}

TEST_F(Logins, LeavingThePageTakesTheDialogAway) {
    desk.Navigate(server.Address(kSecret));
    ASSERT_TRUE(IsAsked());
    desk.Load(server.Address(QStringLiteral("/plain")));
    EXPECT_EQ(Dialog(), nullptr);
}

TEST_F(Logins, TheTabKeyStaysInTheDialog) {
    desk.Navigate(server.Address(kSecret));
    ASSERT_TRUE(IsAsked());
    QStringList visited;
    for (int i = 0; i < 5; ++i) {
        visited << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited.join(u' '), u"txtUser txtPassword cmdOK cmdCancel txtUser");
}

TEST_F(Logins, ClosingTheTabEndsTheQuestion) {
    desk.Navigate(server.Address(kSecret));
    ASSERT_TRUE(IsAsked());
    desk.view.reset();
    EXPECT_TRUE(WaitUntil([&] { return desk.window.findChild<LoginDialog*>() == nullptr; }));
    desk.view = desk.engine.Create(2, desk.events, Privacy::Ordinary);
}

/// One host that speaks http and https, at one port.
class LoginsOfBoth : public Logins {
protected:
    LoginsOfBoth() {
        both.SpeakPlainToo();
        both.Answer(kSecret, Guarded);
        both.Answer(kAgain, [this](const QByteArray& request) {
            if (request.contains("Authorization:")) told << request;
            return Guarded(request);
        });
        both.Page(QStringLiteral("/later"), "<title>Later</title><img src='/again'><iframe src='/again'></iframe>");
    }
    [[nodiscard]] QString Plain(const QString& path) const {
        return both.Address(path).replace(QStringLiteral("https:"), QStringLiteral("http:"));
    }
    void AskByHttps() {
        desk.Navigate(both.Address(kSecret));
        ASSERT_TRUE(WaitUntil([&] { return desk.window.findChild<CertificatePage*>() && !desk.view->Busy(); }));
        desk.window.findChild<CertificatePage*>()->findChild<QPushButton*>(QStringLiteral("cmdGoOn"))->click();
        ASSERT_TRUE(IsAsked());
    }
    /// A page without TLS has asked, and its own frame is answered by nobody but the user.
    void ExpectHttpIsToldNothing() {
        desk.Navigate(Plain(QStringLiteral("/later")));
        ASSERT_TRUE(Titled("Later"));
        ASSERT_TRUE(WaitUntil([&] { return Dialog() != nullptr; })) << "http is somebody else";
        EXPECT_FALSE(Label("lblNotEncrypted").isEmpty());
        EXPECT_GE(both.requests.count(kAgain), 1);
        EXPECT_TRUE(told.isEmpty()) << told.value(0).toStdString();
    }

    const QString kAgain = QStringLiteral("/again");
    LocalServer both{QStringLiteral("self.example")};
    QByteArrayList told; ///< what came with a name and a password
};

TEST_F(LoginsOfBoth, AnAnswerForHttpsThatWasCutOffIsNotGivenToHttp) {
    ASSERT_NO_FATAL_FAILURE(AskByHttps());
    both.Answer(kSecret, [](const QByteArray&) { return QByteArray("\r\n"); });
    desk.events.Take();
    Answer(QStringLiteral("mole"), QStringLiteral("burrow"));
    ASSERT_TRUE(WaitUntil([&] { return desk.events.Count(QStringLiteral("F")) > 0 && !desk.view->Busy(); }));
    ExpectHttpIsToldNothing();
}

TEST_F(LoginsOfBoth, AnAnswerForHttpsThatIsStillOnItsWayIsNotGivenToHttp) {
    ASSERT_NO_FATAL_FAILURE(AskByHttps());
    const auto before = both.requests.count(kSecret);
    both.Answer(kSecret, [](const QByteArray&) { return QByteArray(); });
    both.KeepOpen(kSecret);
    Answer(QStringLiteral("mole"), QStringLiteral("burrow"));
    ASSERT_TRUE(WaitUntil([&] { return both.requests.count(kSecret) > before; }));
    ExpectHttpIsToldNothing();
}

TEST(LoginsOfTabs, ABackgroundTabAsksWhenItIsSelected) {
    LocalServer server;
    server.Answer(kSecret, Guarded);
    EngineDesk desk;
    auto* view = desk.main->GetNewBrowser(InFront::No);
    ResumeNext(view->Navigate(FromQt(server.Address(kSecret))));
    ASSERT_TRUE(WaitUntil([&] { return desk.main->pcPage.Find(u"Tab2")->Asks(); }));
    EXPECT_EQ(desk.main->pcPage.SelectedItem()->Key(), u"Tab1");
    auto* dialog = desk.window.findChild<LoginDialog*>();
    EXPECT_FALSE(dialog->isVisible());
    desk.main->pcPage.UserClick(desk.main->pcPage.Find(u"Tab2"));
    EXPECT_TRUE(WaitUntil([&] { return dialog->isVisible(); }));
}

} // namespace

} // namespace tessa::qt
