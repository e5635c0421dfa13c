// Tests: OutsidePrograms
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/page/DialogCover.h"
#include "tests/engine/DesktopEntries.h"
#include "tests/engine/EngineDesk.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QUrl>

namespace tessa::qt {

namespace {

/// The desktop's mail program: writes down what it is opened with.
class MailProgram final : public QObject {
    Q_OBJECT

public:
    MailProgram() { QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "Open"); }
    ~MailProgram() override { QDesktopServices::unsetUrlHandler(QStringLiteral("mailto")); }

    /// What it was opened with so far, separated by blanks; forgets it.
    std::string Take() { return std::exchange(m_opened, {}).join(u' ').toStdString(); }
    [[nodiscard]] bool WasOpened() const { return !m_opened.isEmpty(); }

public Q_SLOTS:
    void Open(const QUrl& url) { m_opened << QString::fromLatin1(url.toEncoded()); }

private:
    QStringList m_opened;
    DesktopEntries m_entries{{QStringLiteral("mailto")}};
};

/// A desktop that gives mails to this program, as one does that has no program for them.
class NoMailProgram : public testing::TestWithParam<bool> {
protected:
    bool IsTold() {
        return WaitUntil([this] {
            const auto* cover = desk.window.findChild<DialogCover*>(QStringLiteral("externalDialog"));
            return cover && cover->isVisible() && cover->accessibleName() == u"No program opens this address.";
        });
    }

    MailProgram mail;
    /// Instead of the other one's entry.
    DesktopEntries entries{GetParam() ? QStringList(QStringLiteral("mailto")) : QStringList(), "tessaview.desktop"};
    LocalServer server;
    EngineView desk;
};

TEST_P(NoMailProgram, IsToldWhereALinkWasClicked) {
    int tabs = 0;
    desk.events.supplyView = [&tabs]() -> BrowserView* {
        ++tabs;
        return nullptr;
    };
    for (const char* target : {"_self", "_blank"}) {
        server.Page(QStringLiteral("/page"),
                    QByteArray("<a id=link href='mailto:a@b.example?attach=/x' target=") + target + ">write</a>");
        desk.Load(server.Address(QStringLiteral("/page")));
        desk.ClickOn(QStringLiteral("link"));
        ASSERT_TRUE(IsTold()) << target;
        const auto* cover = desk.window.findChild<DialogCover*>(QStringLiteral("externalDialog"));
        EXPECT_EQ(cover->findChild<QLabel*>(QStringLiteral("lblAddress"))->text(), u"mailto:a@b.example");
    }
    EXPECT_EQ(tabs, 0);
    EXPECT_EQ(mail.Take(), "") << "the desktop would give it back to the program";
}

TEST_P(NoMailProgram, IsToldWhereTheAddressWasTyped) {
    desk.Navigate(QStringLiteral("mailto:a@b.example"));
    ASSERT_TRUE(IsTold());
    EXPECT_EQ(mail.Take(), "");
}

INSTANTIATE_TEST_SUITE_P(Desktops, NoMailProgram, testing::Bool(),
                         [](const auto& info) { return info.param ? "WithThisProgramForIt" : "WithNone"; });

TEST(Mail, ALinkIsSentWholeWhateverThePagesTitleIs) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<title>Q &amp; A? #1 100%</title>page");
    MailProgram mail;
    EngineDesk desk;
    desk.Open({server.Address(QStringLiteral("/page"))});
    ASSERT_TRUE(WaitUntil([&] { return desk.View(2).LocationName() == u"Q & A? #1 100%"; }));
    const auto loads = server.requests.size();
    desk.main->actBar_Click(*desk.main->actBar.Find(u"mnuSendLink"));
    const std::string address = QUrl::toPercentEncoding(server.Address(QStringLiteral("/page"))).toStdString();
    EXPECT_EQ(mail.Take(), "mailto:?subject=Q%20%26%20A%3F%20%231%20100%25%20%28" + address + "%29&body=" + address);
    EXPECT_EQ(desk.View(2).LocationName(), u"Q & A? #1 100%") << "the page stays";
    EXPECT_EQ(server.requests.size(), loads);
}

TEST(Mail, NothingIsOpenedBeforeTheEngineStarts) {
    MailProgram mail;
    QWidget window;
    InstanceProfile ownProfile({}, {});
    FakeEngineHost host;
    Engine engine(&window, ownProfile, host);
    EventRecorder events;
    auto view = engine.Create(1, events, Privacy::Ordinary);
    EXPECT_EQ(view->Navigate(u"mailto:a@b.example"), Outcome::Done);
    QCoreApplication::processEvents();
    EXPECT_EQ(mail.Take(), "");
    engine.Start();
    EXPECT_EQ(mail.Take(), "mailto:a@b.example");
    EXPECT_EQ(engine.PageCount(), 0U);
    view.reset();
    engine.Shutdown();
}

TEST(Mail, APersonsClickOnALinkOpensTheMailProgram) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<a id=link href='mailto:a@b.example?subject=x%20%26%20y'>write</a>");
    MailProgram mail;
    EngineView desk;
    desk.Load(server.Address(QStringLiteral("/page")));
    desk.ClickOn(QStringLiteral("link"));
    ASSERT_TRUE(WaitUntil([&] { return mail.WasOpened(); }));
    EXPECT_EQ(mail.Take(), "mailto:a@b.example?subject=x%20%26%20y");
    EXPECT_EQ(desk.view->LocationURL(), FromQt(server.Address(QStringLiteral("/page"))));
}

TEST(Mail, APageDoesNotOpenItByItself) {
    LocalServer server;
    server.Page(QStringLiteral("/page"),
                "<script>for (var i = 0; i < 20; ++i) location.href = 'mailto:a@b' + i;</script>");
    MailProgram mail;
    EngineView desk;
    desk.Load(server.Address(QStringLiteral("/page")));
    desk.Script(QStringLiteral("location.assign('mailto:c@d'); 1"));
    desk.Script(QStringLiteral("var a = document.createElement('a'); a.href = 'mailto:e@f'; document.body.append(a);"
                               "a.click(); 1"));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_EQ(mail.Take(), "");
}

} // namespace

} // namespace tessa::qt

#include "MailTest.moc"
