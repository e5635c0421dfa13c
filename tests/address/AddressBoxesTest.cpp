// Tests: HistoryCommands
#include "address/AddressBoxes.h"

#include "tests/Desk.h"
#include "tests/fakes/BareTabs.h"

namespace tessa {

namespace {

constexpr TextView kAddress = u"cboAddress", kSearch = u"cboSearch";
constexpr KeyStroke kEnter{Keys::kEnter, 0}, kCtrlEnter{Keys::kEnter, Keys::kCtrl}, kEscape{Keys::kEscape, 0};

class AddressBoxesTest : public testing::Test {
protected:
    Desk m_desk;

    void SetUp() override {
        m_desk.Start();
        m_desk.views.Calls(1);
    }

    void Enter(TextView text, KeyStroke key = kEnter) {
        m_desk.Combo(u"cboAddress").Value = Text(text);
        EXPECT_EQ(m_desk.Press(kAddress, key), KeyUsed::Yes);
    }

    void Search(TextView words) {
        m_desk.Combo(kSearch).Value = Text(words);
        EXPECT_EQ(m_desk.Press(kSearch, kEnter), KeyUsed::Yes);
    }
};

TEST_F(AddressBoxesTest, EnterGoesToTheTextAsTypedAndKeepsIt) {
    Enter(u"news.example");
    EXPECT_EQ(m_desk.views.Calls(1), "go news.example");
    EXPECT_EQ(m_desk.List(kAddress), "[news.example]");
    Enter(u"other.example");
    EXPECT_EQ(m_desk.List(kAddress), "[other.example][news.example]");
    EXPECT_EQ(m_desk.Strip(), "[1*]");
}

TEST_F(AddressBoxesTest, EnteringAKnownAddressMovesItToTheTop) {
    for (const TextView each : {u"a", u"b", u"a"}) Enter(each);
    EXPECT_EQ(m_desk.List(kAddress), "[a][b]");
}

TEST_F(AddressBoxesTest, TheTwentySixthAddressPushesTheOldestOut) {
    for (int i = 1; i <= 26; ++i) Enter(Decimal(i));
    EXPECT_EQ(m_desk.Combo(u"cboAddress").ListCount(), 25U);
    EXPECT_EQ(m_desk.Combo(u"cboAddress").List().back(), u"2");
}

TEST_F(AddressBoxesTest, CtrlEnterMakesAnAddressOfAWord) {
    Enter(u"word", kCtrlEnter);
    EXPECT_EQ(m_desk.views.Calls(1), "go http://www.word.com");
    EXPECT_EQ(m_desk.List(kAddress), "[http://www.word.com]");
}

TEST_F(AddressBoxesTest, CtrlEnterCompletesTheTextInTheBoxItself) {
    Enter(u"word", kCtrlEnter);
    EXPECT_EQ(m_desk.Box(kAddress), "http://www.word.com") << "with an empty history too";
    m_desk.Click(u"xtrPrivateTab");
    m_desk.views.Calls(2);
    Enter(u"secret", kCtrlEnter);
    EXPECT_EQ(m_desk.Box(kAddress), "http://www.secret.com");
    EXPECT_EQ(m_desk.views.Calls(2), "go http://www.secret.com");
    EXPECT_EQ(m_desk.List(kAddress), "[http://www.word.com]") << "nothing of a private tab is kept";
}

TEST_F(AddressBoxesTest, CtrlEnterOnATextWithADotAddsThePrefixAlone_Deliberate) {
    Enter(u"name.org", kCtrlEnter);
    Enter(u"http://name.org/", kCtrlEnter);
    EXPECT_EQ(m_desk.views.Calls(1), "go http://www.name.org, go http://www.http://name.org/");
    EXPECT_EQ(m_desk.Box(kAddress), "http://www.http://name.org/");
}

TEST_F(AddressBoxesTest, OtherModifiersAreNoCtrl) {
    Enter(u"word", {Keys::kEnter, Keys::kShift | Keys::kAlt});
    EXPECT_EQ(m_desk.views.Calls(1), "go word");
}

/// Both boxes on a bar of their own, and entries that come from elsewhere.
struct BoxesAlone : testing::Test {
    static std::string List(const ComboTool& box) {
        std::string all;
        for (const Text& item : box.List()) all += "[" + ToUtf8(item) + "]";
        return all;
    }
    BareTabs bare;
    CommandBar& bar = bare.actBar;
    ComboTool& address = *bar.Add(std::make_unique<ComboTool>(1, Text(kAddress)));
    ComboTool& search = *bar.Add(std::make_unique<ComboTool>(2, Text(kSearch)));
    AddressBoxes boxes{bare.tabs, bar};
};

TEST_F(BoxesAlone, OneEnterAddsOneEntry) {
    boxes.AddAddressEntry(u"early");
    EXPECT_EQ(List(address), "") << "Enter was not pressed yet";
    address.Value = u"a";
    EXPECT_EQ(bar.UserKey(address, kEnter), KeyUsed::Yes);
    boxes.AddAddressEntry(u"late");
    EXPECT_EQ(List(address), "[a]");
}

TEST_F(AddressBoxesTest, WithoutABoxAnEntryIsNeitherAddedNorLeftPending) {
    CommandBar bar;
    BareTabs bare;
    AddressBoxes boxes(bare.tabs, bar);
    ComboTool elsewhere(1, Text(kAddress));
    bar.UserKey(elsewhere, {'C', Keys::kCtrl});
    boxes.AddAddressEntry(u"lost");
    const auto* box = bar.Add(std::make_unique<ComboTool>(2, Text(kAddress)));
    boxes.AddAddressEntry(u"late");
    EXPECT_EQ(box->ListCount(), 0U);
    bar.UserKey(elsewhere, {'C', Keys::kCtrl});
    boxes.AddAddressEntry(u"kept");
    EXPECT_EQ(box->ListCount(), 1U);
}

TEST_F(BoxesAlone, CtrlWithAnyOtherKeyLeavesAnEntryPending_Deliberate) {
    EXPECT_EQ(bar.UserKey(address, {'C', Keys::kCtrl}), KeyUsed::No);
    boxes.AddAddressEntry(u"pending");
    EXPECT_EQ(List(address), "[pending]");
    bar.UserKey(address, {'C', Keys::kCtrl});
    address.Value = u"plain";
    bar.UserKey(address, kEnter);
    EXPECT_EQ(List(address), "[plain][pending]");
}

TEST_F(BoxesAlone, AnotherKeyLeavesNoSearchPending) {
    EXPECT_EQ(bar.UserKey(search, {'A', Keys::kCtrl}), KeyUsed::No);
    boxes.AddSearchEntry(u"early");
    EXPECT_EQ(List(search), "");
}

TEST_F(AddressBoxesTest, OtherKeysAreForTheBoxItself) {
    EXPECT_EQ(m_desk.Press(kAddress, {'A', 0}), KeyUsed::No);
    EXPECT_EQ(m_desk.Press(kSearch, {'A', Keys::kCtrl}), KeyUsed::No);
    EXPECT_EQ(m_desk.Press(kSearch, kEscape), KeyUsed::No);
    EXPECT_EQ(m_desk.List(kSearch), "");
    EXPECT_EQ(m_desk.views.Calls(1), "");
}

TEST_F(AddressBoxesTest, ASearchOpensATabInFrontWithTheWordsAsTheyAre) {
    Search(u"cats & dogs #1 100% a+b Ж");
    EXPECT_EQ(m_desk.Strip(), "1 [2*]");
    EXPECT_EQ(m_desk.views.Calls(2),
              "go about:blank, "
              "go https://search.tessaview.example/d/search/p/tessaview/?Keywords=cats & dogs #1 100% a+b Ж");
    EXPECT_EQ(m_desk.List(kSearch), "[cats & dogs #1 100% a+b Ж]");
    EXPECT_EQ(m_desk.List(kAddress), "");
}

TEST_F(AddressBoxesTest, CtrlEnterSearchesForTheWordsAsTheyAre) {
    m_desk.Combo(kSearch).Value = u"word";
    m_desk.Press(kSearch, kCtrlEnter);
    EXPECT_EQ(m_desk.List(kSearch), "[word]");
    EXPECT_EQ(m_desk.Strip(), "1 [2*]");
}

TEST_F(AddressBoxesTest, TheSearchHistoryHoldsTwentyFive) {
    for (int i = 1; i <= 26; ++i) Search(Decimal(i));
    EXPECT_EQ(m_desk.Combo(kSearch).ListCount(), 25U);
    EXPECT_EQ(m_desk.Combo(kSearch).List().front(), u"26");
}

TEST_F(AddressBoxesTest, AChoiceFromTheListGoesThereAndAddsNothing) {
    Enter(u"a");
    Enter(u"b");
    Search(u"words");
    m_desk.ClickTab(1);
    m_desk.views.Calls(1);
    m_desk.Choose(kAddress, 1);
    EXPECT_EQ(m_desk.views.Calls(1), "go a");
    EXPECT_EQ(m_desk.List(kAddress), "[b][a]");
    m_desk.Choose(kSearch, 0);
    EXPECT_EQ(m_desk.Strip(), "1 [3*] 2");
    EXPECT_EQ(m_desk.views.Calls(3),
              "go about:blank, go https://search.tessaview.example/d/search/p/tessaview/?Keywords=words");
    EXPECT_EQ(m_desk.List(kSearch), "[words]");
}

TEST_F(AddressBoxesTest, BothBoxesCompleteFromTheirOwnLists) {
    m_desk.Combo(u"cboAddress").List = {u"news.example"};
    m_desk.Combo(kSearch).List = {u"newspapers"};
    m_desk.Combo(u"cboAddress").Value = Text();
    m_desk.Type(kAddress, u"ne");
    EXPECT_EQ(m_desk.Box(kAddress), "ne[ws.example]");
    m_desk.Type(kSearch, u"news");
    EXPECT_EQ(m_desk.Box(kSearch), "news[papers]");
    m_desk.Type(kAddress, u"w");
    EXPECT_EQ(m_desk.Box(kAddress), "new[s.example]");
}

TEST_F(AddressBoxesTest, BackspaceTakesTheCompletionAwayAndOffersNone) {
    m_desk.Combo(u"cboAddress").List = {u"news.example"};
    m_desk.Combo(u"cboAddress").Value = Text();
    m_desk.Type(kAddress, u"ne");
    m_desk.Backspace(kAddress);
    EXPECT_EQ(m_desk.Box(kAddress), "ne");
    m_desk.Backspace(kAddress);
    EXPECT_EQ(m_desk.Box(kAddress), "n");
    m_desk.Type(kAddress, u"e");
    EXPECT_EQ(m_desk.Box(kAddress), "ne[ws.example]");
}

TEST_F(AddressBoxesTest, EscapeBringsThePagesAddressBackSelected) {
    m_desk.PageLoads(1, u"http://a/", u"A");
    m_desk.Combo(u"cboAddress").Value = u"something else";
    EXPECT_EQ(m_desk.Press(kAddress, kEscape), KeyUsed::Yes);
    EXPECT_EQ(m_desk.Box(kAddress), "[http://a/]");
    EXPECT_EQ(m_desk.views.Calls(1), "");
}

TEST_F(AddressBoxesTest, WithoutACurrentPageEnterOnlyUpdatesTheHistory) {
    m_desk.TakeTabAway(1);
    Enter(u"a");
    EXPECT_EQ(m_desk.List(kAddress), "[a]");
    m_desk.Press(kAddress, kEscape);
    EXPECT_EQ(m_desk.Address(), "a");
}

TEST_F(AddressBoxesTest, TheClearCommandsEmptyTheirOwnLists) {
    Enter(u"a");
    Search(u"words");
    m_desk.Click(u"mnuClearAddresses");
    EXPECT_EQ(m_desk.List(kAddress) + m_desk.List(kSearch), "[words]");
    Enter(u"b");
    m_desk.Click(u"mnuClearSearches");
    EXPECT_EQ(m_desk.List(kAddress) + m_desk.List(kSearch), "[b]");
}

TEST_F(AddressBoxesTest, WhatWasClearedIsToldAndCanComeBack) {
    for (const TextView address : {u"a", u"b", u"c"}) Enter(address);
    m_desk.Click(u"mnuClearAddresses");
    EXPECT_EQ(m_desk.Said(), "3 addresses were cleared. [Undo]");
    m_desk.Undo();
    EXPECT_EQ(m_desk.List(kAddress), "[c][b][a]");
    EXPECT_EQ(m_desk.Said(), "The addresses are back in their list.");
    Search(u"words");
    m_desk.Click(u"mnuClearSearches");
    EXPECT_EQ(m_desk.Said(), "1 search was cleared. [Undo]");
    m_desk.Undo();
    EXPECT_EQ(m_desk.List(kSearch), "[words]");
}

TEST_F(AddressBoxesTest, ClearingAnEmptyListSaysSoAndTakesNothingBack) {
    m_desk.Click(u"mnuClearSearches");
    EXPECT_EQ(m_desk.Said(), "There were no searches to clear.");
}

TEST_F(AddressBoxesTest, WhatComesBackStandsBelowWhatWasEnteredSinceEachOnce) {
    for (int i = 1; i <= 25; ++i) Enter(u"a" + Decimal(i));
    m_desk.Click(u"mnuClearAddresses");
    Enter(u"new");
    Enter(u"a25");
    m_desk.Undo();
    const auto& list = m_desk.Combo(u"cboAddress").List();
    ASSERT_EQ(list.size(), 25U) << "as many as the list may hold";
    EXPECT_EQ(ToUtf8(list[0] + u" " + list[1] + u" " + list[2] + u" " + list[24]), "a25 new a24 a2");
}

TEST_F(AddressBoxesTest, TheNextThingThatIsSaidEndsTheOffer) {
    Enter(u"a");
    m_desk.Click(u"mnuClearAddresses");
    m_desk.Click(u"xtrCopyReport");
    EXPECT_EQ(m_desk.Said(), "The report has been copied.");
    EXPECT_FALSE(m_desk.CanUndo()) << "what was cleared is kept no longer";
}

TEST_F(AddressBoxesTest, KeysGiveTheBoxesTheKeyboard) {
    std::string focused;
    const Connection view = m_desk.Bar().FocusWanted.Connect(
        [&](Band& band, Tool& tool) { focused += ToUtf8(band.Name() + u"." + tool.Name()) + " "; });
    for (const KeyStroke key : {KeyStroke{'D', Keys::kAlt}, {'R', Keys::kAlt}, {'L', Keys::kCtrl}, {'K', Keys::kCtrl}})
        m_desk.Press(key);
    EXPECT_EQ(focused, "bndAddress.cboAddress bndSearch.cboSearch bndAddress.cboAddress bndSearch.cboSearch ");
}

TEST_F(AddressBoxesTest, ThePointerOverABoxShowsItsHelp) {
    m_desk.Bar().MouseOver(&m_desk.Combo(kAddress));
    EXPECT_EQ(m_desk.Status(), "The address of the page");
    m_desk.Bar().MouseOver(nullptr);
    EXPECT_EQ(m_desk.Status(), "");
}

} // namespace

} // namespace tessa
