#include "address/CabCombo.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace tessa {

namespace {

/// A box and what its user does, without the window around it.
class CabComboTest : public testing::Test {
protected:
    ComboTool m_box{1, u"cboAddress"};
    Text m_previous;

    /// The box shows `before` and, behind the caret, `after`; then the text has changed.
    std::string Change(TextView before, TextView after = u"") {
        m_box.Value = Text(before) + Text(after);
        m_box.Selection = TextSelection{before.size(), 0};
        CabCombo::AutoComplete(m_previous, m_box);
        return Shown();
    }

    /// What is selected stands in brackets.
    [[nodiscard]] std::string Shown() const {
        Text text = m_box.Value();
        const auto [start, length] = m_box.Selection();
        if (length > 0) text.insert(start + length, u"]").insert(start, u"[");
        return ToUtf8(text);
    }

    std::string Add(TextView entry, std::int32_t limit = 25) {
        CabCombo::AddFindEntry(entry, &m_box, limit);
        std::string all;
        for (const Text& item : m_box.List()) all += ToUtf8(item) + " ";
        return all;
    }
};

TEST_F(CabComboTest, TypingShowsTheWholeEntryWithTheRestSelected) {
    m_box.List = {u"news.example", u"next.example"};
    EXPECT_EQ(Change(u"n"), "n[ews.example]");
    EXPECT_EQ(Change(u"ne"), "ne[ws.example]");
    EXPECT_EQ(Change(u"nex"), "nex[t.example]");
    EXPECT_EQ(m_previous, u"nex");
    EXPECT_EQ(Change(u"nexx"), "nexx");
}

TEST_F(CabComboTest, BackspaceOffersNothingUntilTheUserTypesForwardAgain) {
    m_box.List = {u"news.example"};
    EXPECT_EQ(Change(u"ne"), "ne[ws.example]");
    EXPECT_EQ(Change(u"ne"), "ne");
    EXPECT_EQ(Change(u"n"), "n");
    EXPECT_EQ(Change(u"ne"), "ne[ws.example]");
}

TEST_F(CabComboTest, AnEmptiedBoxForgetsWhatWasTyped) {
    m_box.List = {u"news.example"};
    Change(u"ne");
    EXPECT_EQ(Change(u""), "");
    EXPECT_EQ(m_previous, u"");
    EXPECT_EQ(Change(u"n"), "n[ews.example]");
}

TEST_F(CabComboTest, UpperCaseDoesNotCompleteALowerCaseEntry) {
    m_box.List = {u"news.example"};
    EXPECT_EQ(Change(u"NE"), "NE");
}

TEST_F(CabComboTest, OnlyTheTextBeforeTheCaretCounts) {
    m_box.List = {u"news.example"};
    EXPECT_EQ(Change(u"ne", u"w"), "ne[ws.example]");
}

TEST_F(CabComboTest, AnEntryThatIsAlreadyTypedWholeStays) {
    m_box.List = {u"news", u"newspaper"};
    EXPECT_EQ(Change(u"news"), "news");
    EXPECT_EQ(m_box.Selection(), (TextSelection{4, 0}));
}

TEST_F(CabComboTest, ACaretBehindTheTextCompletesAsAtItsEnd) {
    m_box.List = {u"news"};
    m_box.Value = u"ne";
    m_box.Selection = TextSelection{7, 3};
    CabCombo::AutoComplete(m_previous, m_box);
    EXPECT_EQ(Shown(), "ne[ws]");
}

TEST_F(CabComboTest, ALongerTextThatStandsForAnotherOneCompletesByItsLengthAlone_Deliberate) {
    m_box.List = {u"yellow"};
    Change(u"news");
    EXPECT_EQ(Change(u"y"), "y") << "not longer than what was typed before";
    EXPECT_EQ(Change(u"ye"), "ye[llow]");
}

TEST_F(CabComboTest, AnEntryThatIsKnownMovesToTheTop) {
    Add(u"a");
    Add(u"b");
    EXPECT_EQ(Add(u"c"), "c b a ");
    EXPECT_EQ(Add(u"a"), "a c b ");
    EXPECT_EQ(m_box.Value(), u"a");
}

TEST_F(CabComboTest, TheFirstEntryLeavesTheTextAlone_Deliberate) {
    m_box.Value = u"typed";
    Add(u"http://www.typed.com");
    EXPECT_EQ(m_box.Value(), u"typed");
    Add(u"other");
    EXPECT_EQ(m_box.Value(), u"other");
}

TEST_F(CabComboTest, EntriesAreToldApartByCase) {
    Add(u"a");
    EXPECT_EQ(Add(u"A"), "A a ");
}

TEST_F(CabComboTest, TheTwentySixthEntryPushesTheOldestOut) {
    for (int i = 1; i <= 26; ++i) Add(Decimal(i));
    ASSERT_EQ(m_box.ListCount(), 25U);
    EXPECT_EQ(m_box.List().front(), u"26");
    EXPECT_EQ(m_box.List().back(), u"2");
}

TEST_F(CabComboTest, OneEntryGoesHoweverManyAreTooMany_Deliberate) {
    m_box.List = {u"a", u"b", u"c", u"d"};
    EXPECT_EQ(Add(u"e", 2), "e a c d ");
}

TEST_F(CabComboTest, OfTwoEqualNeighboursTheSecondSurvives_Deliberate) {
    m_box.List = {u"a", u"a", u"b", u"a"};
    EXPECT_EQ(Add(u"a"), "a a b ");
}

TEST_F(CabComboTest, WithoutABoxNothingIsAdded) {
    const auto addToNone = [] {
        CabCombo::AddFindEntry(u"a", nullptr, 25);
        std::_Exit(0);
    };
    EXPECT_EXIT(addToNone(), testing::ExitedWithCode(0), "");
}

TEST_F(CabComboTest, AnItemOfTheListItselfCanBeTheEntry) {
    m_box.List = {u"first", u"a longer text than fits beside the pointer"};
    EXPECT_EQ(Add(m_box.List()[1]), "a longer text than fits beside the pointer first ");
}

} // namespace

} // namespace tessa
