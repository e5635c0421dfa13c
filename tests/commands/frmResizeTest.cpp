#include "commands/frmResize.h"

#include "commands/DesignTimeBar.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

class frmResizeTest : public testing::Test {
protected:
    CommandBar m_bar;
    frmResize m_form{m_bar};
    int m_layouts = 0;

    void SetUp() override {
        DesignTimeBar::Make(m_bar);
        m_bar.FindCombo(u"cboAddress")->Width = Pixels{500};
        m_bar.FindCombo(u"cboSearch")->Width = Pixels{200};
        m_bar.LayoutWanted.ConnectForLife([this] { ++m_layouts; });
    }

    /// The widths of the address box and the search box.
    [[nodiscard]] std::string Widths() const {
        return std::to_string(m_bar.FindCombo(u"cboAddress")->Width().value) + " " +
               std::to_string(m_bar.FindCombo(u"cboSearch")->Width().value);
    }
};

TEST_F(frmResizeTest, HasTheStepsFromLeftToRight) {
    std::string captions;
    for (const Button& each : m_form.cmdResize) captions += ToUtf8(each.Caption()) + " ";
    EXPECT_EQ(captions, "-100 -25 -10 -1 +1 +10 +25 +100 ");
    EXPECT_EQ(m_form.cmdClose.Caption(), u"&Close");
    EXPECT_EQ(m_form.Caption, u"Resize");
    EXPECT_EQ(m_form.Font, u"Tahoma");
}

TEST_F(frmResizeTest, EachStepAddsItsCaptionsValueAtOnce) {
    m_form.ResizeAddress();
    const std::array<std::string, 8> widths{"400", "375", "365", "364", "365", "375", "400", "500"};
    for (std::size_t i = 0; i < widths.size(); ++i) {
        m_form.cmdResize.at(i).Click();
        EXPECT_EQ(Widths(), widths.at(i) + " 200");
    }
    EXPECT_EQ(m_layouts, 8);
}

TEST_F(frmResizeTest, TheCaptionIsTheData) {
    m_form.ResizeAddress();
    m_form.cmdResize[0].Caption = u" +7.5 ";
    m_form.cmdResize[0].Click();
    EXPECT_EQ(Widths(), "508 200");
    m_form.cmdResize[0].Caption = u"much";
    m_form.cmdResize[0].Click();
    EXPECT_EQ(Widths(), "508 200");
}

TEST_F(frmResizeTest, ANarrowBoxStopsAtWidthZero) {
    m_form.ResizeSearch();
    for (int i = 0; i < 4; ++i) m_form.cmdResize[0].Click();
    EXPECT_EQ(Widths(), "500 0");
    m_form.cmdResize[4].Click();
    EXPECT_EQ(Widths(), "500 1");
}

TEST_F(frmResizeTest, TheWidestBoxStaysAsWideAsItIs) {
    m_bar.FindCombo(u"cboSearch")->Width = Pixels{INT32_MAX};
    m_form.ResizeSearch();
    m_form.cmdResize[7].Click();
    EXPECT_EQ(m_bar.FindCombo(u"cboSearch")->Width().value, INT32_MAX);
}

TEST_F(frmResizeTest, EachModeChangesItsOwnBoxOnly) {
    m_form.ResizeSearch();
    m_form.cmdResize[7].Click();
    EXPECT_EQ(Widths(), "500 300");
    m_form.ResizeAddress();
    m_form.cmdResize[7].Click();
    EXPECT_EQ(Widths(), "600 300");
}

TEST_F(frmResizeTest, ClosingHidesTheFormAndKeepsTheWidth) {
    m_form.ResizeAddress();
    m_form.Form.Visible = true;
    m_form.cmdResize[6].Click();
    m_form.cmdClose.Click();
    EXPECT_FALSE(m_form.Form.Visible());
    EXPECT_EQ(Widths(), "525 200");
}

TEST_F(frmResizeTest, WithoutItsBoxAStepDoesNothing) {
    CommandBar bar;
    const auto* search = bar.Add(std::make_unique<ComboTool>(1, u"cboSearch"));
    int layouts = 0;
    bar.LayoutWanted.ConnectForLife([&] { ++layouts; });
    frmResize form(bar);
    form.ResizeAddress();
    form.cmdResize[7].Click();
    EXPECT_EQ(search->Width().value, 240) << "the other box is not meant";
    EXPECT_EQ(layouts, 0);
    form.ResizeSearch();
    form.cmdResize[7].Click();
    EXPECT_EQ(search->Width().value, 340);
    EXPECT_EQ(layouts, 1);
}

} // namespace

} // namespace tessa
