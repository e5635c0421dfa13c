// Tests: PdfBook, PdfFeet, PdfWork
#include "qt/script/PdfBinder.h"

#include "qt/script/PdfWork.h"
#include "tests/fakes/FullDisk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <sys/resource.h>

namespace tessa::qt {

namespace {

class PdfBinderTest : public testing::Test, protected TemporaryFolder {
protected:
    [[nodiscard]] QString File(const char* name) const { return QString::fromStdString(Path(name)); }

    /// A PDF of so many small pages, each with its number.
    [[nodiscard]] QString Pages(const char* name, int count) const {
        QPdfWriter writer(File(name));
        writer.setPageSize(QPageSize(QSizeF(200, 120), QPageSize::Point, {}, QPageSize::ExactMatch));
        writer.setResolution(72);
        QPainter painter(&writer);
        for (int page = 1; page <= count; ++page) {
            if (page > 1) writer.newPage();
            painter.drawText(20, 40, QStringLiteral("page %1").arg(page));
        }
        return File(name);
    }
    /// A PDF of one page that cannot be made smaller.
    [[nodiscard]] QString Picture(const char* name, int edge) const {
        QImage noise(edge, edge, QImage::Format_RGB888);
        std::mt19937 random(7);
        for (int y = 0; y < edge; ++y) {
            for (int x = 0; x < edge * 3; ++x) noise.scanLine(y)[x] = static_cast<uchar>(random());
        }
        QPdfWriter writer(File(name));
        QPainter painter(&writer);
        painter.drawImage(QRect(0, 0, writer.width(), writer.height()), noise);
        return File(name);
    }
    [[nodiscard]] PdfBinder::Bound Bind(const std::vector<PdfBinder::Part>& parts,
                                        const char* target = "all.pdf") const {
        return PdfBinder::Bind(parts, File(target), {stop});
    }
    /// What another program says of a file.
    static QString Told(const QString& program, const QStringList& words) {
        QProcess process;
        process.start(program, words);
        return process.waitForFinished(-1) && process.exitCode() == 0
                   ? QString::fromUtf8(process.readAllStandardOutput()).trimmed()
                   : QStringLiteral("failed: ") + QString::fromUtf8(process.readAllStandardError());
    }
    [[nodiscard]] QString CountOf(const char* name) const {
        return Told(QStringLiteral("qpdf"), {QStringLiteral("--show-npages"), File(name)});
    }
    [[nodiscard]] QString TextOf(const char* name, int page) const {
        const QString number = QString::number(page);
        return Told(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), QStringLiteral("-f"), number,
                                                  QStringLiteral("-l"), number, File(name), QStringLiteral("-")})
            .simplified();
    }

    std::atomic<bool> stop = false;
};

TEST_F(PdfBinderTest, TwoThousandPagesAreBoundAndNumbered) {
    const PdfBinder::Bound bound =
        Bind({{Pages("many.pdf", 1999), QStringLiteral("Many"), QStringLiteral("http://many/")},
              {Pages("one.pdf", 1), QString(), QStringLiteral("http://one/")}});
    EXPECT_EQ(bound.refusal, QString());
    EXPECT_TRUE(bound.left.isEmpty());
    EXPECT_EQ(CountOf("all.pdf"), QStringLiteral("2000"));
    EXPECT_EQ(TextOf("all.pdf", 1999), QStringLiteral("page 1999 Many http://many/ 1999/2000"));
    EXPECT_EQ(TextOf("all.pdf", 2000), QStringLiteral("page 1 http://one/ 2000/2000"));
}

TEST_F(PdfBinderTest, WhatIsNoPdfIsLeftOutAndNamed) {
    Write("broken.pdf", "no PDF");
    const PdfBinder::Bound bound = Bind({{File("broken.pdf"), QString(), QStringLiteral("http://broken/")},
                                         {Pages("one.pdf", 1), QStringLiteral("One"), QString()},
                                         {File("none.pdf"), QStringLiteral("None"), QString()}});
    EXPECT_EQ(bound.refusal, QString());
    EXPECT_EQ(bound.left, QStringList({QStringLiteral("http://broken/"), QStringLiteral("None")}));
    EXPECT_EQ(CountOf("all.pdf"), QStringLiteral("1"));
    EXPECT_EQ(Bind({{File("broken.pdf"), QString(), QString()}}).refusal,
              QStringLiteral("None of the pages could be had."));
}

TEST_F(PdfBinderTest, MoreFilesThanAProcessMayHaveOpen) {
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const QString one = Pages("one.pdf", 1);
    const std::vector<PdfBinder::Part> parts(150, {one, QStringLiteral("One"), QString()});
    const rlimit few{90, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const PdfBinder::Bound bound = Bind(parts);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_TRUE(bound.left.isEmpty());
    EXPECT_EQ(bound.refusal, QString());
    EXPECT_EQ(CountOf("all.pdf"), QStringLiteral("150"));
}

// What the last bytes do is easily missed: they are written when the file is closed.
TEST_F(PdfBinderTest, ADiskThatFillsUpLeavesTheOldFile) {
    const std::vector<PdfBinder::Part> parts{{Picture("big.pdf", 300), QStringLiteral("Big"), QString()}};
    ASSERT_EQ(Bind(parts).refusal, QString());
    const auto size = static_cast<std::size_t>(QFile(File("all.pdf")).size());
    ASSERT_GT(size, 100000U);
    for (const std::size_t room : {size - 1, size - 2000, size / 2, std::size_t{4}}) {
        Write("all.pdf", "old");
        QString refusal;
        {
            const FullDisk full(room);
            refusal = Bind(parts).refusal;
        }
        EXPECT_FALSE(refusal.isEmpty()) << room;
        EXPECT_EQ(Read("all.pdf"), "old") << room;
        EXPECT_EQ(Files(), 2U) << room;
    }
}

TEST_F(PdfBinderTest, AFolderThatIsNotThereIsTold) {
    const PdfBinder::Bound bound = Bind({{Pages("one.pdf", 1), QString(), QString()}}, "none/all.pdf");
    EXPECT_EQ(bound.refusal, QStringLiteral("The file could not be written: ") + File("none/all.pdf"));
}

TEST_F(PdfBinderTest, WhoStopsItGetsNothing) {
    stop = true;
    EXPECT_FALSE(Bind({{Pages("one.pdf", 1), QString(), QString()}}).refusal.isEmpty());
    EXPECT_EQ(Files(), 1U);
}

/// What another process has had of memory at most, in kilobytes. It has bound so many copies of a file.
double PeakOf(int copies, const QString& file, const QString& target) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("BINDS"), QStringLiteral("%1\n%2\n%3").arg(copies).arg(file, target));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_also_run_disabled_tests"),
                                                            QStringLiteral("--gtest_filter=Role.DISABLED_Bind")});
    EXPECT_TRUE(process.waitForFinished(-1));
    EXPECT_EQ(process.exitCode(), 0);
    const QRegularExpression peak(QStringLiteral("peak (\\d+)"));
    return peak.match(QString::fromUtf8(process.readAllStandardOutput())).captured(1).toDouble();
}

TEST_F(PdfBinderTest, FiftyPagesTakeNoMoreMemoryThanTen) {
    const QString big = Picture("big.pdf", 2400);
    ASSERT_GT(QFile(big).size(), 5000000);
    const double ofTen = PeakOf(10, big, File("all.pdf")), ofFifty = PeakOf(50, big, File("all.pdf"));
    ASSERT_GT(ofTen, 0);
    // Held in memory, forty more of them would be more than 200 MB.
    EXPECT_LT(ofFifty / ofTen, 1.5) << ofTen << " and " << ofFifty << " kB";
    RecordProperty("kilobytes", QStringLiteral("%1 %2").arg(ofTen).arg(ofFifty).toStdString());
}

// The kernel's word for this program alone; what is told of the process counts its parent, which it was before.
long OwnPeak() {
    QFile status(QStringLiteral("/proc/self/status"));
    const QByteArray lines = status.open(QFile::ReadOnly) ? status.readAll() : QByteArray();
    for (const QByteArray& line : lines.split('\n')) {
        if (line.startsWith("VmHWM:")) return line.simplified().split(' ').at(1).toLong();
    }
    rusage used{};
    return ::getrusage(RUSAGE_SELF, &used) == 0 ? used.ru_maxrss : 0;
}

TEST(Role, DISABLED_Bind) {
    const QStringList words = qEnvironmentVariable("BINDS").split(u'\n');
    ASSERT_EQ(words.size(), 3);
    const std::vector<PdfBinder::Part> parts(words[0].toUInt(), {words[1], QStringLiteral("Big"), QString()});
    const std::atomic<bool> stop = false;
    EXPECT_EQ(PdfBinder::Bind(parts, words[2], {stop}).refusal, QString());
    std::printf("peak %ld\n", OwnPeak());
}

TEST_F(PdfBinderTest, TheWindowGoesOnWhileAPdfIsBound) {
    PdfWork work;
    const auto* here = QThread::currentThread();
    int turns = 0;
    QTimer ticking;
    QObject::connect(&ticking, &QTimer::timeout, &ticking, [&turns] { ++turns; });
    ticking.start(0);
    int told = 0, turnsWhenTold = 0;
    std::vector<int> percents;
    const auto bound = [&](const PdfBinder::Bound& done) {
        EXPECT_EQ(QThread::currentThread(), here);
        EXPECT_EQ(done.refusal, QString());
        turnsWhenTold = turns;
        ++told;
    };
    const auto progress = [&](int percent) {
        EXPECT_EQ(QThread::currentThread(), here);
        EXPECT_EQ(told, 0);
        percents.push_back(percent);
    };
    work.Bind({{Pages("many.pdf", 300), QStringLiteral("Many"), QString()}}, File("all.pdf"), {bound, progress});
    EXPECT_EQ(told, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return told == 1; }, 60000));
    EXPECT_GT(turnsWhenTold, 0);
    EXPECT_EQ(CountOf("all.pdf"), QStringLiteral("300"));
    ASSERT_GT(percents.size(), 5U);
    EXPECT_TRUE(std::ranges::is_sorted(percents, std::less_equal<int>())) << "each once, and more each time";
    EXPECT_LE(percents.back(), 100);
}

TEST_F(PdfBinderTest, WhatIsNotDoneEndsWithWhoeverWantedIt) {
    int told = 0;
    Write("all.pdf", "old");
    auto work = std::make_unique<PdfWork>();
    const std::vector<PdfBinder::Part> parts{{Pages("many.pdf", 1000), QString(), QString()}};
    for (int times = 0; times < 5; ++times)
        work->Bind(parts, File("all.pdf"), {[&](const PdfBinder::Bound&) { ++told; }});
    work.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 0);
    EXPECT_EQ(Files(), 2U) << "half a file is left";
}

} // namespace

} // namespace tessa::qt
