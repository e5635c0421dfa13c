#include "qt/desktop/DesktopShell.h"

#include "commands/effects/External.h"
#include "qt/base/Strings.h"
#include "tests/fakes/FakeSettings.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// A mail program that writes down how it was started.
class DesktopShellTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    FakeSettings m_settings;
    DesktopShell m_shell;

    void SetUp() override {
        ASSERT_TRUE(m_folder.isValid());
        QFile program(Path("mailer"));
        ASSERT_TRUE(program.open(QFile::WriteOnly));
        program.write("#!/bin/sh\ncd \"$(dirname \"$0\")\" || exit 1\nprintf '<%s>' \"$@\" > started.new\n"
                      "mv started.new started\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        program.close();
        qputenv("TESSAVIEW_TEST_FOLDER", m_folder.path().toLocal8Bit());
    }

    void TearDown() override { qunsetenv("TESSAVIEW_TEST_FOLDER"); }

    [[nodiscard]] QString Path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    std::string Launch(TextView command) {
        m_settings.Put(u"MailClient", command);
        External::LaunchMailClient(m_settings, m_shell);
        QFile started(Path("started"));
        if (!QTest::qWaitFor([&] { return started.exists(); }, 20000)) return "(not started)";
        return started.open(QFile::ReadOnly) ? started.readAll().toStdString() : "(not readable)";
    }
};

TEST_F(DesktopShellTest, StartsTheProgramWithItsWords) {
    EXPECT_EQ(Launch(u"%TESSAVIEW_TEST_FOLDER%/mailer --new 'two words'"), "<--new><two words>");
}

TEST_F(DesktopShellTest, NoShellSeesTheWords) {
    EXPECT_EQ(Launch(u"%TESSAVIEW_TEST_FOLDER%/mailer ; $(id) `id` > x | y & * ~"),
              "<;><$(id)><`id`><>><x><|><y><&><*><~>");
}

TEST_F(DesktopShellTest, AProgramThatDoesNotExistFails) {
    EXPECT_EQ(m_shell.Start({FromQt(Path("none"))}), Outcome::Failed);
    EXPECT_EQ(m_shell.Start({}), Outcome::Failed);
}

TEST_F(DesktopShellTest, KnowsTheEnvironment) {
    EXPECT_EQ(m_shell.EnvironmentVariable(u"TESSAVIEW_TEST_FOLDER"), FromQt(m_folder.path()));
    EXPECT_EQ(m_shell.EnvironmentVariable(u"TESSAVIEW_TEST_NONE"), std::nullopt);
    EXPECT_EQ(m_shell.EnvironmentVariable(u""), std::nullopt);
    EXPECT_NE(m_shell.SystemName().find(u", Qt 6"), Text::npos);
}

} // namespace

} // namespace tessa::qt
