#include "tabs/OpenTabs.h"

#include "tests/fakes/FakeViews.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tessa {

namespace {

/// Nobody listens to these views.
struct UnheardEvents : BrowserViewEvents {
    void StatusTextChange(std::int16_t, TextView) override {}
    void CommandStateChange(std::int16_t, HistoryCommand, bool) override {}
    void DownloadBegin(std::int16_t) override {}
    void DownloadComplete(std::int16_t) override {}
    void TitleChange(std::int16_t, TextView) override {}
    void BeforeNavigate2(std::int16_t, PageLevel, TextView) override {}
    BrowserView* NewWindow2(std::int16_t, NewWindowPlace) override { return nullptr; }
    void NavigateComplete2(std::int16_t, PageLevel, TextView) override {}
    void DocumentComplete(std::int16_t, PageLevel, TextView) override {}
    void NavigationOverdue(std::int16_t) override {}
    void SecurityChange(std::int16_t) override {}
    void NavigationDropped(std::int16_t) override {}
    void AttentionChange(std::int16_t, bool) override {}
    void ContextMenu(std::int16_t, const PageContext&) override {}
    void WindowClosing(std::int16_t) override {}
    void SoundChange(std::int16_t) override {}
};

class OpenTabsTest : public testing::Test {
protected:
    Tab& Add(std::int32_t index) {
        Tab* tab = m_strip.Add(0, u"Tab" + Decimal(index));
        tab->Tag = index;
        return *tab;
    }
    /// "position:index" of each, with a star where there is a view.
    [[nodiscard]] std::string All() {
        std::string all;
        for (const OpenTab open : OpenTabs(m_strip, m_browser))
            all += (all.empty() ? "" : " ") + std::to_string(open.Position) + ':' + std::to_string(open.Index()) +
                   (open.View ? "*" : "");
        return all;
    }

    FakeViews m_views;
    UnheardEvents m_events;
    ViewArray m_browser{m_views, m_events};
    TabStrip m_strip;
};

TEST_F(OpenTabsTest, ComeInTheOrderOfTheStrip) {
    EXPECT_EQ(All(), "");
    Add(1);
    Add(2);
    m_strip.Move(&Add(3), 1);
    m_browser.Load(3);
    EXPECT_EQ(All(), "1:3* 2:1* 3:2");
}

TEST_F(OpenTabsTest, WithoutAViewATabShowsNothing) {
    Add(2);
    const OpenTab open = *OpenTabs(m_strip, m_browser).begin();
    EXPECT_EQ(open.View, nullptr);
    EXPECT_EQ(open.Address(), u"");
    EXPECT_FALSE(open.Private());
    EXPECT_EQ(open.Life(), nullptr);
}

TEST_F(OpenTabsTest, ATabTellsOfItsView) {
    Add(2);
    m_browser.Load(2, Privacy::Private);
    m_views.At(2).location = u"http://one/";
    const OpenTab open = *OpenTabs(m_strip, m_browser).begin();
    EXPECT_EQ(open.Address(), u"http://one/");
    EXPECT_TRUE(open.Private());
    EXPECT_NE(open.Life(), nullptr);
    EXPECT_TRUE(std::ranges::any_of(OpenTabs(m_strip, m_browser), &OpenTab::Private));
}

TEST_F(OpenTabsTest, MayComeAndGoMeanwhile) {
    for (const std::int32_t index : {1, 2, 3, 4}) Add(index);
    std::string seen;
    for (const OpenTab open : OpenTabs(m_strip, m_browser)) {
        seen += std::to_string(open.Index()) + ' ';
        if (open.Index() == 1) Add(5);
        if (open.Index() == 3) {
            m_strip.Remove(m_strip.FindAt(5));
            m_strip.Remove(m_strip.FindAt(4));
        }
    }
    EXPECT_EQ(seen, "1 2 3 ");
}

} // namespace

} // namespace tessa
