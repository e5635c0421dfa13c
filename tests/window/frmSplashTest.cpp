#include "window/frmSplash.h"

#include "tests/Desk.h"

namespace tessa {

namespace {

TEST(frmSplash, SaysWhichProgramThisIs) {
    const frmSplash form;
    EXPECT_EQ(form.Label1.Caption(), u"TessaView");
    EXPECT_EQ(form.Label2.Caption(), u"Version 3.02 Build 159");
    EXPECT_FALSE(form.Label3.Caption().empty());
    EXPECT_FALSE(form.Image1.empty());
}

TEST(frmSplash, HasNoButtonUntilItIsAskedFor) {
    frmSplash form;
    EXPECT_FALSE(form.Command1.Visible());
    form.ShowButton();
    EXPECT_TRUE(form.Command1.Visible());
}

TEST(frmSplash, TheButtonClosesIt) {
    frmSplash form;
    form.ShowButton();
    form.Form.Visible = true;
    form.Command1.Click();
    EXPECT_FALSE(form.Form.Visible());
}

TEST(frmSplash, AMessageChangesNothing_Deliberate) {
    frmSplash form;
    form.SetMessage(u"Loading favorites");
    EXPECT_EQ(form.Label1.Caption(), u"TessaView");
    EXPECT_EQ(form.Label2.Caption(), u"Version 3.02 Build 159");
    EXPECT_EQ(form.Label3.Caption(), frmSplash().Label3.Caption());
    EXPECT_EQ(form.Caption, u"About TessaView");
}

TEST(About, ShowsTheFormWithItsButton) {
    Desk desk;
    desk.Start();
    bool visible = false;
    desk.inAbout = [&](frmSplash& form) { visible = form.Command1.Visible(); };
    desk.Click(u"mnuAbout");
    EXPECT_TRUE(visible);
}

TEST(About, SaysBuildOnceHoweverOftenItIsOpened) {
    Desk desk;
    desk.Start();
    std::vector<Text> lines;
    desk.inAbout = [&](frmSplash& form) { lines.push_back(form.Label2.Caption()); };
    desk.Click(u"mnuAbout");
    desk.Click(u"mnuAbout");
    EXPECT_EQ(lines, (std::vector<Text>{u"Version 3.02 Build 159", u"Version 3.02 Build 159"}));
}

} // namespace

} // namespace tessa
