#include "groups/TessaGroups.h"
#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace tessa {

namespace {

class GroupsUpdate : public testing::Test {
protected:
    /// What becomes of a group's file.
    std::string Update(const std::string& before, const TessaGroups::Updated& group,
                       const TessaGroups::ChangesPlan& change = {}) {
        folder.Write("a.tvg", before);
        EXPECT_EQ(TessaGroups::Update(folder.PathText("a.tvg"), group, change), Outcome::Done);
        return folder.Read("a.tvg");
    }
    TemporaryFolder folder;
};

TEST_F(GroupsUpdate, WhatIsTakenOutLeavesTheOthersAndTheirComments) {
    EXPECT_EQ(
        Update("; mine\r\n[TessaGroup]\r\n; first\r\nurl1=http://a/\r\n; second\r\nmail=\"http://b/\"\r\nurl3=c\r\n"
               "[Other]\r\nx=1\r\n",
               {.Addresses = {u"http://b/", u"c"}}),
        "; mine\r\n[TessaGroup]\r\n; first\r\n; second\r\nmail=\"http://b/\"\r\nurl3=c\r\n[Other]\r\nx=1\r\n");
}

TEST_F(GroupsUpdate, WhatIsNewComesBehindTheOthers) {
    EXPECT_EQ(Update("[TessaGroup]\nURL2=a\n; end\n[Other]\nx=1\n", {.Addresses = {u"a", u"b", u"c"}}),
              "[TessaGroup]\nURL2=a\nurl1=b\r\nurl3=c\r\n; end\n[Other]\nx=1\n");
}

TEST_F(GroupsUpdate, WhatTakesThePlaceOfAnAddressHasItsKeyAndItsPlan) {
    EXPECT_EQ(Update("[TessaGroup]\r\nu=a\r\nv=b\r\nw=c\r\n[TessaView]\r\ncolour=red\r\npage1=muted,size4 b\r\n",
                     {.Addresses = {u"a", u"new", u"c"}, .Renamed = {{u"b", u"new"}}}),
              "[TessaGroup]\r\nu=a\r\nv=new\r\nw=c\r\n[TessaView]\r\ncolour=red\r\npage1=muted,size4 new\r\n");
}

TEST_F(GroupsUpdate, AnotherOrderGoesIntoTheSameKeys) {
    EXPECT_EQ(Update("[TessaGroup]\r\nu=a\r\n; two\r\nv=b\r\nw=c\r\n", {.Addresses = {u"c", u"a"}}),
              "[TessaGroup]\r\nu=c\r\n; two\r\nw=a\r\n");
    EXPECT_EQ(
        Update("[TessaGroup]\r\nu=a\r\nv=b\r\n[TessaView]\r\npage1=first b\r\n", {.Addresses = {u"b", u"a", u"c"}}),
        "[TessaGroup]\r\nu=a\r\nv=b\r\nurl1=c\r\n[TessaView]\r\npage1=first b\r\n")
        << "it opens in that order already";
}

TEST_F(GroupsUpdate, WhatIsKeptStaysWhereItStands) {
    EXPECT_EQ(Update("[TessaGroup]\r\nu=a\r\nv=javascript:x\r\nw=c\r\n",
                     {.Addresses = {u"c", u"a"}, .Kept = {u"javascript:x"}}),
              "[TessaGroup]\r\nu=c\r\nv=javascript:x\r\nw=a\r\n");
}

TEST_F(GroupsUpdate, KeysOfOneNameBecomeSeveral) {
    EXPECT_EQ(Update("[TessaGroup]\r\nurl=a\r\nURL=b\r\n", {.Addresses = {u"a", u"b"}}),
              "[TessaGroup]\r\nurl1=a\r\nurl2=b\r\n");
}

TEST_F(GroupsUpdate, ColoursAreWrittenAndWhatBelongsToOthersStays) {
    const auto blue = [](GroupPlan& plan, const std::vector<Text>&) { plan.colour = u"blue"; };
    EXPECT_EQ(Update("[TessaGroup]\r\nu=a\r\n", {.Addresses = {u"a"}}, blue),
              "[TessaGroup]\r\nu=a\r\n[TessaView]\r\ncolour=blue\r\n");
    EXPECT_EQ(Update("[TessaView]\r\nlater=1\r\ncolour=red\r\n[TessaGroup]\r\nu=a\r\n", {.Addresses = {u"a"}}, blue),
              "[TessaView]\r\nlater=1\r\ncolour=blue\r\n[TessaGroup]\r\nu=a\r\n");
}

TEST_F(GroupsUpdate, AFileThatIsGoneIsMadeAndOneThatCannotBeReadStays) {
    EXPECT_EQ(TessaGroups::Update(folder.PathText("new.tvg"), {.Addresses = {u"a", u"\u05d0"}}), Outcome::Done);
    EXPECT_EQ(folder.Read("new.tvg"), "[TessaGroup]\r\nurl1=a\r\nurl2=\xD7\x90\r\n");
    EXPECT_EQ(TessaGroups::Update(folder.PathText("none/new.tvg"), {.Addresses = {u"a"}}), Outcome::Failed);
    EXPECT_EQ(TessaGroups::Update(folder.PathText("new.tvg"), {}), Outcome::Failed) << "nothing is no group";
    EXPECT_EQ(folder.Read("new.tvg"), "[TessaGroup]\r\nurl1=a\r\nurl2=\xD7\x90\r\n");
    const std::string large = "[TessaGroup]\r\nu=a\r\n;" + std::string(std::size_t{9} << 20, 'x');
    folder.Write("large.tvg", large);
    EXPECT_EQ(TessaGroups::Update(folder.PathText("large.tvg"), {.Addresses = {u"b"}}), Outcome::Failed);
    EXPECT_EQ(folder.Read("large.tvg"), large);
}

TEST_F(GroupsUpdate, OfMoreKeysThanAGroupCanReadTheRestStays) {
    std::string file = "[TessaGroup]\r\n";
    for (int i = 1; i <= 3000; ++i) file += "address" + std::to_string(i) + "=http://" + std::to_string(i) + "/\r\n";
    folder.Write("long.tvg", file);
    std::vector<Text> addresses;
    for (const auto& each : TessaGroups::Load(folder.PathText("long.tvg"))) addresses.push_back(each.Key);
    ASSERT_LT(addresses.size(), 2000U);
    const std::size_t read = addresses.size();
    addresses.erase(addresses.begin());
    EXPECT_EQ(TessaGroups::Update(folder.PathText("long.tvg"), {.Addresses = addresses}), Outcome::Done);
    const std::string after = folder.Read("long.tvg");
    EXPECT_EQ(after.find("address1="), std::string::npos);
    EXPECT_NE(after.find("address" + std::to_string(read + 1) + "="), std::string::npos);
    EXPECT_NE(after.find("address3000=http://3000/\r\n"), std::string::npos);
}

} // namespace

} // namespace tessa
