// Tests: PageBar
#include "qt/questions/NoticeBar.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class NoticeBarTest : public testing::Test {
protected:
    int Add(const char* words) {
        const QString text = QString::fromLatin1(words);
        return bar.Add({text, [this, text] { told += "shown " + text.toStdString() + ";"; },
                        [this, text] { told += "dismissed " + text.toStdString() + ";"; }});
    }
    void Press(const char* name) {
        QTest::mouseClick(bar.findChild<QPushButton*>(QLatin1String(name)), Qt::LeftButton);
    }
    [[nodiscard]] QLabel& Label(const char* name) const { return *bar.findChild<QLabel*>(QLatin1String(name)); }

    NoticeBar bar{nullptr};
    std::string told;
};

TEST_F(NoticeBarTest, ShowsOneAfterTheOther) {
    int changed = 0;
    bar.Changed.ConnectForLife([&] { ++changed; });
    EXPECT_FALSE(bar.isVisible());
    Add("<b>one");
    EXPECT_TRUE(bar.isVisible());
    EXPECT_TRUE(Label("lblMoreNotices").isHidden());
    EXPECT_EQ(Label("lblNotice").textFormat(), Qt::PlainText) << "a page's words are no markup";
    Add("two");
    EXPECT_EQ(Label("lblNotice").text(), QStringLiteral("<b>one"));
    EXPECT_EQ(Label("lblMoreNotices").text(), QStringLiteral("1 more"));
    Press("cmdShowNotice");
    EXPECT_EQ(Label("lblNotice").text(), QStringLiteral("two"));
    Press("cmdDismissNotice");
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(told, "shown <b>one;dismissed two;");
    EXPECT_EQ(changed, 4);
}

TEST_F(NoticeBarTest, WhatIsTakenBackCallsNothing) {
    const int one = Add("one");
    Add("two");
    bar.Remove(one);
    bar.Remove(one);
    bar.Remove(99);
    EXPECT_EQ(Label("lblNotice").text(), QStringLiteral("two"));
    EXPECT_EQ(bar.Count(), 1U);
    EXPECT_EQ(told, "");
}

} // namespace

} // namespace tessa::qt
