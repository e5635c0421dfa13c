#pragma once
#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

namespace tessa::qt {

/// Two screens side by side, left and right, of one size in pixels. No test can change its own screens, so a process of
/// its own plays what needs them.
struct TwoScreens {
    static constexpr int kLongest = 120'000; ///< milliseconds

    QSize each;
    const char *leftScale, *rightScale;

    /// Runs the suite's one test on them. Its suite begins with "Role" and the test with "DISABLED_", so that nothing
    /// else does.
    void Play(const char* suite) const {
        const QTemporaryDir folder;
        const QString screens = folder.filePath(QStringLiteral("screens.json"));
        QFile file(screens);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QStringLiteral(R"({"screens": [{"name": "left", "x": 0, "y": 0, "width": %1, "height": %2},
                                                  {"name": "right", "x": %1, "y": 0, "width": %1, "height": %2}]})")
                       .arg(each.width())
                       .arg(each.height())
                       .toUtf8());
        file.close();
        QProcess process;
        process.setProcessEnvironment(Surroundings(screens));
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--gtest_filter=%1.*").arg(QLatin1String(suite)),
                       QStringLiteral("--gtest_also_run_disabled_tests")});
        ASSERT_TRUE(process.waitForFinished(kLongest));
        const QByteArray said = process.readAll();
        EXPECT_EQ(process.exitCode(), 0) << said.toStdString();
        EXPECT_TRUE(said.contains("[  PASSED  ] 1 test")) << said.toStdString();
    }

    /// Puts the window there on the desktop. It is scaled as the screen under its middle, whose scale this returns.
    static qreal Move(QWidget& window, const QRect& place) {
        window.windowHandle()->setScreen(QGuiApplication::screenAt(place.center()));
        window.setGeometry(place);
        const qreal scale = window.screen()->devicePixelRatio();
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.devicePixelRatio() == scale; }, kLongest));
        window.resize(place.size());
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.size() == place.size(); }, kLongest));
        return scale;
    }

private:
    [[nodiscard]] QProcessEnvironment Surroundings(const QString& screens) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        // A part of the tests, when this process runs a part, would leave out the one that is wanted.
        for (const char* name : {"QT_SCALE_FACTOR", "GTEST_TOTAL_SHARDS", "GTEST_SHARD_INDEX"})
            environment.remove(QLatin1String(name));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen:configfile=%1").arg(screens));
        environment.insert(QStringLiteral("QT_SCREEN_SCALE_FACTORS"),
                           QStringLiteral("left=%1;right=%2").arg(QLatin1String(leftScale), QLatin1String(rightScale)));
        return environment;
    }
};

} // namespace tessa::qt
