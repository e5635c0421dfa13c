// Tests: ItemRows
#include "qt/dialogs/TaskViewPresenter.h"

#include "qt/base/Strings.h"
#include "tests/Desk.h"
#include "tests/fakes/FakeProcesses.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace tessa::qt {

namespace {

/// A window with three tabs and the task view above it, and a user with a keyboard.
class TaskViewPresenterTest : public testing::Test {
protected:
    TaskViewPresenterTest() {
        desk.StartWithTabs(3);
        Page(1, u"News", 11);
        Page(2, u"<b>Weather</b>", 12);
        Page(3, u"Apples", 13);
        // Not the system's own figures.
        meter.processes = {{11, {80'000'000, {}}}, {12, {120'000'000, {}}}, {13, {40'000'000, {}}}};
        form.MeasureBy(meter);
        window.resize(300, 200);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void Page(int index, TextView name, std::int64_t process) {
        auto& view = desk.views.At(index);
        view.name = name;
        view.location = u"http://" + Decimal(index) + u".example/";
        view.process = process;
    }
    void Open() {
        desk.Click(u"xtrTaskView");
        ASSERT_NE(Dialog(), nullptr);
        ASSERT_TRUE(QTest::qWaitFor([this] { return Dialog()->isActiveWindow(); }));
    }
    [[nodiscard]] TaskDialog* Dialog() const { return window.findChild<TaskDialog*>(); }
    [[nodiscard]] QTreeWidget& Tasks() const { return *Dialog()->findChild<QTreeWidget*>(); }
    template<typename T>
    [[nodiscard]] T& Find(const char* name) const {
        return *Dialog()->findChild<T*>(QLatin1String(name));
    }
    [[nodiscard]] QString Titles() const {
        QStringList all;
        for (int i = 0; i < Tasks().topLevelItemCount(); ++i) {
            const auto* item = Tasks().topLevelItem(i);
            all << (item == Tasks().currentItem() ? u'[' + item->text(0) + u']' : item->text(0));
        }
        return all.join(u' ');
    }
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    Desk desk;
    QWidget window;
    frmTaskView& form = desk.main.TaskView();
    FakeProcesses meter;
    TaskViewPresenter view{form, window};
};

TEST_F(TaskViewPresenterTest, IsNotThereUntilItIsOpened) {
    EXPECT_EQ(Dialog(), nullptr);
    Open();
    EXPECT_EQ(Dialog()->windowTitle(), QStringLiteral("Task View"));
    EXPECT_FALSE(Dialog()->isModal());
    EXPECT_TRUE(Tasks().hasFocus());
    EXPECT_EQ(Titles(), QStringLiteral("<b>Weather</b> [News] Apples"));
    EXPECT_EQ(Tasks().topLevelItem(0)->text(3), QStringLiteral("120 MB"));
    EXPECT_FALSE(Tasks().topLevelItem(0)->toolTip(0).contains(QStringLiteral("<b>"))) << "a title is never HTML";
}

TEST_F(TaskViewPresenterTest, EscapeClosesIt) {
    Open();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(form.Form.Visible());
    EXPECT_FALSE(Dialog()->isVisible());
    EXPECT_EQ(Tasks().topLevelItemCount(), 0);
    Open();
    EXPECT_EQ(Tasks().topLevelItemCount(), 3);
    Dialog()->close();
    EXPECT_FALSE(form.Form.Visible());
}

TEST_F(TaskViewPresenterTest, ArrowsChooseAndEnterGoesToTheTab) {
    Open();
    Press(Qt::Key_Down);
    EXPECT_EQ(form.lstTasks.FindSelected()->Key, u"Tab3");
    Press(Qt::Key_Return);
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isActiveWindow(); }));
    EXPECT_TRUE(Dialog()->isVisible());
}

TEST_F(TaskViewPresenterTest, ADoubleClickGoesToTheTab) {
    Open();
    const QPoint place = Tasks().visualItemRect(Tasks().topLevelItem(0)).center();
    QTest::mouseClick(Tasks().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(Tasks().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(Tasks().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(desk.Strip(), "1 [2*] 3");
}

TEST_F(TaskViewPresenterTest, DeleteEndsThePage) {
    Open();
    Press(Qt::Key_Up);
    Press(Qt::Key_Delete);
    EXPECT_TRUE(desk.views.At(2).ended);
    EXPECT_EQ(Titles(), QStringLiteral("News Apples [<b>Weather</b>]"));
    EXPECT_FALSE(Find<QPushButton>("cmdEnd").isEnabled());
    desk.views.Calls(2);
    Press(Qt::Key_Delete);
    EXPECT_EQ(desk.views.Calls(2), "");
}

TEST_F(TaskViewPresenterTest, TheButtonsAreReachedByTheirKeys) {
    Open();
    Press(Qt::Key_E, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return desk.views.At(1).ended; }));
    form.lstTasks.Select(TextView(u"Tab3"));
    Press(Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return desk.Strip() == "1 2 [3*]"; }));
}

TEST_F(TaskViewPresenterTest, IsSortedByTheKeyboard) {
    Open();
    Press(Qt::Key_S, Qt::AltModifier);
    ASSERT_TRUE(Find<QComboBox>("cboSort").hasFocus());
    EXPECT_EQ(Find<QComboBox>("cboSort").currentText(), QStringLiteral("Memory"));
    Press(Qt::Key_Home);
    EXPECT_EQ(Titles(), QStringLiteral("<b>Weather</b> Apples [News]"));
    EXPECT_FALSE(Find<QCheckBox>("chkDescending").isChecked());
    Press(Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Titles() == QStringLiteral("[News] Apples <b>Weather</b>"); }));
    EXPECT_EQ(Tasks().header()->sortIndicatorOrder(), Qt::DescendingOrder);
    EXPECT_EQ(Tasks().header()->sortIndicatorSection(), 0);
}

TEST_F(TaskViewPresenterTest, IsSortedByAClickOnAHeading) {
    Open();
    auto* header = Tasks().header();
    const QPoint memoryHeading(header->sectionViewportPosition(3) + 20, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, memoryHeading);
    EXPECT_EQ(Titles(), QStringLiteral("Apples [News] <b>Weather</b>"));
    EXPECT_EQ(Find<QComboBox>("cboSort").currentText(), QStringLiteral("Memory"));
    EXPECT_FALSE(Find<QCheckBox>("chkDescending").isChecked());
}

TEST_F(TaskViewPresenterTest, FollowsTheFiguresByItself) {
    Open();
    meter.processes[13].Memory = 900'000'000;
    ASSERT_TRUE(QTest::qWaitFor([&] { return Titles() == QStringLiteral("Apples <b>Weather</b> [News]"); }));
    EXPECT_EQ(Tasks().currentItem()->text(0), QStringLiteral("News")) << "the selection stays with its tab";
    desk.Close(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Titles() == QStringLiteral("[Apples] <b>Weather</b>"); }));
}

TEST_F(TaskViewPresenterTest, CanBeMadeLargerAndSmaller) {
    Open();
    Dialog()->resize(1200, 700);
    EXPECT_EQ(Dialog()->size(), QSize(1200, 700));
    Dialog()->resize(200, 200);
    EXPECT_LT(Dialog()->height(), 400);
}

} // namespace

} // namespace tessa::qt
