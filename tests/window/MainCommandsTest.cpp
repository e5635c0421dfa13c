// Tests: Report
#include "commands/frmResize.h"
#include "settings/frmInternetOptions.h"
#include "tests/Desk.h"

namespace tessa {

namespace {

TEST(MainCommands, TheResizeCommandsOpenTheDialogForTheirBox) {
    Desk desk;
    desk.Start();
    desk.Combo(u"cboAddress").Width = Pixels{500};
    desk.Combo(u"cboSearch").Width = Pixels{200};
    int shown = 0;
    desk.inResize = [&](frmResize& form) {
        ++shown;
        form.cmdResize[7].Click();
    };
    desk.Click(u"mnuResizeAddress");
    EXPECT_EQ(desk.Combo(u"cboAddress").Width(), Pixels{600});
    desk.Click(u"mnuResizeSearch");
    EXPECT_EQ(desk.Combo(u"cboSearch").Width(), Pixels{300});
    EXPECT_EQ(desk.Combo(u"cboAddress").Width(), Pixels{600});
    EXPECT_EQ(shown, 2);
}

TEST(MainCommands, HelpOpensInANewTabInFront) {
    Desk desk;
    desk.Start();
    EXPECT_EQ(desk.Press({Keys::kF1, 0}), KeyUsed::Yes);
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

TEST(MainCommands, InternetOptionsTakeEffectAfterOkAlone) {
    Desk desk;
    desk.Start();
    desk.views.At(1).location = u"http://page.example/";
    EXPECT_TRUE(desk.Tool(u"mnuViewInternetOptions").Enabled());
    desk.log.Take();
    desk.inInternetOptions = [](frmInternetOptions& form) { form.cmdCancel.Click(); };
    desk.Click(u"mnuViewInternetOptions");
    EXPECT_EQ(desk.log.Take(), "");
    desk.inInternetOptions = [](frmInternetOptions& form) {
        form.cmdUseCurrent.Click();
        form.cmdOK.Click();
    };
    desk.Click(u"mnuViewInternetOptions");
    EXPECT_EQ(desk.log.Take(), "internet options");
    EXPECT_EQ(desk.settings.Stored(u"InternetHomePage"), u"http://page.example/");
}

TEST(MainCommands, TheLoadSwitchesAreReadAnewAfterTheInternetOptionsWhateverTheAnswer) {
    for (const bool accepted : {false, true}) {
        Desk desk;
        desk.Start();
        std::string seen;
        desk.engineOptions.applied = [&] {
            seen += SettingsStore(desk.settings).LoadImages.Get() ? "images;" : "no images;";
        };
        desk.inInternetOptions = [&](frmInternetOptions& form) {
            EXPECT_EQ(seen, "") << "not before the dialog closes";
            ResumeNext(SettingsStore(desk.settings).LoadImages.Set(false));
            (accepted ? form.cmdOK : form.cmdCancel).Click();
        };
        desk.Click(u"mnuViewInternetOptions");
        EXPECT_EQ(seen, "no images;") << accepted;
        EXPECT_FALSE(desk.Tool(u"mnuLoadImages").Checked());
        EXPECT_TRUE(desk.Tool(u"mnuLoadVideos").Checked());
    }
}

TEST(MainCommands, InternetOptionsShowTheDesktopsMailAndNewsPrograms) {
    Desk desk;
    desk.Start();
    desk.shell.programs[u"mailto"] = u"letters --compose";
    desk.shell.programs[u"news"] = u"papers";
    Text shown;
    desk.inInternetOptions = [&](frmInternetOptions& form) {
        shown = form.txtMail.Value() + u", " + form.txtNews.Value();
    };
    desk.Click(u"mnuViewInternetOptions");
    EXPECT_EQ(shown, u"letters --compose, papers");
}

TEST(MainCommands, FullScreenGoesOnAndOff) {
    Desk desk;
    desk.Start();
    desk.Press({Keys::kF11, 0});
    EXPECT_TRUE(desk.window.fullScreen);
    desk.Click(u"xtrFullScreen");
    EXPECT_FALSE(desk.window.fullScreen);
}

TEST(MainCommands, TheReportHoldsVersionDrawingSettingsAndLogButNoTextOfTheUsers) {
    Desk desk;
    desk.settings.Put(u"TabsUp", u"false");
    desk.settings.Put(u"TitleLengthLimit", u"3");
    desk.settings.Put(u"ShowStatusBar", u"true");
    desk.settings.Put(u"MailClient", u"secret --user me");
    desk.settings.Put(u"InternetHomePage", u"http://secret.example/");
    desk.settings.PutList(u"AddressHistory", {u"http://secret/1", u"http://secret/2"});
    desk.settings.PutList(u"LastSites", {u"http://secret/3"});
    desk.settings.Put(u"BlockingOn", u"true");
    desk.settings.PutList(u"BlockingOffSites", {u"secret.example"});
    desk.settings.PutList(u"BlockingLists", {u"EasyList", u"https://secret.example/list"});
    desk.Start();
    desk.Click(u"xtrCopyReport");
    EXPECT_EQ(ToUtf8(desk.input.copied),
              "TessaView 3\nDrawing: by hand\n\n"
              "Settings other than by design:\n"
              "  TitleLengthLimit: 3\n  LastSites: 1 entries\n  AddressHistory: 2 entries\n"
              "  TabsUp: no\n  MailClient: set\n  InternetHomePage: set\n"
              "  BlockingOn: yes\n  BlockingLists: 2 entries\n  BlockingOffSites: 1 entries\n\n"
              "Log:\n  a line\n  another\n");
    EXPECT_EQ(desk.Said(), "The report has been copied.");
}

TEST(MainCommands, AReportOfAProgramAsDesignedSaysSo) {
    FakeSettings settings;
    EXPECT_EQ(Report::Words({}, settings), u"\nDrawing: \n\nSettings other than by design:\n  none\n\nLog:\n");
}

} // namespace

} // namespace tessa
