// Tests: OverflowArrow, ToolBars
#include "tests/qt/bar/BarDesk.h"

#include <QToolButton>
#include <algorithm>
#include <map>

namespace tessa::qt {

namespace {

constexpr TextView kFile = u"bndFile", kGo = u"bndGo", kMisc = u"bndMisc", kAddress = u"bndAddress";

/// Four toolbars that a user drags about, or that the program places.
class BarDockingTest : public BarDesk {
protected:
    void SetUp() override {
        for (const TextView name : {u"mnuOpen", u"mnuClose", u"mnuGoBack", u"mnuStop", u"mnuPrint", u"mnuFind"})
            AddTool(name, name.substr(3));
        AddLabel(u"mnuAddress", u"A&ddress");
        AddCombo(u"cboAddress");
        Dock(AddBand(kFile, BandKind::Toolbar, {u"mnuOpen", u"mnuClose"}), 0, 0);
        Dock(AddBand(kGo, BandKind::Toolbar, {u"mnuGoBack", u"mnuStop"}), 0, 1);
        Dock(AddBand(kMisc, BandKind::Toolbar, {u"mnuPrint", u"mnuFind"}), 0, 2);
        Dock(AddBand(kAddress, BandKind::Toolbar, {u"mnuAddress", u"cboAddress"}), 1, 0);
        ShowWindow();
    }

    static void Dock(Band* band, std::int32_t row, std::int32_t place) {
        band->Dock = Docking{DockSide::Top, row, place, {}, {}};
    }
    void Put(TextView band, DockSide side, std::int32_t row = 0, std::int32_t place = 0) {
        bar.FindBand(band)->Dock = Docking{side, row, place, {}, {}};
        bar.RecalcLayout();
    }
    QRect Place(TextView band) { return ToolBarOf(band).geometry(); }
    const Docking& DockOf(TextView band) { return bar.FindBand(band)->Dock(); }

    /// What the bands of a side say: rows from the window's edge, parted by a bar.
    std::string Rows(DockSide side) {
        std::map<std::pair<int, int>, std::string> sorted;
        for (const auto& band : bar.Bands()) {
            const Docking& dock = band->Dock();
            if (band->Kind() == BandKind::Toolbar && dock.Side == side)
                sorted[{dock.Row, dock.Place}] += ToUtf8(band->Name()).substr(3);
        }
        std::string rows;
        int row = 0;
        for (const auto& [at, name] : sorted) {
            if (!rows.empty()) rows += at.first == row ? " " : " | ";
            row = at.first;
            rows += name;
        }
        return rows;
    }

    /// Takes a toolbar by its handle and lets it go at a point of the window.
    void Drag(TextView band, const QPoint& to) {
        QToolBar& dragged = ToolBarOf(band);
        const bool upright = dragged.orientation() == Qt::Vertical;
        const QPoint handle = upright ? QPoint(dragged.width() / 2, 4) : QPoint(4, dragged.height() / 2);
        const QPoint from = dragged.mapTo(&window, handle);
        QTest::mousePress(&dragged, Qt::LeftButton, {}, handle);
        for (int step = 1; step <= 10; ++step) {
            const QPoint at = from + (to - from) * step / 10;
            QTest::mouseMove(&dragged, dragged.mapFromGlobal(window.mapToGlobal(at)));
        }
        QTest::mouseRelease(&dragged, Qt::LeftButton, {}, dragged.mapFromGlobal(window.mapToGlobal(to)));
    }
};

TEST_F(BarDockingTest, ARowIsSharedInTheOrderOfItsPlaces) {
    EXPECT_EQ(Place(kFile).top(), Place(kGo).top());
    EXPECT_EQ(Place(kGo).top(), Place(kMisc).top());
    EXPECT_LT(Place(kFile).right(), Place(kGo).left());
    EXPECT_LT(Place(kGo).right(), Place(kMisc).left());
    EXPECT_GT(Place(kAddress).top(), Place(kFile).bottom());
}

TEST_F(BarDockingTest, AToolbarStandsOnTheSideThatItsBandNames) {
    const QRect middle = window.centralWidget()->geometry();
    Put(kGo, DockSide::Left);
    EXPECT_LT(Place(kGo).right(), window.centralWidget()->geometry().left());
    EXPECT_EQ(ToolBarOf(kGo).orientation(), Qt::Vertical);
    Put(kGo, DockSide::Right);
    EXPECT_GT(Place(kGo).left(), window.centralWidget()->geometry().right());
    Put(kGo, DockSide::Bottom);
    EXPECT_GT(Place(kGo).top(), window.centralWidget()->geometry().bottom());
    EXPECT_EQ(ToolBarOf(kGo).orientation(), Qt::Horizontal);
    Put(kGo, DockSide::Top, 0, 1);
    EXPECT_EQ(window.centralWidget()->geometry(), middle);
}

TEST_F(BarDockingTest, RowsOfASideAreCountedFromTheWindowsEdge) {
    for (const DockSide side : {DockSide::Bottom, DockSide::Left, DockSide::Right}) {
        Put(kGo, side, 0);
        Put(kMisc, side, 1);
        const QRect page = window.centralWidget()->geometry(), outer = Place(kGo), inner = Place(kMisc);
        const auto farFromPage = [&](const QRect& bar) {
            return std::max({page.left() - bar.right(), bar.left() - page.right(), bar.top() - page.bottom()});
        };
        EXPECT_GT(farFromPage(outer), farFromPage(inner)) << static_cast<int>(side);
    }
}

TEST_F(BarDockingTest, AToolbarIsDraggedToEverySideByItsHandle) {
    Drag(kGo, {8, 250});
    ASSERT_TRUE(QTest::qWaitFor([&] { return Rows(DockSide::Left) == "Go"; })) << Rows(DockSide::Top);
    EXPECT_EQ(Rows(DockSide::Top), "File Misc | Address");
    Drag(kGo, {window.width() - 8, 250});
    ASSERT_TRUE(QTest::qWaitFor([&] { return Rows(DockSide::Right) == "Go"; })) << Rows(DockSide::Left);
    Drag(kGo, {300, window.height() - 8});
    ASSERT_TRUE(QTest::qWaitFor([&] { return Rows(DockSide::Bottom) == "Go"; })) << Rows(DockSide::Right);
    EXPECT_GT(Place(kGo).top(), window.centralWidget()->geometry().bottom());
}

TEST_F(BarDockingTest, AToolbarIsDraggedAmongThoseOfAnotherRow) {
    Drag(kGo, Place(kAddress).center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return Rows(DockSide::Top) == "File Misc | Address Go"; }))
        << Rows(DockSide::Top);
    EXPECT_EQ(Place(kGo).top(), Place(kAddress).top());
}

TEST_F(BarDockingTest, AToolbarThatIsDraggedOffTheSidesFloatsAndComesBack) {
    const QPoint middle(450, 250);
    Drag(kGo, middle);
    ASSERT_TRUE(QTest::qWaitFor([&] { return DockOf(kGo).Side == DockSide::Floating; }));
    EXPECT_TRUE(ToolBarOf(kGo).isWindow());
    EXPECT_EQ(DockOf(kGo).Left.value, ToolBarOf(kGo).x());
    EXPECT_EQ(DockOf(kGo).Top.value, ToolBarOf(kGo).y());
    EXPECT_EQ(Rows(DockSide::Top), "File Misc | Address");
    ToolBarOf(kGo).actions().constFirst()->trigger();
    EXPECT_EQ(clicked, "mnuGoBack;");
    Put(kGo, DockSide::Top, DockOf(kFile).Row, 1);
    EXPECT_FALSE(ToolBarOf(kGo).isWindow());
    EXPECT_EQ(Place(kGo).top(), Place(kFile).top());
}

TEST_F(BarDockingTest, AWindowIsLaidOutWhileAToolbarFloats) {
    Drag(kGo, {450, 250});
    ASSERT_TRUE(QTest::qWaitFor([&] { return DockOf(kGo).Side == DockSide::Floating; }));
    const QPoint place = ToolBarOf(kGo).pos();
    window.resize(700, 300);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.centralWidget()->width() == 700; }));
    EXPECT_EQ(window.centralWidget()->geometry().bottom(), 299);
    EXPECT_TRUE(ToolBarOf(kGo).isVisible());
    EXPECT_EQ(ToolBarOf(kGo).pos(), place);
}

TEST_F(BarDockingTest, ABandThatFloatsStandsWhereItSays) {
    bar.FindBand(kMisc)->Dock = Docking{DockSide::Floating, 0, 0, {333}, {222}};
    bar.RecalcLayout();
    EXPECT_TRUE(ToolBarOf(kMisc).isWindow());
    EXPECT_TRUE(ToolBarOf(kMisc).isVisible());
    EXPECT_EQ(ToolBarOf(kMisc).pos(), QPoint(333, 222));
}

TEST_F(BarDockingTest, AFloatingToolbarHasATitleAndACloseButton) {
    const auto framed = [&](TextView band) {
        const Qt::WindowFlags flags = ToolBarOf(band).windowFlags();
        return flags.testFlag(Qt::WindowTitleHint) && flags.testFlag(Qt::WindowCloseButtonHint) &&
               !flags.testFlag(Qt::FramelessWindowHint) && !flags.testFlag(Qt::X11BypassWindowManagerHint);
    };
    bar.FindBand(kMisc)->Dock = Docking{DockSide::Floating, 0, 0, {333}, {222}};
    bar.RecalcLayout();
    EXPECT_TRUE(framed(kMisc));
    EXPECT_EQ(ToolBarOf(kMisc).windowTitle(), QStringLiteral("bndMisc"));
    Drag(kGo, {450, 250});
    ASSERT_TRUE(QTest::qWaitFor([&] { return DockOf(kGo).Side == DockSide::Floating; }));
    EXPECT_TRUE(framed(kGo)) << "once it is let go";
    EXPECT_TRUE(ToolBarOf(kGo).isVisible());
    ToolBarOf(kGo).close();
    EXPECT_FALSE(bar.FindBand(kGo)->Visible()) << "so it stays away, and can be shown again";
    bar.FindBand(kGo)->Visible = true;
    EXPECT_TRUE(ToolBarOf(kGo).isVisible());
    EXPECT_EQ(DockOf(kGo).Side, DockSide::Floating);
}

TEST_F(BarDockingTest, ABoxInAColumnLeavesThePageItsRoom) {
    bar.FindCombo(u"cboAddress")->Width = Pixels{520};
    for (const DockSide side : {DockSide::Left, DockSide::Right}) {
        Put(kAddress, side, 0, 0);
        Put(kFile, side, 0, 1);
        ComboBox& box = Box(u"cboAddress");
        ASSERT_TRUE(QTest::qWaitFor([&] { return box.isVisible() && box.width() <= 160; }));
        EXPECT_GE(box.width(), 120);
        EXPECT_LT(Place(kAddress).width(), 190);
        EXPECT_TRUE(ToolBarOf(kAddress).rect().contains(box.geometry())) << "it keeps its field";
        EXPECT_LT(Place(kFile).width(), 100) << "others of the column stay narrow";
        EXPECT_EQ(bar.FindCombo(u"cboAddress")->Width().value, 520) << "which the box has again in a row";
    }
    Put(kAddress, DockSide::Top, 1, 0);
    Put(kFile, DockSide::Top, 0, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Box(u"cboAddress").width() > 400; }));
    EXPECT_EQ(ToolBarOf(kFile).maximumWidth(), QWIDGETSIZE_MAX);
}

TEST_F(BarDockingTest, AHiddenToolbarComesBackWhereItWas) {
    const QRect before = Place(kGo);
    bar.FindBand(kGo)->Visible = false;
    EXPECT_FALSE(ToolBarOf(kGo).isVisible());
    Drag(kMisc, {8, 250});
    ASSERT_TRUE(QTest::qWaitFor([&] { return Rows(DockSide::Left) == "Misc"; }));
    bar.FindBand(kGo)->Visible = true;
    bar.RecalcLayout();
    EXPECT_EQ(Place(kGo).topLeft(), before.topLeft());
}

/// The same toolbars in windows that are too narrow for them.
class OverflowTest : public BarDockingTest {
protected:
    QToolButton* More(TextView band) {
        auto* more = ToolBarOf(band).findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
        return more && more->isVisible() ? more : nullptr;
    }
    /// Whether a tool's button can be seen on its toolbar.
    bool Shows(TextView band, TextView tool) {
        const QWidget* button = ToolBarOf(band).widgetForAction(shown->Find(tool));
        return button && button->isVisible();
    }
};

TEST_F(OverflowTest, WhatHasNoRoomIsBehindAButton) {
    EXPECT_EQ(More(kFile), nullptr);
    Band* wide = bar.FindBand(kFile);
    for (int i = 0; i < 40; ++i) {
        const Text name = u"mnuExtra" + Decimal(i);
        AddTool(name, u"Extra");
        wide->Append(bar.Share(name));
    }
    bar.RecalcLayout();
    ASSERT_TRUE(QTest::qWaitFor([&] { return More(kFile) != nullptr; }));
    EXPECT_TRUE(Shows(kFile, u"mnuOpen"));
    EXPECT_FALSE(Shows(kFile, u"mnuExtra39"));
    EXPECT_EQ(More(kFile)->accessibleName(), QStringLiteral("More tools"));
    More(kFile)->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Shows(kFile, u"mnuExtra39"); }));
    QTest::mouseClick(ToolBarOf(kFile).widgetForAction(shown->Find(u"mnuExtra39")), Qt::LeftButton);
    EXPECT_EQ(clicked, "mnuExtra39;");
}

TEST_F(OverflowTest, ABoxShrinksBeforeItLeavesItsToolbar) {
    window.resize(260, 400);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Box(u"cboAddress").width() < 240; }));
    EXPECT_TRUE(Box(u"cboAddress").isVisible());
    EXPECT_EQ(More(kAddress), nullptr);
}

TEST_F(OverflowTest, TheBoxThatFillsTheRowShrinksLast) {
    bar.FindCombo(u"cboAddress")->FillsRow = true;
    AddCombo(u"cboSearch")->Width = Pixels{240};
    bar.FindBand(kAddress)->Append(bar.Share(u"cboSearch"));
    bar.RecalcLayout();
    const auto waitWidths = [this](int address, int search) {
        const auto widths = [this] { return std::pair(Box(u"cboAddress").width(), Box(u"cboSearch").width()); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return widths() == std::pair(address, search); }))
            << widths().first << " " << widths().second;
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return Box(u"cboSearch").width() == 240; }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return ToolBarOf(kAddress).geometry().right() >= window.width() - 10; }));
    const int wide = Box(u"cboAddress").width();
    ASSERT_GT(wide, 280);
    window.resize(900 - (wide - 280), 400);
    waitWidths(280, 240);
    window.resize(window.width() - 60, 400);
    waitWidths(280, 180);
    window.resize(window.width() - 60 - 100, 400);
    waitWidths(180, 120);
    EXPECT_EQ(More(kAddress), nullptr);
    EXPECT_EQ(bar.FindCombo(u"cboSearch")->Width().value, 240) << "what it is to be is kept";
    window.resize(900, 400);
    waitWidths(wide, 240);
}

TEST_F(OverflowTest, ABoxBehindTheButtonIsReachedByItsKeyAndTypedIn) {
    Band* address = bar.FindBand(kAddress);
    for (int i = 0; i < 40; ++i) {
        const Text name = u"mnuExtra" + Decimal(i);
        AddTool(name, u"Extra");
        address->Insert(0, bar.Share(name));
    }
    bar.RecalcLayout();
    ASSERT_TRUE(QTest::qWaitFor([&] { return More(kAddress) && !Box(u"cboAddress").isVisible(); }));
    bar.FocusTool(kAddress, u"cboAddress");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Field(u"cboAddress").hasFocus(); }));
    EXPECT_TRUE(Box(u"cboAddress").isVisible());
    QTest::keyClicks(&Field(u"cboAddress"), QStringLiteral("rose"));
    EXPECT_EQ(bar.FindCombo(u"cboAddress")->Value(), u"rose");
}

/// Counts how often a widget is asked to lay itself out.
class LayoutRequests final : public QObject {
public:
    explicit LayoutRequests(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::LayoutRequest) ++count;
        return QObject::eventFilter(watched, event);
    }
    int count = 0;
};

TEST_F(BarDockingTest, AWindowThatIsLaidOutIsAtRest) {
    constexpr int kTurns = 50;
    for (const int width : {1200, 500}) {
        window.resize(width, 600);
        for (int turn = 0; turn < kTurns; ++turn) QCoreApplication::processEvents();
        const LayoutRequests requests(window);
        for (int turn = 0; turn < kTurns; ++turn) QCoreApplication::processEvents();
        EXPECT_EQ(requests.count, 0) << width;
    }
}

} // namespace

} // namespace tessa::qt
