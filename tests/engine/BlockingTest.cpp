// Tests: Blocker, BlockedPages, EmptyAnswers, ListUpdates
#include "base/os/AtomicFile.h"
#include "qt/base/Strings.h"
#include "qt/blocking/ListUpdates.h"
#include "tests/engine/BlockingView.h"

#include <QSslConfiguration>

namespace tessa::qt {

namespace {

struct KindCase {
    const char *name, *option, *script; ///< the script asks for the address in `url`
};

const std::vector<KindCase>& Kinds() {
    static const std::vector<KindCase> kinds{
        {"image", "image", "new Image().src = url"},
        {"script", "script", "add('script', { src: url })"},
        {"style", "stylesheet", "add('link', { rel: 'stylesheet', href: url })"},
        {"frame", "subdocument", "add('iframe', { src: url })"},
        {"xhr", "xmlhttprequest", "fetch(url).catch(() => 0)"},
        {"ping", "ping", "navigator.sendBeacon(url, 'x')"},
        {"media", "media", "add('audio', { src: url, preload: 'auto' })"},
        {"font", "font", "new FontFace('f', 'url(' + url + ')').load().catch(() => 0)"},
        {"socket", "websocket", "new WebSocket(url.replace('http:', 'ws:'))"},
        {"worker", "script", "new Worker(url)"},
    };
    return kinds;
}

TEST(Blocking, RequestsOfEachTypeAreNeverMade) {
    LocalServer server;
    std::string rules;
    QByteArray scripts;
    for (const KindCase& each : Kinds()) {
        rules += std::string("/blocked-") + each.name + "^$" + each.option + "\n";
        for (const char* which : {"blocked", "free"}) {
            const QString path = QStringLiteral("/%1-%2").arg(QLatin1String(which), QLatin1String(each.name));
            server.Page(path, "x");
            scripts += "(url => " + QByteArray(each.script) + ")('" + server.Address(path).toUtf8() + "');\n";
        }
    }
    server.Page(QStringLiteral("/page"),
                "<title>page</title><body><script>function add(name, values) {"
                "document.body.append(Object.assign(document.createElement(name), values)) }\n" +
                    scripts + "</script>");
    BlockingView desk(rules.c_str());
    desk.view.Load(server.Address(QStringLiteral("/page")));
    for (const KindCase& each : Kinds()) {
        const QString free = QStringLiteral("/free-") + QLatin1String(each.name);
        EXPECT_TRUE(WaitUntil([&] { return server.requests.contains(free); })) << each.name;
    }
    for (const KindCase& each : Kinds())
        EXPECT_TRUE(WaitUntil([&] { return desk.Counts(QStringLiteral("/blocked-") + QLatin1String(each.name)); }))
            << each.name;
    EXPECT_EQ(server.requests.filter(QStringLiteral("blocked")).join(u' ').toStdString(), "");
    EXPECT_EQ(desk.pages.On(desk.Page()).size(), Kinds().size());
    EXPECT_EQ(desk.Count(), static_cast<int>(Kinds().size()));
}

TEST(Blocking, APageItselfIsNeverStopped) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<title>page</title>");
    BlockingView desk("||127.0.0.1^$all\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    EXPECT_TRUE(desk.WaitTitle(QStringLiteral("page")));
}

TEST(Blocking, WindowsStayClosed) {
    LocalServer server;
    server.Page(QStringLiteral("/ad-window"), "<title>ad</title>");
    server.Page(QStringLiteral("/page"),
                "<title>page</title><body onclick=\"window.open('/ad-window')\" id=body style=\"height:300px\">x");
    BlockingView desk("/ad-window$popup\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    desk.view.ClickOn(QStringLiteral("body"));
    EXPECT_TRUE(WaitUntil([&] { return desk.Count() == 1; }));
    EXPECT_FALSE(server.requests.contains(QStringLiteral("/ad-window")));
}

TEST(Blocking, AWindowThatIsOpenedBlankAndThenLedOnIsItsOpenersDoing) {
    LocalServer server;
    server.Page(QStringLiteral("/ad-window"), "<title>ad</title>");
    server.Page(QStringLiteral("/fine"), "<title>fine</title>");
    server.Page(QStringLiteral("/page"),
                "<title>page</title><body id=body style=\"height:300px\" onclick=\"w = window.open('about:blank')\">x");
    BlockingView desk("/ad-window$popup\n");
    EventRecorder its;
    std::vector<std::unique_ptr<BrowserView>> opened;
    desk.view.events.supplyView = [&] {
        const auto index = static_cast<std::int16_t>(opened.size() + 2);
        return opened.emplace_back(desk.view.engine.Create(index, its, Privacy::Ordinary)).get();
    };
    desk.view.Load(server.Address(QStringLiteral("/page")));
    for (const char* path : {"/ad-window", "/fine"}) {
        desk.view.ClickOn(QStringLiteral("body"));
        ASSERT_TRUE(WaitUntil([&] { return desk.view.Script(QStringLiteral("typeof w")) == u"object"; }));
        desk.view.Script(QStringLiteral("w.location = '%1'; delete window.w; 1").arg(QLatin1String(path)));
        const QString awaited = QLatin1String(path) == u"/fine" ? QStringLiteral("T:fine") : QStringLiteral("X");
        EXPECT_TRUE(WaitUntil([&] { return its.lines.contains(awaited); })) << path << its.Take().toStdString();
    }
    EXPECT_EQ(desk.Count(), 1);
    EXPECT_FALSE(server.requests.contains(QStringLiteral("/ad-window")));
    // What it shows by then is a page of its own.
    ASSERT_EQ(opened.back()->Navigate(FromQt(server.Address(QStringLiteral("/ad-window")))), Outcome::Done);
    EXPECT_TRUE(WaitUntil([&] { return its.lines.contains(QStringLiteral("T:ad")); }));
    opened.clear();
}

TEST(Blocking, PagesOfOneAddressAreCountedEachForItself) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<title>page</title><img src=/ad.gif>");
    server.Page(QStringLiteral("/free"), "x");
    BlockingView desk("/ad.gif\n/ad.js\n");
    EventRecorder its;
    const auto other = desk.view.engine.Create(2, its, Privacy::Ordinary);
    const auto privately = desk.view.engine.Create(3, its, Privacy::Private);
    desk.view.Load(server.Address(QStringLiteral("/page")));
    for (auto* each : {other.get(), privately.get()})
        ASSERT_EQ(each->Navigate(FromQt(server.Address(QStringLiteral("/page")))), Outcome::Done);
    const auto count = [&](const std::unique_ptr<BrowserView>& view) {
        return desk.pages.Count(static_cast<PageView&>(*view).Page());
    };
    EXPECT_TRUE(WaitUntil([&] { return count(other) == 1 && count(privately) == 1; }));
    EXPECT_EQ(desk.Count(), 1);
    desk.view.Script(QStringLiteral("for (let i = 0; i < 3; ++i) new Image().src = '/ad.gif?' + i; "
                                    "fetch('/ad.js').catch(() => 0); fetch('/free'); 1"));
    EXPECT_TRUE(WaitUntil([&] { return desk.Count() == 5; }));
    EXPECT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/free")); }));
    EXPECT_EQ(count(other), 1);
    EXPECT_EQ(count(privately), 1);
    EXPECT_EQ(server.requests.filter(QStringLiteral("ad.")).join(u' ').toStdString(), "");
}

TEST(Blocking, WhatWasStoppedLeavesNoBox) {
    LocalServer server;
    server.Page(QStringLiteral("/page"),
                "<title>page</title><body><img id=one src=/ad-1><iframe id=two src=/ad-2></iframe>"
                "<object id=three data=/ad-3></object><embed id=four src=/ad-4><video id=five src=/ad-5></video>"
                "<video id=six><source src=/ad-6></video><input id=seven type=image src=/ad-7>"
                "<img id=broken src=/gone.png><iframe id=frame src=/inside></iframe>");
    server.Page(QStringLiteral("/inside"), "<img id=inner src=/ad-8>");
    BlockingView desk("/ad-\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    const QString seen =
        QStringLiteral("Array.from(document.body.children).filter(e => getComputedStyle(e).display !== 'none')"
                       ".map(e => e.id).join(' ')");
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(seen) == u"broken frame"; }))
        << desk.view.Script(seen).toStdString();
    EXPECT_TRUE(WaitUntil([&] {
        return desk.view.Script(QStringLiteral(
                   "getComputedStyle(frame.contentDocument.getElementById('inner')).display")) == u"none";
    }));
    desk.view.Script(
        QStringLiteral("document.body.append(Object.assign(new Image(), { id: 'late', src: '/ad-9' })); 1"));
    EXPECT_TRUE(WaitUntil([&] {
        return desk.view.Script(seen) == u"broken frame" && desk.Counts(QStringLiteral("/ad-9"));
    })) << desk.view.Script(seen).toStdString()
        << ' ' << desk.Count();
}

TEST(Blocking, APictureThatFailedBeforeItCameIntoThePageLeavesNoBoxEither) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<title>page</title><body>");
    for (const char* more : {"", "@@||127.0.0.1^$generichide\n"}) {
        BlockingView desk((std::string("/ad-\n") + more).c_str());
        desk.view.Load(server.Address(QStringLiteral("/page")));
        desk.view.Script(QStringLiteral("image = new Image(100, 100); image.onerror = () => "
                                        "document.body.insertAdjacentElement('beforeend', document.createElement('p'))"
                                        ".append(image); image.src = '/ad-1'; 1"));
        EXPECT_TRUE(WaitUntil([&] {
            return desk.view.Script(QStringLiteral("image.isConnected && getComputedStyle(image).display")) == u"none";
        })) << more;
    }
}

TEST(Blocking, APictureThatFailedButWasNotStoppedIsAsItsPageWantsIt) {
    LocalServer server;
    server.Raw(QStringLiteral("/fine.svg"),
               "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nConnection: close\r\n\r\n"
               "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    server.Page(QStringLiteral("/page"),
                "<title>page</title><body><img id=one src=/gone-1 style='display: block !important'>"
                "<img id=two src=/gone-2 style='display: block' onerror=\"this.style.display = 'none'\">"
                "<img id=three src=/gone-3 onerror=\"this.style.visibility = 'hidden'\">"
                "<img id=four src=/ad-1 loading=lazy onerror=\"this.onerror = null; this.src = '/fine.svg'\">"
                "<img id=five src=/ad-2>");
    BlockingView desk("/ad-\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    const QString styles = QStringLiteral("[one, two, three, four].map(e => getComputedStyle(e))"
                                          ".map(s => s.display + ' ' + s.visibility).join(', ')");
    EXPECT_TRUE(
        WaitUntil([&] { return desk.view.Script(QStringLiteral("getComputedStyle(five).display")) == u"none"; }));
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(QStringLiteral("String(four.naturalWidth)")) == u"9"; }));
    EXPECT_TRUE(WaitUntil([&] {
        return desk.view.Script(styles) == u"block visible, none visible, inline hidden, inline visible";
    })) << desk.view.Script(styles).toStdString();
    EXPECT_EQ(desk.view.Script(QStringLiteral("one.style.getPropertyPriority('display')")), u"important");
}

TEST(Blocking, APlaceThatIsGivenAnotherSourceIsSeenAgain) {
    LocalServer server;
    server.Page(QStringLiteral("/inside"), "<p>words");
    server.Page(QStringLiteral("/page"), "<title>page</title><body><iframe id=frame src=/ad-1></iframe>");
    BlockingView desk("/ad-\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    const QString display = QStringLiteral("getComputedStyle(frame).display");
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(display) == u"none"; }));
    desk.view.Script(QStringLiteral("frame.src = '/inside'; 1"));
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(display) == u"inline"; }));
}

TEST(Blocking, WhereRulesSayAnEmptyAnswerIsGivenInstead) {
    LocalServer server;
    server.Page(
        QStringLiteral("/page"),
        "<title>page</title><meta http-equiv=content-security-policy content=\"script-src 'self' 'unsafe-inline'; "
        "img-src 'self'\"><body><script>seen = '';"
        "const note = name => ({ onload: () => { seen += name + ' ' }, onerror: () => { seen += 'no ' + name + ' ' } "
        "});"
        "const add = (name, values, told) => document.body.append(Object.assign(document.createElement(name), values, "
        "note(told)));"
        "add('script', { src: '/ad.js' }, 'script'); add('script', { src: '/plain.js' }, 'plain');"
        "add('img', { src: '/ad.gif' }, 'picture'); add('iframe', { src: '/ad.html' }, 'frame');"
        "add('link', { rel: 'stylesheet', href: '/ad.css' }, 'style');"
        "fetch('/ad.txt').then(r => r.text()).then(t => { seen += 'text:' + t + ' ' });"
        "</script>");
    BlockingView desk("/ad.js$script,redirect=noopjs\n/plain.js\n/ad.gif$image,redirect=1x1.gif\n"
                      "/ad.html$subdocument,redirect=noopframe\n/ad.css$stylesheet,redirect=noopcss\n"
                      "/ad.txt$xmlhttprequest,redirect=nooptext\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    EXPECT_TRUE(WaitUntil([&] {
        QStringList seen = desk.view.Script(QStringLiteral("seen")).trimmed().split(u' ');
        seen.sort();
        return seen.join(u' ') == u"frame no picture plain script style text:";
    })) << desk.view.Script(QStringLiteral("seen")).toStdString();
    EXPECT_EQ(desk.Count(), 6);
    EXPECT_EQ(server.requests.filter(QStringLiteral(".")).join(u' ').toStdString(), "");
}

TEST(Blocking, OffOnASiteNothingIsBlockedOrHidden) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), QByteArray(kHidingPage) + "<img src=/ad.gif>");
    BlockingView desk("##.ad\n127.0.0.1###box\n/ad.gif\n");
    desk.blocker.SwitchOn(QUrl(server.Address(QStringLiteral("/page"))), false);
    desk.view.Load(server.Address(QStringLiteral("/page")));
    EXPECT_TRUE(WaitUntil([&] { return server.requests.contains(QStringLiteral("/ad.gif")); }));
    ExpectSeen(desk, "one two box three");
    desk.blocker.SwitchOn(QUrl(server.Address(QStringLiteral("/page"))), true);
    desk.view.Load(server.Address(QStringLiteral("/page")));
    EXPECT_EQ(server.requests.count(QStringLiteral("/ad.gif")), 1);
    ExpectSeen(desk, "two three");
}

TEST(Blocking, ExceptionsOfPagesCount) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), kHidingPage);
    BlockingView desk("##.ad\n127.0.0.1###box\n@@||127.0.0.1^$generichide\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    ExpectSeen(desk, "one two three");
}

TEST(Blocking, PrivatePagesAreBlockedToo) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), QByteArray(kHidingPage) + "<img src=/ad.gif>");
    BlockingView desk("##.ad\n/ad.gif\n");
    desk.view.Replace(Privacy::Private);
    desk.view.Load(server.Address(QStringLiteral("/page")));
    EXPECT_TRUE(WaitUntil([&] { return desk.Count() == 1; }));
    ExpectSeen(desk, "two box three");
}

TEST(Blocking, SwitchedOffThereIsNothingOfIt) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), kHidingPage);
    BlockingView desk("##.ad\n");
    BlockingSettings(desk.settings).Set({.on = false, .listsChosen = true});
    desk.blocker.Apply();
    EXPECT_EQ(desk.blocker.Rules(), nullptr);
    desk.view.Load(server.Address(QStringLiteral("/page")));
    ExpectSeen(desk, "one two box three");
}

/// Takes whatever certificate a server has, while it is there.
struct AnyCertificate {
    AnyCertificate() {
        QSslConfiguration any = before;
        any.setPeerVerifyMode(QSslSocket::VerifyNone);
        QSslConfiguration::setDefaultConfiguration(any);
    }
    ~AnyCertificate() { QSslConfiguration::setDefaultConfiguration(before); }
    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
};

QByteArray Response(const QByteArray& status, const QByteArray& headers, const QByteArray& body) {
    return "HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + QByteArray::number(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

/// Lists of a server of the test's own, and what is said of them.
struct Updating {
    explicit Updating(std::vector<Text> lists) {
        BlockingSettings(settings).Set({.on = true, .lists = std::move(lists), .listsChosen = true});
        blocker.Apply();
        EXPECT_TRUE(WaitUntil([this] { return blocker.Rules() != nullptr; }));
    }
    std::string Update() {
        Text said;
        updates.Update([&said](const Text& words) { said = words; });
        EXPECT_TRUE(WaitUntil([&] { return !said.empty(); }));
        return ToUtf8(said);
    }
    AnyCertificate any;
    FakeSettings settings;
    TemporaryFolder folder;
    Blocker blocker{settings, QString::fromStdString(folder.Path("blocking"))};
    ListUpdates updates{blocker, [] { return false; }};
};

TEST(ListUpdates, FetchAListOnceAndThenWhenItChanges) {
    LocalServer server(QStringLiteral("lists.example"));
    QByteArray list = "||ads.example^\n", asked;
    server.Answer(QStringLiteral("/list"), [&](const QByteArray& request) {
        asked = request;
        if (request.toLower().contains("if-none-match: \"" + QByteArray::number(qHash(list)) + "\""))
            return Response("304 Not Modified", {}, {});
        return Response("200 OK", "ETag: \"" + QByteArray::number(qHash(list)) + "\"\r\n", list);
    });
    const Text address = FromBytes(server.Address(QStringLiteral("/list")).toStdString());
    Updating desk({address});
    const auto rules = [&] { return desk.blocker.CountsOf(address).value_or(PackedList()).Rules; };
    EXPECT_EQ(desk.Update(), "1 list has changed.");
    EXPECT_TRUE(WaitUntil([&] { return rules() == 1; }));
    EXPECT_EQ(desk.Update(), "No list has changed.");
    list += "||b.example^\n";
    EXPECT_EQ(desk.Update(), "1 list has changed.");
    EXPECT_TRUE(WaitUntil([&] { return rules() == 2; }));
    EXPECT_FALSE(asked.toLower().contains("cookie:"));
}

TEST(ListUpdates, WhatIsNoListOrComesByHttpLeavesTheOldOne) {
    LocalServer server(QStringLiteral("lists.example")), plain;
    plain.Raw(QStringLiteral("/list"), Response("200 OK", {}, "||plain.example^\n"));
    server.Raw(QStringLiteral("/list"), Response("200 OK", {}, "||ads.example^\n"));
    const Text address = FromBytes(server.Address(QStringLiteral("/list")).toStdString());
    Updating desk({address});
    EXPECT_EQ(desk.Update(), "1 list has changed.");
    const std::vector<QByteArray> bad{
        Response("200 OK", "Content-Type: text/html\r\n", "<!doctype html><p>Please log in"),
        Response("404 Not Found", {}, "||ads.example^\n"),
        Response("200 OK", {}, {}),
        Response("302 Found", "Location: " + plain.Address(QStringLiteral("/list")).toUtf8() + "\r\n", {}),
        "HTTP/1.1 200 OK\r\nContent-Length: 100\r\nConnection: close\r\n\r\n||cut.example^\n",
    };
    for (const QByteArray& each : bad) {
        server.Raw(QStringLiteral("/list"), each);
        EXPECT_EQ(desk.Update(), "No list has changed. 1 did not come; the old one counts.") << each.toStdString();
        EXPECT_EQ(ReadWholeFile(desk.blocker.Shelf().PathOf(address)), "||ads.example^\n");
    }
    EXPECT_TRUE(plain.requests.isEmpty()) << "a list was asked for without TLS";
}

TEST(ListUpdates, OfAListThatMayBeCutTheLastLineDoesNotCount) {
    LocalServer server(QStringLiteral("lists.example"));
    const Text address = FromBytes(server.Address(QStringLiteral("/list")).toStdString());
    Updating desk({address});
    const QByteArray list = "||ads.example^\n||b.example^";
    const std::vector<std::pair<QByteArray, std::string>> answers{
        {"HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + list, "||ads.example^\n"},
        {Response("200 OK", {}, list), list.toStdString()},
    };
    for (const auto& [answer, kept] : answers) {
        server.Raw(QStringLiteral("/list"), answer);
        EXPECT_EQ(desk.Update(), "1 list has changed.");
        EXPECT_EQ(ReadWholeFile(desk.blocker.Shelf().PathOf(address)), kept);
    }
}

} // namespace

} // namespace tessa::qt
