// Tests: EntryGestures, ToolActions, ToolBars
#include "tests/qt/bar/BarDesk.h"

#include <QMenu>
#include <QMenuBar>

namespace tessa::qt {

namespace {

class CommandBarViewTest : public BarDesk {
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

TEST_F(CommandBarViewTest, AToolIsOneActionWithItsNameAndAccessKey) {
    QAction* action = shown->Find(u"mnuViewStatusbar");
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->objectName(), QStringLiteral("mnuViewStatusbar"));
    EXPECT_EQ(action->text(), QStringLiteral("S&tatus Bar"));
    EXPECT_EQ(shown->Find(u"mnuUnknown"), nullptr);
    EXPECT_EQ(shown->Find(u"cboAddress"), nullptr);
}

TEST_F(CommandBarViewTest, WhatATriggeredActionDoesIsUpToTheBar) {
    shown->Find(u"mnuGoBack")->trigger();
    EXPECT_EQ(clicked, "mnuGoBack;");
    back->Enabled = false;
    shown->Find(u"mnuGoBack")->trigger();
    EXPECT_EQ(clicked, "mnuGoBack;");
}

TEST_F(CommandBarViewTest, CaptionAndEnablingFollowTheTool) {
    back->Caption = u"Go &back";
    back->Enabled = false;
    EXPECT_EQ(shown->Find(u"mnuGoBack")->text(), QStringLiteral("Go &back"));
    EXPECT_FALSE(shown->Find(u"mnuGoBack")->isEnabled());
}

TEST_F(CommandBarViewTest, OnlyTheToolChangesItsCheckMark) {
    QAction* action = shown->Find(u"mnuViewStatusbar");
    EXPECT_FALSE(action->isChecked());
    status->Checked = true;
    EXPECT_TRUE(action->isChecked());
    action->trigger();
    EXPECT_TRUE(action->isChecked());
    status->Checked = false;
    EXPECT_FALSE(action->isChecked());
}

TEST_F(CommandBarViewTest, AMenuListsItsBandWhenItOpens) {
    QMenu* menu = window.menuBar()->actions().constFirst()->menu();
    EXPECT_TRUE(menu->isEmpty());
    bar.BandOpen.ConnectForLife([this](Band& band) { band.Append(bar.Share(u"mnuStop"), BeginGroup::Yes); });
    menu->popup({});
    std::string entries;
    for (const QAction* entry : menu->actions())
        entries += entry->isSeparator() ? "|," : entry->objectName().toStdString() + ",";
    menu->close();
    EXPECT_EQ(entries, "mnuNewBlank,mnuViewStatusbar,mnuGoBack,|,mnuStop,");
}

TEST_F(CommandBarViewTest, AnAccessKeyOpensItsMenu) {
    QMenu* menu = window.menuBar()->actions().constFirst()->menu();
    QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->isVisible(); }));
    QTest::keyClick(menu, Qt::Key_T);
    EXPECT_EQ(clicked, "mnuViewStatusbar;");
}

/// An open menu with a folder in it, and what its entries have been asked.
class EntryMenuTest : public CommandBarViewTest {
protected:
    EntryMenuTest() { gestures = &m_entries; }

    void SetUp() override {
        CommandBarViewTest::SetUp();
        AddTool(u"folder", u"Folder")->SubBand = u"zzzfolder";
        AddTool(u"xtrFolderOpen", u"&Open");
        AddBand(u"zzzfolder", BandKind::Popup, {});
        AddBand(u"bndFavoriteFolder", BandKind::Popup, {u"xtrFolderOpen"});
        bar.FindBand(u"bndFileMenu")->Append(bar.Share(u"folder"));
        menu = window.menuBar()->actions().constFirst()->menu();
        // A menu takes no click where the pointer was when it opened.
        QTest::mouseMove(&window, window.rect().bottomRight() - QPoint(9, 9));
        menu->popup(window.mapToGlobal(QPoint(0, 30)));
    }
    [[nodiscard]] QPoint Place(TextView tool) const { return menu->actionGeometry(shown->Find(tool)).center(); }
    /// Asks for the pop-up of an entry with the mouse; the menu that came up, if any.
    QMenu* RightClick(TextView tool) const {
        QTest::mouseClick(menu, Qt::RightButton, {}, Place(tool));
        auto* top = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return top == menu ? nullptr : top;
    }
    /// What the desktop sends besides the key or the click.
    void Ask(QContextMenuEvent::Reason by) const {
        QContextMenuEvent event(by, Place(u"folder"), menu->mapToGlobal(Place(u"folder")));
        QApplication::sendEvent(menu, &event);
    }
    QMenu* menu = nullptr;

private:
    class Entries final : public EntryGestures {
    public:
        explicit Entries(EntryMenuTest& test) : m_test(test) {}
        bool EntryPopup(const Tool& tool) override {
            const bool pops = tool.Name() == u"folder";
            if (pops) m_test.bar.Popup(u"bndFavoriteFolder");
            return pops;
        }
        std::function<void()> EntryMiddleClick(const Tool& tool) override {
            return [this, name = ToUtf8(tool.Name())] { m_test.clicked += "middle " + name + ";"; };
        }
        std::function<void()> EntryDelete(const Tool& tool) override {
            if (tool.Name() != u"folder") return {};
            return [this] { m_test.clicked += "delete;"; };
        }

    private:
        EntryMenuTest& m_test;
    };
    Entries m_entries{*this};
};

TEST_F(EntryMenuTest, ABarWithoutGesturesHasNone) {
    const Tool tool(99, u"plain", u"Plain");
    EXPECT_FALSE(EntryGestures::None().EntryPopup(tool));
    EXPECT_FALSE(EntryGestures::None().EntryMiddleClick(tool));
    EXPECT_FALSE(EntryGestures::None().EntryDelete(tool));
}

TEST_F(EntryMenuTest, AnEntryPopsUpWhatToDoWithItAndThenAllMenusClose) {
    QMenu* popup = RightClick(u"folder");
    ASSERT_NE(popup, nullptr);
    EXPECT_TRUE(menu->isVisible());
    QTest::keyClick(popup, Qt::Key_O);
    EXPECT_EQ(clicked, "xtrFolderOpen;");
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

/// Counts how often a widget's timers have run out.
class TimersRunOut final : public QObject {
public:
    explicit TimersRunOut(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Timer) ++count;
        return QObject::eventFilter(watched, event);
    }
    int count = 0;
};

TEST_F(EntryMenuTest, TheMenuOfAnEntryDoesNotComeUpOverWhatPopsUp) {
    QMenu* entrys = shown->Find(u"folder")->menu();
    const TimersRunOut delay(*menu);
    QTest::mouseMove(menu, menu->actionGeometry(shown->Find(u"folder")).topLeft() + QPoint(3, 3));
    ASSERT_EQ(menu->activeAction(), shown->Find(u"folder"));
    const QMenu* popup = RightClick(u"folder");
    ASSERT_NE(popup, nullptr);
    Ask(QContextMenuEvent::Mouse);
    EXPECT_FALSE(entrys->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return delay.count > 0; }));
    EXPECT_FALSE(entrys->isVisible());
    EXPECT_EQ(QApplication::activePopupWidget(), popup);
}

TEST_F(EntryMenuTest, AnEntryWithoutACommandOfItsOwnPopsUpNothing) {
    EXPECT_EQ(RightClick(u"mnuGoBack"), nullptr);
    EXPECT_EQ(clicked, "mnuGoBack;") << "the right button chooses like the left one";
}

TEST_F(EntryMenuTest, AnEntryPopsUpByKeyboard) {
    menu->setActiveAction(shown->Find(u"folder"));
    Ask(QContextMenuEvent::Keyboard);
    EXPECT_NE(QApplication::activePopupWidget(), menu);
}

TEST_F(EntryMenuTest, AMiddleClickOnAMenusEntryRunsOnceAllMenusHaveClosed) {
    QTest::mouseClick(menu, Qt::MiddleButton, {}, Place(u"folder"));
    EXPECT_EQ(clicked, "") << "not while a menu is open";
    EXPECT_FALSE(menu->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return clicked == "middle folder;"; }));
}

TEST_F(EntryMenuTest, TheDeleteKeyOnAnEntryRunsOnceAllMenusHaveClosed) {
    menu->setActiveAction(shown->Find(u"mnuGoBack"));
    QTest::keyClick(menu, Qt::Key_Delete);
    EXPECT_TRUE(menu->isVisible()) << "nothing is to be deleted there";
    menu->setActiveAction(shown->Find(u"folder"));
    QTest::keyClick(menu, Qt::Key_Delete);
    EXPECT_EQ(clicked, "") << "not while a menu is open";
    EXPECT_FALSE(menu->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return clicked == "delete;"; }));
}

TEST_F(EntryMenuTest, AMenuOfNothingSaysSo) {
    QMenu* below = shown->Find(u"folder")->menu();
    below->popup({});
    ASSERT_EQ(below->actions().size(), 1);
    EXPECT_EQ(below->actions().constFirst()->text(), QStringLiteral("(Empty)"));
    EXPECT_FALSE(below->actions().constFirst()->isEnabled());
    below->close();
    bar.FindBand(u"zzzfolder")->Append(bar.Share(u"mnuStop"));
    below->popup({});
    ASSERT_EQ(below->actions().size(), 1);
    EXPECT_EQ(below->actions().constFirst()->objectName(), QStringLiteral("mnuStop"));
    below->close();
}

TEST_F(CommandBarViewTest, ToolsGoOnWithoutTheirView) {
    shown.reset();
    back->Enabled = false;
    address->Value = u"https://one.example/";
    EXPECT_EQ(clicked, "");
}

TEST_F(CommandBarViewTest, PicturesComeOnceTheWindowIsShown) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown->Find(u"mnuGoBack")->icon().name() == u"go-previous"; }));
}

} // namespace

} // namespace tessa::qt
