#include "tests/qt/bar/BarDesk.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>

namespace tessa::qt {

namespace {

/// A window with a menu bar, two toolbars, a strip, a page and a status bar. It tells which of them has the keyboard.
class FocusRingTest : public BarDesk, protected FocusRing::Neighbours {
protected:
    QWidget* Strip() override { return strip; }
    std::vector<QWidget*> PageBars() override { return {findBar}; }
    std::optional<Asked> Question() override {
        if (!question) return std::nullopt;
        return Asked{question, [this] { question->setFocus(); }};
    }
    QWidget* StatusBar() override { return status; }

    void SetUp() override {
        for (const TextView name : {u"mnuOpen", u"mnuClose", u"mnuGoBack", u"mnuStop"}) AddTool(name, name.substr(3));
        AddCombo(u"cboAddress");
        for (const TextView name : {u"mnuFile", u"mnuEdit"}) AddTool(name, name.substr(3))->SubBand = u"bndDrop";
        AddBand(u"bndDrop", BandKind::Menu, {u"mnuOpen"});
        AddBand(u"bndMenu", BandKind::MenuBar, {u"mnuFile", u"mnuEdit"});
        AddBand(u"bndFile", BandKind::Toolbar, {u"mnuOpen", u"mnuClose", u"mnuEdit"})->Dock = At(0);
        AddBand(u"bndAddress", BandKind::Toolbar, {u"cboAddress"})->Dock = At(1);
        AddBand(u"bndGo", BandKind::Toolbar, {u"mnuGoBack"})->Dock = At(2);
        neighbours = this;
        ShowWindow();
        Fill();
    }
    static Docking At(std::int32_t row) { return {DockSide::Top, row, 0, {}, {}}; }

    void Fill() {
        strip = AddField("strip");
        findBar = AddField("findBar");
        status = AddField("status");
        page = AddField("page");
        shown->Ring().FocusPage.ConnectForLife([this] { page->setFocus(); });
        page->setFocus();
    }
    QLineEdit* AddField(const char* name) {
        auto* widget = new QLineEdit(window.centralWidget());
        widget->setObjectName(QString::fromLatin1(name));
        widget->show();
        return widget;
    }

    /// The toolbar or other part that has the keyboard, and which of its tools.
    [[nodiscard]] std::string Where() const {
        const QWidget* focus = QApplication::focusWidget();
        if (!focus) return "nowhere";
        if (const auto* menuBar = qobject_cast<const QMenuBar*>(focus))
            return "menu " + (menuBar->activeAction() ? menuBar->activeAction()->text().toStdString() : "-");
        if (const auto* button = qobject_cast<const QToolButton*>(focus))
            return button->parentWidget()->objectName().toStdString() + " " + button->text().toStdString();
        if (qobject_cast<QToolBar*>(focus->parentWidget()->parentWidget()))
            return focus->parentWidget()->objectName().toStdString();
        return focus->objectName().toStdString();
    }
    void Step(BarStep step, int times = 1) {
        for (; times > 0; --times) shown->Ring().Step(step);
    }
    void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    QLineEdit *page = nullptr, *strip = nullptr, *findBar = nullptr, *status = nullptr, *question = nullptr;
};

TEST_F(FocusRingTest, GoesRoundAllPartsOfTheWindow) {
    std::string way;
    for (int i = 0; i < 8; ++i) {
        Step(BarStep::Next);
        way += Where() + "; ";
    }
    EXPECT_EQ(way, "status; menu File; bndFile Open; cboAddress; bndGo GoBack; strip; findBar; page; ");
    way.clear();
    for (int i = 0; i < 8; ++i) {
        Step(BarStep::Previous);
        way += Where() + "; ";
    }
    EXPECT_EQ(way, "findBar; strip; bndGo GoBack; cboAddress; bndFile Open; menu File; status; page; ");
}

TEST_F(FocusRingTest, WhatThePageAsksComesRightAfterThePage) {
    question = AddField("question");
    Step(BarStep::Next);
    EXPECT_EQ(Where(), "question");
    Step(BarStep::Next);
    EXPECT_EQ(Where(), "status");
    Step(BarStep::Previous, 2);
    EXPECT_EQ(Where(), "page");
}

TEST_F(FocusRingTest, LeavesOutWhatIsNotInSight) {
    window.menuBar()->hide();
    bar.FindBand(u"bndFile")->Visible = false;
    findBar->hide();
    status->hide();
    Step(BarStep::Next);
    EXPECT_EQ(Where(), "cboAddress");
    Step(BarStep::Next, 3);
    EXPECT_EQ(Where(), "page");
    Step(BarStep::MenuBar);
    EXPECT_EQ(Where(), "page");
}

TEST_F(FocusRingTest, AToolbarWithNothingToUseIsLeftOut) {
    bar.Enable(u"mnuGoBack", false);
    Step(BarStep::Next, 5);
    EXPECT_EQ(Where(), "strip");
}

TEST_F(FocusRingTest, TheKeyOfTheMenuBarLeadsThereAndBack) {
    Step(BarStep::MenuBar);
    EXPECT_EQ(Where(), "menu File");
    Press(Qt::Key_Right);
    EXPECT_EQ(Where(), "menu Edit");
    Step(BarStep::MenuBar);
    EXPECT_EQ(Where(), "page");
    Step(BarStep::MenuBar);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Where(), "page");
}

TEST_F(FocusRingTest, AltDoesNothingToTheMenuBarByItself) {
    QTest::keyPress(page, Qt::Key_Alt, Qt::AltModifier);
    QTest::keyRelease(page, Qt::Key_Alt);
    EXPECT_EQ(Where(), "page") << "only the program knows whether it was pressed alone";
}

TEST_F(FocusRingTest, ArrowsGoFromToolToToolAndRound) {
    Step(BarStep::Next, 3);
    ASSERT_EQ(Where(), "bndFile Open");
    Press(Qt::Key_Right);
    EXPECT_EQ(Where(), "bndFile Close");
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    EXPECT_EQ(Where(), "bndFile Open");
    Press(Qt::Key_Left);
    EXPECT_EQ(Where(), "bndFile Edit");
    bar.Enable(u"mnuClose", false);
    Press(Qt::Key_Left);
    EXPECT_EQ(Where(), "bndFile Open") << "what is disabled is passed over";
}

TEST_F(FocusRingTest, EnterPressesAndEscapeGoesBackToThePage) {
    Step(BarStep::Next, 3);
    Press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicked == "mnuOpen;"; }));
    Press(Qt::Key_Space);
    EXPECT_EQ(clicked, "mnuOpen;mnuOpen;");
    Press(Qt::Key_Escape);
    EXPECT_EQ(Where(), "page");
}

TEST_F(FocusRingTest, DownOpensTheMenuOfATool) {
    Step(BarStep::Next, 3);
    Press(Qt::Key_Left);
    ASSERT_EQ(Where(), "bndFile Edit");
    std::string opened;
    QObject::connect(shown->Menus().For(u"bndDrop"), &QMenu::aboutToShow, &window, [&] {
        opened = "bndDrop";
        QTimer::singleShot(0, &window, [this] { shown->Menus().For(u"bndDrop")->close(); });
    });
    Press(Qt::Key_Down);
    EXPECT_TRUE(QTest::qWaitFor([&] { return opened == "bndDrop"; }));
}

TEST_F(FocusRingTest, AKeyOpensTheMenuOfAToolAtItsButton) {
    bar.SetShortcuts({{u"mnuEdit", {'M', Keys::kAlt}}});
    EXPECT_EQ(bar.KeyDown({'M', Keys::kAlt}), KeyUsed::Yes);
    QMenu* menu = shown->Menus().For(u"bndDrop");
    ASSERT_TRUE(QTest::qWaitFor([&] { return menu->isVisible(); }));
    ASSERT_NE(menu->activeAction(), nullptr) << "the keyboard goes on in it";
    EXPECT_EQ(menu->activeAction()->objectName(), QStringLiteral("mnuOpen"));
    const QRect bars(window.mapToGlobal(ToolBarOf(u"bndFile").pos()), ToolBarOf(u"bndFile").size());
    EXPECT_GE(menu->x(), bars.left());
    EXPECT_LE(menu->x(), bars.right());
    menu->close();
    bar.FindBand(u"bndFile")->Visible = false;
    bar.KeyDown({'M', Keys::kAlt});
    EXPECT_TRUE(QTest::qWaitFor([&] { return menu->isVisible(); })) << "without its button too";
    menu->close();
}

} // namespace

} // namespace tessa::qt
