#include "groups/TessaGroups.h"
#include "tests/fakes/NoRights.h"
#include "tests/fakes/System.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tessa {

namespace {

namespace fs = std::filesystem;

struct GroupFolder : testing::Test, TemporaryFolder {
    GroupFolder() : folder(PathText("")) {}
    void Groups(const std::vector<std::string>& names) const {
        for (const auto& name : names) Write(name, "");
    }
    [[nodiscard]] std::string Names() const {
        std::string all;
        for (const auto& group : TessaGroups::List(folder)) all += (all.empty() ? "" : " ") + ToUtf8(group.Key);
        return all;
    }
    [[nodiscard]] std::vector<Text> Keys() const {
        std::vector<Text> keys;
        for (const auto& group : TessaGroups::List(folder)) keys.push_back(group.Key);
        return keys;
    }
    /// "ID NAME" of each entry, "|" before one that begins a group.
    std::string Fill(Band& band) {
        TessaGroups::FillBand(band, folder, {u"view-list-icons"}, nextId);
        std::string all;
        for (const auto& entry : band.Entries()) {
            all += (all.empty() ? "" : " ") + std::string(entry.Group == BeginGroup::Yes ? "|" : "") +
                   std::to_string(entry.Item->Id()) + " " + ToUtf8(entry.Item->Name());
        }
        band.Clear();
        return all;
    }
    Text folder;
    std::int32_t nextId = 0;
    Band menu{u"bndTessaGroupsMenu", u"TessaGroups", BandKind::Menu};
};

TEST_F(GroupFolder, ListsUpperCaseBeforeLowerCase) {
    if (kOtherPlatform) GTEST_SKIP() << "names that differ in case alone are one";
    Groups({"beta.tvg", "Alpha.tvg", "alpha.tvg"});
    EXPECT_EQ(Names(), "Alpha alpha beta");
}

TEST_F(GroupFolder, TheValueIsTheFullPath) {
    Groups({"News.tvg"});
    const CKeyValues groups = TessaGroups::List(folder);
    ASSERT_EQ(groups.Count(), 1u);
    EXPECT_EQ(groups.begin()->Value, PathText("News.tvg"));
}

TEST_F(GroupFolder, OnlyGroupFilesAreListedWhateverTheCaseOfTheirExtension) {
    Groups({"a.tvg", "b.TVG", "c.tvgx", "d.txt", "e.tvg.bak", "tvg", ".tvg", ".hidden.tvg"});
    fs::create_directory(Path("folder.tvg"));
    EXPECT_EQ(Names(), "a b");
    EXPECT_EQ(std::next(TessaGroups::List(folder).begin())->Value, PathText("b.TVG"));
}

TEST_F(GroupFolder, EqualNamesAreListedBoth) {
    if (kOtherPlatform) GTEST_SKIP() << "names that differ in case alone are one";
    Groups({"a.tvg", "a.TVG", "a.Tvg"});
    const CKeyValues groups = TessaGroups::List(folder);
    std::string files;
    for (const auto& group : groups) files += ToUtf8(group.Value.substr(folder.size())) + " ";
    EXPECT_EQ(files, "a.TVG a.Tvg a.tvg ");
}

TEST_F(GroupFolder, AMissingOrUnreadableFolderIsAnEmptyList) {
    EXPECT_EQ(TessaGroups::List(u"/nowhere/at/all/").Count(), 0u);
    EXPECT_EQ(TessaGroups::List(u"").Count(), 0u);
    Write("file", "");
    EXPECT_EQ(TessaGroups::List(PathText("file") + u"/").Count(), 0u);
    EXPECT_EQ(TessaGroups::List(Text(u"a\0b/", 4)).Count(), 0u);
    EXPECT_EQ(TessaGroups::List(Text(70'000, u'x')).Count(), 0u);
}

TEST_F(GroupFolder, AFolderThatMayNotBeReadIsAnEmptyList) {
    if (kOtherPlatform) GTEST_SKIP() << "nobody can become another user for a while";
    Groups({"a.tvg"});
    fs::create_directory(Path("closed"));
    Write("closed/b.tvg", "");
    fs::permissions(Path("closed"), fs::perms::none);
    const NoRights none;
    EXPECT_EQ(Names(), "a");
    folder = PathText("closed/");
    EXPECT_EQ(Names(), "");
}

TEST_F(GroupFolder, LinksAreFollowedAndLoopsLeftOut) {
    if (kOtherPlatform) GTEST_SKIP() << "a link needs a right of its own";
    Groups({"real.tvg"});
    fs::create_symlink(Path("real.tvg"), Path("link.tvg"));
    fs::create_symlink(Path("loop.tvg"), Path("loop.tvg"));
    fs::create_symlink(Path("gone"), Path("dead.tvg"));
    fs::create_directory_symlink(Path(""), Path("around.tvg"));
    EXPECT_EQ(Names(), "link real");
}

TEST_F(GroupFolder, NamesOfAllKindsAreListed) {
    const std::string longest(251, 'n');
    Groups({longest + ".tvg", "a b.tvg", "..tvg.tvg", "b\xC3\xBC.tvg", "\xE2\x80\xAE.x.tvg"});
    EXPECT_EQ(Keys(), (std::vector<Text>{u"a b", u"b\u00FC", FromBytes(longest), u"\u202E.x"}));
}

TEST_F(GroupFolder, NamesThatAreNoTextAreListed) {
    if (kOtherPlatform) GTEST_SKIP() << "names are no bytes";
    Groups({"a\nb\x01.tvg", "b\xC3\xBC.tvg", "b\xFC.tvg"});
    EXPECT_EQ(Keys(), (std::vector<Text>{u"a\nb\u0001", u"b\u00FC", Text{u'b', char16_t{0xDCFC}}}));
}

TEST_F(GroupFolder, AGroupWhoseNameIsNoTextIsReadWrittenAndDeletedByItsBytes) {
    if (kOtherPlatform) GTEST_SKIP() << "names are no bytes";
    const std::string name = "b\xFC.tvg";
    Write(name, "[TessaGroup]\r\nurl1=http://a/\r\n");
    Write("b\xC3\xBC.tvg", "another");
    Write("b\xEF\xBF\xBD.tvg", "what the name looks like");
    const CKeyValues groups = TessaGroups::List(folder);
    const Text path = std::next(groups.begin())->Value;
    ASSERT_EQ(PathToBytes(path), Path(name));
    EXPECT_TRUE(TessaGroups::IsReadable(path));
    EXPECT_EQ(TessaGroups::Append(path, {u"http://b/"}), Outcome::Done);
    EXPECT_EQ(TessaGroups::Load(path).Count(), 2U);
    EXPECT_EQ(TessaGroups::Write(path, {{7, u"http://c/"}}), Outcome::Done);
    EXPECT_EQ(Read(name), "[TessaGroup]\r\nurl7=http://c/\r\n");
    EXPECT_EQ(TessaGroups::Delete(path), Outcome::Done);
    EXPECT_FALSE(fs::exists(Path(name)));
    EXPECT_EQ(Read("b\xC3\xBC.tvg") + ", " + Read("b\xEF\xBF\xBD.tvg"), "another, what the name looks like");
}

TEST_F(GroupFolder, AMenuEntryMarksWhatIsNoTextInItsName) {
    Groups({"b\xFC.tvg"});
    TessaGroups::FillBand(menu, folder, {}, nextId);
    ASSERT_EQ(menu.Entries().size(), 1U);
    EXPECT_EQ(menu.Entries()[0].Item->Caption(), u"b\uFFFD");
    EXPECT_EQ(PathToBytes(menu.Entries()[0].Item->Description), Path("b\xFC.tvg"));
}

TEST_F(GroupFolder, TheMenuNumbersGoOnFromOneOpeningToTheNext) {
    Groups({"b.tvg", "a.tvg", "c.tvg"});
    EXPECT_EQ(Fill(menu), "|150000 zzxa 150001 zzxb 150002 zzxc");
    EXPECT_EQ(Fill(menu), "|150003 zzxa 150004 zzxb 150005 zzxc");
}

TEST_F(GroupFolder, EntriesComeBehindWhatTheBandHas) {
    Groups({"a.tvg"});
    menu.Add({}, 7, u"mnuSaveAsTessaGroup");
    EXPECT_EQ(Fill(menu), "7 mnuSaveAsTessaGroup |150000 zzxa");
}

TEST_F(GroupFolder, AnEntryCarriesThePathThePictureAndTheNameToRead) {
    if (kOtherPlatform) GTEST_SKIP() << "names hold no tabs";
    Groups({"R&D\t2.tvg"});
    TessaGroups::FillBand(menu, folder, {u"view-list-icons"}, nextId);
    ASSERT_EQ(menu.Entries().size(), 1u);
    const Tool& tool = *menu.Entries()[0].Item;
    EXPECT_EQ(tool.Name(), u"zzxR&D\t2");
    EXPECT_EQ(tool.Caption(), u"R&&D\uFFFD2");
    EXPECT_EQ(tool.Description, PathText("R&D\t2.tvg"));
    ASSERT_NE(tool.From<MadeFrom::Group>(), nullptr);
    EXPECT_EQ(tool.From<MadeFrom::Group>()->path, PathText("R&D\t2.tvg"));
    EXPECT_EQ(tool.Image, Picture{u"view-list-icons"});
}

TEST_F(GroupFolder, ThePrefixIsRemovedFromTheBandOnce) {
    menu.Caption = u"555-555-TessaGroups";
    Fill(menu);
    EXPECT_EQ(menu.Caption(), u"555-TessaGroups");
    menu.Caption = u"5555-TessaGroups";
    Fill(menu);
    EXPECT_EQ(menu.Caption(), u"5555-TessaGroups");
}

TEST_F(GroupFolder, BehindTheLastNumberOfGroupsTheFirstComesAgain) {
    Groups({"a.tvg", "b.tvg", "c.tvg"});
    nextId = 199998;
    EXPECT_EQ(Fill(menu), "|199998 zzxa 199999 zzxb 150000 zzxc");
    EXPECT_EQ(Fill(menu), "|150001 zzxa 150002 zzxb 150003 zzxc");
}

TEST_F(GroupFolder, AnEmptyFolderAddsNothing) { EXPECT_EQ(Fill(menu), ""); }

} // namespace

} // namespace tessa
