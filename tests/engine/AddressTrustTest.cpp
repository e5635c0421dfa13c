// Tests: Awaited
#include "qt/questions/CertificatePage.h"
#include "tests/engine/CommandsOnPages.h"

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QWebEngineHistory>
#include <QWebEngineProfile>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

/// An address where nobody listens.
QString Unreachable(const QString& scheme, const QString& rest = QStringLiteral("/gone")) {
    QTcpServer closed;
    EXPECT_TRUE(closed.listen(QHostAddress::LocalHost));
    return scheme + QStringLiteral("://127.0.0.1:%1").arg(closed.serverPort()) + rest;
}

/// A user who looks at the address box while pages go to another host, which does not answer.
class AddressTrustOnPages : public CommandsOnPages {
protected:
    AddressTrustOnPages() {
        other.Stall(QStringLiteral("/bank"));
        server.Page(QStringLiteral("/page"), "<title>Page</title><p id='here'>words</p>");
        bank = other.Address(QStringLiteral("/bank"), QStringLiteral("localhost"));
    }

    [[nodiscard]] ComboTool& Box() const { return *desk.main->Tabs().AddressCombo(); }
    /// "text: picture", as the box shows them side by side.
    [[nodiscard]] QString Shown() const {
        return ToQt(Box().Value() + u": " + Box().SignBeside(Box().Value()).Image.Name);
    }
    [[nodiscard]] QString PageShown() const {
        return server.Address(QStringLiteral("/page")) + QStringLiteral(": computer");
    }
    [[nodiscard]] QString BankAwaited() const { return bank + QStringLiteral(": chronometer"); }
    /// The engine may tell the title before what the sign is made of.
    void ShowPage() {
        Show(QStringLiteral("/page"), u"Page");
        ASSERT_TRUE(WaitUntil([this] { return Shown() == PageShown(); })) << Shown().toStdString();
    }
    /// The other host is asked for its page, which it never gives.
    void AwaitBank() {
        ASSERT_TRUE(WaitUntil([&] { return other.requests.contains(QStringLiteral("/bank")); }));
        EXPECT_EQ(Script(QStringLiteral("document.title")), u"Page") << "the page before is still there";
    }
    void ToAnotherTabAndBack() {
        desk.main->GetNewBrowser(InFront::Yes);
        ASSERT_NE(Shown(), PageShown());
        desk.main->pcPage.UserClick(desk.main->pcPage.FindAt(1));
    }

    LocalServer other;
    QString bank;
};

TEST_F(AddressTrustOnPages, OnTheWayBackThePageIsStillTheOneThatIsShown) {
    other.Raw(QStringLiteral("/bank"), "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nCache-Control: no-store\r\n"
                                       "Connection: close\r\nContent-Length: 24\r\n\r\n<title>Bank</title>words");
    ResumeNext(Front().Navigate(FromQt(bank)));
    ASSERT_TRUE(WaitUntil([&] { return Front().LocationName() == u"Bank" && !Front().Busy(); }));
    ShowPage();
    other.requests.clear();
    other.Stall(QStringLiteral("/bank"));
    Script(QStringLiteral("setTimeout(() => history.back()); 1"));
    AwaitBank();
    EXPECT_EQ(Front().Page()->ShownAddress(), QUrl(server.Address(QStringLiteral("/page"))));
}

TEST_F(AddressTrustOnPages, WhereAPageSaysItGoesHasNoSignOfThePage) {
    ShowPage();
    Script(QStringLiteral("setTimeout(() => location = '%1'); 1").arg(bank));
    AwaitBank();
    EXPECT_EQ(Shown(), BankAwaited());
    EXPECT_TRUE(Box().Sign().Waiting);
    EXPECT_EQ(ToUtf8(desk.main->pcPage.FindAt(1)->Awaited()), bank.toStdString());
    EXPECT_EQ(ToQt(Front().LocationURL()), server.Address(QStringLiteral("/page")));
    EXPECT_TRUE(WaitUntil([&] { return Shown() == PageShown(); })) << "nothing has come for a while";
    EXPECT_TRUE(Front().Busy()) << "it may still come";
}

TEST_F(AddressTrustOnPages, WhatTheUserAsksForHasNoneEitherAndStays) {
    ShowPage();
    ResumeNext(Front().Navigate(FromQt(bank)));
    AwaitBank();
    EXPECT_EQ(Shown(), BankAwaited());
    EXPECT_EQ(ToQt(Front().LocationURL()), server.Address(QStringLiteral("/page")));
    EXPECT_EQ(Front().Security(), PageSecurity::Local) << "of the page that is shown";
    ToAnotherTabAndBack();
    EXPECT_EQ(Shown(), PageShown());
}

TEST_F(AddressTrustOnPages, APageThatIsStillLoadingIsNotTakenForTheOneThatIsAskedFor) {
    server.Page(QStringLiteral("/page"), "<title>Page</title><img src='/never'>");
    server.Stall(QStringLiteral("/never"));
    ResumeNext(Front().Navigate(FromQt(server.Address(QStringLiteral("/page")))));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/never")); }));
    // The engine looks ahead for pictures: one may be asked for before the title is read.
    ASSERT_TRUE(WaitUntil([&] { return Front().LocationName() == u"Page" && Shown() == PageShown(); }));
    ResumeNext(Front().Navigate(FromQt(bank)));
    AwaitBank();
    EXPECT_EQ(Shown(), BankAwaited());
    EXPECT_EQ(ToQt(Front().LocationURL()), server.Address(QStringLiteral("/page")));
    ToAnotherTabAndBack();
    EXPECT_EQ(Shown(), PageShown());
}

TEST_F(AddressTrustOnPages, AWindowThatAPageOpensIsNotCalledByATargetThatNeverComes) {
    ShowPage();
    // As a click would, with the leave to open windows.
    Front().Page()->settings()->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, true);
    Script(QStringLiteral("document.body.onclick = () => open('%1'); 1").arg(bank));
    WaitForPicture();
    QWidget* target = Front().Widget()->focusProxy();
    QTest::mouseClick(target, Qt::LeftButton, {}, QPoint(60, 20));
    ASSERT_TRUE(WaitUntil([&] { return other.requests.contains(QStringLiteral("/bank")); }));
    ASSERT_EQ(desk.main->pcPage.Count(), 2U);
    EXPECT_FALSE(Shown().endsWith(u"computer"));
    EXPECT_TRUE(WaitUntil([&] { return Box().Value() == u"about:blank"; })) << ToUtf8(Box().Value());
    EXPECT_EQ(Box().Sign().Image.Name, u"");
}

TEST_F(AddressTrustOnPages, AWindowIsDrawnThatIsFilledBeforeAnythingHasCome) {
    for (const QString& address : {QString(), bank}) {
        ShowPage();
        Front().Page()->settings()->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, true);
        Script(QStringLiteral("document.body.onclick = () => window.open('%1').document.write("
                              "'<title>Filled</title><body bgcolor=red>words'); 1")
                   .arg(address));
        WaitForPicture();
        QTest::mouseClick(Front().Widget()->focusProxy(), Qt::LeftButton, {}, QPoint(60, 20));
        ASSERT_TRUE(WaitUntil([&] { return Front().LocationName() == u"Filled"; })) << address.toStdString();
        EXPECT_TRUE(WaitUntil([&] {
            return Front().Widget()->grab().toImage().pixelColor(200, 200) == QColor(Qt::red);
        })) << address.toStdString();
        // By then the engine has looked at the colours of what it has drawn.
        WaitForPicture();
        EXPECT_EQ(Script(QStringLiteral("document.body.innerText")), u"words");
    }
}

TEST_F(AddressTrustOnPages, AnErrorPageNeverHasASign) {
    ShowPage();
    std::vector<std::string> signs;
    const Connection watching = Box().Sign.Mirror.Connect([&](const BoxSign& sign) {
        if (sign.Of.starts_with(u"https:")) signs.push_back(ToUtf8(sign.Image.Name));
    });
    const auto fails = [&](const QString& address) {
        signs.clear();
        ASSERT_TRUE(WaitUntil([&] { return !signs.empty() && !Box().Sign().Waiting && !Front().Busy(); }));
        EXPECT_EQ(Box().Sign().Image.Name, u"") << address.toStdString() << ToUtf8(Box().Value());
        for (const auto& sign : signs) EXPECT_TRUE(sign.empty() || sign == "chronometer") << sign;
    };
    const QString gone = Unreachable(QStringLiteral("https"));
    for (const QString& address : {gone, Unreachable(QStringLiteral("https"), QStringLiteral("/a#b"))}) {
        ResumeNext(Front().Navigate(FromQt(address)));
        fails(address);
        ShowPage();
        Front().Page()->runJavaScript(QStringLiteral("location = '%1'").arg(address));
        fails(address);
        ShowPage();
    }
    const QString user = QString(gone).replace(QStringLiteral("://"), QStringLiteral("://user@"));
    ResumeNext(Front().Navigate(FromQt(user)));
    fails(user);
    server.Redirect(QStringLiteral("/led"), gone);
    ResumeNext(Front().Navigate(FromQt(server.Address(QStringLiteral("/led")))));
    fails(QStringLiteral("redirected"));
}

TEST_F(AddressTrustOnPages, AnAnswerWithoutAPageLeavesThePageItsAddressAndSign) {
    server.Raw(QStringLiteral("/nothing"), "HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n");
    ShowPage();
    Front().Page()->runJavaScript(QStringLiteral("location = '/nothing'"));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/nothing")); }));
    EXPECT_TRUE(WaitUntil([&] { return Shown() == PageShown() && !Front().Busy(); })) << Shown().toStdString();
    ResumeNext(Front().Navigate(FromQt(server.Address(QStringLiteral("/nothing")))));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.count(QStringLiteral("/nothing")) == 2; }));
    EXPECT_TRUE(WaitUntil([&] { return Shown() == PageShown() && !Front().Busy(); })) << Shown().toStdString();
}

TEST_F(AddressTrustOnPages, APageThatMovesWithinItselfKeepsItsSign) {
    ShowPage();
    const QString moved = server.Address(QStringLiteral("/page#here"));
    ResumeNext(Front().Navigate(FromQt(moved)));
    EXPECT_TRUE(WaitUntil([&] { return Shown() == moved + QStringLiteral(": computer"); })) << Shown().toStdString();
    Front().Page()->runJavaScript(QStringLiteral("history.pushState({}, '', '/pushed')"));
    const QString pushed = server.Address(QStringLiteral("/pushed")) + QStringLiteral(": computer");
    EXPECT_TRUE(WaitUntil([&] { return Shown() == pushed; })) << Shown().toStdString();
    ResumeNext(Front().GoBack());
    EXPECT_TRUE(WaitUntil([&] { return Shown() == moved + QStringLiteral(": computer"); })) << Shown().toStdString();
}

TEST_F(AddressTrustOnPages, APageWithoutScriptsHasItsSignOnceItIsLoaded) {
    ShowPage();
    Front().Page()->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    server.Page(QStringLiteral("/next"), "<title>Next</title>");
    ResumeNext(Front().Navigate(FromQt(server.Address(QStringLiteral("/next")))));
    const QString next = server.Address(QStringLiteral("/next")) + QStringLiteral(": computer");
    EXPECT_TRUE(WaitUntil([&] { return Shown() == next; })) << Shown().toStdString();
}

// A page that is there before its address has been told says so too early; then the end of its load tells.
TEST_F(AddressTrustOnPages, APageThatDoesNotTellOfItselfHasItsSignOnceItIsLoaded) {
    ShowPage();
    Front().Page()->profile()->scripts()->clear();
    server.Page(QStringLiteral("/next"), "<title>Next</title>");
    ResumeNext(Front().Navigate(FromQt(server.Address(QStringLiteral("/next")))));
    const QString next = server.Address(QStringLiteral("/next")) + QStringLiteral(": computer");
    EXPECT_TRUE(WaitUntil([&] { return Shown() == next; })) << Shown().toStdString();
}

TEST_F(AddressTrustOnPages, TheUserInAnAddressIsNeitherShownNorKept) {
    ShowPage();
    server.Page(QStringLiteral("/login"), "<title>Login</title>");
    QString address = server.Address(QStringLiteral("/login"));
    const QString bare = address;
    address.replace(QStringLiteral("://"), QStringLiteral("://bank.example%2Flogin:word@"));
    std::vector<std::string> texts;
    const Connection watching = Box().Value.Mirror.Connect([&](const Text& text) { texts.push_back(ToUtf8(text)); });
    Front().Page()->runJavaScript(QStringLiteral("location = '%1'").arg(address));
    ASSERT_TRUE(WaitTitle(u"Login"));
    EXPECT_EQ(Shown(), bare + QStringLiteral(": computer"));
    EXPECT_EQ(ToQt(Front().LocationURL()), bare);
    for (const auto& text : texts) EXPECT_EQ(text.find("bank"), std::string::npos) << text;
}

TEST_F(AddressTrustOnPages, ALinkUnderThePointerIsToldInTheFormThatHidesNothing) {
    server.Page(QStringLiteral("/page"),
                "<title>Page</title><a id='here' style='position:fixed;left:0;top:0;width:200px;"
                "height:100px' href='http://user:word@b\xC3\xBC"
                "cher.example/%E2%80%AEgnp.exe'>link</a>");
    ShowPage();
    WaitForPicture();
    QTest::mouseMove(Front().Widget()->focusProxy(), QPoint(300, 300));
    QTest::mouseMove(Front().Widget()->focusProxy(), QPoint(50, 50));
    EXPECT_TRUE(WaitUntil([&] {
        return desk.main->sbStatus.SimpleText() == u"http://xn--bcher-kva.example/%E2%80%AEgnp.exe";
    })) << ToUtf8(desk.main->sbStatus.SimpleText());
}

TEST_F(AddressTrustOnPages, TheSecondTryOverHttpIsForTheAddressThatWasTyped) {
    ShowPage();
    // A host without a scheme is tried with https first, and this one never answers that.
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    ResumeNext(Front().Navigate(FromQt(QStringLiteral("127.0.0.1:%1/typed").arg(silent.serverPort()))));
    ASSERT_TRUE(WaitUntil([&] { return silent.hasPendingConnections(); }));
    ResumeNext(Front().Stop());
    ASSERT_TRUE(WaitUntil([&] { return !Front().Busy(); }));
    const QString gone = Unreachable(QStringLiteral("http"));
    Front().Page()->runJavaScript(QStringLiteral("location = '%1'").arg(gone));
    EXPECT_TRUE(WaitUntil([&] { return Box().Value() == FromQt(gone) && !Front().Busy(); }));
    Settle(desk.engine, Front().Page());
    EXPECT_EQ(Box().Value(), FromQt(gone));
    EXPECT_EQ(ToQt(Front().LocationURL()), gone);
}

/// A server that hangs up on whoever speaks TLS, and answers others when it is told to.
class PlainServer final : public QTcpServer {
public:
    PlainServer() {
        EXPECT_TRUE(listen(QHostAddress::LocalHost));
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                if (!socket->readAll().startsWith("GET /typed")) return socket->abort();
                asking = socket;
            });
        });
    }
    [[nodiscard]] QString Address() const { return QStringLiteral("127.0.0.1:%1/typed").arg(serverPort()); }
    void Answer() const {
        asking->write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n<title>Typed</title>");
        asking->disconnectFromHost();
    }
    QPointer<QTcpSocket> asking;
};

TEST_F(AddressTrustOnPages, WhileHttpIsTriedAfterHttpsHasFailedThePageBeforeStays) {
    ShowPage();
    const PlainServer plain;
    std::vector<std::string> told;
    Connection watching =
        desk.main->sbStatus.SimpleText.Mirror.Connect([&](const Text& text) { told.push_back(ToUtf8(text)); });
    ResumeNext(Front().Navigate(FromQt(plain.Address())));
    ASSERT_TRUE(WaitUntil([&] { return plain.asking != nullptr; }));
    EXPECT_EQ(Script(QStringLiteral("document.title")), u"Page");
    EXPECT_EQ(ToQt(Front().LocationURL()), server.Address(QStringLiteral("/page")));
    for (const std::string& each : told) EXPECT_TRUE(each.empty() || each == "Connecting...") << each;
    watching.End();
    plain.Answer();
    ASSERT_TRUE(WaitTitle(u"Typed"));
    EXPECT_EQ(Front().Page()->history()->count(), 2) << "what has failed is no step to go back to";
}

TEST_F(AddressTrustOnPages, WhenHttpFailsTooTheErrorIsShown) {
    ShowPage();
    const QString gone = Unreachable(QStringLiteral("http"));
    ResumeNext(Front().Navigate(FromQt(QString(gone).remove(QStringLiteral("http://")))));
    EXPECT_TRUE(WaitUntil([&] { return Front().LocationURL() == FromQt(gone) && !Front().Busy(); }))
        << ToUtf8(Front().LocationURL());
    EXPECT_NE(Script(QStringLiteral("document.body.innerText")), u"");
    EXPECT_EQ(Script(QStringLiteral("location.protocol")), u"chrome-error:");
    ShowPage();
    // Errors of what comes after a second try are shown as ever.
    const QString other = Unreachable(QStringLiteral("https"));
    Front().Page()->runJavaScript(QStringLiteral("location = '%1'").arg(other));
    EXPECT_TRUE(WaitUntil([&] { return Front().LocationURL() == FromQt(other) && !Front().Busy(); }));
    EXPECT_EQ(Script(QStringLiteral("location.protocol")), u"chrome-error:");
}

TEST_F(AddressTrustOnPages, AHostThatAnswersHttpsIsNotTriedOverHttp) {
    LocalServer secure{QStringLiteral("self.example")};
    secure.Page(QStringLiteral("/private"), "<title>Private</title>");
    secure.Redirect(QStringLiteral("/loop"), secure.Address(QStringLiteral("/loop")));
    const auto typed = [&](const QString& path) { return secure.Address(path).remove(QStringLiteral("https://")); };
    ShowPage();
    ResumeNext(Front().Navigate(FromQt(typed(QStringLiteral("/private")))));
    const auto refused = [this] { return desk.window.findChild<CertificatePage*>(); };
    ASSERT_TRUE(WaitUntil([&] {
        return ToQt(Front().LocationURL()) == secure.Address(QStringLiteral("/private")) && refused() &&
               !Front().Busy();
    })) << ToUtf8(Front().LocationURL());
    refused()->GoOn();
    ASSERT_TRUE(WaitTitle(u"Private"));
    EXPECT_EQ(Front().Page()->history()->count(), 2);
    ResumeNext(Front().Navigate(FromQt(typed(QStringLiteral("/loop")))));
    EXPECT_TRUE(WaitUntil([&] {
        return ToQt(Front().LocationURL()) == secure.Address(QStringLiteral("/loop")) && !Front().Busy();
    })) << ToUtf8(Front().LocationURL());
    EXPECT_EQ(Script(QStringLiteral("location.protocol")), u"chrome-error:");
}

} // namespace

} // namespace tessa::qt
