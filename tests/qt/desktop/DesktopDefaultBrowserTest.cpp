#include "qt/desktop/DesktopDefaultBrowser.h"

#include "tests/fakes/TemporaryFolder.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QThread>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

constexpr TextView kProgramName = u"TessaView3", kPath = u"/programs/tessaview";

/// A desktop of the test's own: data and configuration folders, and a tool that writes down how it is called.
class DesktopDefaultBrowserTest : public testing::Test {
protected:
    TemporaryFolder m_folder;
    DesktopDefaultBrowser m_helper;

    void SetUp() override {
        for (const char* name : {"bin", "home/applications", "system/applications", "config"})
            ASSERT_TRUE(QDir().mkpath(Path(name)));
        Set("XDG_DATA_HOME", Path("home"));
        Set("XDG_DATA_DIRS", Path("system"));
        Set("XDG_CONFIG_HOME", Path("config"));
        Set("XDG_CURRENT_DESKTOP", QStringLiteral("Garden:GNOME"));
        Set("PATH", Path("bin") + QStringLiteral(":/usr/bin:/bin"));
    }

    void TearDown() override {
        for (const auto& [name, value] : m_before) value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }

    [[nodiscard]] QString Path(const char* name) const { return QString::fromStdString(m_folder.Path(name)); }

    void Set(const char* name, const QString& value) {
        m_before.emplace_back(name, qgetenv(name));
        qputenv(name, value.toUtf8());
    }

    void InstallEntry(const char* folder = "home") const {
        m_folder.Write(std::string(folder) + "/applications/tessaview.desktop", "[Desktop Entry]\n");
    }

    /// `script` is what the tool does after it has written down its arguments.
    void InstallTool(const std::string& script) const {
        const std::string tool =
            m_folder.Write("bin/xdg-settings", "#!/bin/sh\necho \"$@\" >> '" + Log() + "'\n" + script);
        QFile::setPermissions(QString::fromStdString(tool), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void UsersList(const std::string& file, const std::string& http, const std::string& rest) const {
        m_folder.Write("config/" + file, "[Added Associations]\nx-scheme-handler/http=other.desktop;\n\n"
                                         "[Default Applications]\nx-scheme-handler/http=" +
                                             http + "\nx-scheme-handler/https=" + rest + "\ntext/html=" + rest + "\n");
    }

    [[nodiscard]] std::string Log() const { return m_folder.Path("log"); }
    [[nodiscard]] std::string Calls() const { return m_folder.Read("log"); }

private:
    std::vector<std::pair<const char*, QByteArray>> m_before;
};

constexpr auto kCheck = "check default-web-browser tessaview.desktop\n";

TEST_F(DesktopDefaultBrowserTest, WithoutAnInstalledEntryThereIsNothingToAskAndNothingIsRun) {
    InstallTool("echo no");
    EXPECT_TRUE(m_helper.IsDefault(kProgramName, kPath));
    EXPECT_EQ(m_helper.MakeDefault(kProgramName, kPath), Outcome::Failed);
    EXPECT_EQ(Calls(), "");
}

TEST_F(DesktopDefaultBrowserTest, WithoutTheToolThereIsNothingToAsk) {
    InstallEntry();
    Set("PATH", Path("bin"));
    EXPECT_TRUE(m_helper.IsDefault(kProgramName, kPath));
    EXPECT_EQ(m_helper.MakeDefault(kProgramName, kPath), Outcome::Failed);
}

TEST_F(DesktopDefaultBrowserTest, TheToolsNoIsNo) {
    InstallEntry();
    InstallTool("echo no");
    EXPECT_FALSE(m_helper.IsDefault(kProgramName, kPath));
    EXPECT_EQ(Calls(), kCheck);
}

TEST_F(DesktopDefaultBrowserTest, AnEntryInTheSystemsFolderCounts) {
    InstallEntry("system");
    InstallTool("echo no");
    EXPECT_FALSE(m_helper.IsDefault(kProgramName, kPath));
}

TEST_F(DesktopDefaultBrowserTest, TheToolsYesIsYes) {
    InstallEntry();
    InstallTool("echo yes");
    EXPECT_TRUE(m_helper.IsDefault(kProgramName, kPath));
    EXPECT_EQ(Calls(), kCheck);
}

TEST_F(DesktopDefaultBrowserTest, AToolThatFailsIsNotBelieved) {
    InstallEntry();
    InstallTool("echo no; exit 3");
    EXPECT_TRUE(m_helper.IsDefault(kProgramName, kPath));
    InstallTool("kill -9 $$");
    EXPECT_TRUE(m_helper.IsDefault(kProgramName, kPath));
    InstallTool("echo perhaps");
    EXPECT_TRUE(m_helper.IsDefault(kProgramName, kPath));
}

TEST_F(DesktopDefaultBrowserTest, AToolThatHangsHasNothingToSay) {
    InstallEntry();
    InstallTool("echo no; exec sleep 300");
    EXPECT_TRUE(m_helper.IsDefault(kProgramName, kPath));
}

TEST_F(DesktopDefaultBrowserTest, ATicklishEnvironmentVariableDoesNotReachTheTool) {
    Set("BROWSER", QStringLiteral("w3m"));
    InstallEntry();
    InstallTool("[ -z \"$BROWSER\" ] && echo no");
    EXPECT_FALSE(m_helper.IsDefault(kProgramName, kPath));
}

TEST_F(DesktopDefaultBrowserTest, TheUsersListThatNamesUsNeedsNoTool) {
    InstallEntry();
    InstallTool("echo no");
    UsersList("mimeapps.list", "tessaview.desktop", "tessaview.desktop;other.desktop;");
    EXPECT_TRUE(m_helper.IsDefault(kProgramName, kPath));
    EXPECT_EQ(Calls(), "");
}

TEST_F(DesktopDefaultBrowserTest, AListThatNamesAnotherForOneTypeLeavesItToTheTool) {
    InstallEntry();
    InstallTool("echo no");
    UsersList("mimeapps.list", "other.desktop;tessaview.desktop", "tessaview.desktop");
    EXPECT_FALSE(m_helper.IsDefault(kProgramName, kPath));
    EXPECT_EQ(Calls(), kCheck);
}

TEST_F(DesktopDefaultBrowserTest, TheListOfTheDesktopThatRunsCountsFirst) {
    InstallEntry();
    InstallTool("echo no");
    UsersList("mimeapps.list", "tessaview.desktop", "tessaview.desktop");
    UsersList("gnome-mimeapps.list", "other.desktop", "other.desktop");
    EXPECT_FALSE(m_helper.IsDefault(kProgramName, kPath));
    UsersList("garden-mimeapps.list", "tessaview.desktop", "tessaview.desktop");
    EXPECT_TRUE(m_helper.IsDefault(kProgramName, kPath));
}

TEST_F(DesktopDefaultBrowserTest, ADamagedListIsNone) {
    InstallEntry();
    InstallTool("echo no");
    m_folder.Write("config/mimeapps.list", std::string("[Default Applications\nx-scheme-handler/http\0=\n[[[", 48));
    EXPECT_FALSE(m_helper.IsDefault(kProgramName, kPath));
}

TEST_F(DesktopDefaultBrowserTest, MakesTheInstalledEntryTheDefault) {
    InstallEntry();
    InstallTool("");
    EXPECT_EQ(m_helper.MakeDefault(kProgramName, kPath), Outcome::Done);
    const QDeadlineTimer patience(30000);
    while (Calls().empty() && !patience.hasExpired()) QThread::msleep(5);
    EXPECT_EQ(Calls(), "set default-web-browser tessaview.desktop\n");
}

} // namespace

} // namespace tessa::qt
