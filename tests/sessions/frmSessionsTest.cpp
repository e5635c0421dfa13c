#include "sessions/frmSessions.h"

#include "base/os/AtomicFile.h"
#include "groups/TessaGroups.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

Session Ended(std::vector<SessionPage> pages, std::size_t selected = 1) {
    return {.Time = 700, .Ended = true, .Selected = selected, .Pages = std::move(pages)};
}

Session EndedBadly(std::vector<SessionPage> pages, std::size_t selected = 1) {
    return {.Time = 500, .Selected = selected, .Pages = std::move(pages)};
}

const std::vector<SessionPage> kThree{{u"http://one/", u"One"}, {u"http://two/", u"Two"}, {u"http://three/", u"Three"}};

class SessionsDesk : public Desk {
public:
    void Keep(TextView id, const Session& session) { sessions.earlier.push_back({Text(id), SessionBytes(session)}); }
    /// Opens the list from its menu and has the user do something there.
    void Use(const std::function<void(frmSessions&)>& user) {
        bool used = false;
        inSessions = [&](frmSessions& form) {
            form.Form.Visible = true;
            user(form);
            used = true;
        };
        Click(u"xtrSessions");
        EXPECT_TRUE(used);
    }
    [[nodiscard]] std::string Addresses() {
        std::string all;
        for (std::size_t i = 1; i <= main.pcPage.Count(); ++i) {
            const auto* tab = main.pcPage.FindAt(i);
            const std::string address = ToUtf8(views.At(tab->Tag).location);
            all += (all.empty() ? "" : " ") + (tab == main.pcPage.SelectedItem() ? "[" + address + "*]" : address);
        }
        return all;
    }
};

std::string Pages(const frmSessions& form) {
    std::string all;
    for (const SessionPageLine& each : form.lstPages.Rows())
        all += (all.empty() ? "" : " ") + ToUtf8(each.Title) + (each.Front ? "*" : "") + (each.Ticked ? "+" : "");
    return all;
}

std::string Sessions(const frmSessions& form) {
    std::string all;
    for (const SessionLine& each : form.lstSessions.Rows())
        all += (all.empty() ? "" : "; ") + ToUtf8(each.When) + ": " + ToUtf8(each.Pages);
    return all;
}

TEST(frmSessions, ListsTheSessionsAndThePagesOfTheNewest) {
    SessionsDesk desk;
    desk.Keep(u"b", Ended(kThree, 2));
    desk.Keep(u"a", EndedBadly({{u"http://four/", u""}}));
    desk.Start();
    desk.Use([](frmSessions& form) {
        EXPECT_EQ(Sessions(form), "at 700: 3 pages; at 500: One page, did not end properly");
        EXPECT_EQ(Pages(form), "One+ Two*+ Three+");
        EXPECT_TRUE(form.chkAll.Ticked());
        form.lstSessions.ListIndex = 1;
        EXPECT_EQ(Pages(form), "http://four/*+");
    });
}

TEST(frmSessions, WithoutSessionsThereIsNothingToDo) {
    SessionsDesk desk;
    desk.Start();
    desk.Use([](frmSessions& form) {
        EXPECT_EQ(form.lstSessions.ListIndex(), -1);
        for (const Button* each : {&form.cmdOpen, &form.cmdSave, &form.cmdForget}) EXPECT_FALSE(each->Enabled());
        EXPECT_FALSE(form.chkAll.Enabled());
        EXPECT_TRUE(form.lblMessage.Caption().starts_with(u"There is no earlier session yet."));
        form.cmdOpen.Click();
        form.cmdForget.Click();
        EXPECT_TRUE(form.Form.Visible());
    });
    EXPECT_EQ(desk.Strip(), "[1*]");
}

TEST(frmSessions, OpensAllPagesInOrderWithTheFrontOneInFront) {
    SessionsDesk desk;
    desk.Keep(u"a", Ended(kThree, 2));
    desk.Start(u"http://here/");
    desk.Use([](frmSessions& form) {
        form.cmdOpen.Click();
        EXPECT_FALSE(form.Form.Visible());
    });
    EXPECT_EQ(desk.Addresses(), "http://here/ http://one/ [http://two/*] http://three/");
}

TEST(frmSessions, OpensThePagesThatAreTicked) {
    SessionsDesk desk;
    desk.Keep(u"a", Ended(kThree, 2));
    desk.Start(u"http://here/");
    desk.Use([](frmSessions& form) {
        form.lstPages_ItemCheck(1, false);
        EXPECT_EQ(form.chkAll.Value(), CheckState::Grey);
        form.cmdOpen.Click();
    });
    EXPECT_EQ(desk.Addresses(), "http://here/ http://one/ [http://three/*]");
}

TEST(frmSessions, PagesThatLaySideBySideDoSoAgain) {
    SessionsDesk desk;
    Session session = Ended(kThree, 2);
    session.Tiles = {u"h(1 v(2 3))"};
    desk.Keep(u"a", session);
    desk.Start(u"http://here/");
    desk.Use([](frmSessions& form) { form.cmdOpen.Click(); });
    EXPECT_EQ(desk.views.Shown(), "2 3* 4");
    desk.Use([](frmSessions& form) {
        form.lstPages_ItemCheck(0, false);
        form.cmdOpen.Click();
    });
    EXPECT_EQ(desk.views.Shown(), "5* 6");
}

TEST(frmSessions, ADoubleClickOpensOnePage) {
    SessionsDesk desk;
    desk.Keep(u"a", Ended(kThree, 2));
    desk.Start(u"http://here/");
    desk.Use([](frmSessions& form) {
        form.lstPages_DblClick(7);
        EXPECT_TRUE(form.Form.Visible());
        form.lstPages_DblClick(2);
        EXPECT_FALSE(form.Form.Visible());
    });
    EXPECT_EQ(desk.Addresses(), "http://here/ [http://three/*]");
}

TEST(frmSessions, OneBoxTicksAllPagesOrNone) {
    SessionsDesk desk;
    desk.Keep(u"a", Ended(kThree));
    desk.Start();
    desk.Use([](frmSessions& form) {
        form.chkAll.Tick(false);
        EXPECT_EQ(Pages(form), "One* Two Three");
        EXPECT_FALSE(form.cmdOpen.Enabled());
        EXPECT_FALSE(form.cmdSave.Enabled());
        EXPECT_TRUE(form.cmdForget.Enabled());
        form.lstPages_ItemCheck(2, true);
        EXPECT_EQ(Pages(form), "One* Two Three+");
        EXPECT_EQ(form.chkAll.Value(), CheckState::Grey);
        EXPECT_TRUE(form.cmdOpen.Enabled());
        form.chkAll.Tick(true);
        EXPECT_EQ(Pages(form), "One*+ Two+ Three+");
        form.lstPages_ItemCheck(9, false);
        EXPECT_TRUE(form.chkAll.Ticked());
    });
}

TEST(frmSessions, AForgottenSessionIsGoneAndItsNeighbourIsShown) {
    SessionsDesk desk;
    desk.Keep(u"b", Ended(kThree));
    desk.Keep(u"a", EndedBadly({{u"http://four/", u"Four"}}));
    desk.Start();
    EXPECT_EQ(desk.offer.offered, u"a");
    desk.Use([](frmSessions& form) {
        form.lstSessions.ListIndex = 1;
        form.cmdForget.Click();
        EXPECT_EQ(Sessions(form), "at 700: 3 pages");
        EXPECT_EQ(Pages(form), "One*+ Two+ Three+");
        form.cmdForget.Click();
        EXPECT_EQ(Sessions(form), "");
        EXPECT_EQ(Pages(form), "");
        EXPECT_FALSE(form.cmdForget.Enabled());
    });
    EXPECT_TRUE(desk.sessions.earlier.empty());
    EXPECT_EQ(desk.offer.offered, u"") << "what is forgotten is offered no longer";
}

TEST(frmSessions, AnOfferIsTakenBackOnceAllItsPagesHaveBeenOpened) {
    SessionsDesk desk;
    desk.Keep(u"a", EndedBadly(kThree));
    desk.Start();
    desk.Use([](frmSessions& form) {
        form.lstPages_ItemCheck(0, false);
        form.cmdOpen.Click();
    });
    EXPECT_EQ(desk.offer.offered, u"a") << "two of three pages are not all";
    desk.Use([](frmSessions& form) { form.cmdOpen.Click(); });
    EXPECT_EQ(desk.offer.offered, u"");
    EXPECT_EQ(desk.sessions.earlier.size(), 1u) << "it is still kept";
}

TEST(frmSessions, ASessionWithoutPagesIsNotListed) {
    SessionsDesk desk;
    desk.Keep(u"b", Ended({}));
    desk.Keep(u"a", Ended(kThree));
    desk.Start();
    desk.Use([](frmSessions& form) { EXPECT_EQ(Sessions(form), "at 700: 3 pages"); });
}

class frmSessionsSaving : public testing::Test {
protected:
    frmSessionsSaving() {
        desk.Keep(u"a", Ended(kThree, 2));
        desk.Start();
        desk.OpenMenu(u"bndTessaGroupsMenu");
    }
    [[nodiscard]] std::string Group(const std::string& name) const {
        std::string all;
        for (const auto& each : TessaGroups::Load(FromBytes(folder.Path(name))))
            all += (all.empty() ? "" : " ") + ToUtf8(each.Key);
        return all;
    }

    TemporaryFolder folder;
    SessionsDesk desk;
};

TEST_F(frmSessionsSaving, TheTickedPagesBecomeATessaGroup) {
    desk.files.chosen = FromBytes(folder.Path("news"));
    desk.Use([](frmSessions& form) {
        form.lstPages_ItemCheck(0, false);
        form.cmdSave.Click();
        EXPECT_TRUE(form.Form.Visible());
        EXPECT_EQ(form.lblMessage.Caption(), u"The TessaGroup has been saved.");
    });
    EXPECT_EQ(Group("news.tvg"), "http://two/ http://three/");
    EXPECT_TRUE(desk.Renews(u"bndTessaGroupsMenu"));
    EXPECT_EQ(desk.files.last.InitDir, u"/groups/");
}

TEST_F(frmSessionsSaving, CancellingSavesNothing) {
    desk.Use([](frmSessions& form) {
        form.cmdSave.Click();
        EXPECT_EQ(form.lblMessage.Caption(), u"");
    });
    EXPECT_FALSE(desk.Renews(u"bndTessaGroupsMenu"));
}

TEST_F(frmSessionsSaving, AnExistingGroupIsReplacedOnlyAfterYes) {
    const std::string path = folder.Path("news.tvg"), old = "[TessaGroup]\nurl1=a\nurl2=b\nurl3=c\nurl4=d\n";
    ASSERT_EQ(WriteWholeFile(path, old), Outcome::Done);
    desk.files.chosen = FromBytes(path);
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        desk.messages.answer = answer;
        desk.Use([](frmSessions& form) { form.cmdSave.Click(); });
        EXPECT_EQ(ReadWholeFile(path), old);
    }
    desk.messages.answer = Answer::Yes;
    desk.Use([](frmSessions& form) { form.cmdSave.Click(); });
    EXPECT_EQ(Group("news.tvg"), "http://one/ http://two/ http://three/");
    EXPECT_EQ(desk.messages.asked.size(), 3u);
}

TEST_F(frmSessionsSaving, AGroupThatCannotBeWrittenIsReported) {
    desk.files.chosen = FromBytes(folder.Path("missing/news.tvg"));
    desk.Use([](frmSessions& form) {
        form.cmdSave.Click();
        EXPECT_EQ(form.lblMessage.Caption(), u"The TessaGroup could not be saved.");
    });
    EXPECT_FALSE(desk.Renews(u"bndTessaGroupsMenu"));
}

} // namespace

} // namespace tessa
