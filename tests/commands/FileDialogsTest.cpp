#include "settings/SettingsStore.h"
#include "tests/Desk.h"

namespace tessa {

namespace {

constexpr auto kGroups = "TessaGroup File (*.tvg)|*.tvg";
constexpr auto kPages = "HTML Files (*.htm, *.html)|*.htm; *.html|All Files (*.*)|*.*";
constexpr auto kBookmarks = "Bookmarks File (*.html, *.htm)|*.html; *.htm|All Files (*.*)|*.*";

struct Dialog {
    const char* tool;
    const char* title;
    const char* folder;
    const char* filter;
    bool mustExist;
};

/// What each command asks for a file with.
class FileDialogsTest : public testing::TestWithParam<Dialog> {};

TEST_P(FileDialogsTest, HasItsTitleFolderAndFilterAndSuggestsNoName) {
    const Dialog& expected = GetParam();
    Desk desk;
    desk.StartWithTabs(1);
    desk.files.last = {.DialogTitle = u"none", .InitDir = u"none", .Filter = u"none", .FileName = u"none"};
    desk.ClickMade(Tool(1, FromBytes(expected.tool)));
    EXPECT_EQ(ToUtf8(desk.files.last.DialogTitle), expected.title);
    EXPECT_EQ(ToUtf8(desk.files.last.InitDir), expected.folder);
    EXPECT_EQ(ToUtf8(desk.files.last.Filter), expected.filter);
    EXPECT_EQ(desk.files.last.MustExist, expected.mustExist);
    EXPECT_EQ(desk.files.last.FileName, u"");
}

INSTANTIATE_TEST_SUITE_P(
    Commands, FileDialogsTest,
    testing::Values(Dialog{"mnuOpen", "Open", "", kPages, false},
                    Dialog{"mnuAddToTessaGroup", "Add to TessaGroup", "/groups/", kGroups, false},
                    Dialog{"mnuSaveAsTessaGroup", "Save as TessaGroup", "/groups/", kGroups, false},
                    Dialog{"mnuOrganizeTessaGroups", "Organize TessaGroup", "/groups/", kGroups, true},
                    Dialog{"xtrImportFavorites", "Import Favorites", "", kBookmarks, true},
                    Dialog{"xtrImportTessaGroups", "Import TessaGroups", "", kBookmarks, true},
                    Dialog{"xtrExportFavorites", "Export Favorites", "", kBookmarks, false},
                    Dialog{"xtrExportTessaGroups", "Export TessaGroups", "", kBookmarks, false}),
    [](const auto& info) { return std::string(info.param.tool); });

} // namespace

} // namespace tessa
