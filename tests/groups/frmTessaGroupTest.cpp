#include "groups/frmTessaGroup.h"

#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeForms.h"
#include "tests/fakes/FullDisk.h"
#include "tests/fakes/System.h"
#include "tests/fakes/TemporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace tessa {

namespace {

struct Editor : testing::Test, TemporaryFolder {
    /// Opens a file of that many addresses "a", "b" and so on, and has the user do something.
    void Edit(std::size_t count, const std::function<void()>& user) {
        std::string bytes = "; mine\r\n[TessaGroup]\r\n";
        for (std::size_t i = 0; i < count; ++i)
            bytes += "old" + std::to_string(i) + "=" + static_cast<char>('a' + i) + "\r\n";
        Write("News.tvg", bytes);
        EditFile(PathText("News.tvg"), user);
    }
    void EditFile(TextView path, const std::function<void()>& user) {
        int shown = 0;
        forms.inTessaGroup = [&](frmTessaGroup&) {
            ++shown;
            form.Form.Visible = true;
            user();
        };
        form.EditTessaGroup(path);
        forms.inTessaGroup = {};
        EXPECT_EQ(shown, 1);
    }
    /// The entries, the selected one in brackets.
    [[nodiscard]] std::string List() const {
        std::string all;
        for (std::size_t i = 0; i < form.lstUrls.ListCount(); ++i) {
            const std::string item = ToUtf8(form.lstUrls.Rows()[i]);
            all += (i == 0 ? "" : " ") + (form.lstUrls.ListIndex() == static_cast<int>(i) ? "[" + item + "]" : item);
        }
        return all;
    }
    /// What can be used: "list insert update delete".
    [[nodiscard]] std::string Enabled() const {
        std::string all;
        if (form.lstUrls.Enabled()) all += "list ";
        if (form.cmdInsert.Enabled()) all += "insert ";
        if (form.cmdUpdate.Enabled()) all += "update ";
        if (form.cmdDelete.Enabled()) all += "delete ";
        return all;
    }
    [[nodiscard]] std::string Entry() const {
        return std::to_string(form.Height().value) + (form.Frame1.Visible() ? " entry " : " no entry ") +
               ToUtf8(form.cmdUrlInsert.Caption());
    }
    void Insert(TextView text) {
        form.cmdInsert.Click();
        form.txtUrl.Value = Text(text);
        form.cmdUrlInsert.Click();
    }
    FakeMessages messages;
    FakeForms forms;
    frmTessaGroup form{messages, forms};
};

TEST_F(Editor, ShowsTheGroupWithItsFirstAddressSelected) {
    Edit(3, [&] {
        EXPECT_EQ(List(), "[a] b c");
        EXPECT_EQ(form.lblTessaGroupName.Caption(), u"News.tvg");
        EXPECT_EQ(Enabled(), "list insert update delete ");
        EXPECT_EQ(Entry(), "4110 no entry Insert");
    });
    EXPECT_EQ(form.Caption, u"Organize TessaGroup");
}

TEST_F(Editor, ItsControlsSayWhatTheyDo) {
    EXPECT_EQ(form.Label1.Caption(), u"TessaGroup:");
    EXPECT_EQ(form.Label2.Caption(), u"Url:");
    std::string buttons;
    for (const Button* each : {&form.cmdUp, &form.cmdDown, &form.cmdInsert, &form.cmdUpdate, &form.cmdDelete,
                               &form.cmdCancel, &form.cmdUrlInsert, &form.Cancel})
        buttons += ToUtf8(each->Caption()) + " | ";
    EXPECT_EQ(buttons, "Move Up | Move Down | Insert | Update | Delete | Cancel | Insert | Cancel | ");
}

TEST_F(Editor, TheNameIsWhatFollowsTheLastSeparatorOfEitherKind) {
    EditFile(u"C:\\TessaView\\TessaGroups\\A b.tvg", [] {});
    EXPECT_EQ(form.lblTessaGroupName.Caption(), u"A b.tvg");
    frmTessaGroup other(messages, forms);
    other.EditTessaGroup(u"News.tvg");
    EXPECT_EQ(other.lblTessaGroupName.Caption(), u"");
    frmTessaGroup strange(messages, forms);
    strange.EditTessaGroup(u"/x/a\n\u202Eb.tvg");
    EXPECT_EQ(strange.lblTessaGroupName.Caption(), u"a\uFFFD\uFFFDb.tvg");
}

TEST_F(Editor, MovesTheSelectedEntryAndStaysOnIt) {
    Edit(3, [&] {
        form.cmdDown.Click();
        EXPECT_EQ(List(), "b [a] c");
        form.cmdDown.Click();
        EXPECT_EQ(List(), "b c [a]");
        form.cmdUp.Click();
        EXPECT_EQ(List(), "b [a] c");
        EXPECT_EQ(Enabled(), "list insert update delete ");
    });
}

TEST_F(Editor, MoveUpOnTheFirstAndMoveDownOnTheLastDoNothing) {
    Edit(2, [&] {
        form.cmdUp.Click();
        EXPECT_EQ(List(), "[a] b");
        form.lstUrls.ListIndex = 1;
        form.cmdDown.Click();
        EXPECT_EQ(List(), "a [b]");
        form.lstUrls.ListIndex = -1;
        form.cmdUp.Click();
        form.cmdDown.Click();
        EXPECT_EQ(List(), "a b");
    });
}

TEST_F(Editor, AnEntryIsDraggedToItsNewPlace) {
    Edit(4, [&] {
        form.MoveEntry(0, 2);
        EXPECT_EQ(List(), "b c [a] d");
        form.MoveEntry(3, 0);
        EXPECT_EQ(List(), "[d] b c a");
        form.MoveEntry(1, 4);
        form.MoveEntry(9, 0);
        form.MoveEntry(2, 2);
        EXPECT_EQ(List(), "[d] b c a");
    });
}

TEST_F(Editor, InsertOpensTheEntryAndLetsTheListRest) {
    Edit(2, [&] {
        form.txtUrl.Value = u"left over";
        form.cmdInsert.Click();
        EXPECT_EQ(Entry(), "4815 entry Insert");
        EXPECT_EQ(form.txtUrl.Value(), u"");
        EXPECT_EQ(Enabled(), "");
        form.Cancel.Click();
        EXPECT_EQ(Entry(), "4110 no entry Insert");
        EXPECT_EQ(Enabled(), "list insert update delete ");
        EXPECT_EQ(List(), "[a] b");
    });
}

TEST_F(Editor, TheEntryGetsTheKeyboardAndGivesItBackToTheList) {
    std::string keyboard;
    form.txtUrl.SetFocus.ConnectForLife([&] { keyboard += "entry "; });
    form.lstUrls.FocusWanted.ConnectForLife([&] { keyboard += "list "; });
    Edit(2, [&] {
        form.cmdInsert.Click();
        form.Cancel.Click();
        form.cmdUpdate.Click();
        form.cmdUrlInsert.Click();
    });
    EXPECT_EQ(keyboard, "entry list entry list ");
}

TEST_F(Editor, InsertAddsLastAlsoWhenTheFirstIsSelected) {
    Edit(2, [&] {
        Insert(u"about:blank");
        EXPECT_EQ(List(), "[a] b about:blank");
        EXPECT_EQ(Entry(), "4110 no entry Insert");
        Insert(u"a");
        EXPECT_EQ(List(), "[a] b about:blank a") << "an address may stand twice";
        Insert(u"no address at all");
        EXPECT_EQ(form.lstUrls.Rows().back(), u"no address at all");
    });
}

TEST_F(Editor, AnEmptyInsertAddsNothing) {
    Edit(1, [&] {
        Insert(u"");
        EXPECT_EQ(List(), "[a]");
        EXPECT_EQ(Entry(), "4110 no entry Insert");
    });
}

TEST_F(Editor, SeveralLinesAreInsertedAsOneAddressEach) {
    Edit(1, [&] {
        Insert(u"http://b/\r\nhttp://c/\n\n  \rhttp://d/\n");
        EXPECT_EQ(List(), "[a] http://b/ http://c/ http://d/");
        Insert(u"\n\r\n");
        EXPECT_EQ(form.lstUrls.ListCount(), 4u);
    });
}

TEST_F(Editor, UpdateReplacesTheSelectedEntry) {
    Edit(3, [&] {
        form.lstUrls.ListIndex = 1;
        form.cmdUpdate.Click();
        EXPECT_EQ(Entry(), "4815 entry Update");
        EXPECT_EQ(form.txtUrl.Value(), u"b");
        EXPECT_EQ(Enabled(), "");
        form.txtUrl.Value = u"http://new/";
        form.cmdUrlInsert.Click();
        EXPECT_EQ(List(), "a [http://new/] c");
        EXPECT_EQ(Entry(), "4110 no entry Update");
    });
}

TEST_F(Editor, AnEmptyUpdateLeavesTheEntryAndCloses) {
    Edit(2, [&] {
        form.cmdUpdate.Click();
        form.txtUrl.Value = u"";
        form.cmdUrlInsert.Click();
        EXPECT_EQ(List(), "[a] b");
        EXPECT_EQ(Entry(), "4110 no entry Update");
    });
}

TEST_F(Editor, AnAddressBrokenIntoLinesIsOneInAnUpdate) {
    Edit(2, [&] {
        form.cmdUpdate.Click();
        form.txtUrl.Value = u"http://long/\r\nrest";
        form.cmdUrlInsert.Click();
        EXPECT_EQ(List(), "[http://long/rest] b");
    });
}

TEST_F(Editor, AnUpdateFollowsAnEntryThatIsMovedMeanwhile) {
    Edit(3, [&] {
        form.cmdUpdate.Click();
        form.cmdDown.Click();
        EXPECT_EQ(Enabled(), "") << "the list goes on resting";
        form.txtUrl.Value = u"x";
        form.cmdUrlInsert.Click();
        EXPECT_EQ(List(), "b [x] c");
    });
}

TEST_F(Editor, ADoubleClickOpensUpdate) {
    Edit(2, [&] {
        form.lstUrls.ListIndex = 1;
        form.lstUrls.DblClick();
        EXPECT_EQ(Entry(), "4815 entry Update");
        EXPECT_EQ(form.txtUrl.Value(), u"b");
    });
    frmTessaGroup empty(messages, forms);
    empty.lstUrls.DblClick();
    empty.EditTessaGroup(u"/nowhere/none.tvg");
    empty.lstUrls.DblClick();
    EXPECT_FALSE(empty.Frame1.Visible());
}

TEST_F(Editor, TheLastEntryIsNotDeleted_Deliberate) {
    Edit(3, [&] {
        form.cmdDelete.Click();
        EXPECT_EQ(List(), "[b] c");
        form.lstUrls.ListIndex = 1;
        form.cmdDelete.Click();
        EXPECT_EQ(List(), "[b]");
        EXPECT_TRUE(messages.told.empty());
        form.cmdDelete.Click();
        EXPECT_EQ(List(), "[b]");
    });
    EXPECT_EQ(messages.told, std::vector<Text>{u"A TessaGroup must have at least on web site associated with it. "
                                               u"Please add another site address before deleting this one."});
}

TEST_F(Editor, DeleteWithoutASelectionDoesNothing) {
    Edit(1, [&] {
        form.lstUrls.ListIndex = -1;
        EXPECT_EQ(Enabled(), "list insert ");
        form.cmdDelete.Click();
        EXPECT_EQ(List(), "a");
    });
    EXPECT_TRUE(messages.told.empty());
}

TEST_F(Editor, OkWritesTheListFromZeroAndNothingElse_Deliberate) {
    Edit(4, [&] {
        form.cmdDelete.Click();
        form.cmdDown.Click();
        form.cmdOK.Click();
        EXPECT_FALSE(form.Form.Visible());
    });
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl0=c\r\nurl1=b\r\nurl2=d\r\n");
    EXPECT_FALSE(form.Unwritten);
}

TEST_F(Editor, OkWhileEnteringSavesTheListAndIgnoresTheText) {
    Edit(1, [&] {
        form.cmdInsert.Click();
        form.txtUrl.Value = u"http://b/";
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read("News.tvg"), "[TessaGroup]\r\nurl0=a\r\n");
}

TEST_F(Editor, CancelLeavesTheFileAlone) {
    Edit(2, [&] {
        form.cmdDelete.Click();
        form.cmdInsert.Click();
        form.cmdCancel.Click();
        EXPECT_FALSE(form.Form.Visible());
    });
    EXPECT_EQ(Read("News.tvg"), "; mine\r\n[TessaGroup]\r\nold0=a\r\nold1=b\r\n");
}

TEST_F(Editor, AnEmptyFileIsGoneAfterOkAndAMissingOneStaysMissing) {
    Write("empty.tvg", "");
    for (const char* name : {"empty.tvg", "missing.tvg"}) {
        frmTessaGroup each(messages, forms);
        forms.inTessaGroup = [](frmTessaGroup& shown) {
            EXPECT_EQ(shown.lstUrls.ListCount(), 0u);
            EXPECT_EQ(shown.lstUrls.ListIndex(), -1);
            EXPECT_FALSE(shown.cmdUpdate.Enabled());
            EXPECT_FALSE(shown.cmdDelete.Enabled());
            shown.cmdOK.Click();
        };
        each.EditTessaGroup(PathText(name));
        EXPECT_FALSE(each.Unwritten);
    }
    EXPECT_EQ(Files(), 0u);
}

TEST_F(Editor, AnEmptyGroupTakesItsFirstAddress) {
    EditFile(PathText("new.tvg"), [&] {
        Insert(u"http://a/");
        EXPECT_EQ(Enabled(), "list insert ");
        form.lstUrls.ListIndex = 0;
        EXPECT_EQ(Enabled(), "list insert update delete ");
        form.cmdOK.Click();
    });
    EXPECT_EQ(Read("new.tvg"), "[TessaGroup]\r\nurl0=http://a/\r\n");
}

TEST_F(Editor, AFullDiskLeavesTheOldGroup) {
    if (kOtherPlatform) GTEST_SKIP() << "no disk can be made full";
    std::string before;
    Edit(3, [&] {
        before = Read("News.tvg");
        form.cmdUp.Click();
        const FullDisk full;
        form.cmdOK.Click();
    });
    EXPECT_TRUE(form.Unwritten);
    EXPECT_EQ(Read("News.tvg"), before);
    EXPECT_EQ(Files(), 1u);
}

TEST_F(Editor, AGroupThatBecameAFolderIsLeftAlone) {
    Edit(2, [&] {
        std::filesystem::remove(Path("News.tvg"));
        std::filesystem::create_directory(Path("News.tvg"));
        form.cmdOK.Click();
    });
    EXPECT_TRUE(form.Unwritten);
    EXPECT_TRUE(std::filesystem::is_directory(Path("News.tvg")));
}

} // namespace

} // namespace tessa
