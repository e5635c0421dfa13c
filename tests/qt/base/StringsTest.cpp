#include "qt/base/Strings.h"

#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(Strings, EveryUnitComesOverAndBack) {
    const Text text = Text(u"a\u00E4\U0001F600") + u'\0' + u'\xD800' + u"z";
    EXPECT_EQ(ToQt(text).size(), static_cast<qsizetype>(text.size()));
    EXPECT_EQ(FromQt(ToQt(text)), text) << "half a character too";
    EXPECT_EQ(ToQt(u"\u00E4"), QString(QChar(0xE4)));
    EXPECT_EQ(FromQt(QString()), u"");
}

TEST(Strings, APartOfATextEndsWhereItEnds) {
    const Text text = u"abcdef";
    EXPECT_EQ(ToQt(TextView(text).substr(1, 3)), QStringLiteral("bcd"));
}

} // namespace

} // namespace tessa::qt
