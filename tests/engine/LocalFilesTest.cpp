// Tests: Requests
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/engine/Requests.h"
#include "tests/engine/EngineDesk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QFile>
#include <QUrl>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>
#include <algorithm>

namespace tessa::qt {

namespace {

/// A page that somebody was sent, and a file that is none of its business.
class LocalFiles : public testing::Test {
protected:
    LocalFiles() {
        secret.Write("key", "TOP SECRET");
        desk.engine.Profiles().Made.ConnectForLife(
            [this](QWebEngineProfile& profile) { profile.setUrlRequestInterceptor(&requests); });
    }

    [[nodiscard]] static QString AddressOf(const TemporaryFolder& folder, const char* name) {
        return QUrl::fromLocalFile(QString::fromStdString(folder.Path(name))).toString();
    }
    void LoadWith(const QString& script) {
        sent.Write("page.html", "<title>waiting</title><body><script>" + script.toStdString() + "</script>");
        desk.Load(AddressOf(sent, "page.html"));
    }
    /// A page whose script reads what a frame in it shows.
    void LoadWithFrame(const QString& address) {
        LoadWith(QStringLiteral("const f = document.createElement('iframe'); f.src = '%1'; f.onload = () => {"
                                "try { document.title = 'read ' + f.contentDocument.body.textContent }"
                                "catch (e) { document.title = 'refused' } }; document.body.append(f)")
                     .arg(address));
    }
    bool Titled(const QString& title) {
        const auto now = [this] { return desk.Script(QStringLiteral("document.title")); };
        return WaitUntil([&] { return now() == title; }) || (ADD_FAILURE() << now().toStdString(), false);
    }

    TemporaryFolder sent, secret;
    Requests requests{[] { return ServiceTemplates(); }};
    EngineView desk;
};

TEST_F(LocalFiles, AreNotReadByALocalPageOfAnotherFolder) {
    LoadWith(QStringLiteral("const r = new XMLHttpRequest(); try { r.open('GET', '%1', false); r.send();"
                            "document.title = 'read ' + r.responseText } catch (e) { document.title = 'refused' }")
                 .arg(AddressOf(secret, "key")));
    EXPECT_TRUE(Titled(QStringLiteral("refused")));
}

TEST_F(LocalFiles, AreNotReadByALocalPageBesideThem) {
    sent.Write("beside.txt", "TOP SECRET");
    LoadWith(QStringLiteral("fetch('beside.txt').then(r => r.text()).then(t => document.title = 'read ' + t,"
                            "() => document.title = 'refused')"));
    EXPECT_TRUE(Titled(QStringLiteral("refused")));
}

TEST_F(LocalFiles, AreNotReadThroughAFrame) {
    LoadWithFrame(AddressOf(secret, "key"));
    EXPECT_TRUE(Titled(QStringLiteral("refused")));
}

TEST_F(LocalFiles, AreNotListedThroughAFrame) {
    LoadWithFrame(AddressOf(secret, ""));
    EXPECT_TRUE(Titled(QStringLiteral("refused")));
}

TEST_F(LocalFiles, AreNotReadThroughAWorker) {
    LoadWith(
        QStringLiteral("const code = 'const r = new XMLHttpRequest(); try { r.open(`GET`, `%1`, false); r.send();"
                       "postMessage(`read ` + r.responseText) } catch (e) { postMessage(`refused`) }';"
                       "new Worker(URL.createObjectURL(new Blob([code]))).onmessage = e => document.title = e.data")
            .arg(AddressOf(secret, "key")));
    EXPECT_TRUE(Titled(QStringLiteral("refused")));
}

TEST_F(LocalFiles, AreNotReadThroughASharedWorker) {
    LoadWith(QStringLiteral("const code = 'const r = new XMLHttpRequest(); let t = `refused`; try { r.open(`GET`, `%1`,"
                            "false); r.send(); t = `read ` + r.responseText } catch (e) {}"
                            "onconnect = e => e.ports[0].postMessage(t)';"
                            "const w = new SharedWorker(URL.createObjectURL(new Blob([code])));"
                            "w.onerror = () => document.title = 'refused';"
                            "w.port.onmessage = e => document.title = e.data")
                 .arg(AddressOf(secret, "key")));
    EXPECT_TRUE(Titled(QStringLiteral("refused")));
}

TEST_F(LocalFiles, AreNotReadThroughAWorkerOfAPicture) {
    sent.Write("drawn.svg",
               "<svg xmlns='http://www.w3.org/2000/svg'><title>waiting</title><script>const code = 'const r = "
               "new XMLHttpRequest(); try { r.open(`GET`, `" +
                   AddressOf(secret, "key").toStdString() +
                   "`, false); r.send(); postMessage(`read ` + r.responseText) } catch (e) { postMessage(`refused`) }';"
                   "new Worker(URL.createObjectURL(new Blob([code]))).onmessage ="
                   "e => document.querySelector('title').textContent = e.data</script></svg>");
    desk.Load(AddressOf(sent, "drawn.svg"));
    EXPECT_TRUE(Titled(QStringLiteral("refused")));
}

TEST_F(LocalFiles, AreKeptWithSwitchesThatNoOtherProgramGets) {
    EXPECT_FALSE(qgetenv("QTWEBENGINE_CHROMIUM_FLAGS").contains("blink-settings"));
}

TEST_F(LocalFiles, AreNotReadThroughAnObject) {
    LoadWith(QStringLiteral("const o = document.createElement('object'); o.data = '%1'; document.body.append(o);"
                            "o.onload = o.onerror = () => document.title = o.contentDocument &&"
                            "o.contentDocument.body.textContent.includes('SECRET') ? 'read' : 'refused'")
                 .arg(AddressOf(secret, "key")));
    EXPECT_TRUE(Titled(QStringLiteral("refused")));
}

TEST_F(LocalFiles, AreNotReadThroughAnotherWindow) {
    auto opened = desk.engine.Create(2, desk.events, Privacy::Ordinary);
    desk.events.supplyView = [&] { return opened.get(); };
    const std::string address = AddressOf(secret, "key").toStdString();
    sent.Write("page.html",
               "<p>words</p><button id=b>open</button><script>var w; b.onclick = () => { w = window.open('" + address +
                   "') }</script>");
    desk.Load(AddressOf(sent, "page.html"));
    desk.ClickOn(QStringLiteral("b"));
    opened->BringToFront();
    EXPECT_TRUE(WaitUntil([&] { return opened->LocationURL() == FromQt(AddressOf(secret, "key")); }))
        << "it is shown all the same";
    // What the page holds is no window any more.
    EXPECT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("String(!w || w.closed)")) == u"true"; }));
    opened.reset();
}

constexpr auto kDot =
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNkYPhfDwAChwGA60e6kgAAAABJRU5ErkJggg==";

QByteArray Answered(const QByteArray& type, const QByteArray& body) {
    return "HTTP/1.1 200 OK\r\nContent-Type: " + type + "\r\nContent-Length: " + QByteArray::number(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

/// A page that was saved with all that belongs to it.
TEST(SavedPages, ShowTheirPicturesAndStyles) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<title>Kept</title><link rel=stylesheet href=/style.css>"
                                         "<p id=p>words</p><img id=dot src=/dot.png><iframe src=/inner></iframe>");
    server.Page(QStringLiteral("/inner"), "<p>inner</p><img src=/dot.png>");
    server.Raw(QStringLiteral("/style.css"), Answered("text/css", "p { color: rgb(1, 2, 3) }"));
    server.Raw(QStringLiteral("/dot.png"), Answered("image/png", QByteArray::fromBase64(kDot)));
    TemporaryFolder folder;
    Requests requests{[] { return ServiceTemplates(); }};
    EngineView desk;
    bool saved = false;
    desk.engine.Profiles().Made.ConnectForLife([&](QWebEngineProfile& profile) {
        profile.setUrlRequestInterceptor(&requests);
        QObject::connect(&profile, &QWebEngineProfile::downloadRequested, &profile,
                         [&](QWebEngineDownloadRequest* request) {
                             QObject::connect(request, &QWebEngineDownloadRequest::isFinishedChanged, request,
                                              [&] { saved = true; });
                             request->accept();
                         });
    });
    desk.Load(server.Address(QStringLiteral("/page")));
    desk.Real().Page()->save(QString::fromStdString(folder.Path("kept.html")),
                             QWebEngineDownloadRequest::CompleteHtmlSaveFormat);
    ASSERT_TRUE(WaitUntil([&] { return saved; }));
    const auto asked = server.requests.size();
    desk.Load(QUrl::fromLocalFile(QString::fromStdString(folder.Path("kept.html"))).toString());
    EXPECT_EQ(desk.Script(QStringLiteral("document.title")), u"Kept");
    EXPECT_EQ(desk.Script(QStringLiteral("String(document.getElementById('dot').naturalWidth)")), u"1");
    EXPECT_EQ(desk.Script(QStringLiteral("getComputedStyle(document.getElementById('p')).color")), u"rgb(1, 2, 3)");
    const auto isFrames = [](const QString& line) {
        return line.startsWith(u"Nframe:") && line.endsWith(u"inner.html");
    };
    EXPECT_TRUE(WaitUntil([&] { return std::ranges::any_of(desk.events.lines, isFrames); }))
        << desk.events.Take().toStdString();
    EXPECT_EQ(server.requests.size(), asked) << "all of it lies on the disk";
}

} // namespace

} // namespace tessa::qt
