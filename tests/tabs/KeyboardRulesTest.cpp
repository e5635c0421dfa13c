#include "tests/Desk.h"

namespace tessa {

namespace {

constexpr TextView kPage = u"http://page.example/", kFrame = u"http://frame.example/";

/// A user who types into a box while the page in front, and frames of it, load.
class KeyboardRules : public testing::Test {
protected:
    KeyboardRules() {
        desk.Start();
        desk.PageLoads(1, kPage, u"Page");
        Taken();
    }

    /// Whether the page has taken the keyboard since this was asked last.
    bool Taken() { return std::exchange(desk.views.focused, 0) == 1; }
    void StartsTyping() { desk.Bar().SetEdited(desk.Bar().FindCombo(u"cboSearch")); }
    void StopsTyping() { desk.Bar().SetEdited(nullptr); }
    bool FrameLoads() {
        auto& events = desk.views.At(1).events;
        events.BeforeNavigate2(1, PageLevel::Frame, kFrame);
        events.NavigateComplete2(1, PageLevel::Frame, kFrame);
        events.DocumentComplete(1, PageLevel::Frame, kFrame);
        return Taken();
    }
    void Begins() { desk.views.At(1).events.BeforeNavigate2(1, PageLevel::Top, kPage); }
    bool Moves() {
        desk.views.At(1).events.NavigateComplete2(1, PageLevel::Top, kPage);
        return Taken();
    }
    bool Completes() {
        desk.views.At(1).events.DocumentComplete(1, PageLevel::Top, kPage);
        return Taken();
    }

    Desk desk;
};

TEST_F(KeyboardRules, ACompletedDocumentTakesTheKeyboardFromWhoeverTypes) {
    StartsTyping();
    Begins();
    EXPECT_TRUE(Moves());
    EXPECT_TRUE(Completes());
}

TEST_F(KeyboardRules, AFrameTakesItOnceForEachNavigationOfThePage) {
    EXPECT_TRUE(FrameLoads());
    EXPECT_FALSE(FrameLoads());
    EXPECT_FALSE(FrameLoads());
    Begins();
    Moves();
    EXPECT_TRUE(FrameLoads());
    EXPECT_FALSE(FrameLoads());
}

TEST_F(KeyboardRules, AFrameNeverTakesItFromWhoTypesOrHasTypedSince) {
    StartsTyping();
    EXPECT_FALSE(FrameLoads());
    StopsTyping();
    EXPECT_FALSE(FrameLoads()) << "the user has typed since the page began to load";
    Begins();
    Moves();
    desk.Bar().NoteTyped();
    EXPECT_FALSE(FrameLoads()) << "into a box that is none of the bar's";
}

TEST_F(KeyboardRules, AnAddressThatOnlyChangesTakesItFromNobodyWhoTypes) {
    EXPECT_TRUE(Moves()) << "nobody does";
    StartsTyping();
    EXPECT_FALSE(Moves());
    EXPECT_FALSE(Moves());
}

TEST_F(KeyboardRules, OneNavigationTakesItOnceForItsAddressAndOnceForItsDocument) {
    StartsTyping();
    Begins();
    EXPECT_TRUE(Moves());
    EXPECT_FALSE(Moves()) << "what the page does to its address while it loads";
    EXPECT_TRUE(Completes());
    EXPECT_FALSE(Completes());
}

TEST_F(KeyboardRules, APageBehindTakesNothing) {
    desk.NewTab(InFront::Yes);
    desk.views.focused = 0;
    Begins();
    EXPECT_FALSE(Moves());
    EXPECT_FALSE(Completes());
    EXPECT_FALSE(FrameLoads());
}

} // namespace

} // namespace tessa
