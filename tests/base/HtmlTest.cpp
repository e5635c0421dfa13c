#include "base/Html.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(Html, NothingInATextIsATagOrEndsAQuote) {
    EXPECT_EQ(HtmlEscaped("<a href=\"x\" title='y'>&amp;</a>"),
              "&lt;a href=&quot;x&quot; title=&#39;y&#39;&gt;&amp;amp;&lt;/a&gt;");
}

TEST(Html, AllElseStays) { EXPECT_EQ(HtmlEscaped("gr\xC3\xBC\xC3\x9F\n\t;#"), "gr\xC3\xBC\xC3\x9F\n\t;#"); }

} // namespace

} // namespace tessa
