#include "favorites/FavoriteRepair.h"

#include "favorites/FavoriteFiles.h"
#include "tests/fakes/NoRights.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tessa {

namespace {

using Favorites::Repaired;

class FavoriteRepairTest : public testing::Test {
protected:
    TemporaryFolder m_home;
    Text m_folder = m_home.PathText("Favorites");

    /// A folder that belongs to whoever runs the test without rights.
    void MakeOthers(const std::string& name, mode_t mode) const {
        std::filesystem::create_directory(m_home.Path(name));
        ASSERT_EQ(::chown(m_home.Path(name).c_str(), ::geteuid() == 0 ? 65534 : ::geteuid(), static_cast<gid_t>(-1)),
                  0);
        ASSERT_EQ(::chmod(m_home.Path(name).c_str(), mode), 0);
    }
    void Shortcut(const std::string& name) const { m_home.Write(name, "[InternetShortcut]\r\nURL=http://a/\r\n"); }
    /// What a folder shows to the user, with the folders of sub-folders behind a slash.
    [[nodiscard]] std::string Tree(const Text& folder) const {
        std::string all;
        for (const Favorites::Item& item : Favorites::Items(folder)) {
            all += ToUtf8(item.Title) + (item.IsFolder ? "/(" + Tree(item.Path) + ")" : "") + ";";
        }
        return all;
    }
};

TEST_F(FavoriteRepairTest, AFolderThatCanBeWrittenOrMadeKeepsShortcuts) {
    EXPECT_TRUE(Favorites::CanKeep(m_folder)) << "it can be made";
    EXPECT_TRUE(Favorites::CanKeep(m_folder + u"/deep/down"));
    EXPECT_EQ(m_home.Files(), 0U) << "asking makes nothing";
    std::filesystem::create_directory(m_home.Path("Favorites"));
    EXPECT_TRUE(Favorites::CanKeep(m_folder));
}

TEST_F(FavoriteRepairTest, NothingIsKeptWhereSomethingElseLies) {
    m_home.Write("Favorites", "a file");
    EXPECT_FALSE(Favorites::CanKeep(m_folder));
    EXPECT_FALSE(Favorites::CanKeep(m_folder + u"/Below"));
    std::filesystem::create_symlink("nowhere", m_home.Path("link"));
    EXPECT_FALSE(Favorites::CanKeep(m_home.PathText("link")));
    EXPECT_FALSE(Favorites::CanKeep(u""));
}

TEST_F(FavoriteRepairTest, NothingIsKeptWhereWritingIsForbidden) {
    MakeOthers("Favorites", 0500);
    const NoRights noRights;
    EXPECT_FALSE(Favorites::CanKeep(m_folder));
    EXPECT_FALSE(Favorites::CanKeep(m_folder + u"/Below"));
}

TEST_F(FavoriteRepairTest, AMissingFolderIsMade) {
    EXPECT_EQ(Favorites::Repair(m_folder), (Repaired{.Works = true, .Made = true}));
    EXPECT_TRUE(std::filesystem::is_directory(m_home.Path("Favorites")));
}

TEST_F(FavoriteRepairTest, WhatLiesInItsPlaceGetsAnotherName) {
    m_home.Write("Favorites", "mine");
    m_home.Write("Favorites set aside", "older");
    EXPECT_EQ(Favorites::Repair(m_folder),
              (Repaired{.Works = true, .Made = true, .SetAside = u"Favorites set aside (2)"}));
    EXPECT_EQ(m_home.Read("Favorites set aside (2)"), "mine");
    EXPECT_EQ(m_home.Read("Favorites set aside"), "older");
    EXPECT_TRUE(Favorites::CanKeep(m_folder));
}

TEST_F(FavoriteRepairTest, ANameThatIsNoTextIsKeptByItsBytes) {
    m_home.Write("Fav\xFF", "mine");
    const Text folder = PathFromBytes(m_home.Path("Fav\xFF"));
    EXPECT_EQ(Favorites::Repair(folder).SetAside, PathFromBytes("Fav\xFF set aside"));
    EXPECT_EQ(m_home.Read("Fav\xFF set aside"), "mine");
    EXPECT_TRUE(std::filesystem::is_directory(m_home.Path("Fav\xFF")));
    EXPECT_TRUE(Favorites::CanKeep(folder));
}

TEST_F(FavoriteRepairTest, AFileAboveItGetsAnotherNameToo) {
    m_home.Write("data", "mine");
    const Text below = m_home.PathText("data") + u"/tessaview/Favorites";
    EXPECT_EQ(Favorites::Repair(below), (Repaired{.Works = true, .Made = true, .SetAside = u"data set aside"}));
    EXPECT_EQ(m_home.Read("data set aside"), "mine");
}

TEST_F(FavoriteRepairTest, ALinkThatLeadsNowhereIsSetAside) {
    std::filesystem::create_symlink("nowhere", m_home.Path("Favorites"));
    EXPECT_EQ(Favorites::Repair(m_folder), (Repaired{.Works = true, .Made = true, .SetAside = u"Favorites set aside"}));
    EXPECT_TRUE(std::filesystem::is_symlink(m_home.Path("Favorites set aside")));
}

TEST_F(FavoriteRepairTest, AFolderThatIsClosedToItsOwnerIsOpened) {
    MakeOthers("Favorites", 0500);
    const NoRights noRights;
    EXPECT_EQ(Favorites::Repair(m_folder), (Repaired{.Works = true, .Opened = true}));
    EXPECT_TRUE(Favorites::CanKeep(m_folder));
}

TEST_F(FavoriteRepairTest, WhatCannotBeMovedStaysAsItIs) {
    std::filesystem::create_directory(m_home.Path("closed"));
    m_home.Write("closed/Favorites", "a file");
    MakeOthers("closed", 0500);
    {
        const NoRights noRights;
        EXPECT_EQ(Favorites::Repair(m_home.PathText("closed/Favorites")), Repaired());
    }
    EXPECT_EQ(m_home.Read("closed/Favorites"), "a file");
    EXPECT_EQ(Favorites::Repair(u""), Repaired());
}

TEST_F(FavoriteRepairTest, WhatCannotBeReadMovesToAFolderOfItsOwn) {
    std::filesystem::create_directories(m_home.Path("Favorites/Work"));
    Shortcut("Favorites/good.url");
    Shortcut("Favorites/Work/better.url");
    m_home.Write("Favorites/bad.url", "no shortcut");
    m_home.Write("Favorites/notes.txt", "no shortcut either, nor meant to be");
    m_home.Write("Favorites/Work/bad.URL", "");
    std::filesystem::create_symlink("nowhere", m_home.Path("Favorites/Work/bad.url"));
    EXPECT_EQ(Favorites::Repair(m_folder), (Repaired{.Works = true, .Damaged = 3}));
    EXPECT_EQ(Tree(m_folder), "Damaged/(bad;bad;bad (2););Work/(better;);good;");
    EXPECT_EQ(m_home.Read("Favorites/notes.txt"), "no shortcut either, nor meant to be");
    EXPECT_EQ(Favorites::Repair(m_folder), (Repaired{.Works = true})) << "what was moved stays where it is";
}

TEST_F(FavoriteRepairTest, AFileThatMayNotBeReadMovesToo) {
    MakeOthers("Favorites", 0700);
    Shortcut("Favorites/mine.url");
    Shortcut("Favorites/closed.url");
    ASSERT_EQ(::chmod(m_home.Path("Favorites/closed.url").c_str(), 0), 0);
    const NoRights noRights;
    EXPECT_EQ(Favorites::Repair(m_folder).Damaged, 1U);
    EXPECT_EQ(Tree(m_folder), "Damaged/(closed;);mine;");
}

TEST_F(FavoriteRepairTest, WhatALinkLeadsToIsNotTouched) {
    std::filesystem::create_directories(m_home.Path("Favorites"));
    std::filesystem::create_directories(m_home.Path("elsewhere"));
    m_home.Write("elsewhere/bad.url", "");
    std::filesystem::create_symlink(m_home.Path("elsewhere"), m_home.Path("Favorites/there"));
    std::filesystem::create_symlink(m_home.Path("Favorites"), m_home.Path("Favorites/loop"));
    EXPECT_EQ(Favorites::Repair(m_folder).Damaged, 0U);
    EXPECT_TRUE(std::filesystem::exists(m_home.Path("elsewhere/bad.url")));
}

TEST_F(FavoriteRepairTest, TheWordsSayWhatWasDone) {
    EXPECT_EQ(Favorites::WordsOf({}), u"The Favorites folder can still not be written to.");
    EXPECT_EQ(Favorites::WordsOf({.Works = true}), u"The Favorites folder can be written to.");
    EXPECT_EQ(Favorites::WordsOf({.Works = true, .Opened = true}), u"The Favorites folder can be written to again.");
    EXPECT_EQ(Favorites::WordsOf({.Works = true, .Made = true, .SetAside = u"F set aside"}),
              u"The Favorites folder was made. What lay in its place is now called \"F set aside\".");
    EXPECT_EQ(Favorites::WordsOf({.Works = true, .Damaged = 1}),
              u"The Favorites folder can be written to. One damaged Favorite is now in the folder \"Damaged\".");
    EXPECT_EQ(Favorites::WordsOf({.Works = true, .Damaged = 2}),
              u"The Favorites folder can be written to. 2 damaged Favorites are now in the folder \"Damaged\".");
}

} // namespace

} // namespace tessa
