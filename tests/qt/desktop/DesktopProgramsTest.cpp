#include "qt/desktop/DesktopPrograms.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// A desktop of its own in a temporary folder.
class DesktopProgramsTest : public testing::Test {
protected:
    QTemporaryDir m_folder;

    void SetUp() override {
        ASSERT_TRUE(m_folder.isValid());
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME", "XDG_DATA_DIRS"}) {
            m_before.insert(QLatin1String(name), qgetenv(name));
            qputenv(name, m_folder.filePath(QLatin1String(name)).toLocal8Bit());
        }
        m_before.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), qgetenv("XDG_CURRENT_DESKTOP"));
    }

    void TearDown() override {
        for (auto each = m_before.cbegin(); each != m_before.cend(); ++each)
            qputenv(each.key().toLatin1().constData(), each.value());
    }

    void Write(const char* path, const QByteArray& text) {
        const QString file = m_folder.filePath(QLatin1String(path));
        ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
        QFile out(file);
        ASSERT_TRUE(out.open(QFile::WriteOnly));
        out.write(text);
    }

    void Program(const char* id, const QByteArray& lines) {
        Write(QByteArray("XDG_DATA_DIRS/applications/").append(id).constData(),
              "[Desktop Entry]\nType=Application\n" + lines);
    }

    static std::string Command() { return DesktopPrograms::CommandFor(QStringLiteral("mailto")).toStdString(); }

    static bool OpensElsewhere() { return DesktopPrograms::OpensElsewhere(QStringLiteral("mailto")); }

private:
    QMap<QString, QByteArray> m_before;
};

TEST_F(DesktopProgramsTest, TheUsersChoiceCountsFirst) {
    Program("post.desktop", "Exec=post %u\n[Desktop Action new]\nExec=post --new\n");
    Program("other.desktop", "Exec=other %U\n");
    Write("XDG_DATA_DIRS/applications/mimeinfo.cache",
          "[MIME Cache]\nx-scheme-handler/mailto=other.desktop;post.desktop;\n");
    EXPECT_EQ(Command(), "other");
    Write("XDG_CONFIG_HOME/mimeapps.list",
          "[Default Applications]\nx-scheme-handler/mailto=gone.desktop;post.desktop;\n");
    EXPECT_EQ(Command(), "post");
}

TEST_F(DesktopProgramsTest, CodesAreLeftOut) {
    Program("post.desktop", "Exec=\"/opt/my post/post\" --icon %i -name %c --rate=5%% %u\n");
    Write("XDG_CONFIG_HOME/mimeapps.list", "[Default Applications]\nx-scheme-handler/mailto=post.desktop\n");
    EXPECT_EQ(Command(), "\"/opt/my post/post\" --icon -name --rate=5%");
}

TEST_F(DesktopProgramsTest, AProgramOfATerminalIsPassedOver) {
    Program("text.desktop", "Terminal=true\nExec=text %u\n");
    Write("XDG_CONFIG_HOME/mimeapps.list", "[Default Applications]\nx-scheme-handler/mailto=text.desktop\n");
    EXPECT_EQ(Command(), "");
    Program("post.desktop", "Exec=post\n");
    Write("XDG_DATA_HOME/applications/mimeapps.list", "[Default Applications]\nx-scheme-handler/mailto=post.desktop\n");
    EXPECT_EQ(Command(), "post");
}

TEST_F(DesktopProgramsTest, ADesktopThatKnowsNoneHasNone) {
    EXPECT_EQ(Command(), "");
    EXPECT_FALSE(OpensElsewhere());
    Write("XDG_CONFIG_HOME/mimeapps.list", "[Default Applications]\nx-scheme-handler/mailto=gone.desktop\n");
    EXPECT_FALSE(OpensElsewhere()) << "its program is not installed any more";
}

TEST_F(DesktopProgramsTest, AnotherProgramMayNeedATerminal) {
    Program("text.desktop", "Terminal=true\nExec=text %u\n");
    Write("XDG_CONFIG_HOME/mimeapps.list", "[Default Applications]\nx-scheme-handler/mailto=text.desktop\n");
    EXPECT_TRUE(OpensElsewhere());
}

TEST_F(DesktopProgramsTest, ThisProgramIsNoOtherOne) {
    Program("post.desktop", "Exec=post %u\n");
    Program("tessaview.desktop", "Exec=tessaview %u\n");
    Program("mine.desktop", "Exec=\"" + QCoreApplication::applicationFilePath().toLocal8Bit() + "\" %u\n");
    for (const QByteArray own : {"tessaview.desktop", "mine.desktop"}) {
        Write("XDG_CONFIG_HOME/mimeapps.list",
              "[Default Applications]\nx-scheme-handler/mailto=" + own + ";post.desktop\n");
        EXPECT_FALSE(OpensElsewhere()) << own.toStdString();
        EXPECT_EQ(Command(), "") << own.toStdString();
    }
    Write("XDG_CONFIG_HOME/mimeapps.list",
          "[Default Applications]\nx-scheme-handler/mailto=post.desktop;tessaview.desktop\n");
    EXPECT_TRUE(OpensElsewhere());
    EXPECT_EQ(Command(), "post");
}

TEST_F(DesktopProgramsTest, TheListOfTheDesktopThatRunsCountsBeforeTheCommonOne) {
    Program("post.desktop", "Exec=post %u\n");
    Program("other.desktop", "Exec=other %u\n");
    Write("XDG_CONFIG_HOME/mimeapps.list", "[Default Applications]\nx-scheme-handler/mailto=other.desktop\n");
    Write("XDG_CONFIG_HOME/gnome-mimeapps.list", "[Default Applications]\nx-scheme-handler/mailto=post.desktop\n");
    qputenv("XDG_CURRENT_DESKTOP", "");
    EXPECT_EQ(Command(), "other");
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_EQ(Command(), "post");
}

} // namespace

} // namespace tessa::qt
