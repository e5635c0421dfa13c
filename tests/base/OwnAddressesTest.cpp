#include "base/OwnAddresses.h"

#include "base/Schemes.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using OwnAddresses::Page;

TEST(OwnAddresses, AreAllOfTheProgramsOwnScheme) {
    EXPECT_EQ(KindOfScheme(OwnAddresses::kScheme), SchemeKind::Own);
    EXPECT_EQ(OwnAddresses::kPrefix, Text(OwnAddresses::kScheme) + u":");
    for (const TextView each :
         {OwnAddresses::kStart, OwnAddresses::kHelp, OwnAddresses::kPrivate, OwnAddresses::kPreviews,
          OwnAddresses::kHistory, OwnAddresses::kOpenGroup, OwnAddresses::kSearchForm, OwnAddresses::kSearchWords})
        EXPECT_TRUE(each.starts_with(OwnAddresses::kPrefix)) << ToUtf8(each);
}

TEST(OwnAddresses, NameTheirPages) {
    struct Row {
        TextView path;
        Page page;
    };
    for (const Row& row : {
             Row{u"start", Page::Start},
             Row{u"help", Page::Help},
             Row{u"private", Page::Private},
             Row{u"history", Page::History},
             Row{u"history/x", Page::None},
             Row{u"preview/1/A page", Page::Preview},
             Row{u"preview/", Page::Preview},
             Row{u"preview", Page::None},
             Row{u"", Page::None},
             Row{u"Start", Page::None},
             Row{u"start/", Page::None},
             Row{u"help.html", Page::None},
             Row{u"group", Page::None},
             Row{u"search", Page::None},
         })
        EXPECT_EQ(OwnAddresses::PageAt(row.path), row.page) << ToUtf8(row.path);
}

} // namespace

} // namespace tessa
