#include "tabs/frmRenameTab.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(frmRenameTab, ANameIsOneLineWithoutBlanksAroundIt) {
    EXPECT_EQ(frmRenameTab::NameIn(u"  My  mail \n", u"Inbox"), u"My  mail \uFFFD");
    EXPECT_EQ(frmRenameTab::NameIn(u"a\u202Eb", u""), u"a\uFFFDb") << "nothing turns the writing around";
    EXPECT_EQ(frmRenameTab::NameIn(Text(500, u'x'), u""), Text(frmRenameTab::kLongest, u'x'));
}

TEST(frmRenameTab, WithoutLettersOrWithThePagesOwnTitleThereIsNone) {
    EXPECT_EQ(frmRenameTab::NameIn(u"", u"Inbox"), u"");
    EXPECT_EQ(frmRenameTab::NameIn(u"   ", u"Inbox"), u"");
    EXPECT_EQ(frmRenameTab::NameIn(u"Inbox", u"Inbox"), u"");
}

TEST(frmRenameTab, AsksAndAnswersOnce) {
    TabStrip strip;
    auto* tab = strip.Add(1, u"Tab1");
    strip.SetCaption(tab, u"Inbox");
    frmRenameTab form(*tab);
    form.Form.Visible = true;
    EXPECT_EQ(form.txtName.Value(), u"Inbox");
    form.txtName.Value = u"Work";
    form.cmdOK.Click();
    EXPECT_FALSE(form.Form.Visible());
    EXPECT_EQ(form.Name, u"Work");
    strip.SetName(tab, u"Work");
    frmRenameTab again(*tab);
    EXPECT_EQ(again.txtName.Value(), u"Work");
    again.cmdCancel.Click();
    EXPECT_EQ(again.Name, std::nullopt);
}

} // namespace

} // namespace tessa
