#include "commands/frmResize.h"
#include "tests/Desk.h"

namespace {

TEST(MainCommands, TheResizeCommandsOpenTheDialogForTheirBox) {
    Desk desk;
    desk.Start();
    desk.main.AddressCombo()->Width = Pixels{500};
    desk.main.SearchCombo()->Width = Pixels{200};
    int shown = 0;
    desk.inResize = [&](frmResize& form) {
        ++shown;
        form.cmdResize[7].Click();
    };
    desk.Click(u"mnuResizeAddress");
    EXPECT_EQ(desk.main.AddressCombo()->Width(), Pixels{600});
    desk.Click(u"mnuResizeSearch");
    EXPECT_EQ(desk.main.SearchCombo()->Width(), Pixels{300});
    EXPECT_EQ(desk.main.AddressCombo()->Width(), Pixels{600});
    EXPECT_EQ(shown, 2);
}

TEST(MainCommands, HelpOpensInANewTabInFront) {
    Desk desk;
    desk.Start();
    EXPECT_EQ(desk.main.Form_KeyDown({Keys::kF1, 0}), KeyUsed::Yes);
    EXPECT_EQ(desk.Strip(), "1 [2*]");
    EXPECT_EQ(desk.views.Calls(2), "go about:blank, go tessaview:help");
}

TEST(MainCommands, HelpThatIsOpenComesToTheFront) {
    Desk desk;
    desk.Start();
    desk.Click(u"mnuHelp");
    desk.views.At(2).location = u"tessaview:help#keys";
    desk.ClickTab(1);
    desk.Click(u"mnuHelp");
    EXPECT_EQ(desk.Strip(), "1 [2*]");
}

TEST(MainCommands, FullScreenGoesOnAndOff) {
    Desk desk;
    desk.Start();
    desk.main.Form_KeyDown({Keys::kF11, 0});
    EXPECT_TRUE(desk.window.fullScreen);
    desk.Click(u"xtrFullScreen");
    EXPECT_FALSE(desk.window.fullScreen);
}

} // namespace
