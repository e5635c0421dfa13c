#include "pages/DecidedSites.h"
#include "tests/fakes/FakeSettings.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

class DecidedSitesTest : public testing::Test {
protected:
    DecidedSitesTest() {
        permissions.Remember({u"https://b.example", SitePermission::Camera, true});
        permissions.Remember({u"https://a.example", SitePermission::Popups, false});
        permissions.Remember({u"https://b.example", SitePermission::Location, false});
        programs.Remember(u"xmpp", u"c.example", true);
        programs.Remember(u"irc", u"", false);
        permissions.Forgotten.ConnectForLife([this](const SiteDecision& each) {
            forgotten += ToUtf8(each.Site) + " " + ToUtf8(SitePermissions::Wish(each.Permission)) + "; ";
        });
    }
    [[nodiscard]] std::string Words() const {
        std::string all;
        for (const SiteChoice& each : choices.All()) all += ToUtf8(each.Words) + "\n";
        return all;
    }

    FakeSettings settings;
    SitePermissions permissions{settings};
    ExternalSchemes programs;
    SiteChoices choices = DecidedSites(permissions, programs);
    std::string forgotten;
};

TEST_F(DecidedSitesTest, AreToldInWordsSiteBySite) {
    EXPECT_EQ(Words(), "https://a.example may not open windows\n"
                       "https://b.example may use your camera\n"
                       "https://b.example may not know where you are\n"
                       "What you type may not open \"irc:\" with another program (until TessaView is closed)\n"
                       "c.example may open \"xmpp:\" with another program (until TessaView is closed)\n");
}

TEST_F(DecidedSitesTest, AreRevokedOneByOne) {
    choices.All().at(1).Revoke();
    EXPECT_EQ(permissions.Find(u"https://b.example", SitePermission::Camera), std::nullopt);
    EXPECT_EQ(permissions.Find(u"https://b.example", SitePermission::Location), false);
    EXPECT_EQ(forgotten, "https://b.example use your camera; ");
    choices.All().back().Revoke();
    EXPECT_EQ(programs.RuleFor(u"xmpp", u"c.example"), ExternalRule::Ask);
    EXPECT_EQ(programs.RuleFor(u"irc", u""), ExternalRule::Refuse);
    EXPECT_EQ(choices.All().size(), 3U);
}

TEST_F(DecidedSitesTest, AreRevokedTwiceWithoutHarm) {
    const auto all = choices.All();
    all.at(0).Revoke();
    all.at(0).Revoke();
    EXPECT_EQ(choices.All().size(), 4U);
    EXPECT_EQ(forgotten, "https://a.example open windows; ");
}

TEST_F(DecidedSitesTest, AreRevokedAllTogether) {
    choices.RevokeAll();
    EXPECT_EQ(Words(), "");
    EXPECT_EQ(forgotten, "https://b.example use your camera; https://a.example open windows; "
                         "https://b.example know where you are; ");
}

} // namespace

} // namespace tessa
