// Tests: BandList, BarPlaces, ToolMime
#include "qt/bar/customize/ToolDrag.h"

#include "commands/DesignTimeBar.h"
#include "qt/bar/CommandBarView.h"
#include "qt/bar/customize/BandList.h"
#include "qt/bar/customize/BarPlaces.h"
#include "qt/bar/customize/ToolMime.h"
#include "qt/base/Strings.h"

#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>
#include <memory>

namespace tessa::qt {

namespace {

/// A user who drags tools about in a window with the designed bar.
class ToolDragTest : public testing::Test {
protected:
    void SetUp() override {
        DesignTimeBar::Make(bar);
        bar.Click.ConnectForLife([this](Tool& tool) { clicked += ToUtf8(tool.Name()) + ";"; });
        shown = std::make_unique<CommandBarView>(bar, window);
        window.setCentralWidget(new QWidget);
        window.resize(1200, 500);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        Begin();
    }

    void Begin() {
        drag = std::make_unique<ToolDrag>(custom, window, dialog);
        following = custom.Changed.Connect([this] { drag->Follow(); });
    }
    void End() {
        following.End();
        drag.reset();
    }

    QToolBar& ToolBarOf(const char* band) { return *window.findChild<QToolBar*>(QString::fromLatin1(band)); }
    std::string Tools(TextView band) const {
        std::string all;
        for (const BandEntry& entry : bar.FindBand(band)->Entries())
            all += (all.empty() ? "" : " ") + ToUtf8(entry.Item->Name());
        return all;
    }
    DraggedTool Command(TextView name) const { return {bar.Share(name)}; }
    DraggedTool Entry(TextView band, std::size_t index) const {
        Band* from = bar.FindBand(band);
        return {from->Entries()[index].Item, from, index};
    }

    /// Whether a tool that is dragged there would be taken.
    bool Over(QMimeData& data, QWidget& widget, const QPoint& point) {
        QWidget* target = widget.childAt(point);
        if (!target) target = &widget;
        while (!target->acceptDrops() && !target->isWindow()) target = target->parentWidget();
        const QPoint at = target->mapFromGlobal(widget.mapToGlobal(point));
        QDragEnterEvent enter(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        if (!enter.isAccepted()) return false;
        QDragMoveEvent move(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &move);
        if (!move.isAccepted()) return false;
        if (m_dropped) {
            QDropEvent drop(at, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(target, &drop);
            // Toolbars lay out what is new.
            QApplication::processEvents();
        }
        return true;
    }
    bool Drop(const DraggedTool& dragged, QWidget& widget, const QPoint& point) {
        const std::unique_ptr<QMimeData> data(ToolMime::Write(bar, dragged));
        m_dropped = true;
        return Over(*data, widget, point);
    }
    bool Hover(const DraggedTool& dragged, QWidget& widget, const QPoint& point) {
        const std::unique_ptr<QMimeData> data(ToolMime::Write(bar, dragged));
        m_dropped = false;
        return Over(*data, widget, point);
    }
    /// Just before or behind the middle of an entry.
    static QPoint Before(const QWidget& widget, std::size_t entry) {
        return BarPlaces::Entries(widget).at(entry).center() - QPoint(2, 0);
    }
    static QPoint Behind(const QWidget& widget, std::size_t entry) {
        return BarPlaces::Entries(widget).at(entry).center() + QPoint(3, 0);
    }
    BandList* Panel(const char* band) { return window.findChild<BandList*>(QString::fromLatin1(band)); }
    QPoint Menu(std::size_t entry) { return BarPlaces::Entries(*window.menuBar()).at(entry).center(); }

    CommandBar bar;
    QMainWindow window;
    QDialog dialog;
    std::unique_ptr<CommandBarView> shown;
    Customization custom{bar};
    std::unique_ptr<ToolDrag> drag;
    Connection following;
    std::string clicked;

private:
    bool m_dropped = false;
};

TEST_F(ToolDragTest, ACommandIsDroppedBetweenTheToolsOfAToolbar) {
    QToolBar& file = ToolBarOf("bndFile");
    EXPECT_TRUE(Drop(Command(u"mnuCut"), file, Before(file, 1)));
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuCut mnuOpen mnuClose mnuCloseAll");
    EXPECT_TRUE(Drop(Command(u"mnuCopy"), file, Behind(file, 4)));
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuCut mnuOpen mnuClose mnuCloseAll mnuCopy");
    EXPECT_NE(shown->Find(u"mnuCopy"), nullptr) << "the toolbar shows it at once";
}

TEST_F(ToolDragTest, ALineShowsWhereTheToolWouldGo) {
    QToolBar& file = ToolBarOf("bndFile");
    EXPECT_TRUE(Hover(Command(u"mnuCut"), file, Before(file, 1)));
    auto* line = file.findChild<QWidget*>(QStringLiteral("dropLine"));
    ASSERT_NE(line, nullptr);
    EXPECT_TRUE(line->isVisible());
    EXPECT_LE(std::abs(line->x() - BarPlaces::Entries(file)[1].left()), 3);
    EXPECT_TRUE(Drop(Command(u"mnuCut"), file, Before(file, 1)));
    EXPECT_EQ(file.findChild<QWidget*>(QStringLiteral("dropLine")), nullptr);
}

TEST_F(ToolDragTest, AToolIsDraggedToAnotherPlaceAndToAnotherToolbar) {
    QToolBar& file = ToolBarOf("bndFile");
    EXPECT_TRUE(Drop(Entry(u"bndFile", 0), file, Behind(file, 2)));
    EXPECT_EQ(Tools(u"bndFile"), "mnuOpen mnuClose tbNew mnuCloseAll");
    QToolBar& go = ToolBarOf("bndGo");
    EXPECT_TRUE(Drop(Entry(u"bndFile", 1), go, Before(go, 0)));
    EXPECT_EQ(Tools(u"bndFile"), "mnuOpen tbNew mnuCloseAll");
    EXPECT_EQ(Tools(u"bndGo").substr(0, 18), "mnuClose mnuGoBack");
}

TEST_F(ToolDragTest, ABoxIsDraggedToAnotherToolbar) {
    QToolBar& go = ToolBarOf("bndGo");
    EXPECT_TRUE(Drop(Entry(u"bndAddress", 1), go, Before(go, 0)));
    EXPECT_EQ(Tools(u"bndGo").substr(0, 10), "cboAddress");
    EXPECT_EQ(Tools(u"bndAddress"), "mnuAddress");
    EXPECT_NE(go.findChild<QLineEdit*>(), nullptr);
}

TEST_F(ToolDragTest, AToolThatIsDroppedOnNoBandIsRemoved) {
    EXPECT_TRUE(Drop(Entry(u"bndFile", 1), window, window.centralWidget()->geometry().center()));
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuClose mnuCloseAll");
    EXPECT_TRUE(Drop(Entry(u"bndFile", 0), dialog, {5, 5}));
    EXPECT_EQ(Tools(u"bndFile"), "mnuClose mnuCloseAll");
    EXPECT_FALSE(Drop(Command(u"mnuCut"), window, window.centralWidget()->geometry().center())) << "it is nowhere yet";
}

TEST_F(ToolDragTest, TheMenuBarTakesCommandsButNoBoxes) {
    QMenuBar& menuBar = *window.menuBar();
    EXPECT_TRUE(Drop(Command(u"mnuHome"), menuBar, Before(menuBar, 1)));
    EXPECT_EQ(Tools(u"bndMenu").substr(0, 23), "mnuFile mnuHome mnuEdit");
    EXPECT_FALSE(Drop(Entry(u"bndAddress", 1), menuBar, Before(menuBar, 1)));
    EXPECT_EQ(Tools(u"bndAddress"), "mnuAddress cboAddress");
}

TEST_F(ToolDragTest, OtherDataIsLeftToTheWindow) {
    QMimeData text;
    text.setText(QStringLiteral("mnuCut"));
    QToolBar& file = ToolBarOf("bndFile");
    EXPECT_FALSE(Over(text, file, Before(file, 1)));
    QMimeData broken;
    broken.setData(ToolMime::Type(), "noise");
    EXPECT_FALSE(Over(broken, file, Before(file, 1)));
}

TEST_F(ToolDragTest, OnlyWhatIsStillThereIsDropped) {
    const std::unique_ptr<QMimeData> data(ToolMime::Write(bar, Entry(u"bndFile", 1)));
    ASSERT_TRUE(ToolMime::Read(bar, data.get()));
    bar.FindBand(u"bndFile")->RemoveAt(0);
    EXPECT_FALSE(ToolMime::Read(bar, data.get())) << "another tool stands there now";
    const std::unique_ptr<QMimeData> own(ToolMime::Write(bar, Entry(u"bndFont", 1)));
    const auto read = ToolMime::Read(bar, own.get());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->Item, bar.ShareOwn(u"bndFont", u"mnuFontLarger"));
    EXPECT_FALSE(ToolMime::Read(bar, nullptr));
}

TEST_F(ToolDragTest, AToolIsNotClickedWhileItIsArranged) {
    auto* button = qobject_cast<QToolButton*>(ToolBarOf("bndFile").widgetForAction(shown->Find(u"mnuOpen")));
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicked, "");
    End();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicked, "mnuOpen;");
}

TEST_F(ToolDragTest, AMenuOpensToBeArrangedAndClosesAgain) {
    QTest::mouseClick(window.menuBar(), Qt::LeftButton, Qt::NoModifier, Menu(1));
    BandList* edit = Panel("bndEditMenu");
    ASSERT_NE(edit, nullptr);
    EXPECT_TRUE(edit->isVisible());
    EXPECT_EQ(edit->count(), 5);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "the menu itself stays closed";
    QTest::mouseClick(window.menuBar(), Qt::LeftButton, Qt::NoModifier, Menu(1));
    EXPECT_FALSE(edit->isVisible());
}

TEST_F(ToolDragTest, EscapeClosesTheMenuThatIsArrangedAndNothingElse) {
    int stops = 0, rejected = 0;
    QAction stop;
    stop.setShortcut(Qt::Key_Escape);
    window.addAction(&stop);
    QObject::connect(&stop, &QAction::triggered, [&] { ++stops; });
    QObject::connect(&dialog, &QDialog::rejected, [&] { ++rejected; });
    dialog.show();
    for (QWidget* keyboard : {static_cast<QWidget*>(&dialog), window.centralWidget()}) {
        QTest::mouseClick(window.menuBar(), Qt::LeftButton, Qt::NoModifier, Menu(1));
        QPointer<BandList> edit = Panel("bndEditMenu");
        ASSERT_TRUE(edit && edit->isVisible());
        QTest::keyClick(keyboard, Qt::Key_Escape);
        EXPECT_FALSE(edit && edit->isVisible());
        EXPECT_TRUE(dialog.isVisible());
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_EQ(stops + rejected, 0);
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(rejected, 1) << "without a menu the key is the dialog's again";
}

TEST_F(ToolDragTest, CommandsAreDroppedIntoAMenuAndItsEntriesReordered) {
    QTest::mouseClick(window.menuBar(), Qt::LeftButton, Qt::NoModifier, Menu(1));
    BandList& edit = *Panel("bndEditMenu");
    const auto at = [&](int row, int shift) {
        return edit.viewport()->mapTo(&edit, edit.visualItemRect(edit.item(row)).center() + QPoint(0, shift));
    };
    EXPECT_TRUE(Drop(Command(u"mnuHome"), edit, at(1, -3)));
    EXPECT_EQ(Tools(u"bndEditMenu"), "mnuCut mnuHome mnuCopy mnuPaste mnuSelectAll mnuFind");
    EXPECT_EQ(edit.count(), 6);
    EXPECT_TRUE(Drop(Entry(u"bndEditMenu", 1), edit, at(5, 3)));
    EXPECT_EQ(Tools(u"bndEditMenu"), "mnuCut mnuCopy mnuPaste mnuSelectAll mnuFind mnuHome");
    QToolBar& file = ToolBarOf("bndFile");
    EXPECT_TRUE(Drop(Entry(u"bndEditMenu", 0), file, Before(file, 0)));
    EXPECT_EQ(Tools(u"bndEditMenu"), "mnuCopy mnuPaste mnuSelectAll mnuFind mnuHome");
    EXPECT_EQ(Tools(u"bndFile").substr(0, 6), "mnuCut");
    EXPECT_FALSE(Drop(Entry(u"bndMenu", 1), edit, at(0, 0))) << "not into itself";
    EXPECT_TRUE(Drop(Entry(u"bndEditMenu", 4), window, window.centralWidget()->geometry().center()));
    EXPECT_EQ(Tools(u"bndEditMenu"), "mnuCopy mnuPaste mnuSelectAll mnuFind");
}

TEST_F(ToolDragTest, ADraggedToolOpensTheMenuThatItWaitsAbove) {
    EXPECT_TRUE(Hover(Command(u"mnuHome"), *window.menuBar(), Menu(1)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Panel("bndEditMenu") && Panel("bndEditMenu")->isVisible(); }));
    QToolBar& misc = ToolBarOf("bndMisc");
    const auto font = bar.FindBand(u"bndMisc")->Entries().size() - 1;
    EXPECT_TRUE(Hover(Command(u"mnuHome"), misc, Before(misc, font)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Panel("bndFont") && Panel("bndFont")->isVisible(); }));
}

TEST_F(ToolDragTest, AMenuThatIsBuiltAtRunTimeDoesNotOpen) {
    QTest::mouseClick(window.menuBar(), Qt::LeftButton, Qt::NoModifier, Menu(4));
    EXPECT_EQ(Panel("bndFavorites"), nullptr);
}

TEST_F(ToolDragTest, AMenuInAMenuOpensBesideIt) {
    bar.FindBand(u"bndEditMenu")->Insert(0, bar.Share(u"mnuFont"));
    QTest::mouseClick(window.menuBar(), Qt::LeftButton, Qt::NoModifier, Menu(1));
    BandList& edit = *Panel("bndEditMenu");
    QTest::mouseClick(edit.viewport(), Qt::LeftButton, Qt::NoModifier, edit.visualItemRect(edit.item(0)).center());
    ASSERT_NE(Panel("bndFont"), nullptr);
    EXPECT_GE(Panel("bndFont")->x(), edit.x() + edit.width() / 2);
    QTest::keyClick(&edit, Qt::Key_Escape);
    EXPECT_FALSE(Panel("bndFont") && Panel("bndFont")->isVisible());
    EXPECT_TRUE(edit.isVisible()) << "a menu at a time";
    QTest::keyClick(&edit, Qt::Key_Escape);
    EXPECT_FALSE(edit.isVisible());
}

TEST_F(ToolDragTest, AnEmptyToolbarSaysWhatItIsFor) {
    Band* made = custom.New(u"Mine");
    ASSERT_NE(made, nullptr);
    QToolBar& mine = ToolBarOf("gui1");
    ASSERT_EQ(mine.findChildren<QLabel*>().size(), 1);
    EXPECT_EQ(mine.findChildren<QLabel*>()[0]->text(), QStringLiteral("Drag tools here"));
    EXPECT_TRUE(Drop(Command(u"mnuCut"), mine, mine.rect().center()));
    EXPECT_EQ(Tools(u"gui1"), "mnuCut");
    EXPECT_EQ(mine.actions().size(), 1) << "the hint has gone";
    custom.Remove(*made, 0);
    EXPECT_EQ(mine.actions().size(), 1) << "and is back";
    End();
    EXPECT_EQ(mine.actions().size(), 0);
}

TEST_F(ToolDragTest, WithoutTheDialogNothingTakesTools) {
    End();
    QToolBar& file = ToolBarOf("bndFile");
    EXPECT_FALSE(Drop(Command(u"mnuCut"), file, Before(file, 1)));
    EXPECT_FALSE(window.acceptDrops() || window.menuBar()->acceptDrops());
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuOpen mnuClose mnuCloseAll");
}

} // namespace

} // namespace tessa::qt
