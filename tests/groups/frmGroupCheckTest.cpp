#include "groups/frmGroupCheck.h"

#include "settings/InternetSettings.h"
#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

namespace tessa {

namespace {

/// Answers at once, by what the address says.
class QuickProbe final : public AddressProbe {
public:
    void Ask(const Text& address, std::function<void(const ProbeAnswer&)> answered) override {
        ++asked;
        if (address == u"http://moved/") return answered({.status = 301, .location = u"http://new/"});
        if (address == u"http://slow/") return;
        answered({.status = address == u"http://gone/" ? 404 : 200});
    }
    void StopAll() override { stopped = true; }
    int asked = 0;
    bool stopped = false;
};

class GroupCheckForm : public testing::Test {
protected:
    Text Group(const std::string& name, const std::vector<std::string>& addresses) {
        std::string bytes = "; mine\r\n[TessaGroup]\r\n";
        for (const std::string& each : addresses) bytes += each + "=http://" + each + "/\r\n";
        folder.Write(name, bytes);
        return folder.PathText(name);
    }
    /// The lines, with what is ticked in brackets.
    static std::string Lines(const frmGroupCheck& form) {
        std::string all;
        for (const CheckedLine& each : form.lstLines.Rows()) {
            const std::string line = ToUtf8(each.Health.address + u" " + WordOf(each.Health.health));
            all += (all.empty() ? "" : ", ") + (each.Ticked ? "[" + line + "]" : line);
        }
        return all;
    }
    TemporaryFolder folder;
    QuickProbe probe;
};

TEST_F(GroupCheckForm, ListsWhatHasBecomeOfEach) {
    const frmGroupCheck form(probe, {Group("a.tvg", {"fine", "moved", "gone"})});
    EXPECT_EQ(Lines(form), "http://fine/ fine, [http://moved/ moved], http://gone/ gone");
    EXPECT_EQ(form.lblProgress.Caption(), u"2 addresses have moved or are gone.");
    EXPECT_TRUE(form.cmdReplace.Enabled());
    EXPECT_FALSE(form.cmdRemove.Enabled() || form.cmdStop.Enabled() || form.cmdUndo.Enabled());
}

TEST_F(GroupCheckForm, ReplacesWritesOnceAndTakesBack) {
    frmGroupCheck form(probe, {Group("a.tvg", {"fine", "moved", "gone"})});
    const std::string before = folder.Read("a.tvg");
    form.cmdReplace.Click();
    EXPECT_EQ(Lines(form), "http://fine/ fine, http://new/ fine, http://gone/ gone");
    EXPECT_EQ(folder.Read("a.tvg"), "; mine\r\n[TessaGroup]\r\nfine=http://fine/\r\nmoved=http://new/\r\n"
                                    "gone=http://gone/\r\n");
    form.Tick(2, true);
    form.cmdRemove.Click();
    EXPECT_EQ(Lines(form), "http://fine/ fine, http://new/ fine");
    form.cmdUndo.Click();
    EXPECT_EQ(Lines(form), "http://fine/ fine, http://new/ fine, [http://gone/ gone]");
    form.cmdUndo.Click();
    EXPECT_EQ(folder.Read("a.tvg"), before);
    EXPECT_FALSE(form.cmdUndo.Enabled());
}

TEST_F(GroupCheckForm, WhatIsFineCannotBeTicked) {
    frmGroupCheck form(probe, {Group("a.tvg", {"fine"})});
    form.Tick(0, true);
    form.Tick(7, true);
    EXPECT_EQ(Lines(form), "http://fine/ fine");
    EXPECT_EQ(form.lblProgress.Caption(), u"Nothing has to be mended.");
}

TEST_F(GroupCheckForm, AnAddressOfTwoGroupsIsAskedForOnceAndMendedInBoth) {
    frmGroupCheck form(probe, {Group("a.tvg", {"gone", "fine"}), Group("b.tvg", {"gone"})});
    EXPECT_EQ(probe.asked, 2);
    form.Tick(0, true);
    form.Tick(2, true);
    form.cmdRemove.Click();
    EXPECT_EQ(Lines(form), "http://fine/ fine");
    EXPECT_EQ(folder.Read("b.tvg"), "; mine\r\n[TessaGroup]\r\n");
}

TEST_F(GroupCheckForm, StoppedItListsTheRestAsUnchecked) {
    frmGroupCheck form(probe, {Group("a.tvg", {"fine", "slow"})});
    EXPECT_EQ(form.lblProgress.Caption(), u"1 of 2 addresses");
    EXPECT_EQ(Lines(form), "");
    form.cmdStop.Click();
    EXPECT_TRUE(probe.stopped);
    EXPECT_EQ(Lines(form), "http://fine/ fine, http://slow/ unchecked");
}

TEST_F(GroupCheckForm, AFileThatHasGoneIsToldAndItsLinesStay) {
    frmGroupCheck form(probe, {Group("a.tvg", {"moved"})});
    std::filesystem::remove(folder.Path("a.tvg"));
    form.cmdReplace.Click();
    EXPECT_EQ(form.lblProgress.Caption(), u"Not every TessaGroup could be written.");
    EXPECT_EQ(Lines(form), "[http://moved/ moved]");
    EXPECT_EQ(folder.Files(), 0U);
}

TEST_F(GroupCheckForm, UndoLeavesAFileThatSomebodyElseHasChanged) {
    frmGroupCheck form(probe, {Group("a.tvg", {"moved"})});
    form.cmdReplace.Click();
    folder.Write("a.tvg", "[TessaGroup]\r\n");
    form.cmdUndo.Click();
    EXPECT_EQ(form.lblProgress.Caption(), u"Not everything could be taken back: a file has been changed meanwhile.");
    EXPECT_EQ(folder.Read("a.tvg"), "[TessaGroup]\r\n");
}

TEST_F(GroupCheckForm, CommandsShowItAndTheArchiveOpensBehind) {
    Group("a.tvg", {"gone"});
    Desk desk{{.groupFolder = folder.PathText(""), .probe = &probe}};
    desk.StartWithTabs(1);
    int shown = 0;
    desk.inGroupCheck = [&](frmGroupCheck& form) {
        ++shown;
        EXPECT_FALSE(form.cmdArchive.Enabled());
        form.lstLines.ListIndex = 0;
        form.cmdArchive.Click();
    };
    desk.Click(u"xtrGroupCheckAll");
    EXPECT_EQ(shown, 1);
    EXPECT_EQ(desk.Strip(), "[1*] 2");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go https://web.archive.org/web/http://gone/");
}

TEST_F(GroupCheckForm, TheArchiveIsTheOneThatTheUserHasChosen) {
    Group("a.tvg", {"gone"});
    Desk desk{{.groupFolder = folder.PathText(""), .probe = &probe}};
    EXPECT_EQ(InternetSettings(desk.settings).Archive.Set(u"https://old.example/?of=%s"), Outcome::Done);
    desk.StartWithTabs(1);
    desk.inGroupCheck = [&](frmGroupCheck& form) {
        form.lstLines.ListIndex = 0;
        form.cmdArchive.Click();
    };
    desk.Click(u"xtrGroupCheckAll");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go https://old.example/?of=http%3A%2F%2Fgone%2F");
}

TEST_F(GroupCheckForm, ThePlanOfAnAddressThatHasMovedMovesAlong) {
    folder.Write("a.tvg", "[TessaGroup]\r\na=http://moved/\r\nb=http://gone/\r\n[TessaView]\r\n; note\r\n"
                          "page1=muted http://moved/\r\npage2=asleep http://gone/\r\n");
    const std::string before = folder.Read("a.tvg");
    frmGroupCheck form(probe, std::vector<Text>{folder.PathText("a.tvg")});
    form.Tick(1, true);
    form.cmdReplace.Click();
    form.cmdRemove.Click();
    EXPECT_EQ(folder.Read("a.tvg"), "[TessaGroup]\r\na=http://new/\r\n[TessaView]\r\n; note\r\n"
                                    "page1=muted http://new/\r\n");
    form.cmdUndo.Click();
    form.cmdUndo.Click();
    EXPECT_EQ(folder.Read("a.tvg"), before);
}

TEST_F(GroupCheckForm, AFileThatVanishesWhileItIsCheckedIsNotMadeAnew) {
    const Text file = Group("a.tvg", {"slow", "moved"});
    frmGroupCheck form(probe, {file});
    std::filesystem::remove(folder.Path("a.tvg"));
    form.cmdStop.Click();
    EXPECT_EQ(Lines(form), "http://slow/ unchecked, [http://moved/ moved]");
    form.cmdReplace.Click();
    EXPECT_EQ(form.lblProgress.Caption(), u"Not every TessaGroup could be written.");
    EXPECT_EQ(folder.Files(), 0U);
}

TEST_F(GroupCheckForm, AllPagesArePrintedWithoutAFile) {
    Desk desk{{.groupFolder = folder.PathText("")}};
    desk.StartWithTabs(1);
    std::vector<Text> left;
    Text refusal;
    desk.main.Groups().Write.ConnectForLife([&](const GroupCommands::Writing& writing) {
        EXPECT_EQ(writing.what, GroupCommands::Writes::Print);
        EXPECT_EQ(writing.path, u"");
        EXPECT_EQ(writing.group, u"");
        writing.ended(refusal, left);
    });
    desk.Click(u"xtrGroupPrint");
    EXPECT_EQ(desk.Said(), "All pages have been printed.");
    left = {u"http://a/", u"http://b/", u"http://c/"};
    desk.Click(u"xtrGroupPrint");
    EXPECT_EQ(desk.Said(), "All pages have been printed. 3 pages could not be had: http://a/, http://b/, http://c/");
    refusal = u"The printer did not take the document. Nothing was printed.";
    desk.Click(u"xtrGroupPrint");
    EXPECT_EQ(desk.Said(), "The printer did not take the document. Nothing was printed.");
}

TEST_F(GroupCheckForm, HowFarItIsIsCountedInTheStatusBar) {
    Desk desk{{.groupFolder = folder.PathText("")}};
    desk.StartWithTabs(1);
    GroupCommands::Writing writing;
    desk.main.Groups().Write.ConnectForLife([&](const GroupCommands::Writing& wanted) { writing = wanted; });
    desk.files.chosen = u"/x/all.pdf";
    desk.Click(u"xtrGroupPdf");
    EXPECT_EQ(desk.Said(), "Saving all.pdf");
    writing.fetched(3, 50);
    EXPECT_EQ(desk.Said(), "Saving all.pdf: 3 of 50 pages");
    writing.made(40);
    EXPECT_EQ(desk.Said(), "Saving all.pdf: 40 %");
    writing.ended({}, {u"http://a/"});
    EXPECT_EQ(desk.Said(), "all.pdf has been saved. 1 page could not be had: http://a/");
    desk.Click(u"xtrGroupPrint");
    writing.fetched(0, 2);
    EXPECT_EQ(desk.Said(), "Printing: 0 of 2 pages");
}

TEST_F(GroupCheckForm, WhatIsWrittenCanBeStopped) {
    Desk desk{{.groupFolder = folder.PathText("")}};
    desk.StartWithTabs(1);
    GroupCommands::Writing writing;
    desk.main.Groups().Write.ConnectForLife([&](const GroupCommands::Writing& wanted) { writing = wanted; });
    desk.Click(u"xtrGroupPrint");
    EXPECT_FALSE(desk.OffersStopAll()) << "nobody has chosen a printer yet";
    for (const auto& stop :
         std::vector<std::function<void()>>{[&] { desk.StopAll(); }, [&] { desk.Click(u"xtrStopAll"); }}) {
        int stops = 0;
        const Connection heard = writing.stop->Connect([&] { ++stops; });
        writing.fetched(0, 2);
        writing.fetched(1, 2);
        writing.made(40);
        EXPECT_TRUE(desk.OffersStopAll());
        stop();
        EXPECT_EQ(stops, 1);
        writing.ended(u"Stopped.", {});
        EXPECT_EQ(desk.Said(), "Stopped.");
        EXPECT_FALSE(desk.OffersStopAll());
        desk.Click(u"xtrGroupPrint");
    }
}

TEST_F(GroupCheckForm, WithoutGroupsNothingIsShown) {
    Desk desk{{.groupFolder = folder.PathText(""), .probe = &probe}};
    desk.StartWithTabs(1);
    desk.Click(u"xtrGroupCheckAll");
    EXPECT_EQ(desk.Said(), "There are no TessaGroups to check.");
}

TEST_F(GroupCheckForm, AllPagesAreWrittenWhereTheUserSays) {
    Desk desk{{.groupFolder = folder.PathText("")}};
    desk.StartWithTabs(1);
    std::string wrote;
    std::vector<Text> left;
    Text refusal;
    desk.main.Groups().Write.ConnectForLife([&](const GroupCommands::Writing& writing) {
        wrote += (writing.what == GroupCommands::Writes::Pdf ? "pdf " : "offline ") + ToUtf8(writing.path) + " ";
        writing.ended(refusal, left);
    });
    desk.Click(u"xtrGroupPdf");
    EXPECT_EQ(wrote, "") << "no file was chosen";
    desk.files.chosen = u"/x/all.pdf";
    desk.Click(u"xtrGroupPdf");
    EXPECT_EQ(desk.Said(), "all.pdf has been saved.");
    left = {u"http://a/", u"http://b/"};
    desk.files.chosen = u"/x/day.tvg";
    desk.Click(u"xtrGroupKeepOffline");
    EXPECT_EQ(desk.Said(), "day has been saved. 2 pages could not be had: http://a/, http://b/");
    refusal = u"There is no room.";
    desk.Click(u"xtrGroupKeepOffline");
    EXPECT_EQ(desk.Said(), "There is no room.");
    EXPECT_EQ(wrote, "pdf /x/all.pdf offline /x/day.tvg offline /x/day.tvg ");
}

} // namespace

} // namespace tessa
