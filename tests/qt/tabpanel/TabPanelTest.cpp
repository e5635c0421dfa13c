// Tests: TabPanelView, TabPanelViewMouse, TabPanelModel, TabPanelLines, TabPanelAssembly, Rename
#include "qt/tabpanel/TabPanel.h"

#include "qt/base/Palette.h"
#include "qt/base/Strings.h"
#include "qt/dialogs/Rename.h"
#include "tabs/frmRenameTab.h"
#include "tests/fakes/BareTabs.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>
#include <random>

namespace tessa::qt {

namespace {

struct NoIcons final : TabIcons {
    [[nodiscard]] QIcon IconOf(const Tab&) const override { return {}; }
};

/// The panel of a window with tabs that are named "Title 1" and so on.
class TabPanelTest : public testing::Test, public BareTabs {
protected:
    TabPanelTest() {
        window.setCentralWidget(new QWidget);
        window.resize(900, 500);
        form.Closes.ConnectForLife([this](const auto& indexes) { tabs.CloseTabs(indexes); });
        panel.MenuRequested.ConnectForLife([this](std::int32_t view) { menuOf = view; });
        panel.GroupMenuRequested.ConnectForLife([this](std::int32_t group) { menuOf = -group; });
        panel.FocusPage.ConnectForLife([this] { ++pageFocused; });
        panel.DraggedOut.ConnectForLife([this](const auto& views, QPoint) { out = views; });
        panel.DraggedBack.ConnectForLife([this] { ++back; });
        panel.DroppedOut.ConnectForLife([this](const auto& views, QPoint) { dropped = views; });
    }
    void Open(int count) {
        StartWithTabs(count);
        for (int index = 1; index <= count; ++index) NameTab(index, u"Title " + Decimal(index));
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        form.Form.Visible = true;
        ASSERT_TRUE(QTest::qWaitFor([&] { return List().height() > 100; }));
        Settle();
    }
    void NameTab(int index, TextView title) {
        views.At(index).name = Text(title);
        pcPage.SetCaption(pcPage.FindAt(static_cast<std::size_t>(index)), Text(title));
    }
    /// The panel has looked at all changes.
    void Settle() {
        List().RefreshFaces();
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    TabPanelView& List() { return *window.findChild<TabPanelView*>(QStringLiteral("lstTabs")); }
    QLineEdit& Filter() { return *window.findChild<QLineEdit*>(QStringLiteral("txtFilter")); }
    QPoint LineOf(std::int32_t view) {
        const QRect line = List().visualRect(List().Lines().IndexOf(view));
        return {line.left() + 40, line.center().y()};
    }
    void Click(std::int32_t view, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, held, LineOf(view));
        Settle();
    }
    void DragTo(std::int32_t view, QPoint to) {
        auto* lines = List().viewport();
        const QPoint from = LineOf(view);
        QTest::mousePress(lines, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 4; ++step) QTest::mouseMove(lines, from + (to - from) * step / 4);
    }
    void Release(QPoint at) {
        QTest::mouseRelease(List().viewport(), Qt::LeftButton, {}, at);
        Settle();
    }
    [[nodiscard]] std::string Order() {
        std::string all;
        const auto& lines = List().Lines();
        for (int row = 0; row < lines.rowCount(); ++row) {
            const std::int32_t view = lines.ViewAt(lines.index(row, 0));
            all += (all.empty() ? "" : " ") + std::to_string(view);
            const Tab* tab = form.FindTab(view);
            if (tab && tab == form.Front()) all += "*";
            if (tab && tab->Chosen()) all += "+";
        }
        return all;
    }
    /// What a screen reader takes for selected.
    [[nodiscard]] std::string Selected() {
        std::string all;
        for (const QModelIndex& each : List().selectionModel()->selectedRows())
            all += (all.empty() ? "" : " ") + std::to_string(List().Lines().ViewAt(each));
        return all;
    }

    QMainWindow window;
    TabChoice choice{pcPage};
    TabGroups groups{tabs, pcPage, Browser};
    frmTabPanel form{{pcPage, Browser, tabs, choice, groups}};
    NoIcons icons;
    TabPanel panel{form, icons, window};
    std::int32_t menuOf = 0;
    int pageFocused = 0, back = 0;
    TabPanelView::Views out, dropped;
};

TEST_F(TabPanelTest, IsNotThereWhileItIsClosed) {
    StartWithTabs(3);
    window.show();
    EXPECT_EQ(window.findChild<TabPanelView*>(), nullptr);
    form.Form.Visible = true;
    ASSERT_NE(window.findChild<TabPanelView*>(), nullptr);
    form.Form.Visible = false;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window.findChild<TabPanelView*>(); }));
}

TEST_F(TabPanelTest, FollowsTheStrip) {
    Open(4);
    EXPECT_EQ(Order(), "1* 2 3 4");
    MoveTab(4, 1);
    Close(2);
    Settle();
    EXPECT_EQ(Order(), "4 1* 3");
    tabs.GetNewBrowser(InFront::Yes);
    Settle();
    EXPECT_EQ(Order(), "4 1 5* 3");
    EXPECT_EQ(Selected(), "5");
}

TEST_F(TabPanelTest, AClickBringsToTheFront) {
    Open(4);
    Click(3);
    EXPECT_EQ(Order(), "1 2 3* 4");
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, LineOf(4));
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, LineOf(4));
    QTest::mouseRelease(List().viewport(), Qt::LeftButton, {}, LineOf(4));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, QPoint(40, List().viewport()->height() - 3));
    Settle();
    EXPECT_EQ(form.Front()->Tag, 4);
}

TEST_F(TabPanelTest, CtrlAndShiftChoose) {
    Open(6);
    Click(3, Qt::ControlModifier);
    EXPECT_EQ(Order(), "1*+ 2 3+ 4 5 6");
    EXPECT_EQ(Selected(), "1 3");
    Click(5, Qt::ShiftModifier);
    EXPECT_EQ(Order(), "1* 2 3+ 4+ 5+ 6");
    EXPECT_EQ(Selected(), "3 4 5");
    Click(2);
    EXPECT_EQ(Order(), "1 2* 3 4 5 6");
}

TEST_F(TabPanelTest, KeysGoFromLineToLine) {
    Open(5);
    List().setFocus();
    QTest::keyClick(&List(), Qt::Key_Down);
    QTest::keyClick(&List(), Qt::Key_Down, Qt::ShiftModifier);
    Settle();
    EXPECT_EQ(Order(), "1*+ 2+ 3+ 4 5") << "from the tab in front to the line";
    QTest::keyClick(&List(), Qt::Key_Delete);
    Settle();
    EXPECT_EQ(Order(), "4* 5");
    QTest::keyClick(&List(), Qt::Key_End);
    QTest::keyClick(&List(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(Order(), "4 5*");
    QTest::keyClick(&List(), Qt::Key_A, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(Selected(), "4 5");
    QTest::keyClick(&List(), Qt::Key_Escape);
    EXPECT_EQ(pageFocused, 1);
}

TEST_F(TabPanelTest, TypingFilters) {
    Open(12);
    List().setFocus();
    QTest::keyClicks(&List(), QStringLiteral("t"));
    QTest::keyClicks(&Filter(), QStringLiteral("itle 1"));
    Settle();
    EXPECT_EQ(ToUtf8(form.txtFilter.Value()), "title 1");
    EXPECT_EQ(Order(), "1* 10 11 12");
    QTest::keyClick(&Filter(), Qt::Key_Escape);
    Settle();
    EXPECT_EQ(List().Lines().rowCount(), 12);
    QTest::keyClick(&Filter(), Qt::Key_Escape);
    EXPECT_EQ(pageFocused, 1);
    QTest::keyClicks(&Filter(), QStringLiteral("8"));
    QTest::keyClick(&Filter(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(form.Front()->Tag, 8);
}

TEST_F(TabPanelTest, FilterOfAnyCharactersAndTitlesOfAnyDirection) {
    Open(3);
    NameTab(2, u"\u202E\u05E9\u05DC\u05D5\u05DD (1)");
    for (const char16_t* each : {u"\u05E9\u05DC", u".*\\[", u"\u202E", u"%s%n", u"\u0000x"}) {
        Filter().setText(QString::fromUtf16(each));
        Settle();
        List().grab();
    }
    Filter().setText(QString::fromUtf16(u"\u05E9\u05DC"));
    Settle();
    EXPECT_EQ(Order(), "2");
    EXPECT_FALSE(List().Lines().index(0, 0).data().toString().contains(QChar(0x202E)));
}

TEST_F(TabPanelTest, LinesAreDraggedToAnotherPlace) {
    Open(5);
    const QPoint end = LineOf(4) + QPoint(0, 8);
    DragTo(2, end);
    Release(end);
    EXPECT_EQ(Order(), "1* 3 4 2 5") << "and stays behind the front";
    choice.Replace({3, 5});
    Settle();
    const QPoint top = LineOf(1) - QPoint(0, 8);
    DragTo(5, top);
    Release(top);
    EXPECT_EQ(Order(), "3+ 5+ 1* 4 2");
}

TEST_F(TabPanelTest, TabsMayCloseWhileTheyAreDragged) {
    Open(5);
    choice.Replace({2, 3, 4});
    Settle();
    const QPoint end = LineOf(5) + QPoint(0, 8);
    DragTo(3, end);
    Close(3);
    Close(5);
    Settle();
    Release(end);
    EXPECT_EQ(Order(), "1* 2+ 4+");
    DragTo(2, LineOf(1) - QPoint(0, 8));
    Close(2);
    Close(4);
    Settle();
    Release(QPoint(40, 4));
    EXPECT_EQ(Order(), "1*");
}

TEST_F(TabPanelTest, LinesAreDraggedToThePages) {
    Open(4);
    choice.Replace({2, 3});
    Settle();
    const QPoint page(List().width() + 200, 60);
    DragTo(3, page);
    EXPECT_EQ(out, (TabPanelView::Views{2, 3}));
    QTest::mouseMove(List().viewport(), LineOf(4));
    EXPECT_EQ(back, 1);
    QTest::mouseMove(List().viewport(), page);
    Release(page);
    EXPECT_EQ(dropped, (TabPanelView::Views{2, 3}));
    EXPECT_EQ(Order(), "1* 2+ 3+ 4");
}

TEST_F(TabPanelTest, EscapeEndsADrag) {
    Open(4);
    List().setFocus();
    DragTo(2, LineOf(4) + QPoint(0, 8));
    QTest::keyClick(&List(), Qt::Key_Escape);
    Release(LineOf(4) + QPoint(0, 8));
    EXPECT_EQ(Order(), "1* 2 3 4");
}

TEST_F(TabPanelTest, LinksGoToOtherPrograms) {
    const std::unique_ptr<QMimeData> links(TabPanelView::LinksOf({u"http://a/", u"http://b/x y"}));
    EXPECT_EQ(links->urls().size(), 2);
    EXPECT_EQ(links->text(), QStringLiteral("http://a/\nhttp://b/x y"));
}

TEST_F(TabPanelTest, TheButtonsOfALineAreItsTabs) {
    Open(4);
    pcPage.SetSound(pcPage.FindAt(2), TabSound::Playing);
    Settle();
    const auto line = [&](std::int32_t view) { return List().visualRect(List().Lines().IndexOf(view)); };
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, TabPanelLines::SoundPlace(line(2)).center());
    EXPECT_TRUE(views.At(2).muted);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, TabPanelLines::ClosePlace(line(3)).center());
    Settle();
    EXPECT_EQ(Order(), "1* 2 4");
    QTest::mouseClick(List().viewport(), Qt::MiddleButton, {}, LineOf(2));
    Settle();
    EXPECT_EQ(Order(), "1* 4");
}

TEST_F(TabPanelTest, ThePopUpIsThatOfTheLine) {
    Open(3);
    const auto ask = [&](QContextMenuEvent::Reason reason, QPoint at) {
        QContextMenuEvent event(reason, at, List().viewport()->mapToGlobal(at));
        QApplication::sendEvent(List().viewport(), &event);
    };
    ask(QContextMenuEvent::Mouse, LineOf(2));
    EXPECT_EQ(menuOf, 2);
    List().setCurrentIndex(List().Lines().IndexOf(3));
    ask(QContextMenuEvent::Keyboard, QPoint(0, 0));
    EXPECT_EQ(menuOf, 3);
    EXPECT_EQ(form.Front()->Tag, 1) << "it brings none to the front";
}

TEST_F(TabPanelTest, ALineIsRenamedInItsPlace) {
    Open(3);
    List().setFocus();
    List().setCurrentIndex(List().Lines().IndexOf(2));
    QTest::keyClick(&List(), Qt::Key_F2);
    auto* editor = List().findChild<QLineEdit*>(QStringLiteral("txtName"));
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), QStringLiteral("Title 2"));
    // Another tab comes meanwhile: nothing typed is lost.
    editor->setText(QStringLiteral("Mail"));
    NameTab(2, u"Another title");
    tabs.GetNewBrowser(InFront::No);
    Settle();
    ASSERT_EQ(List().findChild<QLineEdit*>(QStringLiteral("txtName")), editor);
    EXPECT_EQ(editor->text(), QStringLiteral("Mail"));
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
    EXPECT_EQ(form.FindTab(2)->Name(), u"Mail");
    EXPECT_EQ(List().Lines().IndexOf(2).data().toString(), QStringLiteral("Mail"));
}

TEST_F(TabPanelTest, TheDialogRenamesToo) {
    Open(1);
    frmRenameTab rename(*pcPage.FindAt(1));
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QLineEdit*>()->setText(QStringLiteral("Mail"));
        QTest::keyClick(dialog->findChild<QLineEdit*>(), Qt::Key_Return);
    });
    ShowModal(rename, &window);
    EXPECT_EQ(rename.Name, u"Mail");
}

TEST_F(TabPanelTest, GroupsFoldAndUnfold) {
    Open(4);
    const std::int32_t news = groups.Begin(2, u"News", {});
    groups.Add(3, news);
    Settle();
    EXPECT_EQ(Order(), "1* " + std::to_string(-news) + " 2 3 4");
    List().grab();
    Click(-news);
    EXPECT_EQ(Order(), "1* " + std::to_string(-news) + " 4");
    List().setCurrentIndex(List().Lines().IndexOf(-news));
    QTest::keyClick(&List(), Qt::Key_Right);
    Settle();
    EXPECT_EQ(List().Lines().rowCount(), 5);
    EXPECT_TRUE(List()
                    .Lines()
                    .IndexOf(-news)
                    .data(Qt::AccessibleDescriptionRole)
                    .toString()
                    .contains(QStringLiteral("2 tabs")));
}

TEST_F(TabPanelTest, LinesAreDraggedIntoGroupsAndOutOfThem) {
    Open(5);
    const std::int32_t news = groups.Begin(2, u"News", {});
    groups.Add(3, news);
    Settle();
    const std::string head = " " + std::to_string(-news) + " ";
    const auto drag = [this](std::int32_t view, QPoint to) {
        DragTo(view, to);
        const QImage shown = List().grab().toImage();
        Release(to);
        EXPECT_NE(List().grab().toImage(), shown) << "it is seen where the line would come";
    };
    const auto groupOf = [this](std::int32_t view) {
        const auto* group = groups.Of(view);
        return group ? group->Id() : 0;
    };
    drag(4, LineOf(3) + QPoint(0, 6));
    EXPECT_EQ(Order(), "1*" + head + "2 3 4 5");
    EXPECT_EQ(groupOf(4), news) << "in the lower half of the last one";
    drag(4, LineOf(5) - QPoint(0, 6));
    EXPECT_EQ(Order(), "1*" + head + "2 3 4 5");
    EXPECT_EQ(groupOf(4), 0) << "in the upper half of the next one";
    drag(5, LineOf(-news));
    EXPECT_EQ(Order(), "1*" + head + "5 2 3 4");
    EXPECT_EQ(groupOf(5), news) << "on the name";
    Click(-news);
    drag(4, LineOf(-news));
    EXPECT_EQ(groupOf(4), news) << "on that of a folded one";
    EXPECT_EQ(Order(), "1*" + head.substr(0, head.size() - 1));
    drag(1, LineOf(-news) + QPoint(0, LineOf(-news).y() / 2));
    EXPECT_EQ(Order(), head.substr(1) + "1*");
    EXPECT_EQ(groupOf(1), 0);
    drag(-news, QPoint(40, List().viewport()->height() - 4));
    EXPECT_EQ(Order(), "1*" + head.substr(0, head.size() - 1));
}

TEST_F(TabPanelTest, AScreenReaderHearsWhetherAGroupIsFoldedAndWhatIsInIt) {
    Open(4);
    const std::int32_t news = groups.Begin(2, u"News", {});
    groups.Add(3, news);
    Settle();
    auto* list = QAccessible::queryAccessibleInterface(&List());
    ASSERT_NE(list, nullptr);
    const auto line = [&](std::int32_t view) { return list->child(List().Lines().IndexOf(view).row() + 1); };
    EXPECT_EQ(list->role(), QAccessible::Tree);
    EXPECT_EQ(line(-news)->role(), QAccessible::TreeItem);
    EXPECT_TRUE(line(-news)->state().expandable);
    EXPECT_TRUE(line(-news)->state().expanded);
    EXPECT_FALSE(line(1)->state().expandable);
    EXPECT_TRUE(List()
                    .Lines()
                    .IndexOf(2)
                    .data(Qt::AccessibleDescriptionRole)
                    .toString()
                    .contains(QStringLiteral("in the group News")));
    Click(-news);
    EXPECT_TRUE(line(-news)->state().expandable);
    EXPECT_FALSE(line(-news)->state().expanded);
    Filter().setText(QStringLiteral("title"));
    Settle();
    EXPECT_TRUE(line(-news)->state().expanded) << "while somebody looks for something all are seen";
    QAbstractItemModelTester tester(&List().Lines(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    Filter().clear();
    Settle();
    EXPECT_EQ(List().Lines().rowCount(), 3);
}

TEST_F(TabPanelTest, AScreenReaderHearsOfEachLine) {
    Open(3);
    choice.Replace({1, 2});
    Settle();
    auto* list = QAccessible::queryAccessibleInterface(&List());
    ASSERT_NE(list, nullptr);
    // The first one is the header, which is hidden and says nothing.
    ASSERT_EQ(list->childCount(), 4);
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), QString());
    EXPECT_EQ(list->child(2)->text(QAccessible::Name), QStringLiteral("Title 2"));
    EXPECT_TRUE(list->child(2)->state().selected);
    EXPECT_FALSE(list->child(3)->state().selected);
    EXPECT_EQ(List().Lines().IndexOf(1).data(Qt::AccessibleDescriptionRole).toString(),
              QStringLiteral("in front, selected"));
}

TEST_F(TabPanelTest, StaysOnItsSideAndKeepsItsWidth) {
    Open(2);
    auto* dock = window.findChild<QDockWidget*>(QStringLiteral("tabs"));
    EXPECT_EQ(window.dockWidgetArea(dock), Qt::LeftDockWidgetArea);
    form.OnRight = true;
    EXPECT_EQ(window.dockWidgetArea(dock), Qt::RightDockWidgetArea);
    form.Form.Visible = false;
    form.Width = 321;
    form.Form.Visible = true;
    dock = window.findChild<QDockWidget*>(QStringLiteral("tabs"));
    EXPECT_EQ(window.dockWidgetArea(dock), Qt::RightDockWidgetArea);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dock->width() == 321; })) << dock->width();
    window.resize(1100, 500);
    EXPECT_TRUE(QTest::qWaitFor([&] { return dock->width() == 321; })) << dock->width();
}

TEST_F(TabPanelTest, ManyChangesInAnyOrderEndAsTheStripIs) {
    Open(30);
    QAbstractItemModelTester tester(&List().Lines(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::mt19937 random(7);
    const auto any = [&](std::size_t most) { return std::uniform_int_distribution<std::size_t>(1, most)(random); };
    for (int step = 0; step < 200; ++step) {
        const std::size_t count = pcPage.Count();
        if (any(3) == 1) tabs.GetNewBrowser(InFront::No);
        if (any(3) == 1 && count > 2) Close(pcPage.FindAt(any(count))->Tag);
        pcPage.Move(pcPage.FindAt(any(pcPage.Count())), any(pcPage.Count()));
        if (any(4) == 1) Settle();
    }
    Settle();
    std::string strip;
    for (std::size_t position = 1; position <= pcPage.Count(); ++position) {
        const Tab* tab = pcPage.FindAt(position);
        strip += (strip.empty() ? "" : " ") + std::to_string(tab->Tag) + (tab == form.Front() ? "*" : "");
    }
    EXPECT_EQ(Order(), strip);
}

TEST_F(TabPanelTest, AThousandTabsAreShownAndScrolled) {
    Open(1000);
    EXPECT_EQ(List().Lines().rowCount(), 1000);
    pcPage.Select(pcPage.FindAt(900));
    Settle();
    EXPECT_TRUE(List().viewport()->rect().intersects(List().visualRect(List().Lines().IndexOf(form.Front()->Tag))));
    const int scrolled = List().verticalScrollBar()->value();
    choice.All();
    Settle();
    EXPECT_EQ(List().verticalScrollBar()->value(), scrolled);
    EXPECT_EQ(List().selectionModel()->selectedRows().size(), 1000);
}

} // namespace

} // namespace tessa::qt
