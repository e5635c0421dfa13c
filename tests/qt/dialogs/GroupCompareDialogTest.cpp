#include "qt/dialogs/GroupCompareDialog.h"

#include <QPushButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

class GroupCompareDialogTest : public testing::Test {
protected:
    [[nodiscard]] QPushButton* Merge() const { return dialog.findChild<QPushButton*>(QStringLiteral("cmdMerge")); }

    frmGroupCompare form{u"Old.tvg", {u"http://a/", u"http://a/#x"}, {u"http://a/", u"http://b/"}};
    GroupCompareDialog dialog{form};
    QTreeWidget* list = dialog.findChild<QTreeWidget*>(QStringLiteral("lstLines"));
};

TEST_F(GroupCompareDialogTest, ShowsWhereEachStandsAndWhatCanBeTicked) {
    ASSERT_EQ(list->topLevelItemCount(), 3);
    EXPECT_EQ(list->topLevelItem(0)->text(1), QStringLiteral("In both"));
    EXPECT_FALSE(list->topLevelItem(0)->data(0, Qt::CheckStateRole).isValid());
    EXPECT_EQ(list->topLevelItem(1)->checkState(0), Qt::Unchecked);
    EXPECT_EQ(list->topLevelItem(2)->text(0), QStringLiteral("http://b/"));
    EXPECT_EQ(list->topLevelItem(2)->checkState(0), Qt::Checked);
}

TEST_F(GroupCompareDialogTest, TicksReachTheFormAndTheWordsFollow) {
    list->topLevelItem(2)->setCheckState(0, Qt::Unchecked);
    EXPECT_EQ(list->topLevelItem(2)->text(1), QStringLiteral("Only in Old.tvg"));
    EXPECT_FALSE(Merge()->isEnabled());
    list->topLevelItem(1)->setCheckState(0, Qt::Checked);
    EXPECT_EQ(list->topLevelItem(1)->text(1), QStringLiteral("Here already as http://a/; will be removed"));
    EXPECT_TRUE(Merge()->isEnabled());
}

TEST_F(GroupCompareDialogTest, MergingHidesIt) {
    form.Form.Visible = true;
    dialog.show();
    Merge()->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(form.Merged, (std::vector<Text>{u"http://a/", u"http://a/#x", u"http://b/"}));
}

} // namespace

} // namespace tessa::qt
