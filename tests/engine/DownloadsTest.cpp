// Tests: EngineDownloads
#include "qt/downloads/EngineDownloads.h"

#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/page/PageDocuments.h"
#include "tests/engine/EngineDesk.h"
#include "tests/engine/FakeDownloadSource.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QFile>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QTest>
#include <QWebEngineProfile>
#include <algorithm>

namespace tessa::qt {

namespace {

QByteArray Attachment(const QByteArray& body, const QByteArray& name, qsizetype length = -1) {
    return "HTTP/1.1 200 OK\r\nContent-Type: application/octet-stream\r\nContent-Disposition: attachment; " + name +
           "\r\nConnection: close\r\nContent-Length: " + QByteArray::number(length < 0 ? body.size() : length) +
           "\r\n\r\n" + body;
}

/// A server that sends the first half of a file and then breaks off. It goes on from where it is asked to.
class BreakingServer final : public QTcpServer {
public:
    explicit BreakingServer(QByteArray body) : m_body(std::move(body)) {
        if (!listen(QHostAddress::LocalHost)) qFatal("the test's server cannot listen");
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (auto* socket = nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Answer(*socket); });
        });
    }
    [[nodiscard]] QString Address() const { return QStringLiteral("http://127.0.0.1:%1/file.bin").arg(serverPort()); }
    bool breaks = true;
    int requests = 0;

private:
    void Answer(QTcpSocket& socket) {
        const QByteArray request = socket.readAll();
        ++requests;
        const qsizetype at = request.indexOf("Range: bytes=");
        const qsizetype from = at < 0 ? 0 : request.mid(at + 13).split('-').value(0).toLongLong();
        const QByteArray rest = m_body.mid(from);
        socket.write(QByteArray(from > 0 ? "HTTP/1.1 206 Partial Content\r\nContent-Range: bytes " +
                                               QByteArray::number(from) + "-" + QByteArray::number(m_body.size() - 1) +
                                               "/" + QByteArray::number(m_body.size()) + "\r\n"
                                         : QByteArray("HTTP/1.1 200 OK\r\n")) +
                     "Content-Type: application/octet-stream\r\nAccept-Ranges: bytes\r\nETag: \"1\"\r\n"
                     "Last-Modified: Mon, 05 Jan 2026 10:00:00 GMT\r\nConnection: close\r\nContent-Length: " +
                     QByteArray::number(rest.size()) + "\r\n\r\n");
        socket.write(breaks ? rest.left(rest.size() / 2) : rest);
        socket.flush();
        socket.waitForBytesWritten();
        breaks ? socket.abort() : socket.disconnectFromHost();
    }
    QByteArray m_body;
};

/// A server with a page that wants five files, which come only when that is allowed.
class LateServer final : public QTcpServer {
public:
    LateServer() {
        if (!listen(QHostAddress::LocalHost)) qFatal("the test's server cannot listen");
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (auto* socket = nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Answer(*socket); });
        });
    }
    [[nodiscard]] QString Address() const { return QStringLiteral("http://127.0.0.1:%1/").arg(serverPort()); }
    [[nodiscard]] qsizetype Waiting() const { return m_waiting.size(); }
    void Allow() {
        for (const auto& socket : std::as_const(m_waiting)) {
            if (!socket) continue;
            socket->write(Attachment("late", "filename=late.txt"));
            socket->disconnectFromHost();
        }
    }

private:
    void Answer(QTcpSocket& socket) {
        if (socket.readAll().startsWith("GET /late")) return m_waiting.push_back(&socket);
        const QByteArray page = "<script>for (let i = 0; i < 5; ++i) { const link = document.createElement('a');"
                                "link.href = '/late' + i; link.download = ''; link.click(); }</script>";
        socket.write("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\nContent-Length: " +
                     QByteArray::number(page.size()) + "\r\n\r\n" + page);
        socket.disconnectFromHost();
    }
    QList<QPointer<QTcpSocket>> m_waiting;
};

/// The real engine with the list of downloads in a folder of the test's own.
class EngineDownloadsTest : public testing::Test {
protected:
    EngineDownloadsTest() {
        desktop.BringTo(downloads);
        source.profile = [this] { return desk.engine.Profiles().Get(); };
        desk.engine.Profiles().Made.ConnectForLife([this](QWebEngineProfile& profile) { desktop.Follow(profile); });
        desk.engine.Told().SaveAddress.ConnectForLife(
            [this](WebPage& page, const QUrl& address, const Text& path) { desktop.Save(page, address, path); });
        source.maySave = [this](QWebEnginePage* page, const QUrl& address) {
            auto* view = desk.engine.ViewOf(page);
            return !view || view->Questions()->permissions.MaySave(address);
        };
        folder.Write("user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"" + folder.Path("got") + "\"\n");
        qputenv("XDG_CONFIG_HOME", folder.Path("").c_str());
        EXPECT_EQ(desktop.Folder(), folder.PathText("got"));
    }
    ~EngineDownloadsTest() override {
        desk.view.reset();
        desktop.Shutdown();
        qputenv("XDG_CONFIG_HOME", configBefore);
    }

    bool WaitFor(DownloadState state, std::size_t count = 1) {
        return WaitUntil([&] {
            return downloads.All().size() >= count &&
                   std::ranges::all_of(downloads.All(), [&](const auto& each) { return each.Report.State == state; });
        });
    }
    [[nodiscard]] const Download& First() const { return downloads.All().front(); }
    [[nodiscard]] QByteArray Saved() const {
        QFile file(ToQt(First().Path));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }
    [[nodiscard]] QString Name() const { return ToQt(First().Name()); }
    /// Saves a file that is broken and gone afterwards; its number in the list.
    std::int32_t SaveAndLose() {
        server.Raw(QStringLiteral("/get"), Attachment("again", "filename=again.txt"));
        desk.Navigate(server.Address(QStringLiteral("/get")));
        if (!WaitFor(DownloadState::Done)) return ADD_FAILURE() << "no file came", 0;
        const std::int32_t id = First().Id;
        downloads.OnReport(id, {DownloadState::Broken, DownloadProblem::Gone, 0, -1});
        QFile::remove(ToQt(First().Path));
        return id;
    }

    TemporaryFolder folder;
    LocalServer server;
    FakeDownloadSource source;
    EngineDownloads desktop{source};
    Downloads downloads{desktop, {}};
    EngineView desk;
    const QByteArray configBefore = qgetenv("XDG_CONFIG_HOME");
};

TEST_F(EngineDownloadsTest, OfAnAttachmentTakeTheNameThatTheServerSuggests) {
    server.Raw(QStringLiteral("/get"), Attachment("the body", "filename=\"my report.pdf\""));
    desk.Navigate(server.Address(QStringLiteral("/get")));
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_TRUE(Name().startsWith(u"my report")) << Name().toStdString();
    EXPECT_EQ(Saved(), "the body");
    EXPECT_EQ(First().Report.Total, 8);
}

TEST_F(EngineDownloadsTest, StayInTheirFolderWhateverTheNameSays) {
    server.Raw(QStringLiteral("/get"), Attachment("x", "filename*=UTF-8''..%2F..%2F%E2%80%AEgpj.exe"));
    desk.Navigate(server.Address(QStringLiteral("/get")));
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(ToQt(First().Path).section(u'/', 0, -2), ToQt(folder.PathText("got")));
    EXPECT_FALSE(Name().contains(QChar(0x202E)));
    EXPECT_EQ(Saved(), "x");
}

TEST_F(EngineDownloadsTest, ComeFromLinksToBlobsAndDataAndOtherPages) {
    server.Raw(QStringLiteral("/plain"), "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 4\r\n\r\nhtml");
    server.Page(QStringLiteral("/page"),
                "<a id=blob download='blob.txt'>b</a><br><a id=data download='data.txt' href='data:text/plain,hello'>d"
                "</a><br><a id=page download='saved.html' href='/plain'>p</a>"
                "<script>blob.href = URL.createObjectURL(new Blob(['from a blob']))</script>");
    for (const auto& [id, body] :
         {std::pair("blob", "from a blob"), std::pair("data", "hello"), std::pair("page", "html")}) {
        desk.Load(server.Address(QStringLiteral("/page")));
        const std::size_t before = downloads.All().size();
        desk.ClickOn(QLatin1String(id));
        ASSERT_TRUE(WaitFor(DownloadState::Done, before + 1)) << id;
        EXPECT_EQ(Saved(), body);
    }
}

TEST_F(EngineDownloadsTest, NeverOverwrite) {
    server.Raw(QStringLiteral("/get"), Attachment("new", "filename=same.txt"));
    for (std::size_t count = 1; count <= 2; ++count) {
        desk.Navigate(server.Address(QStringLiteral("/get")));
        ASSERT_TRUE(WaitFor(DownloadState::Done, count));
    }
    EXPECT_NE(downloads.All()[0].Path, downloads.All()[1].Path);
}

TEST_F(EngineDownloadsTest, ThatBreakOffSayItAndGoOnOrBeginAnew) {
    QByteArray body;
    for (int i = 0; i < 40000; ++i) body += QByteArray::number(i) + ',';
    BreakingServer breaking(body);
    desk.Navigate(breaking.Address());
    ASSERT_TRUE(WaitFor(DownloadState::Broken));
    EXPECT_EQ(First().Report.Problem, DownloadProblem::Connection);
    breaking.breaks = false;
    downloads.Resume(First().Id);
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(downloads.All().size(), 1U) << "it keeps its line";
    EXPECT_EQ(Saved(), body);
}

TEST_F(EngineDownloadsTest, FromAnAddressWithAUserGoOnInTheirLine) {
    BreakingServer breaking("0123456789");
    desk.Navigate(breaking.Address().replace(QStringLiteral("//"), QStringLiteral("//me:word@")));
    ASSERT_TRUE(WaitFor(DownloadState::Broken));
    EXPECT_EQ(First().Address, FromQt(breaking.Address()));
    breaking.breaks = false;
    downloads.Resume(First().Id);
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(downloads.All().size(), 1U);
    EXPECT_EQ(Saved(), "0123456789");
}

TEST_F(EngineDownloadsTest, ArePausedAndCancelled) {
    server.Answer(QStringLiteral("/get"), [](const QByteArray&) { return Attachment("half", "filename=x.bin", 1000); });
    desk.Navigate(server.Address(QStringLiteral("/get")));
    ASSERT_TRUE(WaitUntil([this] { return !downloads.All().empty(); }));
    downloads.Cancel(First().Id);
    EXPECT_TRUE(WaitFor(DownloadState::Cancelled));
    EXPECT_EQ(Saved(), "(no file)");
}

TEST_F(EngineDownloadsTest, AreFetchedAnewAfterARestart) {
    const std::int32_t id = SaveAndLose();
    downloads.Retry(id);
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(First().Id, id);
    EXPECT_EQ(Saved(), "again");
}

TEST_F(EngineDownloadsTest, OfALinkGoWhereTheUserWantsThem) {
    server.Page(QStringLiteral("/page"), "<p>hello</p>");
    server.Raw(QStringLiteral("/x.html"), "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 2\r\n\r\nok");
    desk.Load(server.Address(QStringLiteral("/page")));
    const Text path = folder.PathText("mine.html");
    EXPECT_EQ(desk.view->Tools()->Save(FromQt(server.Address(QStringLiteral("/x.html"))), path), Outcome::Done);
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(First().Path, path);
    EXPECT_EQ(Saved(), "ok");
}

TEST_F(EngineDownloadsTest, OfALinkThatLeadsElsewhereGoWhereTheUserWantsThem) {
    server.Page(QStringLiteral("/page"), "<p>hello</p>");
    server.Redirect(QStringLiteral("/first"), QStringLiteral("/second"));
    server.Raw(QStringLiteral("/second"), Attachment("led here", "filename=theirs.bin"));
    desk.Load(server.Address(QStringLiteral("/page")));
    const Text path = folder.PathText("mine.bin");
    EXPECT_EQ(desk.view->Tools()->Save(FromQt(server.Address(QStringLiteral("/first"))), path), Outcome::Done);
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(First().Path, path);
    EXPECT_EQ(Saved(), "led here");
    // Whatever comes of that address later is another file.
    server.Raw(QStringLiteral("/first"), Attachment("evil", "filename=mine.bin"));
    desk.Navigate(server.Address(QStringLiteral("/first")));
    ASSERT_TRUE(WaitFor(DownloadState::Done, 2));
    EXPECT_NE(First().Path, path);
    EXPECT_EQ(folder.Read("mine.bin"), "led here");
}

TEST_F(EngineDownloadsTest, OfALinkToAnotherSiteGoWhereTheUserWantsThem) {
    LocalServer other;
    server.Page(QStringLiteral("/page"), "<p>hello</p>");
    other.Redirect(QStringLiteral("/x"), server.Address(QStringLiteral("/far")));
    server.Raw(QStringLiteral("/far"), Attachment("from afar", "filename=theirs.bin"));
    desk.Load(server.Address(QStringLiteral("/page")));
    const Text path = folder.PathText("mine.bin");
    EXPECT_EQ(desk.view->Tools()->Save(FromQt(other.Address(QStringLiteral("/x"))), path), Outcome::Done);
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(First().Path, path);
    EXPECT_EQ(Saved(), "from afar");
    EXPECT_EQ(other.requests, QStringList{QStringLiteral("/x")}) << "nothing else is asked of it";
}

TEST_F(EngineDownloadsTest, OfALinkThatCameToNothingOverwriteNothingLater) {
    server.Page(QStringLiteral("/page"), "<p>hello</p>");
    server.Stall(QStringLiteral("/first"));
    desk.Load(server.Address(QStringLiteral("/page")));
    const Text path = folder.PathText("mine.bin");
    EXPECT_EQ(desk.view->Tools()->Save(FromQt(server.Address(QStringLiteral("/first"))), path), Outcome::Done);
    ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/first")); }));
    folder.Write("mine.bin", "precious");
    server.Raw(QStringLiteral("/first"), Attachment("evil", "filename=mine.bin"));
    desk.Navigate(server.Address(QStringLiteral("/first?again")));
    desk.Navigate(server.Address(QStringLiteral("/first")));
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_NE(First().Path, path);
    EXPECT_EQ(folder.Read("mine.bin"), "precious");
}

TEST_F(EngineDownloadsTest, ThatAreFetchedAnewKeepTheirLineThroughARedirect) {
    const std::int32_t id = SaveAndLose();
    server.Redirect(QStringLiteral("/get"), QStringLiteral("/moved"));
    server.Raw(QStringLiteral("/moved"), Attachment("moved", "filename=again.txt"));
    downloads.Retry(id);
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(downloads.All().size(), 1U);
    EXPECT_EQ(First().Id, id);
    EXPECT_EQ(Saved(), "moved");
}

TEST_F(EngineDownloadsTest, ThatAreFetchedAnewKeepTheirLineOnTheWayToAnotherSite) {
    const std::int32_t id = SaveAndLose();
    LocalServer other;
    server.Redirect(QStringLiteral("/get"), other.Address(QStringLiteral("/moved")));
    other.Raw(QStringLiteral("/moved"), Attachment("moved far", "filename=again.txt"));
    downloads.Retry(id);
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(downloads.All().size(), 1U);
    EXPECT_EQ(First().Id, id);
    EXPECT_EQ(Saved(), "moved far");
}

TEST_F(EngineDownloadsTest, OfPrivatePagesAreFetchedAnewByPrivatePages) {
    desk.engine.Profiles().PrivateMade.ConnectForLife([this](QWebEngineProfile& profile) { desktop.Follow(profile); });
    QByteArray cookies;
    server.Answer(QStringLiteral("/get"), [&](const QByteArray& request) {
        cookies = request.contains("Cookie: who=private") ? "private"
                  : request.contains("Cookie:")           ? "ordinary"
                                                          : "none";
        return Attachment("x", "filename=x.txt");
    });
    server.Page(QStringLiteral("/ordinary"), "<script>document.cookie = 'who=ordinary'</script>");
    server.Page(QStringLiteral("/private"), "<script>document.cookie = 'who=private'</script>");
    desk.Load(server.Address(QStringLiteral("/ordinary")));
    auto hidden = desk.engine.Create(2, desk.events, Privacy::Private);
    ResumeNext(hidden->Navigate(FromQt(server.Address(QStringLiteral("/private")))));
    ASSERT_TRUE(WaitUntil([&] { return desk.events.Count(QStringLiteral("D:/private")) > 0; }));
    ResumeNext(hidden->Navigate(FromQt(server.Address(QStringLiteral("/get")))));
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(cookies, "private");
    EXPECT_EQ(First().Kept, Remembered::No);
    const auto breakOff = [&] {
        downloads.OnReport(First().Id, {DownloadState::Broken, DownloadProblem::Gone, 0, -1});
        QFile::remove(ToQt(First().Path));
        cookies.clear();
    };
    breakOff();
    downloads.Retry(First().Id);
    ASSERT_TRUE(WaitFor(DownloadState::Done));
    EXPECT_EQ(cookies, "private");
    breakOff();
    const QPointer<QWebEngineProfile> profile = desk.engine.Profiles().Get(Privacy::Private);
    hidden.reset();
    ASSERT_TRUE(WaitUntil([&] { return profile.isNull(); }));
    downloads.Retry(First().Id);
    EXPECT_EQ(First().Report.State, DownloadState::Broken) << "who fetched it is gone";
    Settle(desk.engine, desk.Real().Page());
    EXPECT_EQ(cookies, "");
}

TEST_F(EngineDownloadsTest, ThatComeWhenTheirPageHasGoneAreAFewAtMost) {
    LateServer late;
    auto view = desk.engine.Create(2, desk.events, Privacy::Ordinary);
    ResumeNext(view->Navigate(FromQt(late.Address())));
    ASSERT_TRUE(WaitUntil([&] { return late.Waiting() == 5; }));
    const QPointer<WebPage> page = dynamic_cast<PageView&>(*view).Page();
    ASSERT_TRUE(page);
    view.reset();
    ASSERT_TRUE(WaitUntil([&] { return page.isNull(); }));
    // Engines of 6.8 do not bear that one comes when its profile goes.
    int asked = 0;
    QObject::connect(desk.engine.Profiles().Get(), &QWebEngineProfile::downloadRequested, &desk.window,
                     [&] { ++asked; });
    late.Allow();
    ASSERT_TRUE(WaitFor(DownloadState::Done, 3));
    ASSERT_TRUE(WaitUntil([&] { return asked == 5; }));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_EQ(downloads.All().size(), 3u);
}

TEST_F(EngineDownloadsTest, OfAPageThatGoesWhileTheyComeDoNoHarm) {
    for (int round = 0; round < 20; ++round) {
        LateServer late;
        auto view = desk.engine.Create(2, desk.events, Privacy::Ordinary);
        ResumeNext(view->Navigate(FromQt(late.Address())));
        ASSERT_TRUE(WaitUntil([&] { return late.Waiting() == 5; }));
        const QPointer<WebPage> page = dynamic_cast<PageView&>(*view).Page();
        int asked = 0;
        QObject::connect(desk.engine.Profiles().Get(), &QWebEngineProfile::downloadRequested, &desk.window, [&] {
            if (++asked == 1 + round % 4) view.reset();
        });
        late.Allow();
        ASSERT_TRUE(WaitUntil([&] { return asked == 5 && page.isNull(); })) << asked;
        desk.engine.Profiles().Get()->disconnect(&desk.window);
    }
    SUCCEED() << "nobody has asked for a page that was there no more";
}

TEST_F(EngineDownloadsTest, OfAPageThatHasGoneComeWhileADocumentIsAwaited) {
    const QString slow = QStringLiteral("/slow.png");
    server.Raw(slow, "HTTP/1.1 200 OK\r\nContent-Type: image/png\r\nCache-Control: no-store\r\nConnection: close\r\n"
                     "Content-Length: 5\r\n\r\nwords");
    desk.Load(server.Address(slow));
    server.Stall(slow);
    source.own.Save(*desk.Real().Page(), ToQt(folder.PathText("slow.png")), {});
    ASSERT_TRUE(WaitUntil([&] { return server.requests.count(slow) == 2; }));
    LateServer late;
    auto view = desk.engine.Create(2, desk.events, Privacy::Ordinary);
    ResumeNext(view->Navigate(FromQt(late.Address())));
    ASSERT_TRUE(WaitUntil([&] { return late.Waiting() == 5; }));
    const QPointer<WebPage> page = dynamic_cast<PageView&>(*view).Page();
    view.reset();
    ASSERT_TRUE(WaitUntil([&] { return page.isNull(); }));
    int asked = 0;
    QObject::connect(desk.engine.Profiles().Get(), &QWebEngineProfile::downloadRequested, &desk.window,
                     [&] { ++asked; });
    late.Allow();
    EXPECT_TRUE(WaitFor(DownloadState::Done, 3));
    EXPECT_TRUE(WaitUntil([&] { return asked == 5; }));
}

TEST_F(EngineDownloadsTest, ThatWereBlockedForGoodDoNotComeByAClickEither) {
    FakeSettings settings;
    SitePermissions kept{settings};
    kept.Remember({FromQt(server.Address({})), SitePermission::Downloads, false});
    desk.host.permissions = &kept;
    desk.Replace(Privacy::Ordinary);
    server.Page(QStringLiteral("/page"), "<a id=kept download='y.txt' href='data:text/plain,y'>keep</a>"
                                         "<script>kept.onclick = () => document.title = 'clicked'</script>");
    desk.Load(server.Address(QStringLiteral("/page")));
    desk.Real().Page()->NotePerson();
    const QSignalSpy asked(desk.Real().Page()->profile(), &QWebEngineProfile::downloadRequested);
    desk.ClickOn(QStringLiteral("kept"));
    ASSERT_TRUE(WaitUntil([&] { return !asked.isEmpty() && desk.Real().Page()->title() == u"clicked"; }));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_TRUE(downloads.All().empty());
}

TEST_F(EngineDownloadsTest, OfAPageThatSavesAndSavesWaitForItsUser) {
    server.Page(QStringLiteral("/page"),
                "<body><script>for (let i = 0; i < 40; ++i) { const a = document.createElement('a');"
                "a.href = 'data:text/plain,' + i; a.download = 'storm.txt'; document.body.append(a); a.click(); }"
                "document.title = 'stormed'</script>");
    desk.Load(server.Address(QStringLiteral("/page")));
    ASSERT_TRUE(WaitUntil([this] { return desk.Real().Questions()->questions.Current() != nullptr; }));
    ASSERT_TRUE(WaitFor(DownloadState::Done, 1));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_LE(downloads.All().size(), DownloadRule::kFree);
    EXPECT_EQ(desk.Real().Questions()->questions.Current()->Words,
              FromQt(QStringLiteral("127.0.0.1:%1 wants to save several files.").arg(server.serverPort())));
}

TEST_F(EngineDownloadsTest, OfAPageThatClicksItsOwnLinksWaitForItsUser) {
    QFile page(QStringLiteral(HOSTILE_PAGES "/download-storm.html"));
    ASSERT_TRUE(page.open(QFile::ReadOnly));
    server.Page(QStringLiteral("/page"), page.readAll());
    server.Raw(QStringLiteral("/storm.bin"), Attachment("storm", "filename=storm.bin"));
    desk.Load(server.Address(QStringLiteral("/page")));
    const auto& questions = desk.Real().Questions()->questions;
    ASSERT_TRUE(WaitUntil([&] { return questions.Current() != nullptr; }));
    // However often it clicks from now on, the question stays and nothing more is saved.
    const QString clicks = desk.Script(QStringLiteral("window.clicks = 0; setInterval(() => ++clicks, 100); clicks"));
    ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("clicks")).toInt() > clicks.toInt() + 5; }));
    ASSERT_NE(questions.Current(), nullptr) << "it went away by itself";
    EXPECT_LE(downloads.All().size(), DownloadRule::kFree);
    desk.Real().Questions()->questions.Answer(1, false);
    const int before = desk.Script(QStringLiteral("clicks")).toInt();
    ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("clicks")).toInt() > before + 5; }));
    EXPECT_EQ(questions.Current(), nullptr) << "who was refused does not ask again";
    EXPECT_LE(downloads.All().size(), DownloadRule::kFree);
    server.Raw(QStringLiteral("/get"), Attachment("x", "filename=wanted.txt"));
    // A click that the page makes at the same moment may take the navigation's place.
    desk.Script(QStringLiteral("for (let timer = 0; timer < 1000; ++timer) clearInterval(timer)"));
    desk.Navigate(server.Address(QStringLiteral("/get")));
    EXPECT_TRUE(WaitUntil([&] { return First().Name() == u"wanted.txt"; })) << "what the user asks for comes";
}

TEST_F(EngineDownloadsTest, ThatAPersonClicksForAreNeverAskedAbout) {
    server.Raw(QStringLiteral("/get"), Attachment("x", "filename=x.txt"));
    server.Page(QStringLiteral("/page"), "<a id=kept download='y.txt' href='data:text/plain,y'>keep</a><br>"
                                         "<a id=get href='/get'>get</a>");
    desk.Load(server.Address(QStringLiteral("/page")));
    std::size_t saved = 0;
    for (std::size_t i = 0; i <= DownloadRule::kFree; ++i) {
        for (const auto* id : {"kept", "get"}) {
            desk.ClickOn(QLatin1String(id));
            ASSERT_TRUE(WaitFor(DownloadState::Done, ++saved)) << saved;
        }
    }
    EXPECT_EQ(desk.Real().Questions()->questions.Current(), nullptr);
}

} // namespace

} // namespace tessa::qt
