// Tests: PageReader
#include "history/PageNews.h"
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QFile>
#include <QWebEngineScript>
#include <QWebEngineSettings>
#include <algorithm>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class ReadingTest : public testing::Test {
protected:
    /// What the page says once it was read.
    Text ReadView() {
        // Shared, because a page that ends answers then.
        const auto read = std::make_shared<std::optional<Text>>();
        m_view.view->Reading()->ReadText([read](Text text) { *read = std::move(text); });
        EXPECT_TRUE(WaitUntil([&read] { return read->has_value(); }));
        return read->value_or(Text());
    }
    /// The lines behind the address: "hHeading|pWords".
    std::string Read(const QByteArray& html) {
        m_server.Page(QStringLiteral("/page"), html);
        m_view.Load(m_server.Address(QStringLiteral("/page")));
        Text text = ReadView();
        text.erase(0, std::min(text.find(u'\n'), text.size() - 1) + 1);
        std::ranges::replace(text, u'\n', u'|');
        return ToUtf8(text);
    }
    std::vector<Passage> ReadFile(const QString& name) {
        QFile file(QStringLiteral(CHANGING_PAGES "/") + name);
        EXPECT_TRUE(file.open(QFile::ReadOnly)) << name.toStdString();
        m_server.Page(u'/' + name, file.readAll());
        m_view.Load(m_server.Address(u'/' + name));
        return Passages::Read(ReadView()).Passages;
    }

    LocalServer m_server;
    EngineView m_view;
};

struct ReadRow {
    const char* html;
    const char* passages;
};

TEST_F(ReadingTest, APageIsReadBlockByBlock) {
    const ReadRow rows[]{
        {"<p>One <b>two</b></p><p>Three</p>", "pOne two|pThree"},
        {"<h2>Heading</h2>text<div>more</div>end", "hHeading|ptext|pmore|pend"},
        {"<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>", "pa b|pc"},
        {"one<br>two", "pone|ptwo"},
        {"<pre>one\n two\n\nthree</pre>", "pone|ptwo|pthree"},
        {"<p style='display:none'>hidden</p><p style='visibility:hidden'>unseen</p><p>seen</p>", "pseen"},
        {"<script>var x;</script><style>p{}</style><noscript>no</noscript><template>t</template><p>yes</p>", "pyes"},
        {"<ul><li>a<li>b</ul>", "pa|pb"},
        {"<div class='ad'>Buy<p>this</p></div><ins class='adsbygoogle'>that</ins><p>Words</p>",
         "aBuy|athis|athat|pWords"},
        {"<div class='header'>Road</div><p class='lead'>Bread</p>", "pRoad|pBread"},
        {"<input type=password>", "!"},
        {"<p>x</p><input type=password style='display:none'>", "px"},
        {"<p>\u4E2D\u6587 \u0645\u0631\u062D\u0628\u0627</p>", "p\u4E2D\u6587 \u0645\u0631\u062D\u0628\u0627"},
        {"", ""},
        {"<button>One</button><button>Two</button>", "pOne Two"},
        {"<div id=h></div><script>h.attachShadow({mode:'open'}).innerHTML='<p>Inside</p>'</script>", "pInside"},
        {"<p>A\u00AD\u200BB</p>", "pA B"},
    };
    for (const ReadRow& row : rows)
        EXPECT_EQ(Read(QByteArray("<!doctype html><meta charset=utf-8><body>") + row.html), row.passages) << row.html;
}

TEST_F(ReadingTest, FramesOfThePagesOwnSiteAreReadWhereTheyStand) {
    LocalServer other;
    other.Page(QStringLiteral("/frame"), "<p>Foreign</p>");
    m_server.Page(QStringLiteral("/inner"), "<p>Innermost</p>");
    m_server.Page(QStringLiteral("/frame"), "<h2>Chapter</h2><p>Inside</p><iframe src=/inner></iframe>");
    const QByteArray foreign = other.Address(QStringLiteral("/frame")).toUtf8().replace("127.0.0.1", "localhost");
    EXPECT_EQ(Read("<p>Before</p><iframe src=/frame></iframe><iframe src=\"" + foreign +
                   "\"></iframe><iframe src=/frame style=display:none></iframe>"
                   "<iframe id=ad-1 srcdoc=\"<p>Buy</p>\"></iframe><iframe><p>Old words</p></iframe><p>After</p>"),
              "pBefore|hChapter|pInside|pInnermost|aBuy|pAfter");
    EXPECT_EQ(Read("<iframe srcdoc=\"<p>Name</p><input type=password>\"></iframe>"), "pName|!");
}

TEST_F(ReadingTest, PassagesInFramesAreMarkedWhereTheyAre) {
    m_server.Page(QStringLiteral("/frame"), "<body style='margin:0'><div style='height:900px'></div><p>Inside</p>");
    (void)Read(
        "<body style='margin:0'><div style='height:2000px'></div><iframe id=f src=/frame "
        "style='margin-left:100px;border:5px solid;width:300px;height:200px'></iframe><div style='height:2000px'>");
    m_view.view->Reading()->ShowPassages({u"Inside"}, 0);
    const QString place = QStringLiteral(
        "var m = document.querySelector('tessa-marks'), r = "
        "f.contentDocument.querySelector('p').getBoundingClientRect(),"
        "o = f.getBoundingClientRect(); m && r.top >= 0 && r.bottom <= 200 && o.top >= 0 && o.bottom <= innerHeight");
    EXPECT_TRUE(WaitUntil([&] { return m_view.Script(place) == u"true"; }));
}

TEST_F(ReadingTest, TheFirstLineIsTheAddress) {
    Read("<p>x");
    EXPECT_TRUE(ReadView().starts_with(u"u" + FromQt(m_server.Address(QStringLiteral("/page")))));
}

TEST_F(ReadingTest, APageOfTenMegabytesIsReadInPart) {
    QByteArray html = "<!doctype html><body>";
    // To lay all of it out takes the engine long, and is nothing that reading needs.
    while (html.size() < 10'000'000) {
        html += "<section style='content-visibility: auto'>";
        for (int i = 0; i < 1000; ++i) html += "<p>Some words of a very long page that nobody reads to its end.</p>\n";
        html += "</section>";
    }
    const std::string read = Read(html);
    EXPECT_GT(read.size(), 150'000U);
    EXPECT_LT(read.size(), 400'000U);
}

TEST_F(ReadingTest, APageThatIsDeepIsReadAsFarAsThatGoes) {
    EXPECT_EQ(
        Read("<!doctype html><body><p>Top</p><script>"
             "var at = document.body; for (var i = 0; i < 3000; ++i) at = at.appendChild(document.createElement('b'));"
             "at.textContent = 'deep';</script>")
            .substr(0, 4),
        "pTop");
}

TEST_F(ReadingTest, WithoutScriptsThereAreLinesStill) {
    m_view.Load(QStringLiteral("about:blank"));
    m_view.Real().Page()->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    m_server.Page(QStringLiteral("/plain"), "<h1>One</h1><p>Two</p>");
    m_view.Real().Page()->load(m_server.Address(QStringLiteral("/plain")));
    EXPECT_TRUE(WaitUntil([this] { return ReadView().find(u"Two") != Text::npos; }));
}

TEST_F(ReadingTest, AtAGlanceThereAreTheLinesThatAreSeen) {
    Read("<h2>Heading</h2><p>One <b>two</b></p><p style='display:none'>hidden</p><script>var no;</script><p>three");
    const auto read = std::make_shared<std::optional<Text>>();
    m_view.view->Reading()->GlanceAtText([read](Text text) { *read = std::move(text); });
    ASSERT_TRUE(WaitUntil([&read] { return read->has_value(); }));
    const GatheredText glanced = Passages::Read(**read);
    EXPECT_EQ(glanced.Address, FromQt(m_server.Address(QStringLiteral("/page"))));
    std::string lines;
    for (const Passage& each : glanced.Passages) lines += ToUtf8(each.Words) + "|";
    EXPECT_EQ(lines, "Heading|One two|three|");
}

TEST_F(ReadingTest, PassagesAreMarkedAndBroughtIntoSight) {
    QByteArray html = "<!doctype html><body><p>First</p>";
    for (int i = 0; i < 200; ++i) html += "<p>Between</p>";
    Read(html + "<p id=last>Last <b>words</b></p>");
    const auto asked = [this](const char* script) {
        std::optional<QVariant> answer;
        m_view.Real().Page()->runJavaScript(QString::fromLatin1(script), QWebEngineScript::ApplicationWorld,
                                            [&answer](const QVariant& value) { answer = value; });
        EXPECT_TRUE(WaitUntil([&answer] { return answer.has_value(); }));
        return answer.value_or(QVariant());
    };
    m_view.view->Reading()->ShowPassages({u"First", u"Last words", u"Gone"}, 1);
    EXPECT_TRUE(WaitUntil([&] { return asked("document.querySelectorAll('tessa-marks').length").toInt() == 1; }));
    EXPECT_TRUE(WaitUntil(
        [&] { return asked("var r = last.getBoundingClientRect(); r.top >= 0 && r.bottom <= innerHeight").toBool(); }));
    // The page's own elements are as they were, and what it says too.
    EXPECT_EQ(asked("last.outerHTML").toString(), QStringLiteral("<p id=\"last\">Last <b>words</b></p>"));
    EXPECT_EQ(ReadView().find(u"tessa"), Text::npos);
    m_view.view->Reading()->ShowPassages({}, 0);
    EXPECT_TRUE(WaitUntil([&] { return asked("document.querySelectorAll('tessa-marks').length").toInt() == 0; }));
}

struct ChangingRow {
    const char* kind;
    std::vector<const char*> news; ///< of each visit after the first
};

/// The new passages of a page, and nothing else.
TEST_F(ReadingTest, NewsOfManyKindsOfPagesAreTold) {
    const ChangingRow rows[]{
        {"front", {"Council votes for night trains|From spring on trains will run after midnight on all lines."}},
        {"forum", {"Cleo wrote 4 hours ago:|Rye flour helped mine within a week."}},
        {"build", {"#812 failed Use the new parser 4 minutes ago"}},
        {"timetable", {"11:09 R7 Hill Town Platform 6 delayed by 25 minutes"}},
        {"blog", {"Fog|We heard the ferry long before we saw it."}},
        {"shop", {"39.90 \u20AC"}},
        {"docs", {"--dim PERCENT|Dims the flame. Needs version 2.4 or later."}},
        {"mail", {"[lantern-dev] Freeze on Friday Cleo"}},
        {"weather", {"2\u00B0C|Snow above 600 metres from tonight on."}},
        {"review", {"Approved|All checks have passed|Ann commented 3 hours ago|It returns the number of errors now."}},
        {"wiki", {"Nearly all are automated today; the last keepers left in 1998."}},
        {"dashboard", {"Capstan", "Davit", "Crane 1: stopped: maintenance"}},
        {"japanese",
         {"\u4ECA\u65E5\u306F\u96E8\u3001\u5915\u65B9\u306B\u306F\u96F7\u306B\u6CE8\u610F\u3057\u3066\u304F"
          "\u3060\u3055\u3044\u3002"}},
    };
    for (const ChangingRow& row : rows) {
        const QString kind = QString::fromLatin1(row.kind);
        PageAsRead read = NewsOf::FirstTime(ReadFile(kind + QStringLiteral("-1.html")));
        for (std::size_t visit = 0; visit < row.news.size(); ++visit) {
            const auto passages = ReadFile(QStringLiteral("%1-%2.html").arg(kind).arg(visit + 2));
            const auto compared = NewsOf::Compare(read, passages);
            std::string news;
            for (const std::size_t each : compared.News.New)
                news += (news.empty() ? "" : "|") + ToUtf8(passages[each].Words);
            EXPECT_EQ(news, row.news[visit]) << row.kind << visit + 2;
            EXPECT_GT(compared.News.Share, 0);
            EXPECT_LT(compared.News.Share, 100);
            // Looked at again at once, nothing is new.
            EXPECT_FALSE(NewsOf::Compare(compared.Now, passages).News.Any()) << row.kind;
            read = compared.Now;
        }
    }
}

} // namespace

} // namespace tessa::qt
