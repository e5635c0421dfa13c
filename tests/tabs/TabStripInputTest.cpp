#include "tests/Desk.h"

namespace tessa {

namespace {

/// A strip whose tabs are 100 pixels wide.
class TabStripInputTest : public testing::Test, protected TabStripInput::Places {
protected:
    void Start(int tabs) {
        desk.StartWithTabs(tabs);
        for (int i = 1; i <= tabs; ++i) desk.views.Calls(i);
        desk.Bar().PopupWanted.ConnectForLife([this](Band& band) { popups += ToUtf8(band.Name()) + ";"; });
    }

    int HitTest(Pixels x, Pixels y) override {
        asked = std::to_string(x.value) + "," + std::to_string(y.value);
        const auto count = static_cast<int>(desk.CountTabs());
        return x.value >= 0 && x.value / 100 < count ? x.value / 100 : -1;
    }

    std::string PopupTools() {
        std::string all;
        for (const TextView name : {u"mnuTabStop", u"mnuTabRefresh"})
            if (desk.Tool(name).Enabled()) all += ToUtf8(name) + ";";
        return all;
    }

    Desk desk;
    std::string asked, popups;
    TabStripInput& input = desk.main.StripInput();
};

TEST_F(TabStripInputTest, TheRightButtonOpensThePopupForABusyBackgroundTab) {
    Start(3);
    desk.views.At(2).busy = true;
    input.MouseDown(MouseButton::Right, Twips{150 * 15}, Twips{10 * 15}, *this);
    EXPECT_EQ(asked, "150,10");
    EXPECT_EQ(input.PopupTabPosition, 2u);
    EXPECT_EQ(PopupTools(), "mnuTabStop;");
    EXPECT_EQ(popups, "bndTabPopup;");
    EXPECT_EQ(desk.Strip(), "[1*] 2 3") << "it is not selected";
    desk.views.At(2).busy = false;
    input.MouseDown(MouseButton::Right, Twips{150 * 15}, Twips{0}, *this);
    EXPECT_EQ(PopupTools(), "mnuTabRefresh;");
}

TEST_F(TabStripInputTest, OtherButtonsAndTheEmptyPartShowNoPopup) {
    Start(2);
    input.MouseDown(MouseButton::Left, Twips{0}, Twips{0}, *this);
    input.MouseDown(MouseButton::Middle, Twips{0}, Twips{0}, *this);
    EXPECT_EQ(asked, "");
    input.MouseDown(MouseButton::Right, Twips{900 * 15}, Twips{0}, *this);
    EXPECT_EQ(input.PopupTabPosition, 0u);
    EXPECT_EQ(popups, "");
}

TEST_F(TabStripInputTest, PointsAreRounded) {
    Start(2);
    input.MouseDown(MouseButton::Right, Twips{1507}, Twips{8}, *this);
    EXPECT_EQ(asked, "100,1");
    input.OLEDragOver(true, 99.6, 0.2, *this);
    EXPECT_EQ(asked, "100,0");
}

TEST_F(TabStripInputTest, TheDragPointIsNotConvertedFromTwips_Deliberate) {
    Start(2);
    input.OLEDragOver(true, 150, 3, *this);
    EXPECT_EQ(asked, "150,3");
    EXPECT_EQ(input.DropTabPosition, 2u);
}

TEST_F(TabStripInputTest, TextDroppedOnTheSelectedTabOpensANewTab) {
    Start(2);
    desk.Set(u"OpenNewInFront", u"false");
    input.OLEDragOver(true, 10, 5, *this);
    input.OLEDragDrop(u" some text ");
    EXPECT_EQ(desk.Strip(), "[1*] 3 2");
    EXPECT_EQ(desk.views.Calls(3), "go about:blank, go  some text ") << "as it comes";
    desk.Set(u"OpenNewInFront", u"true");
    input.OLEDragDrop(u"http://a/");
    EXPECT_EQ(desk.Strip(), "1 [4*] 3 2");
}

TEST_F(TabStripInputTest, TextDroppedOnAnotherTabIsLoadedThereWithoutSelectingIt) {
    Start(2);
    input.OLEDragOver(true, 150, 5, *this);
    input.OLEDragDrop(u"http://a/");
    EXPECT_EQ(desk.views.Calls(2), "go http://a/");
    EXPECT_EQ(desk.Strip(), "[1*] 2");
}

TEST_F(TabStripInputTest, TextDroppedOnNoTabOpensANewTab) {
    Start(2);
    input.OLEDragOver(true, 950, 5, *this);
    input.OLEDragDrop(u"http://a/");
    EXPECT_EQ(desk.Strip(), "1 [3*] 2");
}

TEST_F(TabStripInputTest, TextIsLoadedAsItComesHoweverLongAndWithItsLines) {
    Start(2);
    input.OLEDragOver(true, 150, 5, *this);
    const Text lines = u"http://a/\r\nhttp://b/\n" + Text(10'000'000, u'x');
    input.OLEDragDrop(lines);
    EXPECT_TRUE(desk.views.Calls(2) == "go " + ToUtf8(lines));
    EXPECT_EQ(desk.Strip(), "[1*] 2");
}

TEST_F(TabStripInputTest, DataWithoutTextChangesNothing) {
    Start(2);
    input.OLEDragOver(true, 150, 5, *this);
    input.OLEDragOver(false, 10, 5, *this);
    EXPECT_EQ(input.DropTabPosition, 2u);
    input.OLEDragDrop(std::nullopt);
    EXPECT_EQ(desk.Strip(), "[1*] 2");
    EXPECT_EQ(desk.views.Calls(2), "");
}

} // namespace

} // namespace tessa
