#include "history/frmOpenPages.h"

#include "tests/history/ReadingDesk.h"

namespace tessa {

namespace {

class frmOpenPagesTest : public testing::Test {
protected:
    frmOpenPagesTest() {
        m_desk.Read(1, u"http://a/", u"pApples are red|pPears are green");
        m_desk.Read(2, u"http://b/", u"pMore apples|pand apples|papples again|papples at last");
        m_desk.Read(3, u"http://c/", u"pNothing here");
    }
    /// What is found: "1 Title: one [two]|...".
    std::string Find(TextView words) {
        m_form.txtWords.Value = Text(words);
        std::string all;
        for (const OpenPageLine& each : m_form.lstFound()) {
            all += all.empty() ? "" : "|";
            if (each.IsPage) all += std::to_string(each.Index) + ":";
            for (const SnippetPart& part : each.Shown)
                all += part.Marked ? "[" + ToUtf8(part.Words) + "]" : ToUtf8(part.Words);
        }
        return all;
    }
    void Click(std::size_t line) { m_form.lstFound_Click(line); }

    ReadingDesk m_desk{3};
    frmOpenPages& m_form = m_desk.main.OpenPagesPanel();
};

TEST_F(frmOpenPagesTest, FindsTheWordsInEveryOpenPage) {
    m_desk.Click(u"xtrSearchOpenPages");
    EXPECT_TRUE(m_form.Form.Visible());
    EXPECT_TRUE(m_desk.Tool(u"xtrSearchOpenPages").Checked());
    EXPECT_EQ(Find(u"apples"), "1:Title of http://a/|[Apples] are red|2:Title of http://b/|More [apples]|and "
                               "[apples]|[apples] again");
    EXPECT_EQ(m_form.lblCount.Caption(), u"2 pages");
    EXPECT_EQ(Find(u"green red"), "1:Title of http://a/|Apples are [red]|Pears are [green]");
    EXPECT_EQ(Find(u"nowhere"), "");
    EXPECT_EQ(m_form.lblCount.Caption(), u"No open page says that.");
    EXPECT_EQ(Find(u""), "");
    EXPECT_EQ(m_form.lblCount.Caption(), u"");
    EXPECT_EQ(Find(u"\"title of\" c"), "3:[Title of] http://[c]/");
}

TEST_F(frmOpenPagesTest, ChoosingAPassageLeadsToIt) {
    m_desk.Click(u"xtrSearchOpenPages");
    Find(u"again");
    Click(1);
    EXPECT_EQ(m_desk.Strip(), "1 [2*] 3");
    EXPECT_EQ(m_desk.Marked(2), "[apples again]");
    Find(u"green");
    Click(0);
    EXPECT_EQ(m_desk.Strip(), "[1*] 2 3");
    EXPECT_EQ(m_desk.Marked(1), "");
    Click(99);
}

TEST_F(frmOpenPagesTest, ASleepingPageIsSearchedAndNotWoken) {
    m_desk.views.At(2).asleep = true;
    m_desk.views.Calls(2);
    m_desk.Click(u"xtrSearchOpenPages");
    EXPECT_EQ(Find(u"again"), "2:Title of http://b/|apples [again]");
    EXPECT_EQ(m_desk.views.Calls(2), "");
    // It shows the passage once it has woken.
    Click(1);
    EXPECT_EQ(m_desk.Marked(2), "");
    m_desk.views.At(2).asleep = false;
    m_desk.Read(2, u"http://b/", u"papples again");
    EXPECT_EQ(m_desk.Marked(2), "[apples again]");
}

TEST_F(frmOpenPagesTest, APageThatWasNeverReadInThisRunIsSearchedAsItIsRemembered) {
    HistoryVisit visit{u"http://old/", u"old", u"Old"};
    visit.Passages = "pRemembered words\n";
    m_desk.visits.Keep(visit);
    m_desk.NewTab(InFront::No);
    m_desk.views.At(4).location = u"http://old/";
    m_desk.views.At(4).name = u"Old";
    m_desk.Click(u"xtrSearchOpenPages");
    EXPECT_EQ(Find(u"remembered"), "4:Old|[Remembered] words");
    EXPECT_EQ(m_desk.views.At(4).reads, 0);
}

TEST_F(frmOpenPagesTest, WhatHasComeSinceIsFound) {
    m_desk.Say(3, u"pA fresh word");
    m_desk.Click(u"xtrSearchOpenPages");
    EXPECT_EQ(Find(u"fresh"), "3:Title of http://c/|A [fresh] word");
}

TEST_F(frmOpenPagesTest, PagesThatAreSlowComeLater) {
    bool asked = false;
    const Connection connection = m_form.Schedule.Connect([&](auto...) { asked = true; });
    m_desk.views.At(3).readsSlowly = true;
    m_desk.Click(u"xtrSearchOpenPages");
    EXPECT_EQ(Find(u"fresh"), "");
    asked = false;
    for (const auto& reader : m_desk.views.At(3).readers) reader(u"uhttp://c/\npA fresh word");
    EXPECT_TRUE(asked);
    m_form.Show();
    EXPECT_EQ(m_form.lstFound().size(), 2U);
}

TEST_F(frmOpenPagesTest, APageThatHasJustComeIsGlancedAtAndReadWhenItRests) {
    FakeView& view = m_desk.views.At(3);
    m_desk.Load(3, u"http://new/", u"pA fresh word|pand a deep one");
    view.glance = u"pA fresh word";
    view.reads = view.glances = 0;
    m_desk.Click(u"xtrSearchOpenPages");
    EXPECT_EQ(view.glances, 1);
    EXPECT_EQ(view.reads, 0);
    EXPECT_EQ(Find(u"fresh"), "3:Title of http://new/|A [fresh] word");
    EXPECT_EQ(Find(u"deep"), "");
    m_desk.Rest();
    EXPECT_EQ(view.reads, 1);
    m_form.Show();
    EXPECT_EQ(Find(u"deep"), "3:Title of http://new/|and a [deep] one");
    // A glance that comes late says less than is known.
    view.readsSlowly = true;
    m_desk.Load(3, u"http://newer/", u"");
    view.readers.clear();
    m_desk.main.Reads().ReadNow(3);
    m_desk.Rest();
    ASSERT_EQ(view.readers.size(), 2U);
    view.readers[1](u"uhttp://newer/\npKnown whole");
    view.readers[0](u"uhttp://newer/\npKnown");
    EXPECT_EQ(Find(u"whole"), "3:Title of http://newer/|Known [whole]");
}

TEST_F(frmOpenPagesTest, WhereNothingIsRememberedPagesAreReadForTheSearchAlone) {
    HistoryOptions options;
    options.Nothing = true;
    m_desk.main.Reads().SetOptions(options);
    FakeView& view = m_desk.views.At(3);
    view.reads = view.glances = 0;
    m_desk.Load(3, u"http://new/", u"pA fresh word");
    m_desk.Rest();
    EXPECT_EQ(view.reads + view.glances, 0);
    m_desk.Click(u"xtrSearchOpenPages");
    EXPECT_EQ(view.glances, 1);
    EXPECT_EQ(Find(u"fresh"), "3:Title of http://new/|A [fresh] word");
    m_desk.Rest();
    EXPECT_EQ(view.reads, 1);
    EXPECT_EQ(m_desk.main.Reads().Find(3)->Passages.size(), 1U);
    EXPECT_EQ(m_desk.visits.Addresses().find(u"http://new/"), Text::npos);
}

// Letter by letter, each page that a shorter word did not find is passed over.
TEST_F(frmOpenPagesTest, TypingOnFindsWhatTheWholeWordFinds) {
    m_desk.Click(u"xtrSearchOpenPages");
    for (const TextView typed : {u"apples again", u"\"more apples\" and", u"pears-are", u"\"are red\"", u"nowhere"}) {
        std::string byLetters;
        for (std::size_t length = 1; length <= typed.size(); ++length) byLetters = Find(typed.substr(0, length));
        Find(u"");
        EXPECT_EQ(byLetters, Find(typed)) << ToUtf8(typed);
        Find(u"");
    }
}

TEST_F(frmOpenPagesTest, WhatAPageSaysAndIsCalledMeanwhileCounts) {
    m_desk.Click(u"xtrSearchOpenPages");
    EXPECT_EQ(Find(u"fresh"), "");
    m_desk.views.At(1).name = u"Fresh title";
    m_form.Show();
    EXPECT_EQ(Find(u"fresh"), "1:[Fresh] title");
    m_desk.Read(3, u"http://c/", u"pA fresh word");
    m_form.Show();
    EXPECT_EQ(Find(u"fresh"), "1:[Fresh] title|3:Title of http://c/|A [fresh] word");
    m_desk.Read(3, u"http://c/", u"pNothing any more");
    m_form.Show();
    EXPECT_EQ(Find(u"fresh"), "1:[Fresh] title");
}

TEST_F(frmOpenPagesTest, PrivatePagesAreSearchedAndNotRemembered) {
    m_desk.Click(u"xtrPrivateTab");
    m_desk.Read(4, u"http://p/", u"pPrivate matters");
    m_desk.Click(u"xtrSearchOpenPages");
    EXPECT_EQ(Find(u"matters"), "4:Title of http://p/|Private [matters]");
    for (const HistoryVisit& each : m_desk.visits.kept) EXPECT_NE(each.Address, u"http://p/");
}

} // namespace

} // namespace tessa
