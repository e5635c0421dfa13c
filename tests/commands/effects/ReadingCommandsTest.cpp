#include "commands/effects/ReadingCommands.h"

#include "tests/history/ReadingDesk.h"

namespace tessa {

namespace {

/// Three tabs that were read yesterday: something is new in the first and the second.
class ReadingCommandsTest : public testing::Test {
protected:
    ReadingCommandsTest() {
        for (const int index : {1, 2, 3}) m_desk.views.At(index).activity = {};
        for (const int index : {1, 2, 3}) {
            m_desk.ClickTab(static_cast<std::size_t>(index));
            m_desk.Read(index, AddressOf(index), u"pOld words");
        }
        m_desk.ClickTab(1);
        m_desk.Read(1, AddressOf(1), u"pNews|pOld words|pMore news");
        m_desk.Read(2, AddressOf(2), u"pNews|pOld words");
        m_desk.Read(3, AddressOf(3), u"pOld words");
    }
    static Text AddressOf(int index) { return u"http://" + Text(1, static_cast<char16_t>(u'a' + index - 1)) + u"/"; }

    ReadingDesk m_desk{3};
};

TEST_F(ReadingCommandsTest, WhatIsNewIsMarkedOneAfterTheOther) {
    EXPECT_EQ(m_desk.News(), "1:new 2:new 3:same");
    m_desk.Click(u"xtrShowWhatIsNew");
    EXPECT_EQ(m_desk.Marked(1), "[News] More news");
    EXPECT_EQ(m_desk.Said(), "New passage 1 of 2.");
    m_desk.Press({Keys::kF7});
    EXPECT_EQ(m_desk.Marked(1), "News [More news]");
    EXPECT_EQ(m_desk.Said(), "New passage 2 of 2.");
    m_desk.Press({Keys::kF7});
    EXPECT_EQ(m_desk.Marked(1), "[News] More news");
}

TEST_F(ReadingCommandsTest, WithoutNewsThatIsSaid) {
    m_desk.ClickTab(3);
    m_desk.Click(u"xtrShowWhatIsNew");
    EXPECT_EQ(m_desk.Said(), "Nothing is new on this page since you read it.");
    m_desk.Read(3, u"http://never/", u"pWords");
    m_desk.Click(u"xtrShowWhatIsNew");
    EXPECT_EQ(m_desk.Said(), "What is new on this page is not known: it was not read and remembered before.");
}

TEST_F(ReadingCommandsTest, ATabsMenuShowsItsNews) {
    m_desk.OpenTabMenu(2);
    EXPECT_TRUE(m_desk.Tool(u"xtrTabShowWhatIsNew").Enabled());
    m_desk.Click(u"xtrTabShowWhatIsNew");
    EXPECT_EQ(m_desk.Strip(), "1 [2*] 3");
    EXPECT_EQ(m_desk.Marked(2), "[News]");
    EXPECT_EQ(m_desk.Said(), "There is one new passage.");
    m_desk.OpenTabMenu(3);
    EXPECT_FALSE(m_desk.Tool(u"xtrTabShowWhatIsNew").Enabled());
}

TEST_F(ReadingCommandsTest, TheRoundGoesThroughWhatWasNotRead) {
    m_desk.Click(u"xtrNextUnread");
    EXPECT_EQ(m_desk.Strip(), "1 [2*] 3");
    EXPECT_EQ(m_desk.Said(), "One more page is left to read.");
    m_desk.main.ReadOn();
    EXPECT_EQ(m_desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(m_desk.Said(), "This is the last page that was left to read.");
    m_desk.Click(u"xtrNextUnread");
    EXPECT_EQ(m_desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(m_desk.Said(), "No page is left to read.");
    // The space bar says nothing when there is nowhere to go.
    m_desk.ReadNotice();
    m_desk.main.ReadOn();
    EXPECT_EQ(m_desk.Said(), "");
}

TEST_F(ReadingCommandsTest, TabsWithoutNewsAreClosedAndComeBack) {
    m_desk.OpenTabMenu(1);
    EXPECT_TRUE(m_desk.Tool(u"xtrTabCloseWithoutNews").Enabled());
    m_desk.Click(u"xtrTabCloseWithoutNews");
    EXPECT_EQ(m_desk.Strip(), "[1*] 2");
    EXPECT_EQ(m_desk.Said(), "One tab was closed. [Undo]");
    m_desk.Undo();
    EXPECT_EQ(m_desk.CountTabs(), 3U);
    m_desk.Click(u"xtrTabCloseWithoutNews");
    EXPECT_EQ(m_desk.CountTabs(), 3U);
}

TEST_F(ReadingCommandsTest, WhatWasReadIsClosedAndTheRestStays) {
    m_desk.ClickTab(2);
    m_desk.Click(u"xtrTabCloseRead");
    EXPECT_EQ(m_desk.CountTabs(), 1U);
    EXPECT_EQ(m_desk.TabAt(1).Tag, 3);
    EXPECT_EQ(m_desk.Said(), "2 tabs were closed. [Undo]");
}

TEST_F(ReadingCommandsTest, WhereAllWasReadABlankTabIsLeft) {
    m_desk.ClickTab(2);
    m_desk.ClickTab(3);
    m_desk.Click(u"xtrTabCloseRead");
    EXPECT_EQ(m_desk.Strip(), "[4*]");
    EXPECT_EQ(m_desk.Said(), "3 tabs were closed. [Undo]");
    m_desk.Undo();
    EXPECT_EQ(m_desk.CountTabs(), 4U);
}

TEST_F(ReadingCommandsTest, PinnedTabsStayOpen) {
    m_desk.Pin(3);
    m_desk.Click(u"xtrTabCloseWithoutNews");
    EXPECT_EQ(m_desk.CountTabs(), 3U);
    EXPECT_EQ(m_desk.Said(), "There is no tab of which it is known that nothing is new.");
    m_desk.Pin(3, false);
    m_desk.Click(u"xtrTabCloseWithoutNews");
    EXPECT_EQ(m_desk.CountTabs(), 2U);
}

TEST_F(ReadingCommandsTest, WhatHoldsATypedTextStaysOpen) {
    m_desk.views.At(3).activity.HoldsInput = true;
    m_desk.Click(u"xtrTabCloseWithoutNews");
    EXPECT_EQ(m_desk.CountTabs(), 3U);
    EXPECT_EQ(m_desk.Said(), "There is no tab of which it is known that nothing is new.");
}

} // namespace

} // namespace tessa
