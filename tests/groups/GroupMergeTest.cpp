#include "groups/GroupMerge.h"

#include "base/Address.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using GroupMerge::Compared;
using GroupMerge::Standing;

TEST(GroupMerge, AddressesOfOnePageHaveItInCommon) {
    struct Row {
        TextView address, page;
    };
    for (const auto& [address, page] : {
             Row{u"http://a.example", u"http://a.example"},
             Row{u"http://a.example/", u"http://a.example"},
             Row{u"HTTP://WWW.A.Example/", u"http://a.example"},
             Row{u"http://www.a.example/News/#top", u"http://a.example/News"},
             Row{u"http://a.example/#", u"http://a.example"},
             Row{u"http://a.example/?q=1#x", u"http://a.example?q=1"},
             Row{u"http://a.example/b/?q=/", u"http://a.example/b?q=/"},
             Row{u"http://a.example/#!/inbox", u"http://a.example#!/inbox"},
             Row{u"http://a.example/#/inbox", u"http://a.example#/inbox"},
             Row{u"http://a.example//", u"http://a.example/"},
             Row{u"http://user@www.a.example/", u"http://user@www.a.example"},
             Row{u"http://a.example#www.", u"http://a.example"},
             Row{u"/home/me/a.html#part", u"/home/me/a.html"},
             Row{u"about:blank", u"about:blank"},
             Row{u"mailto:a@b", u"mailto:a@b"},
             Row{u"http://", u"http://"},
             Row{u"://", u"://"},
             Row{u"#", u""},
             Row{u"", u""},
         })
        EXPECT_EQ(Address::PageOf(address), page) << ToUtf8(address);
}

TEST(GroupMerge, WhatMakesADifferenceStays) {
    for (const auto& [one, other] :
         {std::pair{u"http://a/", u"https://a/"}, std::pair{u"http://a/B", u"http://a/b"},
          std::pair{u"http://a/?x", u"http://a/"}, std::pair{u"http://a:8080/", u"http://a/"},
          std::pair{u"http://a/#!/x", u"http://a/"}})
        EXPECT_NE(Address::PageOf(one), Address::PageOf(other)) << ToUtf8(one);
}

TEST(GroupMerge, ThoseHereComeFirstInTheirOrder) {
    const std::vector<Compared> expected{
        {u"http://a/", Standing::Both},     {u"http://b/", Standing::Alike, u"http://www.b/#x"},
        {u"http://c/", Standing::OnlyHere}, {u"http://a/#top", Standing::Again, u"http://a/"},
        {u"http://c/", Standing::Again},    {u"http://d/", Standing::OnlyThere},
        {u"http://e/", Standing::OnlyThere}};
    EXPECT_EQ(GroupMerge::Compare({u"http://a/", u"http://b/", u"http://c/", u"http://a/#top", u"http://c/"},
                                  {u"http://d/", u"http://www.b/#x", u"http://a/", u"http://e/", u"http://d"}),
              expected);
}

TEST(GroupMerge, TheSpellingThatBothHaveCountsMoreThanOneThatIsAlike) {
    const std::vector<Compared> expected{{u"http://a/", Standing::Both}};
    EXPECT_EQ(GroupMerge::Compare({u"http://a/"}, {u"http://www.a/", u"http://a/"}), expected);
}

TEST(GroupMerge, EmptyListsAndEmptyAddresses) {
    EXPECT_TRUE(GroupMerge::Compare({}, {}).empty());
    EXPECT_EQ(GroupMerge::Compare({u""}, {u"", u"http://a/"}),
              (std::vector<Compared>{{u"", Standing::Both}, {u"http://a/", Standing::OnlyThere}}));
}

} // namespace

} // namespace tessa
