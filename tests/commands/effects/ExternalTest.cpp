#include "commands/effects/External.h"

#include "settings/SettingsStore.h"
#include "tests/Desk.h"

namespace tessa {

namespace {

class ExternalTest : public testing::Test {
protected:
    FakeSettings m_settings;
    FakeShell m_shell;

    std::string Mail(TextView command) {
        m_settings.Put(u"MailClient", command);
        External::LaunchMailClient(m_settings, m_shell);
        return m_shell.Take();
    }

    std::string News(TextView command) {
        m_settings.Put(u"NewsClient", command);
        External::LaunchNewsClient(m_settings, m_shell);
        return m_shell.Take();
    }

    static std::string Words(TextView commandLine) {
        std::string all;
        for (const Text& word : External::WordsOf(commandLine)) all += "<" + ToUtf8(word) + ">";
        return all;
    }
};

TEST_F(ExternalTest, StartsTheProgramOfTheSettings) {
    EXPECT_EQ(Mail(u"mailer --new \"two words\""), "<mailer><--new><two words>");
    EXPECT_EQ(News(u"reader"), "<reader>");
}

TEST_F(ExternalTest, AnEmptyCommandStartsNothing) {
    EXPECT_EQ(Mail(u""), "");
    EXPECT_EQ(News(u""), "");
    EXPECT_EQ(Mail(u"  "), "");
    External::LaunchMailClient(m_settings, m_shell);
    EXPECT_EQ(m_shell.Take(), "");
}

TEST_F(ExternalTest, ACommandThatWasNeverSetStartsNothing) {
    External::LaunchMailClient(m_settings, m_shell);
    External::LaunchNewsClient(m_settings, m_shell);
    EXPECT_EQ(m_shell.Take(), "");
}

TEST_F(ExternalTest, UntilOneIsSetTheDesktopsProgramStarts) {
    m_shell.programs = {{u"mailto", u"post --main"}, {u"news", u"reader"}};
    External::LaunchMailClient(m_settings, m_shell);
    External::LaunchNewsClient(m_settings, m_shell);
    EXPECT_EQ(m_shell.Take(), "<post><--main>, <reader>");
    EXPECT_EQ(Mail(u""), "") << "none was wanted";
    EXPECT_EQ(Mail(u"mailer"), "<mailer>");
}

TEST_F(ExternalTest, ReferencesAreReplacedByTheVariablesValues) {
    m_shell.variables = {{u"HOME", u"/home/user"}, {u"EMPTY", u""}};
    EXPECT_EQ(Mail(u"%HOME%/bin/mailer a%EMPTY%b"), "</home/user/bin/mailer><ab>");
    EXPECT_EQ(Mail(u"%EMPTY%"), "");
}

TEST_F(ExternalTest, NamesThatStandForNothingStay) {
    m_shell.variables = {{u"A", u"1"}, {u"B", u"%A%"}};
    EXPECT_EQ(Mail(u"m %none% %% 100% %A"), "<m><%none%><%%><100%><%A>");
    EXPECT_EQ(Mail(u"m %none%A%"), "<m><%none1>") << "the last sign of a name that is none begins the next";
    EXPECT_EQ(Mail(u"m %B%"), "<m><%A%>") << "a value is not looked into";
}

TEST_F(ExternalTest, AnExpansionThatDoesNotFitStartsNothing_Deliberate) {
    EXPECT_EQ(Mail(Text(255, u'x')).size(), 257U);
    EXPECT_EQ(Mail(Text(256, u'x')), "");
    EXPECT_EQ(News(Text(511, u'x')).size(), 513U);
    EXPECT_EQ(News(Text(512, u'x')), "");
    m_shell.variables = {{u"LONG", Text(255, u'y')}};
    EXPECT_EQ(Mail(u"%LONG%").size(), 257U);
    EXPECT_EQ(Mail(u"z%LONG%"), "");
}

TEST_F(ExternalTest, TheCommandEndsAtItsFirstNul) { EXPECT_EQ(Mail(Text(u"mailer\0 more", 12)), "<mailer>"); }

TEST_F(ExternalTest, AProgramThatDoesNotStartIsIgnored) {
    m_shell.refuses = true;
    const auto before = SkippedSteps();
    EXPECT_EQ(Mail(u"nothing"), "<nothing>");
    EXPECT_EQ(SkippedSteps(), before + 1);
}

TEST_F(ExternalTest, TheStoreIsReleasedAfterEachUse) {
    Mail(u"mailer");
    EXPECT_EQ(m_settings.open, 0);
}

TEST_F(ExternalTest, WordsAreHeldTogetherByQuotesAndBackslashes) {
    EXPECT_EQ(Words(u" a  b\tc "), "<a><b><c>");
    EXPECT_EQ(Words(u"'a b' \"c d\" e' 'f \"\" ''"), "<a b><c d><e f><><>");
    EXPECT_EQ(Words(u"a\\ b \\\"c\\\\ 'd\\e' \"f\\\"g\\h\""), "<a b><\"c\\><d\\e><f\"g\\h>");
    EXPECT_EQ(Words(u"a \"b c"), "<a><b c>");
    EXPECT_EQ(Words(u"a\\"), "<a\\>");
    EXPECT_EQ(Words(u"a; rm $(b) `c` > d | e & *"), "<a;><rm><$(b)><`c`><>><d><|><e><&><*>") << "no shell sees it";
}

class MailCommands : public testing::Test {
protected:
    Desk m_desk;

    void SetUp() override { m_desk.Start(); }

    /// What the current page is asked to load.
    std::string Click(TextView tool) {
        m_desk.views.Calls(1);
        m_desk.Click(tool);
        return m_desk.views.Calls(1);
    }
};

TEST_F(MailCommands, BeginTheirMails) {
    m_desk.settings.Put(u"EnvironmentText", u"Lab 7");
    EXPECT_EQ(Click(u"mnuNewMessage"), "go mailto:");
    EXPECT_EQ(Click(u"mnuMailQuorvaneSoftware"), "go mailto:support@tessaview.example");
    EXPECT_EQ(Click(u"mnuFeatureRequest"), "go mailto:support@tessaview.example?subject=Feature Request");
    EXPECT_EQ(Click(u"mnuMailBugReport"),
              "go mailto:support@tessaview.example?subject=Bug Report (TessaView 3.2.159-Lab 7)");
}

TEST_F(MailCommands, ABugReportNamesTheSystemByItself) {
    m_desk.shell.system = u"Debian 12";
    EXPECT_EQ(Click(u"mnuMailBugReport"),
              "go mailto:support@tessaview.example?subject=Bug Report (TessaView 3.2.159-Debian 12)");
}

TEST_F(MailCommands, SendALinkInsertsTitleAndAddressAsTheyAre) {
    m_desk.views.At(1).name = u"Q & A? #1 100%";
    m_desk.views.At(1).location = u"http://a/?b=1&c=%20#d";
    EXPECT_EQ(Click(u"mnuSendLink"),
              "go mailto:?subject=Q & A? #1 100% (http://a/?b=1&c=%20#d)&body=http://a/?b=1&c=%20#d");
}

TEST_F(MailCommands, StartTheUsersPrograms) {
    m_desk.settings.Put(u"MailClient", u"mailer");
    m_desk.settings.Put(u"NewsClient", u"reader");
    m_desk.Click(u"mnuReadMail");
    m_desk.Click(u"mnuMail");
    m_desk.Click(u"mnuReadNews");
    EXPECT_EQ(m_desk.shell.Take(), "<mailer>, <mailer>, <reader>");
}

TEST_F(MailCommands, DoNothingWithoutAPage) {
    m_desk.TakeTabAway(1);
    for (const TextView tool : {u"mnuNewMessage", u"mnuSendLink", u"mnuMailBugReport"}) EXPECT_EQ(Click(tool), "");
}

TEST(MailAddress, IsEmptyForAnyOtherCommand) { EXPECT_EQ(External::MailAddress(u"mnuMail", {}), u""); }

} // namespace

} // namespace tessa
