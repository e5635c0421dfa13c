// Tests: PageMenuEntries
#include "commands/effects/PageMenu.h"

#include "tests/Desk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <cctype>

namespace tessa {

namespace {

/// A user who asks for the menu of a page.
class PageMenuTest : public testing::Test {
protected:
    PageMenuTest() {
        for (const TextView tool : {u"xtrLinkCopy", u"xtrMediaCopyAddress"}) desk.Tool(tool).Enabled = true;
        desk.StartWithTabs(1);
        desk.views.At(1).location = u"https://a.example/";
        desk.views.Calls(1);
    }

    /// The names of the menu's entries, "|" before those that begin a group.
    std::string Ask(const PageContext& page) {
        desk.views.At(1).events.ContextMenu(1, page);
        std::string all;
        for (const BandEntry& entry : desk.Band(PageMenu::kBand).Entries()) {
            if (!all.empty()) all += entry.Group == BeginGroup::Yes ? " | " : " ";
            all += ToUtf8(entry.Item->Name());
        }
        return all;
    }
    [[nodiscard]] std::string Caption(TextView tool) const { return ToUtf8(desk.Tool(tool).Caption()); }
    /// The access keys of our own entries that another one of them has as well.
    [[nodiscard]] std::string KeysTwice() const {
        std::string seen, twice;
        for (const BandEntry& entry : desk.Band(PageMenu::kBand).Entries()) {
            const std::string caption = ToUtf8(entry.Item->Caption());
            const std::size_t mark = caption.find('&');
            if (mark == std::string::npos || !ToUtf8(entry.Item->Name()).starts_with("xtr")) continue;
            const char key = static_cast<char>(std::tolower(caption.at(mark + 1)));
            if (seen.find(key) != std::string::npos) twice += key;
            seen += key;
        }
        return twice;
    }
    static PageContext Link(TextView address) {
        PageContext page;
        page.LinkURL = address;
        return page;
    }
    static PageContext Selection(TextView text) {
        PageContext page;
        page.SelectedText = text;
        return page;
    }

    Desk desk;
};

TEST_F(PageMenuTest, OfThePageListsWhatIsDoneWithPages) {
    EXPECT_EQ(Ask({}), "mnuGoBack mnuGoForward mnuRefresh mnuStop | mnuAddToFavorites mnuAddToTessaGroup mnuSaveAs "
                       "mnuPrint | mnuSelectAll xtrShowWhatIsNew mnuViewSource | xtrInspect");
}

TEST_F(PageMenuTest, OfALinkOpensItWhereTheSettingSays) {
    EXPECT_EQ(Ask(Link(u"https://b.example/")),
              "xtrLinkOpen xtrLinkOpenOther xtrLinkOpenPrivate | xtrLinkSave xtrLinkCopy xtrLinkAddToTessaGroup | "
              "xtrInspect");
    desk.Set(u"OpenNewInFront", u"false");
    desk.Click(u"xtrLinkOpen");
    EXPECT_EQ(desk.Strip(), "[1*] 2");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go https://b.example/");
}

TEST_F(PageMenuTest, NoTwoOfOurEntriesHaveOneAccessKey) {
    for (const PageContext::Kind media :
         {PageContext::Kind::None, PageContext::Kind::Image, PageContext::Kind::Audio, PageContext::Kind::Video}) {
        for (const int state : {0, 1, 2, 3, 4, 5, 6, 7}) {
            PageContext page = Link(u"https://b.example/");
            page.Media = media;
            page.MediaURL = u"https://b.example/film";
            page.SelectedText = u"words";
            page.CanUndo = page.CanRedo = page.CanCut = page.CanCopy = page.CanPaste = true;
            page.Editable = state & 1;
            page.MediaPaused = state & 2;
            desk.Set(u"OpenNewInFront", state & 4 ? u"true" : u"false");
            Ask(page);
            EXPECT_EQ(KeysTwice(), "") << static_cast<int>(media) << " " << state;
        }
    }
}

TEST_F(PageMenuTest, OfALinkOpensItTheOtherWayToo) {
    desk.Set(u"OpenNewInFront", u"false");
    Ask(Link(u"https://b.example/"));
    EXPECT_EQ(Caption(u"xtrLinkOpenOther"), "Open Link in &Front");
    desk.Click(u"xtrLinkOpenOther");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    desk.ClickTab(1);
    desk.Set(u"OpenNewInFront", u"true");
    Ask(Link(u"https://b.example/"));
    EXPECT_EQ(Caption(u"xtrLinkOpenOther"), "Open Link &Behind This Tab");
    desk.Click(u"xtrLinkOpenOther");
    EXPECT_EQ(desk.Strip(), "[1*] 3 2");
}

TEST_F(PageMenuTest, OpensNothingThatAPageOfTheWebMayNotReach) {
    for (const TextView address :
         {u"file:///etc/passwd", u"javascript:alert(1)", u"tessaview:start", u"data:text/html,x",
          u"view-source:https://a.example/", u"about:blank", u"FILE:///x", u"nonsense"}) {
        const std::string entries = Ask(Link(address));
        EXPECT_EQ(entries.find("xtrLinkOpen"), std::string::npos) << ToUtf8(address);
        desk.Click(u"xtrLinkOpen");
        desk.Click(u"xtrLinkOpenPrivate");
        EXPECT_EQ(desk.Strip(), "[1*]") << ToUtf8(address);
    }
    desk.views.At(1).location = u"file:///home/me/index.html";
    Ask(Link(u"file:///home/me/next.html"));
    desk.Click(u"xtrLinkOpen");
    EXPECT_EQ(desk.Strip(), "1 [2*]") << "a local page may lead to another";
}

TEST_F(PageMenuTest, OfALinkCopiesSavesAndKeepsIt) {
    const TemporaryFolder folder;
    Ask(Link(u"https://b.example/My%20file.zip"));
    desk.Click(u"xtrLinkCopy");
    EXPECT_EQ(ToUtf8(desk.input.copied), "https://b.example/My%20file.zip");
    desk.Click(u"xtrLinkSave");
    EXPECT_EQ(desk.views.Calls(1), "") << "the user has cancelled";
    EXPECT_EQ(desk.files.last.FileName, u"My file.zip");
    EXPECT_EQ(desk.files.last.InitDir, u"/nowhere/downloads");
    desk.files.chosen = folder.PathText("x.zip");
    desk.Click(u"xtrLinkSave");
    EXPECT_EQ(desk.views.Calls(1), "save https://b.example/My%20file.zip in " + folder.Path("x.zip"));
    folder.Write("x.zip", "old");
    desk.messages.answer = Answer::No;
    desk.Click(u"xtrLinkSave");
    EXPECT_EQ(desk.views.Calls(1), "") << "the file is not to be replaced";
    EXPECT_EQ(desk.messages.asked.size(), 1U);
    desk.files.chosen = folder.PathText("g.tvg");
    desk.Click(u"xtrLinkAddToTessaGroup");
    EXPECT_NE(folder.Read("g.tvg").find("url1=https://b.example/My%20file.zip"), std::string::npos);
}

TEST_F(PageMenuTest, SavesAndOpensNothingOfAPageThatHasGoneMeanwhile) {
    desk.Click(u"mnuNewBlank");
    desk.ClickTab(1);
    Ask(Link(u"https://b.example/x"));
    desk.Close(1);
    desk.views.Calls(1);
    desk.views.Calls(2);
    desk.files.chosen = u"/nowhere/x";
    for (const TextView tool : {u"xtrLinkSave", u"xtrLinkOpen", u"xtrInspect"}) desk.Click(tool);
    EXPECT_EQ(desk.views.Calls(1) + desk.views.Calls(2), "");
    EXPECT_EQ(desk.Strip(), "[2*]");
}

TEST_F(PageMenuTest, IsForItsPageAlthoughAnotherTabHasComeToTheFront) {
    Ask(Selection(u"tea"));
    desk.Click(u"xtrPrivateTab");
    desk.Click(u"xtrInspect");
    EXPECT_EQ(desk.views.Calls(1), "action 8");
    desk.Click(u"xtrSearchSelection");
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(desk.views.At(3).privacy, Privacy::Ordinary) << "as the page is that holds the words";
}

TEST_F(PageMenuTest, OfABackgroundPageIsNotShown) {
    desk.Click(u"mnuNewBlank");
    desk.views.At(1).events.ContextMenu(1, {});
    EXPECT_EQ(desk.Bar().FindBand(PageMenu::kBand), nullptr);
}

TEST_F(PageMenuTest, OfAnImageOpensSavesAndCopiesIt) {
    PageContext page;
    page.Media = PageContext::Kind::Image;
    page.MediaURL = u"https://a.example/p.png";
    EXPECT_EQ(Ask(page), "xtrImageOpen xtrImageSave xtrImageCopy xtrMediaCopyAddress | xtrInspect");
    EXPECT_EQ(Caption(u"xtrMediaCopyAddress"), "Copy Image &Address");
    desk.Click(u"xtrImageOpen");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go https://a.example/p.png");
    desk.ClickTab(1);
    desk.Click(u"xtrImageCopy");
    desk.Click(u"xtrMediaCopyAddress");
    EXPECT_EQ(desk.views.Calls(1), "action 3");
    EXPECT_EQ(ToUtf8(desk.input.copied), "https://a.example/p.png");
}

TEST_F(PageMenuTest, OfAFilmPlaysItAndTellsHowItStands) {
    PageContext page;
    page.Media = PageContext::Kind::Video;
    page.MediaURL = u"blob:https://a.example/1";
    page.MediaPaused = page.MediaLoops = true;
    EXPECT_EQ(Ask(page), "xtrMediaPlay xtrMediaMute xtrMediaLoop xtrMediaControls | xtrMediaSave xtrMediaCopyAddress | "
                         "xtrInspect");
    EXPECT_EQ(Caption(u"xtrMediaPlay"), "Pla&y");
    EXPECT_TRUE(desk.Tool(u"xtrMediaLoop").Checked());
    EXPECT_FALSE(desk.Tool(u"xtrMediaMute").Checked());
    for (const TextView tool : {u"xtrMediaPlay", u"xtrMediaMute", u"xtrMediaLoop", u"xtrMediaControls"})
        desk.Click(tool);
    EXPECT_EQ(desk.views.Calls(1), "action 4, action 5, action 6, action 7");
}

TEST_F(PageMenuTest, OfATextFieldListsWhatCanBeDone) {
    PageContext page;
    page.Editable = page.CanUndo = page.CanPaste = true;
    EXPECT_EQ(Ask(page), "xtrUndo | mnuPaste xtrPasteAsText mnuSelectAll | xtrInspect");
    page.CanRedo = page.CanCut = page.CanCopy = true;
    page.SelectedText = u"wrod";
    page.MisspelledWord = u"wrod";
    page.Suggestions = {u"word", u"rod & reel"};
    EXPECT_EQ(Ask(page), "xtrReplaceWord xtrReplaceWord | xtrUndo xtrRedo | mnuCut mnuCopy mnuPaste xtrPasteAsText "
                         "mnuSelectAll xtrSearchSelection | xtrInspect");
    for (const TextView tool : {u"xtrUndo", u"xtrRedo", u"xtrPasteAsText", u"xtrInspect"}) desk.Click(tool);
    const Band& menu = desk.Band(PageMenu::kBand);
    auto& suggestions = menu.Entries();
    EXPECT_TRUE(menu.IsRunTime());
    EXPECT_TRUE(suggestions[1].Item->IsRunTime());
    EXPECT_FALSE(suggestions[2].Item->IsRunTime());
    desk.Bar().UserClick(*suggestions[1].Item);
    EXPECT_EQ(desk.views.Calls(1), "action 0, action 1, action 2, action 8, word rod & reel");
}

TEST_F(PageMenuTest, OfASelectionSearchesForIt) {
    EXPECT_EQ(Ask(Selection(u"tea & \ncake\u202E that is far too long to be shown here")),
              "mnuCopy xtrSearchSelection | xtrInspect");
    EXPECT_EQ(Caption(u"xtrSearchSelection"), "S&earch for \"tea && cake that is far t...\"");
    EXPECT_EQ(Ask(Selection(u" \u200B ")), "mnuCopy | xtrInspect") << "there is nothing to find";
    Ask(Selection(u"tea"));
    desk.Click(u"xtrSearchSelection");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_TRUE(ToUtf8(desk.views.At(2).location).ends_with("tea"));
}

TEST_F(PageMenuTest, OffersToOpenSelectedLinksOnlyWhereThereAreSome) {
    PageContext page = Selection(u"tea");
    EXPECT_EQ(Ask(page), "mnuCopy xtrSearchSelection | xtrInspect");
    page.SelectsLinks = true;
    EXPECT_EQ(Ask(page), "mnuCopy xtrSearchSelection xtrOpenSelectedLinks xtrSaveSelectedLinks | xtrInspect");
    page.Editable = true;
    EXPECT_EQ(Ask(page).find("xtrOpenSelectedLinks"), std::string::npos);
}

TEST_F(PageMenuTest, OfASelectionMakesATessaGroupOfItsLinks) {
    const TemporaryFolder folder;
    desk.views.At(1).selectedLinks = {u"https://b.example/", u"javascript:alert(1)", u"https://c.example/",
                                      u"https://b.example/"};
    Ask(Selection(u"x"));
    desk.files.chosen = folder.PathText("links.tvg");
    desk.Click(u"xtrSaveSelectedLinks");
    EXPECT_EQ(desk.files.last.DialogTitle, u"Save Selected Links as TessaGroup");
    EXPECT_EQ(folder.Read("links.tvg"), "[TessaGroup]\r\nurl1=https://b.example/\r\nurl2=https://c.example/\r\n");
    desk.views.At(1).selectedLinks = {u"mailto:a@b"};
    desk.Click(u"xtrSaveSelectedLinks");
    EXPECT_EQ(desk.Said(), "No link to a page is selected.");
}

TEST_F(PageMenuTest, OfAPrivateSelectionAsksBeforeItsLinksAreKept) {
    const TemporaryFolder folder;
    desk.Click(u"xtrPrivateTab");
    desk.views.At(2).selectedLinks = {u"https://b.example/"};
    desk.views.At(2).events.ContextMenu(2, Selection(u"x"));
    desk.files.chosen = folder.PathText("links.tvg");
    desk.Click(u"xtrSaveSelectedLinks");
    EXPECT_EQ(folder.Files(), 0U);
    EXPECT_EQ(desk.messages.Buttons(), "&Cancel|&Save Them");
    desk.messages.answer = Answer::Yes;
    desk.Click(u"xtrSaveSelectedLinks");
    EXPECT_EQ(folder.Read("links.tvg"), "[TessaGroup]\r\nurl1=https://b.example/\r\n");
}

TEST_F(PageMenuTest, OfASelectionOpensItsLinksBehindInTheirOrder) {
    desk.views.At(1).selectedLinks = {u"https://b.example/", u"file:///etc/passwd", u"https://c.example/"};
    Ask(Selection(u"x"));
    desk.Click(u"xtrOpenSelectedLinks");
    EXPECT_EQ(desk.Strip(), "[1*] 3 2");
    EXPECT_EQ(ToUtf8(desk.views.At(3).location), "https://b.example/");
    EXPECT_EQ(ToUtf8(desk.views.At(2).location), "https://c.example/");
}

TEST_F(PageMenuTest, AsksBeforeItOpensVeryManyLinks) {
    desk.views.At(1).selectedLinks.assign(16, u"https://b.example/");
    Ask(Selection(u"x"));
    desk.Click(u"xtrOpenSelectedLinks");
    EXPECT_EQ(desk.messages.asked, std::vector<Text>{u"Open 16 tabs?"});
    EXPECT_EQ(desk.CountTabs(), 1U);
    desk.messages.answer = Answer::Yes;
    desk.Click(u"xtrOpenSelectedLinks");
    EXPECT_EQ(desk.CountTabs(), 17U);
}

TEST_F(PageMenuTest, DoesNothingForAViewWithoutAPage) {
    Ask(Selection(u"x"));
    desk.views.At(1).hasTools = false;
    for (const TextView tool : {u"xtrUndo", u"xtrOpenSelectedLinks", u"xtrLinkSave", u"xtrInspect"}) desk.Click(tool);
    EXPECT_EQ(desk.views.Calls(1), "");
}

} // namespace

} // namespace tessa
