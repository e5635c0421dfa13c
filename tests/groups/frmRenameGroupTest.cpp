#include "groups/frmRenameGroup.h"

#include "tests/fakes/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

class frmRenameGroupTest : public testing::Test {
protected:
    frmRenameGroupTest() {
        m_folder.Write("News.tvg", "[TessaGroup]");
        m_folder.Write("Old.tvg", "old");
        m_form.Form.Visible = true;
    }
    void Type(TextView name) {
        m_form.txtName.Value = Text(name);
        m_form.cmdOK.Click();
    }

    TemporaryFolder m_folder;
    frmRenameGroup m_form{m_folder.PathText("News.tvg")};
};

TEST_F(frmRenameGroupTest, TheFileGetsTheTypedName) {
    EXPECT_EQ(m_form.txtName.Value(), u"News");
    Type(u"World");
    EXPECT_FALSE(m_form.Form.Visible());
    EXPECT_EQ(m_form.Renamed, u"World");
    EXPECT_EQ(m_folder.Read("World.tvg"), "[TessaGroup]");
    EXPECT_EQ(m_folder.Files(), 2U);
}

TEST_F(frmRenameGroupTest, ANameThatIsTakenIsSaidAndTakesNobodysPlace) {
    Type(u"Old");
    EXPECT_TRUE(m_form.Form.Visible());
    EXPECT_EQ(m_form.lblMessage.Caption(), u"There is a TessaGroup of that name already.");
    EXPECT_EQ(m_folder.Read("Old.tvg"), "old");
    m_form.txtName.Value = u"Older";
    EXPECT_EQ(m_form.lblMessage.Caption(), u"");
    m_form.cmdOK.Click();
    EXPECT_EQ(m_form.Renamed, u"Older");
}

TEST_F(frmRenameGroupTest, TheSameNameChangesNothing) {
    Type(u"News");
    EXPECT_FALSE(m_form.Form.Visible());
    EXPECT_EQ(m_form.Renamed, u"");
    EXPECT_EQ(m_folder.Read("News.tvg"), "[TessaGroup]");
}

TEST_F(frmRenameGroupTest, ANameIsNeededAndIsMendedForTheDisk) {
    m_form.txtName.Value = u"  ";
    EXPECT_FALSE(m_form.cmdOK.Enabled());
    Type(u"../a/b");
    EXPECT_EQ(m_form.Renamed, u"-a-b");
    EXPECT_EQ(m_folder.Read("-a-b.tvg"), "[TessaGroup]");
}

TEST_F(frmRenameGroupTest, AGroupThatIsGoneIsSaid) {
    std::filesystem::remove(m_folder.Path("News.tvg"));
    Type(u"World");
    EXPECT_TRUE(m_form.Form.Visible());
    EXPECT_EQ(m_form.lblMessage.Caption(), u"The TessaGroup could not be renamed.");
}

TEST_F(frmRenameGroupTest, AGroupWhoseNameIsNoTextKeepsItUntilAnotherIsTyped) {
    m_folder.Write("b\xFC.tvg", "x");
    frmRenameGroup form(PathFromBytes(m_folder.Path("b\xFC.tvg")));
    form.cmdOK.Click();
    EXPECT_EQ(m_folder.Read("b\xFC.tvg"), "x");
    EXPECT_EQ(form.Renamed, u"");
    form.txtName.Value = u"b\u00FC";
    form.cmdOK.Click();
    EXPECT_EQ(m_folder.Read("b\xC3\xBC.tvg"), "x");
}

} // namespace

} // namespace tessa
