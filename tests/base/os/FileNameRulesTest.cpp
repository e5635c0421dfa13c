#include "base/os/FileNameRules.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(FileNameRules, NamesOfDevicesAreKnownInAnyCaseAndWithAnyEnding) {
    for (const TextView name : {u"CON", u"con", u"Nul.txt", u"com1", u"LPT9.tar.gz", u"aux ", u"prn .x"})
        EXPECT_TRUE(NamesDevice(name)) << ToUtf8(name);
    for (const TextView name : {u"", u".", u"CONS", u"com", u"com0", u"com10", u"x.con", u"_con"})
        EXPECT_FALSE(NamesDevice(name)) << ToUtf8(name);
}

TEST(FileNameRules, ANameForTheDiskIsNoPath) {
    EXPECT_EQ(FitForDisk(u"a/b/c"), u"a-b-c");
    EXPECT_EQ(FitForDisk(u"/"), u"-");
    EXPECT_EQ(FitForDisk(u"News \u00E4"), u"News \u00E4");
}

} // namespace

} // namespace tessa
