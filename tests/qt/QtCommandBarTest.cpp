#include "qt/QtCommandBar.h"

#include "qt/QtAddressBox.h"
#include "qt/QtText.h"

#include <QAction>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

class QtCommandBarTest : public testing::Test {
protected:
    void SetUp() override {
        AddTool(u"mnuFile", u"&File")->SubBand = u"bndFileMenu";
        back = AddTool(u"mnuGoBack", u"&Back");
        back->Image = {u"go-previous"};
        AddTool(u"mnuStop", u"&Stop");
        status = AddTool(u"mnuViewStatusbar", u"S&tatus Bar");
        AddTool(u"mnuNewBlank", u"New &Blank");
        address = bar.Add(std::make_unique<ComboTool>(9, u"cboAddress"));
        AddBand(u"bndMenu", BandKind::MenuBar, {u"mnuFile"});
        AddBand(u"bndFileMenu", BandKind::Menu, {u"mnuNewBlank", u"mnuViewStatusbar", u"mnuGoBack"});
        AddBand(u"bndGo", BandKind::Toolbar, {u"mnuGoBack", u"mnuStop", u"mnuViewStatusbar", u"cboAddress"});
        bar.Click = [this](Tool& tool) { clicked += ToUtf8(tool.Name()) + ";"; };
        window.resize(800, 300);
        shown = std::make_unique<QtCommandBar>(bar, window);
        bar.ComboKeyDown = [this](ComboTool& box, KeyStroke) {
            entered += ToUtf8(box.Value()) + ";";
            return KeyUsed::Yes;
        };
    }

    Tool* AddTool(TextView name, TextView caption) {
        return bar.Add(std::make_unique<Tool>(++lastId, Text(name), Text(caption)));
    }

    void AddBand(TextView name, BandKind kind, const std::vector<TextView>& tools) {
        Band* band = bar.AddBand(Text(name), Text(name), kind);
        for (const TextView tool : tools) band->Append(bar.Share(tool));
    }

    QtAddressBox& Box() { return *shown->Box(u"cboAddress"); }

    void ShowWindow() {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    CommandBar bar;
    Tool* back = nullptr;
    Tool* status = nullptr;
    ComboTool* address = nullptr;
    QMainWindow window;
    std::unique_ptr<QtCommandBar> shown;
    std::int32_t lastId = 0;
    std::string clicked, entered;
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
    ShowWindow();
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
    ShowWindow();
    QMenu* menu = window.menuBar()->actions().constFirst()->menu();
    QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->isVisible(); }));
    QTest::keyClick(menu, Qt::Key_T);
    EXPECT_EQ(clicked, "mnuViewStatusbar;");
}

TEST_F(QtCommandBarTest, TheAddressBoxAndItsToolShowTheSame) {
    address->Value = u"https://one.example/";
    EXPECT_EQ(Box().text(), QStringLiteral("https://one.example/"));
    ShowWindow();
    Box().setFocus();
    Box().selectAll();
    QTest::keyClicks(&Box(), QStringLiteral("two"));
    EXPECT_EQ(ToUtf8(address->Value()), "two");
    QTest::keyClick(&Box(), Qt::Key_Return);
    EXPECT_EQ(entered, "two;");
}

TEST_F(QtCommandBarTest, TypingInTheMiddleKeepsTheCaret) {
    ShowWindow();
    address->Value = u"ac";
    Box().setFocus();
    Box().setCursorPosition(1);
    QTest::keyClicks(&Box(), QStringLiteral("b"));
    EXPECT_EQ(ToUtf8(address->Value()), "abc");
    EXPECT_EQ(Box().cursorPosition(), 2);
}

TEST_F(QtCommandBarTest, AClickIntoTheAddressBoxSelectsAllAndASecondDoesNot) {
    address->Value = u"https://one.example/";
    ShowWindow();
    Box().clearFocus();
    QTest::mouseClick(&Box(), Qt::LeftButton);
    EXPECT_EQ(Box().selectedText(), QStringLiteral("https://one.example/"));
    QTest::mouseClick(&Box(), Qt::LeftButton);
    EXPECT_FALSE(Box().hasSelectedText());
}

TEST_F(QtCommandBarTest, EscapeInTheAddressBoxRestoresThePageAddressAndStopsNothing) {
    address->Value = u"https://one.example/";
    ShowWindow();
    Box().setFocus();
    QTest::keyClicks(&Box(), QStringLiteral("xyz"));
    ASSERT_NE(ToUtf8(address->Value()), "https://one.example/");
    QTest::keyClick(&Box(), Qt::Key_Escape);
    EXPECT_EQ(ToUtf8(address->Value()), "https://one.example/");
    EXPECT_EQ(Box().text(), QStringLiteral("https://one.example/"));
    EXPECT_EQ(clicked, "");
}

TEST_F(QtCommandBarTest, ToolsGoOnWithoutTheirView) {
    shown.reset();
    back->Enabled = false;
    address->Value = u"https://one.example/";
    EXPECT_EQ(clicked, "");
}

TEST_F(QtCommandBarTest, PicturesComeOnceTheWindowIsShown) {
    ShowWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown->Find(u"mnuGoBack")->icon().name() == u"go-previous"; }));
}

} // namespace
