// Tests: AddressSigns
#include "tabs/AddressSigns.h"
#include "tests/Desk.h"

namespace tessa {

namespace {

constexpr TextView kSite = u"https://site.example/", kBank = u"https://bank.example:8443/";

/// A user in front of a page that is secure, and that goes elsewhere.
class AddressTrust : public testing::Test {
protected:
    AddressTrust() {
        desk.StartWithTabs(2);
        desk.views.At(1).security = PageSecurity::Secure;
        desk.PageLoads(1, kSite, u"Site");
    }

    [[nodiscard]] const BoxSign& Sign() const { return desk.Combo(u"cboAddress").Sign(); }
    /// "text: picture", as the box shows them side by side.
    [[nodiscard]] std::string Box() const {
        const auto& box = desk.Combo(u"cboAddress");
        return ToUtf8(box.Value()) + ": " + ToUtf8(box.SignBeside(box.Value()).Image.Name);
    }
    [[nodiscard]] std::string Awaited(std::size_t position) const { return ToUtf8(desk.TabAt(position).Awaited()); }
    void Goes(std::int16_t index, TextView target) {
        desk.views.At(index).events.BeforeNavigate2(index, PageLevel::Top, target);
    }

    Desk desk;
};

TEST_F(AddressTrust, ATargetStandsAtOnceBesideASignThatNamesThePageStillShown) {
    Goes(1, kBank);
    EXPECT_EQ(Box(), "https://bank.example:8443/: chronometer");
    EXPECT_TRUE(Sign().Waiting);
    EXPECT_EQ(ToUtf8(Sign().Meaning), "Waiting for this page: what is shown is still https://site.example/");
    EXPECT_EQ(Awaited(1), "https://bank.example:8443/");
}

TEST_F(AddressTrust, ThePageThatHasComeGetsItsOwnSign) {
    Goes(1, kBank);
    desk.views.At(1).location = kBank;
    desk.views.At(1).security = PageSecurity::Exception;
    desk.views.At(1).events.NavigateComplete2(1, PageLevel::Top, kBank);
    EXPECT_EQ(Box(), "https://bank.example:8443/: security-medium");
    EXPECT_FALSE(Sign().Waiting);
    EXPECT_EQ(Awaited(1), "");
}

TEST_F(AddressTrust, NothingThatAFrameDoesGivesTheTargetTheSignOfThePageShown) {
    Goes(1, kBank);
    auto& events = desk.views.At(1).events;
    events.BeforeNavigate2(1, PageLevel::Frame, u"https://frame.example/");
    events.NavigateComplete2(1, PageLevel::Frame, u"https://frame.example/");
    events.DocumentComplete(1, PageLevel::Frame, u"https://frame.example/");
    events.NavigationDropped(1);
    events.SecurityChange(1);
    EXPECT_EQ(Box(), "https://bank.example:8443/: chronometer");
    EXPECT_EQ(Awaited(1), "https://bank.example:8443/");
}

TEST_F(AddressTrust, WhatNeverComesLeavesTheBoxToThePageShown) {
    Goes(1, kBank);
    desk.views.At(1).events.NavigationOverdue(1);
    EXPECT_EQ(Box(), "https://site.example/: security-high");
    EXPECT_EQ(Awaited(1), "");
    Goes(1, kBank);
    desk.views.At(1).events.DocumentComplete(1, PageLevel::Top, kSite);
    EXPECT_EQ(Box(), "https://site.example/: security-high") << "it was stopped, or became a download";
    EXPECT_EQ(Awaited(1), "");
}

TEST_F(AddressTrust, ATabBehindThatGoesElsewhereComesBackWithItsOwnAddressAndSign) {
    desk.ClickTab(2);
    Goes(1, kBank);
    EXPECT_EQ(Box(), "about:blank: ");
    EXPECT_EQ(Awaited(1), "https://bank.example:8443/") << "its tab says so all the same";
    desk.views.At(1).events.NavigationOverdue(1);
    EXPECT_EQ(Box(), "about:blank: ") << "what happens behind is not shown in front";
    Goes(1, kBank);
    desk.ClickTab(1);
    EXPECT_EQ(Box(), "https://site.example/: security-high");
}

TEST_F(AddressTrust, WhatIsKnownLaterOfThePageShownIsShown) {
    desk.views.At(1).security = PageSecurity::None;
    desk.views.At(1).events.SecurityChange(1);
    EXPECT_EQ(Box(), "https://site.example/: ");
    desk.ClickTab(2);
    desk.views.At(1).security = PageSecurity::Secure;
    desk.views.At(1).events.SecurityChange(1);
    EXPECT_EQ(Box(), "about:blank: ");
}

TEST_F(AddressTrust, AnAddressThatTheViewDoesNotGoByHasNoSign) {
    desk.views.At(1).events.NavigateComplete2(1, PageLevel::Top, kBank);
    EXPECT_EQ(Box(), "https://bank.example:8443/: ");
}

TEST_F(AddressTrust, AViewThatHasShownNothingYetWaitsForItsAddress) {
    desk.views.At(2).location = kBank;
    desk.views.At(2).security = PageSecurity::Awaited;
    desk.ClickTab(2);
    EXPECT_EQ(Box(), "https://bank.example:8443/: chronometer");
    EXPECT_TRUE(Sign().Waiting);
    EXPECT_EQ(ToUtf8(Sign().Meaning), "Waiting for this page: nothing of it is shown yet");
    Goes(2, kBank);
    EXPECT_EQ(ToUtf8(Sign().Meaning), "Waiting for this page: nothing of it is shown yet");
}

TEST_F(AddressTrust, WhatIsTypedStandsBesideNoSignOfThePage) {
    auto& box = desk.Combo(u"cboAddress");
    box.Value = Text(kBank);
    EXPECT_EQ(Box(), "https://bank.example:8443/: document-edit");
    desk.Press(u"cboAddress", {Keys::kEscape, 0});
    EXPECT_EQ(Box(), "https://site.example/: security-high");
    desk.TypeAddress(kBank);
    EXPECT_EQ(Box(), "https://bank.example:8443/: document-edit") << "until the view goes there";
}

TEST_F(AddressTrust, EscapeTakesATargetThatIsStillAwaitedBackToThePageShown) {
    Goes(1, kBank);
    desk.Press(u"cboAddress", {Keys::kEscape, 0});
    EXPECT_EQ(Box(), "https://site.example/: security-high");
}

TEST_F(AddressTrust, ASignTellsWhereTheHostStands) {
    const auto host = [&](TextView address) {
        desk.PageBegins(1, address);
        const TextSelection place = Sign().Weight;
        return ToUtf8(address.substr(place.Start, place.Length));
    };
    EXPECT_EQ(host(u"https://bank.example.evil.example:80/a"), "bank.example.evil.example");
    EXPECT_EQ(host(u"view-source:http://site.example/"), "site.example");
    EXPECT_EQ(host(u"about:blank"), "");
}

TEST_F(AddressTrust, ALongAddressOfThePageShownIsCutInTheTip) {
    desk.views.At(1).location = u"https://site.example/" + Text(5000, u'a') + u"\u202E";
    Goes(1, kBank);
    EXPECT_LT(Sign().Meaning.size(), 300U);
}

} // namespace

} // namespace tessa
