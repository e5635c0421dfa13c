#include "groups/frmGroupCheck.h"
#include "groups/frmGroupCompare.h"
#include "groups/frmTessaGroup.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FullDisk.h"
#include "tests/fakes/System.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

constexpr const char* kFile = "News.tvg";

/// Answers at once: hosts called "moved" have moved to "new", those called "gone" are gone.
class AnsweringProbe final : public AddressProbe {
public:
    void Ask(const Text& address, std::function<void(const ProbeAnswer&)> answered) override {
        if (address == u"http://moved/") return answered({.status = 301, .location = u"http://new/"});
        answered({.status = address == u"http://gone/" ? 404 : 200});
    }
    void StopAll() override {}
};

class PlanEditor : public testing::Test, protected TemporaryFolder {
protected:
    /// Opens a group of these hosts with these lines behind, and has the user do something in the editor.
    void Edit(const std::vector<std::string>& hosts, const std::string& more, const std::function<void()>& user) {
        std::string bytes = "; mine\r\n[TessaGroup]\r\n";
        for (const std::string& each : hosts) bytes += each + "=http://" + each + "/\r\n";
        Write(kFile, bytes + more);
        forms.inTessaGroup = [&](frmTessaGroup&) {
            form.Form.Visible = true;
            user();
        };
        form.EditTessaGroup(PathText(kFile));
    }
    std::string PlanOf(std::size_t place) { return ToUtf8(WordsOf(form.PlanAt(place))); }
    std::string List() const {
        std::string all;
        for (const Text& each : form.lstUrls.Rows()) all += ToUtf8(each) + " ";
        return all;
    }

    FakeMessages messages;
    FakeForms forms;
    FakeFiles files;
    AnsweringProbe probe;
    frmTessaGroup form{messages, forms, {.files = &files, .groupFolder = PathText(""), .probe = &probe}};
};

TEST_F(PlanEditor, AFileWithoutAPlanIsWrittenAsEver) {
    Edit({"a", "b"}, "[Other]\r\nx=1\r\n", [&] {
        EXPECT_EQ(PlanOf(0), "");
        EXPECT_EQ(form.cboColour.Items.at(form.cboColour.Index()), u"None");
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read(kFile), "[TessaGroup]\r\nurl0=http://a/\r\nurl1=http://b/\r\n");
}

TEST_F(PlanEditor, ThePlanIsShown) {
    Edit({"a", "b"}, "[TessaView]\r\ncolour=blue\r\nbehind=1\r\ncloseothers=1\r\npage1=first,muted http://b/\r\n", [&] {
        EXPECT_EQ(PlanOf(0) + "|" + PlanOf(1) + "|" + PlanOf(2), "|first,muted|");
        EXPECT_EQ(form.cboColour.Items.at(form.cboColour.Index()), u"Blue");
        EXPECT_TRUE(form.chkBehind.Ticked() && form.chkCloseOthers.Ticked());
    });
}

TEST_F(PlanEditor, WhatIsPlannedIsWrittenAndWhatBelongsToOthersStays) {
    Edit({"a", "b"}, "[Other]\r\n; theirs\r\nx=1\r\n", [&] {
        form.SetPlan(1, {.place = PagePlan::Place::Last, .asleep = true, .textSize = 3});
        form.SetPlan(9, {.muted = true});
        form.cboColour.Index = 4;
        form.chkBehind.Tick(true);
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read(kFile),
              "; mine\r\n[TessaGroup]\r\nurl0=http://a/\r\nurl1=http://b/\r\n[Other]\r\n; theirs\r\nx=1\r\n"
              "[TessaView]\r\ncolour=green\r\nbehind=1\r\npage1=last,asleep,size3 http://b/\r\n");
}

TEST_F(PlanEditor, PanesAreKeptOrNoLongerAndMoveWithTheirPages) {
    Edit({"a", "b", "c"}, "[TessaView]\r\npanes=h(1 3)\r\n", [&] {
        EXPECT_TRUE(form.chkKeepPanes.Ticked());
        form.lstUrls.ListIndex = 2;
        form.cmdUp.Click();
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read(kFile), "; mine\r\n[TessaGroup]\r\nurl0=http://a/\r\nurl1=http://c/\r\nurl2=http://b/\r\n"
                           "[TessaView]\r\npanes=h(1 2)\r\n");
    frmTessaGroup again{messages, forms, {}};
    forms.inTessaGroup = [&](frmTessaGroup&) {
        again.Form.Visible = true;
        again.chkKeepPanes.Tick(false);
        again.cmdOK.Click();
    };
    again.EditTessaGroup(PathText(kFile));
    EXPECT_EQ(Read(kFile).find("panes"), std::string::npos);
    frmTessaGroup third{messages, forms, {}};
    forms.inTessaGroup = [&](frmTessaGroup&) {
        third.Form.Visible = true;
        EXPECT_FALSE(third.chkKeepPanes.Ticked());
        third.chkKeepPanes.Tick(true);
        third.cmdOK.Click();
    };
    third.EditTessaGroup(PathText(kFile));
    EXPECT_NE(Read(kFile).find("[TessaView]\r\npanes=none\r\n"), std::string::npos);
}

TEST_F(PlanEditor, AnAddressThatIsReplacedLiesInThePaneOfTheOneBefore) {
    Edit({"a", "b", "moved", "gone"}, "[TessaView]\r\npanes=h(1 3 4)\r\n", [&] {
        form.lstUrls.ListIndex = 1;
        form.cmdDelete.Click();
        forms.inGroupCheck = [](frmGroupCheck& check) {
            check.Tick(2, true);
            check.cmdReplace.Click();
            check.cmdRemove.Click();
        };
        form.cmdCheck.Click();
        form.lstUrls.ListIndex = 0;
        form.cmdUpdate.Click();
        form.txtUrl.Value = u"http://z/";
        form.cmdUrlInsert.Click();
        EXPECT_EQ(List(), "http://z/ http://new/ ");
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read(kFile), "; mine\r\n[TessaGroup]\r\nurl0=http://z/\r\nurl1=http://new/\r\n"
                           "[TessaView]\r\npanes=h(1 2)\r\n");
}

TEST_F(PlanEditor, OfOneAddressTwiceThatIsMeantWhichIsSelected) {
    Write(kFile, "[TessaGroup]\r\n1=http://a/\r\n2=http://b/\r\n3=http://a/\r\n[TessaView]\r\npanes=h(2 3)\r\n");
    frmTessaGroup twice{messages, forms, {}};
    forms.inTessaGroup = [&](frmTessaGroup&) {
        twice.Form.Visible = true;
        twice.lstUrls.ListIndex = 2;
        twice.cmdUpdate.Click();
        twice.txtUrl.Value = u"http://z/";
        twice.cmdUrlInsert.Click();
        twice.lstUrls.ListIndex = 0;
        twice.cmdDelete.Click();
        twice.cmdOK.Click();
    };
    twice.EditTessaGroup(PathText(kFile));
    EXPECT_EQ(Read(kFile), "[TessaGroup]\r\nurl0=http://b/\r\nurl1=http://z/\r\n[TessaView]\r\npanes=h(1 2)\r\n");
}

TEST_F(PlanEditor, WhatIsNotChangedStaysAsItIsWritten) {
    const std::string plan = "[TessaView]\r\n; note\r\ncolour=ultraviolet\r\nzoom=9\r\npage7=muted,loud http://a/\r\n"
                             "page8=odd http://a/\r\n";
    Edit({"a", "b"}, plan, [&] {
        form.SetPlan(1, {.muted = true});
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read(kFile),
              "; mine\r\n[TessaGroup]\r\nurl0=http://a/\r\nurl1=http://b/\r\n" + plan + "page1=muted http://b/\r\n");
}

TEST_F(PlanEditor, APlanThatIsTakenBackLeavesNoKeyOfIt) {
    Edit({"a"}, "[TessaView]\r\nbehind=1\r\npage1=muted http://a/\r\nzoom=9\r\n", [&] {
        form.SetPlan(0, {});
        form.chkBehind.Tick(false);
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read(kFile), "; mine\r\n[TessaGroup]\r\nurl0=http://a/\r\n[TessaView]\r\nzoom=9\r\n");
}

TEST_F(PlanEditor, AnAddressThatIsChangedKeepsItsPlanAndADeletedOneTakesItAlong) {
    Edit({"a", "b"}, "[TessaView]\r\npage1=muted http://a/\r\npage2=asleep http://b/\r\n", [&] {
        form.cmdUpdate.Click();
        form.txtUrl.Value = u"http://new/";
        form.cmdUrlInsert.Click();
        EXPECT_EQ(PlanOf(0), "muted");
        form.lstUrls.ListIndex = 1;
        form.cmdDelete.Click();
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read(kFile), "; mine\r\n[TessaGroup]\r\nurl0=http://new/\r\n[TessaView]\r\npage1=muted http://new/\r\n");
}

TEST_F(PlanEditor, EntriesOfOneAddressOpenAlike) {
    Edit({"a", "b"}, "", [&] {
        form.cmdInsert.Click();
        form.txtUrl.Value = u"http://a/";
        form.cmdUrlInsert.Click();
        std::string changed;
        const Connection view = form.lstUrls.Attach([&](RowChange change) {
            if (change.kind == RowChange::Kind::Changed) changed += std::to_string(change.index) + " ";
        });
        form.SetPlan(2, {.muted = true});
        EXPECT_EQ(changed, "0 2 ");
        EXPECT_EQ(PlanOf(0), "muted");
    });
}

TEST_F(PlanEditor, WhileAnAddressIsEnteredThePlanRests) {
    Edit({"a"}, "", [&] {
        form.cmdInsert.Click();
        EXPECT_FALSE(form.cmdCheck.Enabled() || form.cmdCompare.Enabled());
        form.SetPlan(0, {.muted = true});
        EXPECT_EQ(PlanOf(0), "");
        form.Cancel.Click();
        EXPECT_TRUE(form.cmdCheck.Enabled() && form.cmdCompare.Enabled());
    });
}

TEST_F(PlanEditor, CancelWritesNothing) {
    Edit({"a"}, "", [&] {
        form.SetPlan(0, {.muted = true});
        form.cmdCancel.Click();
    });
    EXPECT_EQ(Read(kFile), "; mine\r\n[TessaGroup]\r\na=http://a/\r\n");
}

TEST_F(PlanEditor, AFullDiskLeavesThePlanAsItWas) {
    if (kOtherPlatform) GTEST_SKIP() << "no disk can be made full";
    std::string before;
    Edit({"a"}, "[TessaView]\r\npage1=muted http://a/\r\n", [&] {
        before = Read(kFile);
        form.SetPlan(0, {.asleep = true});
        const FullDisk full;
        form.cmdOK.Click();
    });
    EXPECT_TRUE(form.Unwritten);
    EXPECT_EQ(Read(kFile), before);
}

TEST_F(PlanEditor, WhatIsCheckedIsTheListAndNothingIsWrittenBeforeOk) {
    forms.inGroupCheck = [&](frmGroupCheck& check) {
        EXPECT_EQ(check.lstLines.ListCount(), 4U);
        check.Tick(1, true);
        check.cmdReplace.Click();
        check.cmdRemove.Click();
        EXPECT_EQ(check.lblProgress.Caption(), u"Removed.");
    };
    std::string before;
    Edit({"moved", "gone", "a"}, "[TessaView]\r\npage1=muted http://moved/\r\n", [&] {
        form.cmdInsert.Click();
        form.txtUrl.Value = u"http://b/";
        form.cmdUrlInsert.Click();
        before = Read(kFile);
        form.cmdCheck.Click();
        EXPECT_EQ(List(), "http://new/ http://a/ http://b/ ");
        EXPECT_EQ(Read(kFile), before);
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read(kFile), "; mine\r\n[TessaGroup]\r\nurl0=http://new/\r\nurl1=http://a/\r\nurl2=http://b/\r\n"
                           "[TessaView]\r\npage1=muted http://new/\r\n");
}

TEST_F(PlanEditor, WhatTheCheckHasChangedIsTakenBack) {
    forms.inGroupCheck = [&](frmGroupCheck& check) {
        check.cmdReplace.Click();
        EXPECT_EQ(List(), "http://a/ http://new/ ");
        check.cmdUndo.Click();
    };
    Edit({"a", "moved"}, "", [&] {
        form.cmdCheck.Click();
        EXPECT_EQ(List(), "http://a/ http://moved/ ");
    });
}

TEST_F(PlanEditor, TheLastAddressIsNotRemovedByTheCheckEither) {
    forms.inGroupCheck = [&](frmGroupCheck& check) {
        check.Tick(0, true);
        check.cmdRemove.Click();
        EXPECT_EQ(check.lblProgress.Caption(), u"Not every TessaGroup could be written.");
    };
    Edit({"gone"}, "", [&] {
        form.cmdCheck.Click();
        EXPECT_EQ(List(), "http://gone/ ");
    });
}

TEST_F(PlanEditor, AGroupThatVanishesWhileItIsCheckedIsWrittenAgainWithOk) {
    forms.inGroupCheck = [&](frmGroupCheck& check) {
        std::filesystem::remove(Path(kFile));
        check.cmdReplace.Click();
        EXPECT_EQ(check.lblProgress.Caption(), u"Replaced.");
    };
    Edit({"moved"}, "", [&] {
        form.cmdCheck.Click();
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read(kFile), "[TessaGroup]\r\nurl0=http://new/\r\n");
}

TEST_F(PlanEditor, AnotherGroupIsMergedInWithItsPlan) {
    Write("Old.tvg", "[TessaGroup]\r\nx=http://www.a/\r\ny=http://c/\r\n[TessaView]\r\npage1=muted http://c/\r\n"
                     "page2=asleep http://www.a/\r\n");
    files.chosen = PathText("Old.tvg");
    forms.inGroupCompare = [&](frmGroupCompare& compare) {
        EXPECT_EQ(compare.lblSummary.Caption(), u"1 only in Old.tvg, 1 only here, 0 here more than once");
        compare.cmdMerge.Click();
    };
    Edit({"a", "b"}, "", [&] {
        form.cmdCompare.Click();
        EXPECT_EQ(files.last.InitDir, PathText(""));
        EXPECT_EQ(List(), "http://a/ http://b/ http://c/ ");
        EXPECT_EQ(PlanOf(0) + "|" + PlanOf(2), "|muted");
    });
}

TEST_F(PlanEditor, WithoutAFileAndWithOneThatCannotBeReadNothingIsCompared) {
    int shown = 0;
    forms.inGroupCompare = [&](frmGroupCompare&) { ++shown; };
    Edit({"a"}, "", [&] {
        form.cmdCompare.Click();
        EXPECT_TRUE(messages.told.empty());
        files.chosen = PathText("none.tvg");
        form.cmdCompare.Click();
        EXPECT_EQ(List(), "http://a/ ");
    });
    EXPECT_EQ(messages.told, std::vector<Text>{u"The TessaGroup could not be read."});
    EXPECT_EQ(shown, 0);
}

TEST_F(PlanEditor, WithoutAWayIntoTheNetworkThereIsNothingToCheck) {
    frmTessaGroup alone(messages, forms);
    Write(kFile, "[TessaGroup]\r\na=http://a/\r\n");
    int checked = 0;
    forms.inGroupCheck = [&](frmGroupCheck&) { ++checked; };
    forms.inTessaGroup = [&](frmTessaGroup& shown) {
        EXPECT_FALSE(shown.cmdCheck.Enabled() || shown.cmdCompare.Enabled());
        shown.cmdCheck.Click();
        shown.cmdCompare.Click();
    };
    alone.EditTessaGroup(PathText(kFile));
    EXPECT_EQ(checked, 0);
}

} // namespace

} // namespace tessa
