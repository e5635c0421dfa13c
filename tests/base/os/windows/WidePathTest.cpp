// Tests: Folder, Names, Paths, RootLength
#include "base/os/windows/WidePath.h"

#include "base/Text.h"
#include "base/os/AtomicFile.h"
#include "base/os/FileNameRules.h"
#include "base/os/Folder.h"
#include "base/os/Paths.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tessa {

namespace {

TEST(WidePath, NamesComeBackAsTheyWere) {
    for (const std::wstring name :
         {L"a", L"\u00E4\u4E2D", L"\U0001F600", L"half \xD83D", L"\xDE00 half", L"\xDE00\xD83D"})
        EXPECT_EQ(Wide(BytesOfWide(name)), name) << BytesOfWide(name);
}

TEST(WidePath, AHalfOfACharacterSurvivesTheCoresText) {
    const std::wstring name = L"x\xD83Dy";
    EXPECT_EQ(Wide(PathToBytes(PathFromBytes(BytesOfWide(name)))), name);
}

TEST(WidePath, BytesThatAreNoTextNameNoOtherFile) { EXPECT_EQ(Wide("a\xE4z"), L"a\xFFFDz"); }

TEST(WidePath, SeparatorsAreTheCores) { EXPECT_EQ(BytesOfWide(L"C:\\a\\b"), "C:/a/b"); }

TEST(WidePath, ALongPathIsMarked) {
    EXPECT_EQ(WidePath("C:/a"), L"C:/a");
    const std::wstring wide = WidePath("C:/" + std::string(300, 'x') + "/y");
    EXPECT_TRUE(wide.starts_with(L"\\\\?\\C:\\x"));
    EXPECT_TRUE(wide.ends_with(L"x\\y"));
}

TEST(WidePath, FilesInALongFolderAreWrittenListedAndRead) {
    const TemporaryFolder folder;
    const std::string deep = folder.Path(std::string(150, 'a') + "/" + std::string(150, 'b'));
    ASSERT_TRUE(MakeFolders(deep));
    ASSERT_EQ(WriteWholeFile(deep + "/c.txt", "old"), Outcome::Done);
    ASSERT_EQ(WriteWholeFile(deep + "/c.txt", "new"), Outcome::Done);
    ASSERT_EQ(ListFolder(deep).size(), 1U);
    EXPECT_EQ(ReadWholeFile(deep + "/c.txt"), "new");
    EXPECT_EQ(RemoveTree(folder.Path(std::string(150, 'a'))), Outcome::Done);
}

TEST(WidePath, FilesWithWideNamesAreWrittenListedAndRead) {
    const TemporaryFolder folder;
    const std::string name = ToUtf8(u"\u4E2D\u00E4\U0001F600.txt");
    ASSERT_EQ(WriteWholeFile(folder.Path("") + "/" + name, "x"), Outcome::Done);
    const auto entries = ListFolder(folder.Path(""));
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].Name, name);
    EXPECT_TRUE(entries[0].IsFile);
    EXPECT_EQ(ReadWholeFile(folder.Path("") + "/" + name), "x");
}

TEST(Paths, RootsOfThisPlatform) {
    EXPECT_EQ(FolderAbove("C:/a/b"), "C:/a");
    EXPECT_EQ(FolderAbove("C:/a"), "C:/");
    EXPECT_EQ(FolderAbove("C:\\"), "C:\\");
    EXPECT_EQ(FolderAbove("//server/share/a"), "//server/share/");
    EXPECT_EQ(FolderAbove("a"), "");
    EXPECT_EQ(LastNameOf("C:\\a\\b.txt"), "b.txt");
    EXPECT_TRUE(IsAbsolute("C:/a"));
    EXPECT_TRUE(IsAbsolute("//server/share/a"));
    EXPECT_FALSE(IsAbsolute("C:a"));
}

TEST(Folder, WhatTheDesktopHidesIsNotListed) {
    const TemporaryFolder folder;
    folder.Write("seen", "");
    ASSERT_TRUE(::SetFileAttributesW(WidePath(folder.Write("unseen", "")).c_str(), FILE_ATTRIBUTE_HIDDEN));
    ASSERT_EQ(ListFolder(folder.Path("")).size(), 1U);
}

TEST(FileNameRules, WhatThisDiskTakesNoNameWith) {
    EXPECT_EQ(FitForDisk(u"a:b\\c*d?e\"f<g>h|i"), u"a-b-c-d-e-f-g-h-i");
    EXPECT_EQ(FitForDisk(u"The end..."), u"The end");
    EXPECT_EQ(FitForDisk(u"con"), u"_con");
    EXPECT_EQ(FitForDisk(u"..."), u"_");
}

} // namespace

} // namespace tessa
