#include "pages/UnshownAddresses.h"

#include <gtest/gtest.h>
#include <utility>

namespace tessa {

namespace {

using UnshownAddresses::WhyNot;

TEST(UnshownAddresses, AreTheOnesThatNothingAnswersFor) {
    for (const TextView address :
         {u"about:config", u"ABOUT:foo", u"about:", u"about:blankets", u"C:\\x", u"c:%5Cx", u"d:", u"http:", u"http://",
          u"HTTPS:///", u"chrome-error://chromewebdata/", u"chrome-devtools://x", u"tessaview-ask:x",
          u"tessaview-hide:x", u"tessaview-empty:1"})
        EXPECT_NE(WhyNot(address), u"") << ToUtf8(address);
}

TEST(UnshownAddresses, AreNotThoseThatTheEngineOrAnotherProgramTakes) {
    for (const TextView address : {u"", u"about:blank", u"about:blank#top", u"about:blank?x", u"http://a.example/",
                                   u"https://a", u"ftp://a.example/", u"mailto:", u"news:x", u"tessaview:start",
                                   u"file:///etc", u"data:,x", u"view-source:http://a/", u"chrome://gpu", u"words"})
        EXPECT_EQ(WhyNot(address), u"") << ToUtf8(address);
}

TEST(UnshownAddresses, EachSaysItsReason) {
    EXPECT_EQ(WhyNot(u"C:\\x"),
              u"There are no drives with letters on this computer. The path of a file begins with \"/\".");
    EXPECT_EQ(WhyNot(u"http://"), u"The address names no host.");
}

} // namespace

} // namespace tessa
