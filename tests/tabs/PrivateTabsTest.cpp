#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// A user with an ordinary tab and, right of it and in front, a private one.
class PrivateTabs : public testing::Test {
protected:
    PrivateTabs() {
        desk.StartWithTabs(1);
        desk.PageLoads(1, u"https://a.example/", u"A");
        desk.Click(u"xtrPrivateTab");
        desk.PageLoads(2, u"https://secret.example/", u"Secret");
    }
    [[nodiscard]] std::string Privacies() {
        std::string all;
        for (std::size_t i = 1; i <= desk.CountTabs(); ++i) {
            const Tab& tab = desk.TabAt(i);
            const bool view = desk.views.At(tab.Tag).privacy == Privacy::Private;
            EXPECT_EQ(tab.Private(), view);
            all += view ? 'p' : 'o';
        }
        return all;
    }
    [[nodiscard]] std::string Sites() {
        std::string all;
        for (const Text& each : SettingsStore(desk.settings).LastSites.Get()) all += "[" + ToUtf8(each) + "]";
        return all;
    }

    Desk desk;
};

TEST_F(PrivateTabs, AreMadeInFrontAndMarked) {
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(Privacies(), "op");
    EXPECT_EQ(desk.views.At(2).privacy, Privacy::Private);
}

TEST_F(PrivateTabs, HandTheirPrivacyOnToWhatIsOpenedFromThem) {
    desk.views.At(2).events.NewWindow2(2, NewWindowPlace::AsSet);
    EXPECT_EQ(Privacies(), "opp");
    desk.Click(u"mnuNewCurrent");
    desk.Type(u"cboSearch", u"tea");
    desk.Press(u"cboSearch", {Keys::kEnter, 0});
    EXPECT_EQ(Privacies(), "opppp");
    desk.Click(u"mnuNewBlank");
    EXPECT_EQ(Privacies(), "opppp"
                           "o");
    desk.views.At(1).events.NewWindow2(1, NewWindowPlace::AsSet);
    EXPECT_FALSE(desk.SelectedTab().Private());
}

TEST_F(PrivateTabs, AreNeverInLastSites) {
    desk.Click(u"mnuNewBlank");
    desk.PageLoads(3, u"https://b.example/", u"B");
    desk.window.Close();
    EXPECT_EQ(Sites(), "[https://a.example/][https://b.example/]");
}

TEST_F(PrivateTabs, AreNeverInTheJournal) {
    desk.WriteSession();
    EXPECT_NE(desk.sessions.own.find("https://a.example/"), std::string::npos);
    EXPECT_EQ(desk.sessions.own.find("secret"), std::string::npos);
    EXPECT_EQ(desk.sessions.own.find("Secret"), std::string::npos);
}

TEST_F(PrivateTabs, AreNotReopened) {
    desk.Click(u"mnuClose");
    EXPECT_FALSE(desk.Tool(u"xtrReopenTab").Enabled());
}

TEST_F(PrivateTabs, KeepNoHistoryOfTheBoxes) {
    desk.TypeAddress(u"hidden.example");
    desk.Type(u"cboSearch", u"hidden words");
    desk.Press(u"cboSearch", {Keys::kEnter, 0});
    EXPECT_EQ(desk.List(u"cboAddress").find("hidden"), std::string::npos);
    EXPECT_EQ(desk.List(u"cboSearch").find("hidden"), std::string::npos);
    desk.ClickTab(1);
    desk.TypeAddress(u"open.example");
    EXPECT_NE(desk.List(u"cboAddress").find("open.example"), std::string::npos);
}

TEST_F(PrivateTabs, ComeIntoAGroupOnlyWhenTheUserSaysSo) {
    const TemporaryFolder folder;
    desk.files.chosen = folder.PathText("g.tvg");
    desk.messages.answer = Answer::Cancel;
    desk.Click(u"mnuSaveAsTessaGroup");
    EXPECT_EQ(folder.Files(), 0U);
    desk.messages.answer = Answer::No;
    desk.Click(u"mnuSaveAsTessaGroup");
    EXPECT_EQ(folder.Read("g.tvg"), "[TessaGroup]\r\nurl1=https://a.example/\r\n");
    desk.messages.answer = Answer::Yes;
    desk.Click(u"mnuSaveAsTessaGroup");
    EXPECT_NE(folder.Read("g.tvg").find("url2=https://secret.example/"), std::string::npos);
}

TEST_F(PrivateTabs, KeepAGroupFromBeingReplacedWhenTheirQuestionIsCancelled) {
    const TemporaryFolder folder;
    const std::string before = "[TessaGroup]\r\nurl1=http://before/\r\n";
    folder.Write("g.tvg", before);
    desk.files.chosen = folder.PathText("g.tvg");
    desk.messages.answers = {Answer::Yes, Answer::Cancel};
    desk.Click(u"mnuSaveAsTessaGroup");
    EXPECT_EQ(desk.messages.asked.size(), 2U);
    EXPECT_EQ(desk.messages.asked.front(),
              u"A TessaGroup with this name already exists. Do you want to overwrite the existing TessaGroup?");
    EXPECT_EQ(folder.Read("g.tvg"), before);
    desk.messages.answers = {Answer::Yes, Answer::No};
    desk.Click(u"mnuSaveAsTessaGroup");
    EXPECT_EQ(folder.Read("g.tvg"), "[TessaGroup]\r\nurl1=https://a.example/\r\n");
}

TEST_F(PrivateTabs, AreAddedToAGroupOnlyWhenTheUserSaysSo) {
    const TemporaryFolder folder;
    desk.files.chosen = folder.PathText("g.tvg");
    desk.messages.answer = Answer::No;
    desk.Click(u"mnuAddToTessaGroup");
    EXPECT_EQ(folder.Files(), 0U);
    EXPECT_EQ(desk.messages.asked.size(), 1U);
    desk.messages.answer = Answer::Yes;
    desk.Click(u"mnuAddToTessaGroup");
    EXPECT_EQ(folder.Files(), 1U);
    desk.ClickTab(1);
    desk.Click(u"mnuAddToTessaGroup");
    EXPECT_EQ(desk.messages.asked.size(), 2U) << "an ordinary tab needs no question";
}

TEST(AddressSign, TellsHowFarThePageInFrontCanBeTrusted) {
    Desk desk;
    desk.StartWithTabs(2);
    const auto sign = [&] { return ToUtf8(desk.Combo(u"cboAddress").Sign().Image.Name); };
    EXPECT_EQ(sign(), "");
    desk.views.At(1).security = PageSecurity::Secure;
    desk.PageLoads(1, u"https://a.example/", u"A");
    EXPECT_EQ(sign(), "security-high");
    desk.views.At(2).security = PageSecurity::NotSecure;
    desk.PageLoads(2, u"http://b.example/", u"B");
    EXPECT_EQ(sign(), "security-high") << "a background page says nothing";
    desk.ClickTab(2);
    EXPECT_EQ(sign(), "security-low");
    for (const auto& [security, name] :
         {std::pair(PageSecurity::Exception, "security-medium"), std::pair(PageSecurity::Local, "computer"),
          std::pair(PageSecurity::Own, "tessaview"), std::pair(PageSecurity::None, "")}) {
        desk.views.At(2).security = security;
        desk.PageLoads(2, u"http://b.example/", u"B");
        EXPECT_EQ(sign(), name);
    }
}

} // namespace

} // namespace tessa
