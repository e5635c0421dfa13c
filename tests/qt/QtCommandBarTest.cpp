#include "tests/qt/BarDesk.h"

#include <QMenu>
#include <QMenuBar>

namespace {

class QtCommandBarTest : public BarDesk {
protected:
    void SetUp() override {
        AddTool(u"mnuFile", u"&File")->SubBand = u"bndFileMenu";
        back = AddTool(u"mnuGoBack", u"&Back");
        back->Image = {u"go-previous"};
        AddTool(u"mnuStop", u"&Stop");
        status = AddTool(u"mnuViewStatusbar", u"S&tatus Bar");
        AddTool(u"mnuNewBlank", u"New &Blank");
        address = AddCombo(u"cboAddress");
        AddBand(u"bndMenu", BandKind::MenuBar, {u"mnuFile"});
        AddBand(u"bndFileMenu", BandKind::Menu, {u"mnuNewBlank", u"mnuViewStatusbar", u"mnuGoBack"});
        AddBand(u"bndGo", BandKind::Toolbar, {u"mnuGoBack", u"mnuStop", u"mnuViewStatusbar", u"cboAddress"});
        ShowWindow();
    }

    Tool* back = nullptr;
    Tool* status = nullptr;
    ComboTool* address = nullptr;
};

TEST_F(QtCommandBarTest, AToolIsOneActionWithItsNameAndAccessKey) {
    QAction* action = shown->Find(u"mnuViewStatusbar");
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->objectName(), QStringLiteral("mnuViewStatusbar"));
    EXPECT_EQ(action->text(), QStringLiteral("S&tatus Bar"));
    EXPECT_EQ(shown->Find(u"mnuUnknown"), nullptr);
    EXPECT_EQ(shown->Find(u"cboAddress"), nullptr);
}

TEST_F(QtCommandBarTest, WhatATriggeredActionDoesIsUpToTheBar) {
    shown->Find(u"mnuGoBack")->trigger();
    EXPECT_EQ(clicked, "mnuGoBack;");
    back->Enabled = false;
    shown->Find(u"mnuGoBack")->trigger();
    EXPECT_EQ(clicked, "mnuGoBack;");
}

TEST_F(QtCommandBarTest, CaptionAndEnablingFollowTheTool) {
    back->Caption = u"Go &back";
    back->Enabled = false;
    EXPECT_EQ(shown->Find(u"mnuGoBack")->text(), QStringLiteral("Go &back"));
    EXPECT_FALSE(shown->Find(u"mnuGoBack")->isEnabled());
}

TEST_F(QtCommandBarTest, OnlyTheToolChangesItsCheckMark) {
    QAction* action = shown->Find(u"mnuViewStatusbar");
    EXPECT_FALSE(action->isChecked());
    status->Checked = true;
    EXPECT_TRUE(action->isChecked());
    action->trigger();
    EXPECT_TRUE(action->isChecked());
    status->Checked = false;
    EXPECT_FALSE(action->isChecked());
}

TEST_F(QtCommandBarTest, AMenuListsItsBandWhenItOpens) {
    QMenu* menu = window.menuBar()->actions().constFirst()->menu();
    EXPECT_TRUE(menu->isEmpty());
    bar.BandOpen = [this](Band& band) { band.Append(bar.Share(u"mnuStop"), BeginGroup::Yes); };
    menu->popup({});
    std::string entries;
    for (const QAction* entry : menu->actions())
        entries += entry->isSeparator() ? "|," : entry->objectName().toStdString() + ",";
    menu->close();
    EXPECT_EQ(entries, "mnuNewBlank,mnuViewStatusbar,mnuGoBack,|,mnuStop,");
}

TEST_F(QtCommandBarTest, AnAccessKeyOpensItsMenu) {
    QMenu* menu = window.menuBar()->actions().constFirst()->menu();
    QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->isVisible(); }));
    QTest::keyClick(menu, Qt::Key_T);
    EXPECT_EQ(clicked, "mnuViewStatusbar;");
}

TEST_F(QtCommandBarTest, ToolsGoOnWithoutTheirView) {
    shown.reset();
    back->Enabled = false;
    address->Value = u"https://one.example/";
    EXPECT_EQ(clicked, "");
}

TEST_F(QtCommandBarTest, PicturesComeOnceTheWindowIsShown) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown->Find(u"mnuGoBack")->icon().name() == u"go-previous"; }));
}

} // namespace
