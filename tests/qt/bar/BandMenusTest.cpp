#include "tests/qt/bar/BarDesk.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QToolButton>

namespace tessa::qt {

namespace {

/// Menus, pop-ups and toolbars that share tools.
class BandMenusTest : public BarDesk {
protected:
    void SetUp() override {
        AddTool(u"mnuFile", u"&File")->SubBand = u"bndFileMenu";
        AddTool(u"mnuGo", u"&Go")->SubBand = u"bndGoMenu";
        AddTool(u"mnuMore", u"&More")->SubBand = u"bndMoreMenu";
        Tool* mail = AddTool(u"mnuMail", u"&Mail");
        mail->SubBand = u"bndMail";
        mail->ClickWithSubBand = true;
        refresh = AddTool(u"mnuRefresh", u"&Refresh");
        refresh->Description = u"Loads the page again";
        refresh->TooltipText = u"Refresh";
        AddTool(u"mnuStop", u"&Stop");
        AddTool(u"mnuReadMail", u"&Read Mail...");
        AddTool(u"mnuLoadImages", u"&Load Images")->Checked = true;
        bar.SetShortcuts({{u"mnuRefresh", {Keys::kF5, 0}}, {u"mnuRefresh", {'R', Keys::kCtrl}}});
        AddBand(u"bndMenu", BandKind::MenuBar, {u"mnuFile", u"mnuGo"});
        AddBand(u"bndFileMenu", BandKind::Menu, {u"mnuRefresh", u"mnuMore"});
        AddBand(u"bndMoreMenu", BandKind::Menu, {u"mnuStop", u"mnuLoadImages"});
        AddBand(u"bndGoMenu", BandKind::Menu, {u"mnuStop", u"mnuRefresh"});
        AddBand(u"bndMail", BandKind::Menu, {u"mnuReadMail"});
        AddBand(u"bndTabPopup", BandKind::Popup, {u"mnuStop", u"mnuRefresh"});
        AddBand(u"bndGo", BandKind::Toolbar, {u"mnuRefresh", u"mnuMail", u"mnuMore"});
        AddBand(u"bndMisc", BandKind::Toolbar, {u"mnuStop", u"mnuRefresh"});
        ShowWindow();
    }

    QMenu& MenuAt(int index) { return *window.menuBar()->actions().at(index)->menu(); }
    QToolButton& Button(TextView band, TextView tool) {
        return *qobject_cast<QToolButton*>(ToolBarOf(band).widgetForAction(shown->Find(tool)));
    }
    static std::string Entries(const QMenu& menu) {
        std::string entries;
        for (const QAction* entry : menu.actions()) entries += entry->objectName().toStdString() + ";";
        return entries;
    }
    void Fill(TextView band, int count) {
        Band* menu = bar.FindBand(band);
        for (int i = 0; i < count; ++i) {
            Tool* tool = menu->Add(MadeFrom::FavoriteLink{}, 50000 + i, u"page " + Decimal(i));
            tool->Caption = u"Page " + Decimal(i);
        }
    }

    Tool* refresh = nullptr;
};

TEST_F(BandMenusTest, AChosenCombinationIsShownAtOnceByMenusAndTips) {
    const QAction& action = *shown->Find(u"mnuRefresh");
    ASSERT_EQ(action.shortcut(), QKeySequence(Qt::Key_F5));
    ASSERT_EQ(action.toolTip(), QStringLiteral("Refresh (F5)"));
    bar.Combinations.Choose(u"mnuRefresh", {{'E', Keys::kCtrl}, {Keys::kF5, 0}});
    EXPECT_EQ(action.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
    EXPECT_EQ(Button(u"bndGo", u"mnuRefresh").toolTip(), QStringLiteral("Refresh (Ctrl+E)"));
    bar.Combinations.Choose(u"mnuRefresh", {});
    EXPECT_TRUE(action.shortcut().isEmpty());
    EXPECT_EQ(action.toolTip(), QStringLiteral("Refresh"));
    bar.Combinations.Choose(u"mnuStop", {{Keys::kF5, 0}});
    EXPECT_EQ(shown->Find(u"mnuStop")->shortcut(), QKeySequence(Qt::Key_F5)) << "it had none by design";
    bar.Combinations.ResetAll();
    EXPECT_EQ(action.shortcut(), QKeySequence(Qt::Key_F5));
    EXPECT_TRUE(shown->Find(u"mnuStop")->shortcut().isEmpty());
}

TEST_F(BandMenusTest, AKeyOpensAMenuOfTheMenuBarBelowItsCaption) {
    bar.Combinations.Choose(u"mnuGo", {{'G', Keys::kCtrl}});
    EXPECT_EQ(bar.KeyDown({'G', Keys::kCtrl}), KeyUsed::Yes);
    QMenu& menu = MenuAt(1);
    ASSERT_TRUE(menu.isVisible());
    const QMenuBar& menuBar = *window.menuBar();
    EXPECT_EQ(menu.pos(), menuBar.mapToGlobal(menuBar.actionGeometry(menuBar.actions().at(1)).bottomLeft()));
    EXPECT_EQ(menu.activeAction(), menu.actions().constFirst());
    menu.close();
}

TEST_F(BandMenusTest, AToolOnSeveralBandsIsTheSameEverywhere) {
    refresh->Caption = u"&Again";
    refresh->Enabled = false;
    for (const TextView band : {u"bndGo", u"bndMisc"}) {
        EXPECT_FALSE(Button(band, u"mnuRefresh").isEnabled());
        EXPECT_EQ(Button(band, u"mnuRefresh").text(), QStringLiteral("Again"));
    }
    refresh->Enabled = true;
    for (const TextView band : {u"bndGo", u"bndMisc"}) QTest::mouseClick(&Button(band, u"mnuRefresh"), Qt::LeftButton);
    for (int menu : {0, 1}) {
        MenuAt(menu).popup({});
        QTest::keyClick(&MenuAt(menu), Qt::Key_A);
    }
    EXPECT_EQ(clicked, "mnuRefresh;mnuRefresh;mnuRefresh;mnuRefresh;");
}

TEST_F(BandMenusTest, AMenuOpensOutOfAnotherAndOutOfAToolbar) {
    MenuAt(0).popup({});
    QMenu* more = shown->Find(u"mnuMore")->menu();
    QTest::keyClick(&MenuAt(0), Qt::Key_M);
    ASSERT_TRUE(QTest::qWaitFor([&] { return more->isVisible(); }));
    EXPECT_EQ(Entries(*more), "mnuStop;mnuLoadImages;");
    QTest::keyClick(more, Qt::Key_S);
    EXPECT_EQ(clicked, "mnuStop;");
    EXPECT_FALSE(MenuAt(0).isVisible());
    EXPECT_EQ(Button(u"bndGo", u"mnuMore").popupMode(), QToolButton::InstantPopup);
}

TEST_F(BandMenusTest, AButtonWithACommandOfItsOwnOpensItsMenuBesideIt) {
    QToolButton& mail = Button(u"bndGo", u"mnuMail");
    EXPECT_EQ(mail.popupMode(), QToolButton::MenuButtonPopup);
    QTest::mouseClick(&mail, Qt::LeftButton, {}, {3, mail.height() / 2});
    EXPECT_EQ(clicked, "mnuMail;");
    EXPECT_FALSE(shown->Find(u"mnuMail")->menu()->isVisible());
}

TEST_F(BandMenusTest, APopupOpensAtThePointerAndClosesByEscape) {
    QTest::mouseMove(&window, QPoint(200, 150));
    bar.BandOpen.ConnectForLife([this](Band& band) { clicked += "open " + ToUtf8(band.Name()) + ";"; });
    bar.Popup(u"bndTabPopup");
    auto* popup = window.findChild<QMenu*>(QStringLiteral("bndTabPopup"));
    ASSERT_NE(popup, nullptr);
    EXPECT_TRUE(popup->isVisible());
    EXPECT_EQ(popup->pos(), QCursor::pos());
    EXPECT_EQ(Entries(*popup), "mnuStop;mnuRefresh;");
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_FALSE(popup->isVisible());
    bar.Popup(u"bndTabPopup");
    QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(popup->actions().constLast()).center());
    EXPECT_EQ(clicked, "open bndTabPopup;open bndTabPopup;mnuRefresh;");
}

TEST_F(BandMenusTest, ABandThatIsNoneOpensNothing) {
    bar.Popup(u"bndUnknown");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(BandMenusTest, TheEntryUnderThePointerIsReportedUntilTheMenuCloses) {
    MenuAt(0).popup({});
    MenuAt(0).setActiveAction(MenuAt(0).actions().constFirst());
    EXPECT_EQ(pointed, "mnuRefresh");
    MenuAt(0).close();
    EXPECT_EQ(pointed, "");
}

TEST_F(BandMenusTest, NoHelpIsLeftBehindByAToolThatIsHiddenUnderThePointer) {
    QToolButton& button = Button(u"bndGo", u"mnuRefresh");
    QTest::mouseMove(&button, button.rect().center());
    ASSERT_EQ(pointed, "mnuRefresh");
    ToolBarOf(u"bndGo").hide();
    EXPECT_EQ(pointed, "");
}

TEST_F(BandMenusTest, WhereThePointerIsOnNoEntryOfAnOpenMenuNoneIsReported) {
    bar.FindBand(u"bndFileMenu")->SetGroup(1, BeginGroup::Yes);
    QMenu& menu = MenuAt(0);
    menu.popup(window.mapToGlobal(QPoint(200, 150)));
    const QRect first = menu.actionGeometry(menu.actions().constFirst());
    QTest::mouseMove(&menu, first.center());
    EXPECT_EQ(pointed, "mnuRefresh");
    ASSERT_TRUE(menu.actions().at(1)->isSeparator());
    QTest::mouseMove(&menu, menu.actionGeometry(menu.actions().at(1)).center());
    EXPECT_EQ(pointed, "") << "a separator";
    QTest::mouseMove(&menu, first.center());
    EXPECT_EQ(pointed, "mnuRefresh");
    QTest::mouseMove(&window, QPoint(600, 350));
    EXPECT_EQ(pointed, "") << "outside the menu";
    QTest::mouseMove(&menu, first.center());
    EXPECT_EQ(pointed, "mnuRefresh");
    menu.close();
}

TEST_F(BandMenusTest, OnTheFreePartOfABarNoToolIsReported) {
    QMenuBar& menuBar = *window.menuBar();
    QTest::mouseMove(&menuBar, menuBar.actionGeometry(menuBar.actions().constFirst()).center());
    EXPECT_EQ(pointed, "mnuFile");
    QTest::mouseMove(&menuBar, QPoint(menuBar.width() - 2, menuBar.height() / 2));
    EXPECT_EQ(pointed, "");
    QToolButton& button = Button(u"bndGo", u"mnuRefresh");
    QTest::mouseMove(&button, button.rect().center());
    EXPECT_EQ(pointed, "mnuRefresh");
    QTest::mouseMove(&ToolBarOf(u"bndGo"), QPoint(1, 1));
    EXPECT_EQ(pointed, "");
}

TEST_F(BandMenusTest, AButtonLosesItsFrameWithItsMenuWhenThePointerHasGone) {
    QToolButton& button = Button(u"bndGo", u"mnuMore");
    button.setAttribute(Qt::WA_UnderMouse);
    QCursor::setPos(window.mapToGlobal(QPoint(500, 350)));
    QMenu& menu = *shown->Find(u"mnuMore")->menu();
    menu.popup(button.mapToGlobal(button.rect().bottomLeft()));
    menu.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !button.testAttribute(Qt::WA_UnderMouse); }));
    EXPECT_EQ(pointed, "");
}

TEST_F(BandMenusTest, AButtonUnderThePointerKeepsItsFrame) {
    QToolButton& button = Button(u"bndGo", u"mnuMore");
    button.setAttribute(Qt::WA_UnderMouse);
    QCursor::setPos(button.mapToGlobal(button.rect().center()));
    QMenu& menu = *shown->Find(u"mnuMore")->menu();
    menu.popup(window.mapToGlobal(QPoint(500, 350)));
    menu.close();
    QCoreApplication::processEvents();
    EXPECT_TRUE(button.testAttribute(Qt::WA_UnderMouse));
}

// The difference of lightness between the ground of a widget and what stands out most from it.
int Contrast(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    const int ground = qGray(image.pixel(2, image.height() / 2));
    int most = 0;
    for (int y = 4; y < image.height() - 4; ++y) {
        for (int x = 2; x < image.width() - 2; ++x) most = std::max(most, std::abs(qGray(image.pixel(x, y)) - ground));
    }
    return most;
}

TEST_F(BandMenusTest, TheArrowsOfWhatDoesNotFitStandOutOnEveryGround) {
    auto* more = ToolBarOf(u"bndGo").findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
    auto* menus = window.menuBar()->findChild<QToolButton*>(QStringLiteral("qt_menubar_ext_button"));
    Fill(u"bndMenu", 20);
    window.resize(60, 300);
    ASSERT_TRUE(QTest::qWaitFor([&] { return more->isVisible() && menus->isVisible(); }));
    EXPECT_EQ(menus->accessibleName(), QStringLiteral("More menus"));
    for (const auto& [ground, text] : {std::pair(0xff2a2e32, 0xfffcfcfc), std::pair(0xffefefef, 0xff232629)}) {
        QPalette palette;
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
            palette.setColor(role, QColor::fromRgba(ground));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(role, QColor::fromRgba(text));
        window.setPalette(palette);
        QCoreApplication::processEvents();
        EXPECT_GT(Contrast(*more), 120) << std::hex << ground;
        EXPECT_GT(Contrast(*menus), 120) << std::hex << ground;
    }
}

TEST_F(BandMenusTest, MenusOfToolbarsAndPopUpsShowCombinationsToo) {
    MenuAt(0).popup({});
    MenuAt(0).close();
    // As wide as only an entry with its combination is.
    const auto width = [this](bool shown) {
        QMenu menu;
        QAction* action = menu.addAction(QStringLiteral("Refresh"));
        action->setShortcut(QKeySequence(Qt::Key_F5));
        action->setShortcutVisibleInContextMenu(shown);
        return menu.sizeHint().width();
    };
    ASSERT_GT(width(true), width(false)) << "else nothing would be shown by it";
    EXPECT_TRUE(shown->Find(u"mnuRefresh")->isShortcutVisibleInContextMenu());
}

TEST_F(BandMenusTest, MenusShowTheFirstCombinationOfATool) {
    MenuAt(0).popup({});
    EXPECT_EQ(MenuAt(0).actions().constFirst()->shortcut(), QKeySequence(Qt::Key_F5));
    EXPECT_EQ(Button(u"bndGo", u"mnuRefresh").toolTip(), QStringLiteral("Refresh (F5)"));
    MenuAt(0).close();
}

TEST_F(BandMenusTest, ACombinationThatIsShownDoesNotClickByItself) {
    QTest::keyClick(&window, Qt::Key_F5);
    EXPECT_EQ(clicked, "") << "the bar answers keys";
    EXPECT_EQ(bar.KeyDown({Keys::kF5, 0}), KeyUsed::Yes);
    EXPECT_EQ(clicked, "mnuRefresh;");
}

TEST_F(BandMenusTest, ACheckedToolShowsItsMarkAndNoPictureInAMenu) {
    MenuAt(0).popup({});
    shown->Find(u"mnuMore")->menu()->popup({});
    EXPECT_TRUE(shown->Find(u"mnuLoadImages")->isChecked());
    EXPECT_FALSE(shown->Find(u"mnuLoadImages")->isIconVisibleInMenu());
    EXPECT_TRUE(shown->Find(u"mnuStop")->isIconVisibleInMenu());
    MenuAt(0).close();
}

TEST_F(BandMenusTest, AMenuOfTenThousandEntriesScrollsToItsLast) {
    Fill(u"bndGoMenu", 10000);
    QMenu& menu = MenuAt(1);
    menu.popup(window.mapToGlobal(QPoint(10, 20)));
    ASSERT_EQ(menu.actions().size(), 10002);
    const QRect screen = window.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(menu.geometry())) << menu.width() << "x" << menu.height();
    const auto inSight = [&](QAction* entry) { return menu.rect().contains(menu.actionGeometry(entry).center()); };
    EXPECT_FALSE(inSight(menu.actions().constLast()));
    QTest::keyClick(&menu, Qt::Key_End);
    EXPECT_EQ(menu.activeAction(), menu.actions().constLast());
    EXPECT_TRUE(inSight(menu.actions().constLast()));
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_EQ(clicked, "page 9999;");
}

} // namespace

} // namespace tessa::qt
