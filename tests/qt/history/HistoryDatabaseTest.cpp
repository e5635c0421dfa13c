// Tests: HistoryWriter
#include "qt/history/HistoryDatabase.h"

#include "qt/history/HistoryRecords.h"
#include "qt/history/HistorySearch.h"
#include "qt/history/HistoryWriter.h"
#include "tests/fakes/FullDisk.h"
#include "tests/qt/desktop/OtherProcess.h"
#include "tests/qt/history/StoredPages.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class HistoryDatabaseTest : public testing::Test {
protected:
    QTemporaryDir m_home;
    QString m_folder = m_home.path() + QStringLiteral("/history");
    StoredPages m_pages{m_folder};

    void KeepSome() {
        for (int i = 1; i <= 20; ++i) m_pages.Keep(u"https://a/" + Decimal(i), u"p" + Decimal(i), u"words of a page");
        EXPECT_EQ(m_pages.Find(u"words", {.Most = 1}), u"p20");
        m_pages.End();
    }
    void Overwrite(qint64 from, const QByteArray& bytes) {
        QFile file(m_pages.File());
        ASSERT_TRUE(file.open(QFile::ReadWrite));
        ASSERT_TRUE(file.seek(from));
        file.write(bytes);
    }
    qint64 Size() { return QFileInfo(m_pages.File()).size(); }
};

TEST_F(HistoryDatabaseTest, ADamagedFileIsSetAsideAndANewOneBegun) {
    for (const QByteArray& bytes : {QByteArray("no database at all"), QByteArray(100'000, 'x')}) {
        KeepSome();
        Overwrite(0, bytes);
        m_pages.said.clear();
        m_pages.Begin();
        m_pages.Keep(u"https://a/new", u"New", u"words");
        EXPECT_EQ(m_pages.Find(u"words"), u"New");
        ASSERT_EQ(m_pages.said.size(), 1);
        EXPECT_TRUE(m_pages.said[0].contains(QStringLiteral("set aside")));
        EXPECT_TRUE(QFile::exists(m_pages.File(QStringLiteral("history.damaged"))));
    }
}

TEST_F(HistoryDatabaseTest, DamageInTheMiddleIsFoundWhenItIsMet) {
    KeepSome();
    for (qint64 at = 4096; at < Size(); at += 4096) Overwrite(at, QByteArray(4096, '\x7F'));
    m_pages.Begin();
    for (int round = 0; round < 3; ++round) {
        m_pages.Keep(u"https://a/new", u"New", u"words");
        (void)m_pages.Find(u"words");
    }
    m_pages.Keep(u"https://a/new", u"New", u"words");
    EXPECT_EQ(m_pages.Find(u"words"), u"New");
    EXPECT_EQ(m_pages.said.size(), 1) << m_pages.said.join(u'|').toStdString();
}

TEST_F(HistoryDatabaseTest, ATruncatedFileIsSetAside) {
    KeepSome();
    ASSERT_TRUE(QFile::resize(m_pages.File(), Size() / 2));
    m_pages.Begin();
    for (int round = 0; round < 3; ++round) {
        m_pages.Keep(u"https://a/new", u"New", u"words");
        (void)m_pages.Find(u"words");
    }
    EXPECT_EQ(m_pages.Find(u"New"), u"New");
    EXPECT_EQ(m_pages.said.size(), 1);
}

TEST_F(HistoryDatabaseTest, RandomDamageNeverEndsTheProgram) {
    for (quint32 round = 0; round < 30; ++round) {
        m_pages.Begin();
        KeepSome();
        QRandomGenerator random(round);
        for (int i = 0; i < 20; ++i) Overwrite(random.bounded(int(Size())), QByteArray(8, char(random.bounded(256))));
        m_pages.Begin();
        m_pages.Keep(u"https://a/new", u"New", u"words");
        (void)m_pages.Find(u"words");
        (void)m_pages.Look();
        (void)m_pages.Load({u"https://a/1"});
        (void)m_pages.Remove({});
        m_pages.End();
    }
}

TEST_F(HistoryDatabaseTest, AFileOfANewerVersionIsLeftAlone) {
    KeepSome();
    {
        HistoryDatabase database(m_folder, QStringLiteral("newer"));
        ASSERT_EQ(database.Open(), HistoryDatabase::State::Ready);
        database.Run(QStringLiteral("PRAGMA user_version=2"));
    }
    QFile file(m_pages.File());
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray before = file.readAll();
    m_pages.Begin();
    m_pages.Keep(u"https://a/new", u"New", u"words");
    EXPECT_EQ(m_pages.Find(u"words"), u"");
    EXPECT_EQ(m_pages.Remove({}), 0);
    EXPECT_FALSE(m_pages.Store().Works());
    ASSERT_EQ(m_pages.said.size(), 1);
    EXPECT_TRUE(m_pages.said[0].contains(QStringLiteral("newer version")));
    m_pages.End();
    file.seek(0);
    EXPECT_EQ(file.readAll(), before);
}

TEST_F(HistoryDatabaseTest, SomebodyElsesDatabaseIsNoneOfOurs) {
    QDir().mkpath(m_folder);
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other"));
        database.setDatabaseName(m_pages.File());
        ASSERT_TRUE(database.open());
        QSqlQuery(QStringLiteral("CREATE TABLE mine(x)"), database);
        database.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("other"));
    m_pages.Keep(u"https://a/new", u"New", u"words");
    EXPECT_EQ(m_pages.Find(u"words"), u"New");
    EXPECT_TRUE(QFile::exists(m_pages.File(QStringLiteral("history.damaged"))));
}

TEST_F(HistoryDatabaseTest, WhereThereCanBeNoFileItIsSaidOnce) {
    QFile file(m_folder);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    for (int i = 0; i < 3; ++i) {
        m_pages.Keep(u"https://a/new", u"New", u"words");
        EXPECT_EQ(m_pages.Find(u"words"), u"");
    }
    EXPECT_FALSE(m_pages.Store().Works());
    EXPECT_EQ(m_pages.said.size(), 1);
}

TEST_F(HistoryDatabaseTest, AFullDiskCostsNothingButWhatDoesNotFit) {
    m_pages.Keep(u"https://a/1", u"Old", u"words");
    EXPECT_EQ(m_pages.Find(u"words"), u"Old");
    {
        const FullDisk full;
        for (int i = 0; i < 300; ++i) m_pages.Keep(u"https://a/more" + Decimal(i), u"More", Text(1000, u'y'));
        EXPECT_EQ(m_pages.Find(u"words"), u"Old");
        ASSERT_EQ(m_pages.said.size(), 1) << m_pages.said.join(u'|').toStdString();
        EXPECT_TRUE(m_pages.said[0].contains(QStringLiteral("full")));
    }
    // What waited is written once there is room; the oldest of it was given up.
    EXPECT_EQ(m_pages.FindAll({.Most = 1000}).Entries.size(), 1 + HistoryWriter::kMostWaiting);
    EXPECT_EQ(m_pages.said.size(), 1);
}

TEST_F(HistoryDatabaseTest, TwoInstancesWriteIntoOneFile) {
    OtherProcess first("WriteHistory", m_folder, QStringLiteral("first")),
        second("WriteHistory", m_folder, QStringLiteral("second"));
    for (auto* each : {&first, &second}) EXPECT_EQ(each->Answer(), 0);
    for (auto* each : {&first, &second}) each->Tell(200);
    for (auto* each : {&first, &second}) EXPECT_TRUE(each->Succeeds());
    EXPECT_EQ(m_pages.Look().Pages, 400);
    EXPECT_EQ(m_pages.FindAll({.Match = u"\"word\"", .Most = 1000}).Entries.size(), 400U);
    EXPECT_TRUE(m_pages.said.isEmpty());
}

// HISTORY_KILLS says how often; two hundred take a minute.
TEST_F(HistoryDatabaseTest, AProgramThatIsKilledWhileWritingLosesNoMoreThanItsLastBatch) {
    const int kills =
        qEnvironmentVariableIntValue("HISTORY_KILLS") > 0 ? qEnvironmentVariableIntValue("HISTORY_KILLS") : 15;
    int written = 0;
    for (int round = 0; round < kills; ++round) {
        OtherProcess writer("WriteHistoryForEver", m_folder, QString::number(round));
        int last = 0;
        // Somewhere in the middle of a transaction, further on each time.
        for (int batch = 0; batch <= round % 7; ++batch) last = writer.Answer();
        writer.Kill();
        ASSERT_GE(last, 0);
        written += last;
        HistoryDatabase database(m_folder, QStringLiteral("after"));
        ASSERT_EQ(database.Open(), HistoryDatabase::State::Ready);
        QSqlQuery check = database.Run(QStringLiteral("PRAGMA integrity_check"));
        ASSERT_TRUE(check.next());
        ASSERT_EQ(check.value(0).toString(), QStringLiteral("ok"));
        check.finish();
        QSqlQuery count =
            database.Run(QStringLiteral("SELECT count(*) FROM page WHERE site=?"), {QString::number(round)});
        ASSERT_TRUE(count.next());
        ASSERT_GE(count.value(0).toInt(), last);
        count.finish();
        // The index is as whole as the rest.
        database.Run(QStringLiteral("INSERT INTO words(words) VALUES('integrity-check')"));
        ASSERT_EQ(database.TakeTrouble(), HistoryDatabase::Trouble::None);
    }
    EXPECT_FALSE(QFile::exists(m_pages.File(QStringLiteral("history.damaged"))));
    RecordProperty("kills", kills);
    RecordProperty("written", written);
}

} // namespace

// Keeps as many pages as it is told, once it has said that it is there.
TEST(Role, DISABLED_WriteHistory) {
    int count = 0;
    Print(0);
    std::cin >> count;
    const Text name = FromQt(qEnvironmentVariable("ROLE_NAME"));
    StoredPages pages(RoleFolder());
    for (int i = 0; i < count; ++i) pages.Keep(u"https://" + name + u"/" + Decimal(i), name, u"a word");
    EXPECT_GE(pages.Look().Pages, count);
    EXPECT_TRUE(pages.said.isEmpty());
}

// Writes batch after batch until it is killed, and says after each how many pages are safe.
TEST(Role, DISABLED_WriteHistoryForEver) {
    HistoryWriter writer(RoleFolder());
    writer.Open();
    const Text site = FromQt(qEnvironmentVariable("ROLE_NAME"));
    for (int i = 1;; ++i) {
        HistoryVisit visit =
            StoredPages::VisitOf(u"https://a/" + site + u"/" + Decimal(i), u"Title", u"some words", 1'795'000'000);
        visit.Site = site;
        writer.Keep(std::move(visit));
        if (i % static_cast<int>(HistoryWriter::kBatch) == 0) Print(i);
    }
}

} // namespace tessa::qt
