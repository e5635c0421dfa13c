// Tests: HistoryRecords, HistorySearch, HistoryReader, HistoryRemoval
#include "tests/qt/history/StoredPages.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tessa::qt {

namespace {

class HistoryStoreTest : public testing::Test {
protected:
    QTemporaryDir m_home;
    StoredPages m_pages{m_home.path() + QStringLiteral("/history")};
};

TEST_F(HistoryStoreTest, NothingIsMadeBeforeItIsUsed) {
    EXPECT_FALSE(QFileInfo::exists(m_pages.File()));
    EXPECT_EQ(m_pages.Find(u""), u"");
    EXPECT_TRUE(QFileInfo::exists(m_pages.File()));
    EXPECT_TRUE(m_pages.Store().Works());
}

TEST_F(HistoryStoreTest, PagesAreFoundByTitleAddressAndText) {
    m_pages.Keep(u"https://a.example/one", u"One", u"apples and pears");
    m_pages.Keep(u"https://a.example/two", u"Two", u"only pears");
    EXPECT_EQ(m_pages.Find(u"pears"), u"Two One");
    EXPECT_EQ(m_pages.Find(u"apples"), u"One");
    EXPECT_EQ(m_pages.Find(u"pea app"), u"One");
    EXPECT_EQ(m_pages.Find(u"pea app", {.Passages = true}), u"One");
    EXPECT_EQ(m_pages.Find(u"two"), u"Two");
    EXPECT_EQ(m_pages.Find(u"a.example/on"), u"One");
    EXPECT_EQ(m_pages.Find(u"plums"), u"");
    EXPECT_EQ(m_pages.Find(u""), u"Two One");
}

struct LanguageRow {
    Text words, typed;
};

TEST_F(HistoryStoreTest, EveryScriptIsFound) {
    const LanguageRow rows[]{
        {u"\u4ECA\u5929\u5929\u6C23\u5F88\u597D", u"\u5929\u6C23"},
        {u"\u4ECA\u5929\u5929\u6C14\u5F88\u597D", u"\u6C14"},
        {u"\u6771\u4EAC\u306E\u5929\u6C17\u4E88\u5831\u3067\u3059", u"\u5929\u6C17\u4E88\u5831"},
        {u"\u30B3\u30F3\u30D4\u30E5\u30FC\u30BF\u30FC", u"\u30D4\u30E5\u30FC"},
        {u"\u0E2A\u0E27\u0E31\u0E2A\u0E14\u0E35\u0E04\u0E23\u0E31\u0E1A", u"\u0E2A\u0E14\u0E35"},
        {u"\uC548\uB155\uD558\uC138\uC694 \uC138\uACC4", u"\uC138\uACC4"},
        {u"\u0645\u0631\u062D\u0628\u0627 \u0628\u0627\u0644\u0639\u0627\u0644\u0645", u"\u0628\u0627\u0644\u0639"},
        {u"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD", u"\u05E2\u05D5\u05DC"},
        {u"\u0928\u092E\u0938\u094D\u0924\u0947 \u0926\u0941\u0928\u093F\u092F\u093E", u"\u0926\u0941\u0928\u093F"},
        {u"\u041F\u0440\u0438\u0432\u0435\u0442 \u043C\u0438\u0440", u"\u041C\u0418\u0420"},
        {u"na\u00EFve caf\u00E9", u"CAFE"},
    };
    int number = 0;
    for (const LanguageRow& row : rows) {
        const Text title = u"p" + Decimal(++number);
        m_pages.Keep(u"https://a.example/" + title, title, row.words);
        EXPECT_EQ(m_pages.Find(row.typed), title) << ToUtf8(row.typed);
    }
    EXPECT_EQ(m_pages.Find(u"\u5929\u5831"), u"");
}

TEST_F(HistoryStoreTest, AVisitMoreIsTheSamePageFurtherUp) {
    m_pages.Keep(u"https://a/1", u"One", u"first words", 1'795'000'000);
    m_pages.Keep(u"https://a/2", u"Two", u"other words", 1'795'000'100);
    m_pages.Keep(u"https://a/1", u"Uno", u"second words", 1'795'000'200);
    EXPECT_EQ(m_pages.Find(u"words"), u"Uno Two");
    EXPECT_EQ(m_pages.Find(u"first"), u"");
    EXPECT_EQ(m_pages.Find(u"One"), u"");
    const auto entries = m_pages.Load({u"https://a/1", u"https://nowhere/", u"https://a/2"});
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].Visits, 2);
    EXPECT_EQ(entries[0].First, 1'795'000'000);
    EXPECT_EQ(entries[0].Last, 1'795'000'200);
    EXPECT_EQ(entries[0].Passages, "psecond words\n");
    EXPECT_EQ(entries[1].Visits, 1);
}

TEST_F(HistoryStoreTest, TheSameVisitToldAgainIsNoneMore) {
    HistoryVisit visit = StoredPages::VisitOf(u"https://a/1", u"One", u"first", 1'795'000'000);
    visit.Group = u"News";
    visit.Icon = "picture";
    visit.AsRead = std::string("read", 4);
    m_pages.Store().Keep(visit);
    visit = StoredPages::VisitOf(u"https://a/1", u"", u"later", 1'795'000'050);
    visit.Again = true;
    visit.Share = 12;
    m_pages.Store().Keep(visit);
    const auto entry = m_pages.Load({u"https://a/1"}).at(0);
    EXPECT_EQ(entry.Visits, 1);
    EXPECT_EQ(entry.Title, u"One");
    EXPECT_EQ(entry.Group, u"News");
    EXPECT_EQ(entry.Share, 12);
    EXPECT_EQ(entry.AsRead, "read");
    EXPECT_EQ(entry.Last, 1'795'000'050);
    EXPECT_EQ(m_pages.Find(u"first"), u"");
    EXPECT_EQ(m_pages.Find(u"later"), u"One");
    EXPECT_EQ(m_pages.FindAll({}).Entries.at(0).Icon, "picture");
}

TEST_F(HistoryStoreTest, WhatWasForgottenMeanwhileDoesNotComeBackAsItsVisitEnds) {
    HistoryVisit visit = StoredPages::VisitOf(u"https://a/1", u"One", u"first", 1'795'000'000);
    m_pages.Store().Keep(visit);
    EXPECT_EQ(m_pages.Remove({}), 1);
    visit.Again = true;
    m_pages.Store().Keep(visit);
    EXPECT_TRUE(m_pages.Load({u"https://a/1"}).empty());
    visit.Again = false;
    m_pages.Store().Keep(visit);
    EXPECT_EQ(m_pages.Load({u"https://a/1"}).size(), 1U);
}

TEST_F(HistoryStoreTest, WhatIsShownIsFilteredAndComesInParts) {
    for (int i = 1; i <= 9; ++i) {
        HistoryVisit visit = StoredPages::VisitOf(u"https://a/" + Decimal(i), Decimal(i), u"words", 1'795'000'000 + i);
        visit.Site = i % 2 ? u"odd" : u"even";
        visit.Group = i % 3 ? u"" : u"Third";
        m_pages.Store().Keep(visit);
    }
    EXPECT_EQ(m_pages.Find(u"words", {.Site = u"odd"}), u"9 7 5 3 1");
    EXPECT_EQ(m_pages.Find(u"", {.Group = u"Third"}), u"9 6 3");
    EXPECT_EQ(m_pages.Find(u"words", {.Site = u"even", .Group = u"Third"}), u"6");
    for (const Text match : {u"", u"\"words\"*"}) {
        HistoryQuery query{.Match = match, .Most = 4};
        Text all;
        for (bool more = true; more;) {
            const auto found = m_pages.FindAll(query);
            more = found.More;
            for (const HistoryEntry& each : found.Entries) all += each.Title;
            all += u"/";
            query.Below = found.Entries.empty() ? 1 : found.Entries.back().Id;
        }
        EXPECT_EQ(all, u"9876/5432/1/");
    }
    const auto overview = m_pages.Look();
    EXPECT_EQ(overview.Pages, 9);
    EXPECT_EQ(overview.Groups, std::vector<Text>{u"Third"});
    ASSERT_EQ(overview.Sites.size(), 2U);
    EXPECT_EQ(overview.Sites[0].Name, u"odd");
    EXPECT_EQ(overview.Sites[0].Address, u"https://a/9");
}

TEST_F(HistoryStoreTest, WhatIsForgottenIsFoundNoMore) {
    for (int i = 1; i <= 6; ++i) {
        HistoryVisit visit = StoredPages::VisitOf(u"https://a/" + Decimal(i), Decimal(i), u"words", 1'795'000'000 + i);
        visit.Site = i > 4 ? u"last" : u"first";
        m_pages.Store().Keep(visit);
    }
    EXPECT_EQ(m_pages.Remove({.Ids = {2, 99}}), 1);
    EXPECT_EQ(m_pages.Find(u"words"), u"6 5 4 3 1");
    EXPECT_EQ(m_pages.Remove({.Site = u"last"}), 2);
    EXPECT_EQ(m_pages.Find(u"words"), u"4 3 1");
    EXPECT_EQ(m_pages.Remove({.From = 1'795'000'004}), 1);
    EXPECT_EQ(m_pages.Remove({.From = 1'795'000'002, .Until = 1'795'000'004}), 1);
    EXPECT_EQ(m_pages.Find(u"words"), u"1");
    EXPECT_EQ(m_pages.Remove({}), 1);
    EXPECT_EQ(m_pages.Find(u"words"), u"");
    EXPECT_EQ(m_pages.Look().Pages, 0);
    // What comes afterwards is numbered on.
    m_pages.Keep(u"https://a/7", u"7", u"words");
    EXPECT_EQ(m_pages.FindAll({}).Entries.at(0).Id, 7);
    EXPECT_EQ(m_pages.Find(u"words"), u"7");
}

TEST_F(HistoryStoreTest, NothingOfWhatWasClearedIsLeftInTheFiles) {
    for (int i = 0; i < 50; ++i)
        m_pages.Keep(u"https://a/" + Decimal(i), u"Page", u"quizzaciously" + Text(i % 2 ? u" odd" : u""));
    EXPECT_EQ(m_pages.Remove({.From = 0}), 50);
    m_pages.End();
    for (const QString& name : QDir(QFileInfo(m_pages.File()).path()).entryList(QDir::Files | QDir::Hidden)) {
        QFile file(m_pages.File(name));
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        EXPECT_FALSE(file.readAll().contains("quizzaciously")) << name.toStdString();
    }
}

TEST_F(HistoryStoreTest, OfASinglePageSoonNothingIsLeftInTheFilesEither) {
    for (int i = 0; i < 200; ++i)
        m_pages.Keep(u"https://a/" + Decimal(i), u"Page", i == 100 ? u"quizzaciously odd" : u"other words");
    const std::int64_t id = m_pages.Load({u"https://a/100"}).at(0).Id;
    const auto isInFiles = [this] {
        for (const char* name : {"history.db", "history.db-wal"}) {
            QFile file(m_pages.File(QString::fromLatin1(name)));
            if (file.open(QFile::ReadOnly) && file.readAll().contains("quizzaciously")) return true;
        }
        return false;
    };
    EXPECT_TRUE(isInFiles());
    EXPECT_EQ(m_pages.Remove({.Ids = {id}}), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isInFiles(); }, 30000));
    EXPECT_EQ(m_pages.FindAll({.Most = 1000}).Entries.size(), 199U);
    EXPECT_EQ(m_pages.Find(u"quizzaciously"), u"");
    EXPECT_NE(m_pages.Find(u"other"), u"");
}

TEST_F(HistoryStoreTest, ItIsForTheUserAlone) {
    const mode_t before = ::umask(0);
    m_pages.Keep(u"https://a/1", u"One", u"words");
    EXPECT_EQ(m_pages.Find(u"words"), u"One");
    for (const char* name : {"history.db", "history.db-wal", "history.db-shm"}) {
        const QFileInfo file(m_pages.File(QString::fromLatin1(name)));
        EXPECT_TRUE(file.exists()) << name;
        EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                  QFile::Permissions())
            << name;
    }
    EXPECT_EQ(QFileInfo(QFileInfo(m_pages.File()).path()).permissions() & (QFile::ReadOther | QFile::ExeOther),
              QFile::Permissions());
    ::umask(before);
}

TEST_F(HistoryStoreTest, ItIsThereAtTheNextRun) {
    m_pages.Keep(u"https://a/1", u"One", u"words");
    m_pages.Begin();
    EXPECT_EQ(m_pages.Find(u"words"), u"One");
}

TEST_F(HistoryStoreTest, WhatPagesBringDoesNoHarm) {
    const Text long_(5'000'000, u'x');
    m_pages.Keep(u"https://a/1'); DROP TABLE page; --", u"O'Ne \"quoted\" ; --", Text(u"a\0b\uFFFF", 4));
    m_pages.Keep(u"https://a/2", Text(u"half \xD800"), u"\xDC00 words");
    m_pages.Keep(u"https://a/3", u"Long", long_.substr(0, 100'000));
    EXPECT_EQ(m_pages.FindAll({}).Entries.size(), 3U);
    EXPECT_EQ(m_pages.Find(u"words").substr(0, 4), u"half");
    // Found again under the same address, and forgotten whole.
    m_pages.Keep(u"https://a/2", Text(u"half \xD800"), u"\xDC00 other");
    EXPECT_EQ(m_pages.Find(u"words"), u"");
    EXPECT_EQ(m_pages.Remove({.Ids = {1, 2, 3, 4}}), 3);
    EXPECT_EQ(m_pages.Find(u"o"), u"");
    EXPECT_TRUE(m_pages.said.isEmpty());
}

TEST_F(HistoryStoreTest, TheStoreMayGoBeforeItHasAnswered) {
    bool told = false;
    m_pages.Keep(u"https://a/1", u"One");
    m_pages.Store().Find({}, [&](const HistoryFound&) { told = true; });
    m_pages.End();
    QTest::qWait(0);
    EXPECT_FALSE(told);
}

} // namespace

} // namespace tessa::qt
