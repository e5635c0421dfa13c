// Tests: ElementHiding
#include "tests/engine/BlockingView.h"

namespace tessa::qt {

namespace {

TEST(ElementHiding, ElementsAreHidden) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), kHidingPage);
    BlockingView desk("##.ad\n127.0.0.1###box\nother.example##.words\n##a[href^=\"http://ads.\"]\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    ExpectSeen(desk, "two");
    desk.view.Script(
        QStringLiteral("document.body.insertAdjacentHTML('beforeend', '<div><b class=\"x ad\" id=late>l</b></div>')"));
    ExpectSeen(desk, "two");
    // What gets its name later is hidden, too.
    desk.view.Script(QStringLiteral("document.getElementById('late').className = ''; 1"));
    ExpectSeen(desk, "two late");
    desk.view.Script(QStringLiteral("document.getElementById('late').className = 'ad'; 1"));
    ExpectSeen(desk, "two");
}

// Has whatever is painted of it noted by the engine, in `seen`. `both(name)` adds what rules hide by a name that was
// not there before, and what they do not; `rush(name)` does so among many others.
constexpr auto kPaintedPage = "<title>page</title><body><script>seen = [];"
                              "new PerformanceObserver(l => l.getEntries().forEach(e => seen.push(e.identifier)))"
                              ".observe({ type: 'element', buffered: true });"
                              "function add(name, kind) { document.body.insertAdjacentHTML('afterbegin',"
                              "`<p class=${kind}-${name} elementtiming=${name}-${kind}>words of ${name}</p>`) }"
                              "function both(name) { add(name, 'ad'); add(name, 'fine') }"
                              "function rush(name) { for (let n = 0; n < 400; ++n) document.body.append(Object.assign("
                              "document.createElement('i'), { className: 'c' + n })); both(name) }</script>";
constexpr auto kPaintedRules = "##.ad-page\n##.ad-script\n##.ad-later\n##.ad-rush\n##.ad-again\n##.ad-after\n"
                               "##.ad-last\n##.ad-late\n##.ad-print\n##.ad\n";

// Waits until that was painted, and no more.
void ExpectPainted(BlockingView& desk, const char* window, const char* all) {
    const QString seen =
        QStringLiteral("Array.from(new Set(%1.seen || [])).sort().join(' ')").arg(QLatin1String(window));
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(seen).toStdString() == all; }))
        << desk.view.Script(seen).toStdString();
}

TEST(ElementHiding, NothingThatIsHiddenIsEverPainted) {
    LocalServer server;
    // Elements come with the page, and from its scripts: one by one, in a rush, and right before a picture.
    server.Page(QStringLiteral("/page"),
                QByteArray(kPaintedPage) +
                    "<p class=ad-page elementtiming=page-ad>a</p><p class=fine elementtiming=page-fine>b</p>"
                    "<script>both('script'); setTimeout(() => both('later'), 0); requestAnimationFrame(() => {"
                    " rush('rush'); requestAnimationFrame(() => { rush('again'); setTimeout(() => both('after'), 0);"
                    " requestAnimationFrame(() => both('last')) }) })</script>");
    server.Page(QStringLiteral("/around"), "<title>page</title><iframe src=/page width=700 height=500></iframe>");
    BlockingView desk(kPaintedRules);
    for (const auto& [path, window] : {std::pair{"/page", "window"}, std::pair{"/around", "frames[0]"}}) {
        desk.view.Load(server.Address(QLatin1String(path)));
        ExpectPainted(desk, window, "after-fine again-fine last-fine later-fine page-fine rush-fine script-fine");
    }
}

/// Another view in front of the view, while it is there.
struct FrontView {
    explicit FrontView(BlockingView& desk) : view(desk.view.engine.Create(2, events, Privacy::Ordinary)) {
        view->Move({{0}, {0}, {800}, {600}});
        desk.view.view->MoveLeft({100000});
        view->BringToFront();
        EXPECT_TRUE(
            WaitUntil([&] { return desk.view.Script(QStringLiteral("document.visibilityState")) == u"hidden"; }));
    }
    EventRecorder events;
    std::unique_ptr<BrowserView> view;
};

TEST(ElementHiding, APageThatNobodySeesHidesToo) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), QByteArray(kPaintedPage) + kHidingPage);
    BlockingView desk(kPaintedRules);
    desk.view.Load(QStringLiteral("about:blank"));
    FrontView front(desk);
    desk.view.Load(server.Address(QStringLiteral("/page")));
    ExpectSeen(desk, "two box three");
    desk.view.Script(QStringLiteral("rush('again'); document.querySelector('.ad-again').id = 'late'; 1"));
    ExpectSeen(desk, "two box three");
    // What comes right before somebody sees it.
    desk.view.Script(QStringLiteral("rush('late'); 1"));
    front.view->MoveLeft({100000});
    desk.view.view->BringToFront();
    ExpectPainted(desk, "window", "again-fine late-fine");
}

TEST(ElementHiding, WhatIsPrintedIsHiddenBefore) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), kPaintedPage);
    BlockingView desk(kPaintedRules);
    desk.view.Load(server.Address(QStringLiteral("/page")));
    const FrontView front(desk);
    // In the middle of a rush, and without any picture.
    desk.view.Script(QStringLiteral("rush('some'); height = ''; setTimeout(() => setTimeout(() => { both('print');"
                                    "dispatchEvent(new Event('beforeprint'));"
                                    "height = document.querySelector('.ad-print').offsetHeight }, 0), 0); 1"));
    EXPECT_TRUE(WaitUntil([&] { return !desk.view.Script(QStringLiteral("height")).isEmpty(); }));
    EXPECT_EQ(desk.view.Script(QStringLiteral("height")), u"0");
}

/// A page with a picture that rules of `kStoppedRules` stop, and one that is not there. It says which are seen.
constexpr auto kFailedPage =
    "<title>page</title><body><img id=stopped src=/ad.gif width=9 height=9><img id=gone src=/gone.gif width=9 height=9>"
    "<script>const isSeen = e => e.offsetHeight > 0 && getComputedStyle(e).visibility === 'visible';"
    "const seen = () => ['stopped', 'gone'].filter(id => isSeen(document.getElementById(id))).join(' ');"
    "first = ''; document.addEventListener('visibilitychange', () => "
    "requestAnimationFrame(() => { first = seen() || 'none' }))</script>";
constexpr auto kStoppedRules = "/ad.gif\n";

/// Waits until both pictures have failed.
void WaitFailed(BlockingView& desk) {
    EXPECT_TRUE(WaitUntil([&] {
        return desk.Count() == 1 &&
               desk.view.Script(QStringLiteral("document.readyState === 'complete' && 'done'")) == u"done";
    }));
}

TEST(ElementHiding, APageLosesItsEmptyBoxesBeforeSomebodySeesIt) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), kFailedPage);
    BlockingView desk(kStoppedRules);
    desk.view.Load(QStringLiteral("about:blank"));
    FrontView front(desk);
    desk.view.Load(server.Address(QStringLiteral("/page")));
    WaitFailed(desk);
    front.view->MoveLeft({100000});
    desk.view.view->BringToFront();
    const QString first = QStringLiteral("first");
    EXPECT_TRUE(WaitUntil([&] { return !desk.view.Script(first).isEmpty(); }));
    EXPECT_FALSE(desk.view.Script(first).contains(u"stopped")) << desk.view.Script(first).toStdString();
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(QStringLiteral("seen()")) == u"gone"; }))
        << desk.view.Script(QStringLiteral("seen()")).toStdString();
}

TEST(ElementHiding, APageThatNobodySeesIsPrintedWithoutEmptyBoxes) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), kFailedPage);
    BlockingView desk(kStoppedRules);
    desk.view.Load(QStringLiteral("about:blank"));
    const FrontView front(desk);
    desk.view.Load(server.Address(QStringLiteral("/page")));
    WaitFailed(desk);
    EXPECT_EQ(desk.view.Script(QStringLiteral("dispatchEvent(new Event('beforeprint')); seen()")), u"gone");
}

TEST(ElementHiding, WhatComesOutOfAnotherFrameIsHidden) {
    LocalServer server;
    server.Page(QStringLiteral("/inside"), "<p class=ad>a</p><p class=words>w</p>");
    server.Page(QStringLiteral("/page"), "<title>page</title><body><iframe id=frame src=/inside></iframe>");
    BlockingView desk("##.ad\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    desk.view.Script(QStringLiteral("document.body.append(...frame.contentDocument.querySelectorAll('p')); 1"));
    const QString seen = QStringLiteral(
        "Array.from(document.querySelectorAll('p')).filter(e => e.offsetHeight > 0).map(e => e.className).join(' ')");
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(seen) == u"words"; })) << desk.view.Script(seen).toStdString();
}

TEST(ElementHiding, APagesOwnSheetsTakeNothingBack) {
    LocalServer server;
    server.Page(QStringLiteral("/page"),
                QByteArray(kHidingPage) + "<script>own = new CSSStyleSheet(); own.replaceSync('#two { color: red }');"
                                          "document.adoptedStyleSheets = [own]</script><p>words");
    BlockingView desk("##.ad\n127.0.0.1###box\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    ExpectSeen(desk, "two three");
    desk.view.Script(QStringLiteral("document.adoptedStyleSheets = [own]; document.body.append('x'); 1"));
    ExpectSeen(desk, "two three");
    EXPECT_EQ(desk.view.Script(QStringLiteral("getComputedStyle(two).color")), u"rgb(255, 0, 0)");
}

TEST(ElementHiding, APageThatForbidsToWaitHidesAsWell) {
    LocalServer server;
    server.Raw(QStringLiteral("/page"), "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nPermissions-Policy: "
                                        "sync-xhr=()\r\nConnection: close\r\n\r\n" +
                                            QByteArray(kHidingPage));
    BlockingView desk("##.ad\n127.0.0.1###box\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    EXPECT_EQ(desk.view.Script(QStringLiteral("try { const r = new XMLHttpRequest(); r.open('GET', '/page', false); "
                                              "r.send(); 'waits' } catch (e) { 'does not' }")),
              u"does not");
    ExpectSeen(desk, "two three");
}

TEST(ElementHiding, OfAVeryLongAttributeTheBeginningCounts) {
    LocalServer server;
    server.Page(QStringLiteral("/page"), "<title>page</title><body><a id=one href='/banner-1?" +
                                             QByteArray(10'000, 'x') + "'>a</a><a id=two href='/fine'>b</a>");
    BlockingView desk("##a[href*=\"banner-\"]\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    ExpectSeen(desk, "two");
}

TEST(ElementHiding, WhatAttributesBeginWithOrHoldIsHidden) {
    LocalServer server;
    server.Page(QStringLiteral("/page"),
                "<title>page</title><body><div id=two>w</div>"
                "<div id=one><a href='https://x.example/go?to=banner-1'>a</a></div>"
                "<div id=box><p class='big promo-box'>b</p></div>"
                "<div id=three><a id=link>c</a></div><div id=late><p id=ad-frame-7>d</p></div>");
    BlockingView desk("##a[href*=\"banner-\"]\n##p[class$=\"promo-box\"]\n##a[href^=\"http://ads.example/long/path\"]\n"
                      "##[id^=\"ad-frame-\"]\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    const QString seen = QStringLiteral(
        "['one', 'two', 'box', 'three', 'late'].filter(id => document.getElementById(id).offsetHeight > 0)"
        ".join(' ')");
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(seen) == u"two three"; }))
        << desk.view.Script(seen).toStdString();
    desk.view.Script(QStringLiteral("document.getElementById('link').href = 'http://ads.example/long/path/1'; 1"));
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(seen) == u"two"; })) << desk.view.Script(seen).toStdString();
}

TEST(ElementHiding, APageIsExceptedByAPartOfItsAddress) {
    LocalServer server;
    for (const char* each : {"/page", "/fair-page"}) server.Page(QString::fromLatin1(each), kHidingPage);
    BlockingView desk("##.ad\n@@/fair-p$generichide\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    ExpectSeen(desk, "two box three");
    desk.view.Load(server.Address(QStringLiteral("/fair-page")));
    ExpectSeen(desk, "one two box three");
}

TEST(ElementHiding, NamesOfFieldsDoNotKeepElementsFromBeingHidden) {
    LocalServer server;
    const QByteArray fields = "<input name=getAttribute><input name=className><input name=id><input name=nodeType>"
                              "<input name=firstElementChild><input name=querySelectorAll><input name=parentNode>"
                              "<input name=localName>";
    server.Page(QStringLiteral("/page"), "<title>page</title><body><form name=adoptedStyleSheets class=ad id=one>" +
                                             fields + "</form><form name=querySelectorAll class=words id=two>" +
                                             fields + "</form>");
    BlockingView desk("##.ad\n");
    desk.view.Load(server.Address(QStringLiteral("/page")));
    const QString seen = QStringLiteral("[one, two].filter(e => e.offsetHeight > 0).length");
    EXPECT_TRUE(WaitUntil([&] { return desk.view.Script(seen) == u"1"; })) << desk.view.Script(seen).toStdString();
    desk.view.Script(QStringLiteral("document.body.append(Object.assign(two.cloneNode(true), { name: 'x' })); "
                                    "document.body.lastChild.setAttribute('class', 'ad'); 1"));
    EXPECT_TRUE(
        WaitUntil([&] { return desk.view.Script(QStringLiteral("document.body.lastChild.offsetHeight")) == u"0"; }));
}

} // namespace

} // namespace tessa::qt
