// Tests: FrameEnds
//
// When a tab turns busy and idle: as soon as a navigation is complete, also one to the address that is shown already,
// and when the navigation of a frame ends without a document.
#include "tests/engine/CommandsOnPages.h"

#include <QApplication>
#include <QTest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

namespace tessa::qt {

namespace {

const QString kEndless = QStringLiteral("/endless");

QByteArray Html(const QByteArray& body) {
    return "HTTP/1.1 200 OK\r\nContent-Type: text/html; charset=utf-8\r\nCache-Control: no-store\r\n"
           "Connection: close\r\n\r\n" +
           body;
}

/// A page whose document never comes to its end, once it is shown.
class EndlessPage : public testing::Test {
protected:
    EndlessPage() { Begin(kEndless); }
    ~EndlessPage() override { ResumeNext(desk.view->Stop()); }

    void Begin(const QString& path) {
        server.Answer(path, [](const QByteArray&) { return Html("<title>Endless</title><p id=there>words"); });
        server.KeepOpen(path);
    }
    bool Saw(const QString& line) {
        return WaitUntil([&] { return desk.events.lines.contains(line); });
    }
    void Show(const QString& address, const QString& seen) {
        desk.Navigate(address);
        ASSERT_TRUE(Saw(QStringLiteral("N:") + seen));
        // Its document has begun to report, which could be taken for the next one's.
        ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("document.body != null")) == u"true"; }));
        desk.events.Take();
    }
    /// What was asked for is complete, although the document is not, and that is told once.
    void ExpectCompleteWhileItLoads(const QString& seen) {
        EXPECT_TRUE(Saw(QStringLiteral("N:") + seen));
        Settle(desk.engine, desk.Real().Page());
        EXPECT_EQ(desk.events.Count(QStringLiteral("A:") + seen), 1);
        EXPECT_EQ(desk.events.Count(QStringLiteral("N:") + seen), 1);
        EXPECT_EQ(desk.events.Count(QStringLiteral("D:") + seen), 0) << desk.events.lines.join(u' ').toStdString();
        EXPECT_TRUE(desk.view->Busy());
    }

    LocalServer server;
    EngineView desk;
};

TEST_F(EndlessPage, ANavigationIsToldOnce) {
    desk.Navigate(server.Address(kEndless));
    ExpectCompleteWhileItLoads(kEndless);
}

TEST_F(EndlessPage, ARefreshIsCompleteBeforeItsDocumentIs) {
    Show(server.Address(kEndless), kEndless);
    EXPECT_EQ(desk.view->Refresh(), Outcome::Done);
    ExpectCompleteWhileItLoads(kEndless);
}

TEST_F(EndlessPage, ANavigationToTheSameAddressIsToo) {
    Show(server.Address(kEndless), kEndless);
    desk.Navigate(server.Address(kEndless));
    ExpectCompleteWhileItLoads(kEndless);
}

TEST_F(EndlessPage, ANavigationToTheSamePlaceOnThePageIsToo) {
    const QString there = kEndless + QStringLiteral("#there");
    Show(server.Address(there), there);
    desk.Navigate(server.Address(there));
    ExpectCompleteWhileItLoads(there);
}

TEST_F(EndlessPage, APageThatLoadsItselfAnewIsToo) {
    Show(server.Address(kEndless), kEndless);
    desk.Script(QStringLiteral("location.reload(); 1"));
    ExpectCompleteWhileItLoads(kEndless);
}

TEST_F(EndlessPage, AFormThatIsSentToItsOwnPageIsToo) {
    Show(server.Address(kEndless), kEndless);
    desk.Script(QStringLiteral("var form = document.createElement('form'); form.method = 'post'; "
                               "document.body.append(form); form.submit(); 1"));
    ExpectCompleteWhileItLoads(kEndless);
}

TEST_F(EndlessPage, ARedirectBackToTheSameAddressIsToo) {
    server.Redirect(QStringLiteral("/detour"), server.Address(kEndless));
    Show(server.Address(kEndless), kEndless);
    desk.Navigate(server.Address(QStringLiteral("/detour")));
    ExpectCompleteWhileItLoads(kEndless);
}

TEST_F(EndlessPage, ARefreshOfAnAddressWithAUserAndOddSignsIsToo) {
    const QString path = QStringLiteral("/%20%C3%A4%25?a=%22b%22&c=1%7C2");
    Begin(path);
    const QString address = server.Address(path, QStringLiteral("me:secret@127.0.0.1"));
    desk.Navigate(address);
    ASSERT_TRUE(WaitUntil([&] { return !desk.events.lines.filter(QStringLiteral("N:")).isEmpty(); }));
    ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("document.body != null")) == u"true"; }));
    desk.events.Take();
    EXPECT_EQ(desk.view->Refresh(), Outcome::Done);
    EXPECT_TRUE(WaitUntil([&] { return !desk.events.lines.filter(QStringLiteral("N:")).isEmpty(); }))
        << desk.events.lines.join(u' ').toStdString() << " asked " << server.requests.join(u' ').toStdString();
    EXPECT_TRUE(desk.view->Busy());
}

TEST_F(EndlessPage, ARefreshWithoutScriptsIsToo) {
    Show(server.Address(kEndless), kEndless);
    desk.Real().Page()->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    EXPECT_EQ(desk.view->Refresh(), Outcome::Done);
    EXPECT_TRUE(Saw(QStringLiteral("N:") + kEndless));
    EXPECT_TRUE(desk.view->Busy());
}

TEST_F(EndlessPage, ThePageThatIsLeftDoesNotCompleteTheOneThatComes) {
    server.Stall(QStringLiteral("/never"));
    server.Page(QStringLiteral("/goes"), "<title>Goes</title><script>location = '/never'</script>");
    desk.Navigate(server.Address(QStringLiteral("/goes")));
    ASSERT_TRUE(Saw(QStringLiteral("A:/never")));
    ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/never")); }));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_GT(desk.events.lines.lastIndexOf(QStringLiteral("A:/never")),
              desk.events.lines.lastIndexOf(QStringLiteral("N:/goes")));
}

/// The strip of a window, while pages come and go in the tab in front.
class BusyMark : public CommandsOnPages {
protected:
    static constexpr int kFirst = 1;

    BusyMark() {
        server.Page(QStringLiteral("/inner"), "inner");
        server.Page(QStringLiteral("/frames"), "<title>Frames</title><iframe name=inner src=/inner></iframe>"
                                               "<button id=open onclick=\"window.open('/window')\">open</button>"
                                               "<a id=link href=/window target=_blank>open</a>");
    }
    /// Answers `path`, and notes how the tab of the view looked when it was asked for.
    void Answer(const QString& path, const QByteArray& response, std::int32_t index = kFirst) {
        server.Answer(path, [this, response, index](const QByteArray&) {
            atRequest << (Red(index) ? QStringLiteral("red") : QStringLiteral("idle"));
            return response;
        });
    }
    [[nodiscard]] bool Red(std::int32_t index = kFirst) {
        const auto* tab = desk.main->pcPage.Find(u"Tab" + Decimal(index));
        return tab && tab->Image() == TabImage::Red;
    }
    bool TurnsIdle(std::int32_t index = kFirst) {
        return WaitUntil([&] { return !Red(index); });
    }
    void ShowFrames() {
        Show(QStringLiteral("/frames"), u"Frames");
        Settle(desk.engine, Front().Page());
        ASSERT_FALSE(Red());
    }
    /// Has the page's inner frame go there, and waits until the server was asked.
    void FrameGoesTo(const QString& path) {
        Script(QStringLiteral("window.open('%1', 'inner'); 1").arg(path));
        ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(path); }));
    }

    QStringList atRequest;
};

TEST_F(BusyMark, OfARefreshGoesBeforeTheDocumentIsComplete) {
    Answer(kEndless, Html("<title>Endless</title><p>words"));
    server.KeepOpen(kEndless);
    ResumeNext(Front().Navigate(FromQt(server.Address(kEndless))));
    // Behind its title nothing of the first document is on its way any more.
    ASSERT_TRUE(WaitUntil([&] { return !atRequest.isEmpty() && !Red() && Front().LocationName() == u"Endless"; }));
    ResumeNext(Front().Refresh());
    ASSERT_TRUE(WaitUntil([&] { return atRequest.size() == 2; }));
    EXPECT_TRUE(TurnsIdle());
    EXPECT_EQ(atRequest.join(u' '), u"red red");
    EXPECT_TRUE(Front().Busy());
    ResumeNext(Front().Stop());
}

TEST_F(BusyMark, OfAFrameGoesWhenThereIsNothingToShow) {
    Answer(QStringLiteral("/nothing"), "HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n");
    ShowFrames();
    FrameGoesTo(QStringLiteral("/nothing"));
    EXPECT_EQ(atRequest.join(u' '), u"red");
    EXPECT_TRUE(TurnsIdle());
}

TEST_F(BusyMark, OfAFrameGoesAtOnceWhenItBecomesADownload) {
    Answer(QStringLiteral("/file"), "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\n"
                                    "Content-Disposition: attachment; filename=a.bin\r\nConnection: close\r\n"
                                    "Content-Length: 3\r\n\r\nabc");
    ShowFrames();
    QString atDownload;
    const QObject here;
    // Told behind the view, which has listened for longer.
    QObject::connect(Front().Page()->profile(), &QWebEngineProfile::downloadRequested, &here,
                     [&] { atDownload = Red() ? QStringLiteral("red") : QStringLiteral("idle"); });
    FrameGoesTo(QStringLiteral("/file"));
    ASSERT_TRUE(WaitUntil([&] { return !atDownload.isEmpty(); }));
    EXPECT_EQ(atRequest.join(u' '), u"red");
    EXPECT_EQ(atDownload, u"idle");
}

TEST_F(BusyMark, OfAFrameGoesWhenTheFrameIsTakenAway) {
    Answer(QStringLiteral("/never"), {});
    server.KeepOpen(QStringLiteral("/never"));
    ShowFrames();
    FrameGoesTo(QStringLiteral("/never"));
    EXPECT_EQ(atRequest.join(u' '), u"red");
    Script(QStringLiteral("document.querySelector('iframe').remove(); 1"));
    EXPECT_TRUE(TurnsIdle());
}

TEST_F(BusyMark, OfAFrameGoesWhenItsDocumentIsRefused) {
    Answer(QStringLiteral("/refused"), "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nX-Frame-Options: DENY\r\n"
                                       "Connection: close\r\nContent-Length: 2\r\n\r\nno");
    ShowFrames();
    FrameGoesTo(QStringLiteral("/refused"));
    EXPECT_EQ(atRequest.join(u' '), u"red");
    EXPECT_TRUE(TurnsIdle());
}

TEST_F(BusyMark, OfAWholePageGoesWhenThereIsNothingToShow) {
    Answer(QStringLiteral("/nothing"), "HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n");
    ShowFrames();
    ResumeNext(Front().Navigate(FromQt(server.Address(QStringLiteral("/nothing")))));
    ASSERT_TRUE(WaitUntil([&] { return !atRequest.isEmpty(); }));
    EXPECT_EQ(atRequest.join(u' '), u"red");
    EXPECT_TRUE(TurnsIdle());
    EXPECT_EQ(ToUtf8(desk.main->Tabs().AddressCombo()->Value()),
              server.Address(QStringLiteral("/frames")).toStdString());
}

/// A page opens another one, by a script or by a link.
class BusyMarkOfAWindow : public BusyMark, public testing::WithParamInterface<const char*> {};

TEST_P(BusyMarkOfAWindow, ComesAndGoes) {
    constexpr std::int32_t kSecond = 2;
    Answer(QStringLiteral("/window"), Html("<title>Window</title>"), kSecond);
    ShowFrames();
    WaitForPicture();
    Front().SetFocus();
    Script(QStringLiteral("document.getElementById('%1').focus(); 1").arg(QLatin1String(GetParam())));
    ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("document.hasFocus()")) == u"true"; }));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    ASSERT_TRUE(WaitUntil([&] { return !atRequest.isEmpty(); }));
    EXPECT_EQ(atRequest.join(u' '), u"red");
    EXPECT_EQ(desk.main->pcPage.SelectedItem(), desk.main->pcPage.Find(u"Tab2"));
    EXPECT_TRUE(TurnsIdle(kSecond));
    EXPECT_TRUE(WaitUntil([&] { return desk.main->pcPage.Find(u"Tab2")->Caption() == u"Window"; }));
    EXPECT_EQ(desk.View(kSecond).LocationName(), u"Window");
}

INSTANTIATE_TEST_SUITE_P(OpenedBy, BusyMarkOfAWindow, testing::Values("open", "link"),
                         [](const auto& info) { return std::string(info.param); });

} // namespace

} // namespace tessa::qt
