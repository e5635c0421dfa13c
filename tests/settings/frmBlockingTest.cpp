// Tests: BlockingOutside, BlockingSettings, frmBlocking
#include "settings/frmBlocking.h"
#include "tests/fakes/FakeSettings.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tessa {

namespace {

BlockingListLine& LineOf(const frmBlocking& form, TextView chosen) {
    return **std::ranges::find(form.Lists, chosen, [](const auto& each) { return each->Chosen; });
}

struct GermanUser : BlockingOutside {
    Text OwnRules() override { return rules; }
    void KeepOwnRules(TextView kept) override { rules = kept; }
    Text StateOf(TextView chosen) override { return chosen == u"EasyList" ? Text(u"7 rules.") : Text(); }
    void Update(Told told) override { updates.push_back(std::move(told)); }
    std::vector<Text> Languages() override { return {u"de-DE"}; }
    Text rules = u"||a.example^\n";
    std::vector<Told> updates;
};

TEST(frmBlocking, LooksForNewerListsAndMayBeGoneBeforeTheyCome) {
    FakeSettings settings;
    GermanUser outside;
    EXPECT_FALSE(frmBlocking(settings, &outside, {}).cmdUpdate.Enabled()) << "nothing is to be updated while it is off";
    BlockingSettings(settings).Set({.on = true});
    {
        frmBlocking form(settings, &outside, {});
        EXPECT_EQ(LineOf(form, u"EasyList").lblState.Caption(), u"7 rules.");
        form.cmdUpdate.Click();
        EXPECT_EQ(form.lblUpdated.Caption(), u"Looking for newer lists...");
        ASSERT_EQ(outside.updates.size(), 1U);
        outside.updates[0](u"No list has changed.");
        EXPECT_EQ(form.lblUpdated.Caption(), u"No list has changed.");
    }
    outside.updates[0](u"too late");
}

TEST(frmBlocking, IsOffWithListsByDesign) {
    FakeSettings settings;
    GermanUser outside;
    const frmBlocking form(settings, &outside, {});
    EXPECT_FALSE(form.chkOn.Ticked());
    EXPECT_TRUE(LineOf(form, u"EasyList").chkList.Ticked());
    EXPECT_TRUE(LineOf(form, u"EasyList Germany").chkList.Ticked());
    EXPECT_FALSE(LineOf(form, u"Liste FR").chkList.Ticked());
    EXPECT_EQ(BlockingSettings(settings).Get(), BlockingValues());
}

TEST(frmBlocking, KeepsWhatWasChosen) {
    FakeSettings settings;
    GermanUser outside;
    {
        frmBlocking form(settings, &outside, [] { return Text(u"/home/a/list.txt"); });
        LineOf(form, u"EasyPrivacy").chkList.Tick(false);
        form.cmdAddFile.Click();
        EXPECT_TRUE(form.chkOn.Ticked()) << "who adds a list wants it used";
        form.txtOffSites.Value = Text(u"https://www.B.example/x\n\nbad host!\nc.example");
        form.txtOwnRules.Value = Text(u"||b.example^\n");
        form.Keep();
    }
    EXPECT_EQ(BlockingSettings(settings).Get(),
              (BlockingValues{.on = true,
                              .asked = true,
                              .lists = {u"EasyList", u"EasyList Germany", u"/home/a/list.txt"},
                              .offSites = {u"www.b.example", u"c.example"},
                              .listsChosen = true}));
    EXPECT_EQ(outside.rules, u"||b.example^\n");
    const frmBlocking again(settings, &outside, {});
    EXPECT_TRUE(LineOf(again, u"/home/a/list.txt").chkList.Ticked());
    EXPECT_EQ(again.txtOffSites.Value(), u"www.b.example\nc.example\n");
}

TEST(frmBlocking, SaysWhatIsNoList) {
    FakeSettings settings;
    frmBlocking form(settings, nullptr, {});
    const std::size_t before = form.Lists.size();
    for (const TextView bad : {TextView(u"http://a.example/x"), TextView(u"words"), TextView(u"")}) {
        form.txtOwnList.Value = Text(bad);
        form.cmdAddList.Click();
        EXPECT_FALSE(form.lblOwnListBad.Caption().empty()) << ToUtf8(bad);
    }
    form.txtOwnList.Value = Text(u" https://a.example/x ");
    form.cmdAddList.Click();
    EXPECT_EQ(form.lblOwnListBad.Caption(), u"");
    EXPECT_EQ(form.txtOwnList.Value(), u"");
    form.txtOwnList.Value = Text(u"https://a.example/x");
    form.cmdAddList.Click();
    EXPECT_EQ(form.Lists.size(), before + 1) << "the same list twice";
}

TEST(frmBlocking, MarksRulesThatCannotBeUnderstood) {
    FakeSettings settings;
    frmBlocking form(settings, nullptr, {});
    form.txtOwnRules.Value = Text(u"||a.example^\n/(/\n! words\n##p{}\n\n*\ntwo words\n");
    EXPECT_EQ(form.BadLines(), (std::vector<std::size_t>{1, 3, 5, 6}));
    EXPECT_EQ(form.lblOwnRulesBad.Caption(), u"Line 2: The regular expression cannot be used.\n"
                                             u"Line 4: The selector is not valid.\n"
                                             u"Line 6: The rule is about everything on every page.\nand 1 more");
    form.txtOwnRules.Value = Text(u"||a.example^");
    EXPECT_EQ(form.lblOwnRulesBad.Caption(), u"");
}

TEST(BlockingSettings, OffSitesHoldForTheirDomains) {
    const std::vector<Text> sites{u"a.example", u"127.0.0.1"};
    EXPECT_TRUE(IsOffSite(sites, u"https://www.a.example/x"));
    EXPECT_TRUE(IsOffSite(sites, u"http://127.0.0.1:81/"));
    EXPECT_FALSE(IsOffSite(sites, u"https://ba.example/"));
    EXPECT_FALSE(IsOffSite(sites, u"about:blank"));
    EXPECT_FALSE(IsOffSite({}, u"https://a.example/"));
    EXPECT_FALSE(IsOffSite({u""}, u"https://a.example/"));
}

} // namespace

} // namespace tessa
