// Tests: StripClock, StripParts, TabFaces, TabLook, TabMarks, TabRow, TabStripAccessible
// Tests: TabStripViewDrag, TabStripViewInput, Tip
#include "qt/strip/TabStripView.h"

#include "qt/base/Palette.h"
#include "qt/base/Strings.h"
#include "qt/strip/TabStripAccessible.h"

#include <QAccessible>
#include <QApplication>
#include <QMimeData>
#include <QPaintEvent>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tessa::qt {

namespace {

/// Writes down what is repainted.
class PaintLog : public QObject {
public:
    explicit PaintLog(QWidget& widget) { widget.installEventFilter(this); }
    std::vector<QRegion> regions;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) regions.push_back(static_cast<QPaintEvent*>(event)->region());
        return false;
    }
};

/// A shown strip of 800 logical pixels, as a person has it before the eyes.
class TabStripViewTest : public testing::Test {
protected:
    // Before there is a strip: what is asked of one earlier is answered without it for ever.
    static void SetUpTestSuite() { InstallTabStripAccessibility(); }

    void SetUp() override {
        widget.resize(800, widget.RowHeight().value);
        strip.Click.ConnectForLife([this] { ++clicks; });
        widget.CloseRequested.ConnectForLife([this](Tab& tab) { closed += ToUtf8(tab.Caption()) + ";"; });
    }

    Tab* Add(const std::string& caption) {
        Tab* tab = strip.Add(0, u"Tab" + Decimal(++m_last));
        tab->Tag = m_last;
        strip.SetCaption(tab, FromBytes(caption));
        return tab;
    }

    void AddMany(int count) {
        for (int i = 1; i <= count; ++i) Add("page " + std::to_string(i));
    }

    void Show() {
        widget.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
        Quiet();
    }

    /// Waits until everything has been painted: a change of the layout takes along whatever is gathered.
    void Quiet() {
        PaintLog log(widget);
        strip.SetPlacement(strip.Placement() == TabPlacement::Top ? TabPlacement::Bottom : TabPlacement::Top);
        strip.SetPlacement(strip.Placement() == TabPlacement::Top ? TabPlacement::Bottom : TabPlacement::Top);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !log.regions.empty(); }));
    }

    QPoint Middle(std::size_t position) { return widget.TabPlace(position).center(); }
    void ClickOn(QPoint point) { QTest::mouseClick(&widget, Qt::LeftButton, {}, point); }

    void Wheel(int angle) {
        const QPointF at(widget.rect().center());
        QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&widget, &event);
    }

    /// A picture has more pixels than the widget where the screen is scaled.
    QColor ColourAt(QPoint point) {
        const QImage picture = widget.grab().toImage();
        return picture.pixelColor(point * picture.devicePixelRatio());
    }

    bool Shows(std::size_t position) {
        const QRect place = widget.TabPlace(position);
        return place.left() >= 0 && place.right() < widget.width();
    }

    TabStrip strip;
    struct Faces final : TabFaces {
        [[nodiscard]] QIcon IconOf(const Tab& tab) const override { return icon ? icon(tab) : Plain().IconOf(tab); }
        [[nodiscard]] Text TipOf(const Tab& tab) const override { return tip ? tip(tab) : Plain().TipOf(tab); }
        [[nodiscard]] bool IsChanged(const TabGroup& group) const override { return Plain().IsChanged(group); }
        [[nodiscard]] TabPane PaneOf(const Tab& tab) const override { return Plain().PaneOf(tab); }
        [[nodiscard]] Text NewTabKeys() const override { return newTabKeys; }
        std::function<QIcon(const Tab&)> icon;
        std::function<Text(const Tab&)> tip;
        Text newTabKeys = Plain().NewTabKeys();
    };
    Faces faces;
    TabStripView widget{strip, faces};
    int clicks = 0;
    std::string closed;

private:
    std::int32_t m_last = 0;
};

TEST_F(TabStripViewTest, ACtrlOrShiftClickChoosesAndSelectsNothing) {
    AddMany(4);
    Show();
    std::string asked;
    int plain = 0;
    widget.ChooseRequested.ConnectForLife([&](Tab& tab, Qt::KeyboardModifiers held) {
        asked += ToUtf8(tab.Caption()) + (held.testFlag(Qt::ShiftModifier) ? " shift;" : ";");
        strip.SetChosen(&tab, true);
    });
    widget.PlainClick.ConnectForLife([&] { ++plain; });
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::ControlModifier, widget.TabPlace(2).center());
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::ShiftModifier, widget.TabPlace(3).center());
    EXPECT_EQ(asked, "page 2;page 3 shift;");
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(plain, 0);
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(1));
    auto* accessible = QAccessible::queryAccessibleInterface(&widget);
    ASSERT_NE(accessible, nullptr);
    ASSERT_NE(accessible->child(1), nullptr);
    EXPECT_EQ(accessible->child(1)->text(QAccessible::Description), QStringLiteral("Selected with others"));
    QTest::mouseClick(&widget, Qt::LeftButton, {}, widget.TabPlace(4).center());
    EXPECT_EQ(plain, 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(TabStripViewTest, AChosenTabIsSeenAsSuchOnLightAndOnDark) {
    AddMany(3);
    Show();
    for (const QColor& ground : {QColor(240, 240, 240), QColor(42, 46, 50)}) {
        widget.setPalette(QPalette(ground));
        const QPoint at = widget.TabPlace(2).topLeft() + QPoint(4, 8);
        const auto colour = [&] { return ColourAt(at); };
        strip.SetChosen(strip.FindAt(2), false);
        const QColor before = colour();
        strip.SetChosen(strip.FindAt(2), true);
        EXPECT_NE(colour(), before);
    }
}

TEST_F(TabStripViewTest, AColourIsPaintedBesideThePage) {
    Tab* first = Add("one");
    Add("two");
    Show();
    auto* group = strip.NewGroup(first, u"News", TabColour::Green);
    const QColor green = Palette::MarkColour(TabColour::Green);
    const auto at = [this](const Tab* tab, bool lower) {
        const QRect place = widget.TabPlace(strip.PositionOf(tab));
        return ColourAt({place.center().x(), lower ? place.bottom() : place.top()});
    };
    EXPECT_EQ(at(first, true), green);
    EXPECT_NE(at(first, false), green);
    EXPECT_NE(at(strip.FindAt(2), true), green);
    strip.SetPlacement(TabPlacement::Bottom);
    EXPECT_EQ(at(first, false), green);
    strip.SetGroupColour(group, TabColour::Red);
    EXPECT_NE(at(first, false), green);
}

TEST_F(TabStripViewTest, AColourIsRepaintedByItself) {
    auto* group = strip.NewGroup(Add("one"), u"News", TabColour::Green);
    Add("two");
    Show();
    PaintLog log(widget);
    strip.SetGroupColour(group, TabColour::Red);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !log.regions.empty(); }));
    EXPECT_TRUE(log.regions[0].intersects(widget.TabPlace(1)));
    EXPECT_FALSE(log.regions[0].intersects(widget.TabPlace(2)));
}

TEST_F(TabStripViewTest, FiveHundredNewTabsAreLaidOutAndPaintedOnce) {
    Add("first");
    Show();
    PaintLog log(widget);
    AddMany(500);
    EXPECT_TRUE(log.regions.empty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !log.regions.empty(); }));
    EXPECT_EQ(log.regions.size(), 1U);
    EXPECT_FALSE(widget.TabPlace(501).isEmpty());
}

TEST_F(TabStripViewTest, CaptionsAreGatheredAndOnlyChangedTabsArePainted) {
    AddMany(3);
    Show();
    PaintLog log(widget);
    strip.SetCaption(strip.FindAt(2), u"second");
    strip.SetImage(strip.FindAt(2), TabImage::Red);
    QCoreApplication::processEvents();
    EXPECT_TRUE(log.regions.empty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !log.regions.empty(); }));
    ASSERT_EQ(log.regions.size(), 1U);
    EXPECT_TRUE(log.regions[0].intersects(widget.TabPlace(2)));
    EXPECT_FALSE(log.regions[0].intersects(widget.TabPlace(1)));
    EXPECT_FALSE(log.regions[0].intersects(widget.TabPlace(3)));
}

TEST_F(TabStripViewTest, ACaptionOutOfSightPaintsNothing) {
    AddMany(500);
    Show();
    PaintLog log(widget);
    strip.SetCaption(strip.FindAt(500), u"far away");
    strip.SetCaption(strip.FindAt(2), u"near");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !log.regions.empty(); }));
    EXPECT_EQ(log.regions[0].boundingRect(), widget.TabPlace(2));
}

TEST_F(TabStripViewTest, OnlyVisibleTabsAreAskedForTheirIcons) {
    AddMany(2000);
    int asked = 0;
    faces.icon = [&](const Tab&) { return ++asked, QIcon(); };
    Show();
    asked = 0;
    widget.repaint();
    EXPECT_GT(asked, 0);
    EXPECT_LT(asked, 20);
}

TEST_F(TabStripViewTest, AChangedPageIconPaintsItsTab) {
    AddMany(3);
    Show();
    PaintLog log(widget);
    widget.RefreshIcons(strip.FindAt(3)->Tag);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !log.regions.empty(); }));
    EXPECT_EQ(log.regions[0].boundingRect(), widget.TabPlace(3));
}

TEST_F(TabStripViewTest, ATabThatWasPaintedBetweenTwoChangesIsPaintedOnceMore) {
    AddMany(3);
    Show();
    strip.SetImage(strip.FindAt(2), TabImage::Red);
    widget.repaint();
    strip.SetImage(strip.FindAt(2), TabImage::None);
    PaintLog log(widget);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !log.regions.empty(); })) << "it would stay red";
    EXPECT_TRUE(log.regions[0].intersects(widget.TabPlace(2)));

    strip.SetImage(strip.FindAt(2), TabImage::Red);
    widget.repaint(widget.TabPlace(2).adjusted(3, 3, -3, -3));
    strip.SetImage(strip.FindAt(2), TabImage::None);
    log.regions.clear();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !log.regions.empty(); })) << "a part of it would stay red";
    EXPECT_TRUE(log.regions[0].intersects(widget.TabPlace(2)));
}

TEST_F(TabStripViewTest, ABusyTabShowsRedInPlaceOfThePageIcon) {
    QPixmap blue(16, 16);
    blue.fill(Qt::blue);
    faces.icon = [&](const Tab&) { return QIcon(blue); };
    AddMany(1);
    Show();
    const QPoint icon(15, widget.height() / 2);
    EXPECT_EQ(ColourAt(icon), QColor(Qt::blue));
    strip.SetImage(strip.FindAt(1), TabImage::Red);
    Quiet();
    const QColor mark = ColourAt(icon);
    EXPECT_GT(mark.red(), 200);
    EXPECT_LT(mark.blue(), 100);
}

TEST_F(TabStripViewTest, APressOfTheLeftButtonSelects) {
    AddMany(3);
    Show();
    QTest::mousePress(&widget, Qt::LeftButton, {}, Middle(3));
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(3));
    EXPECT_EQ(clicks, 1);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Middle(3));
    EXPECT_EQ(clicks, 1);
}

TEST_F(TabStripViewTest, ADraggedTabFollowsThePointerAndStaysSelected) {
    AddMany(4);
    Show();
    const Text key = strip.FindAt(1)->Key();
    QTest::mousePress(&widget, Qt::LeftButton, {}, Middle(1));
    QTest::mouseMove(&widget, Middle(1) + QPoint(2, 0));
    EXPECT_EQ(strip.FindAt(1)->Key(), key) << "a little way is no drag";
    QTest::mouseMove(&widget, Middle(3));
    EXPECT_EQ(strip.FindAt(3)->Key(), key);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Middle(3));
    QTest::mouseMove(&widget, Middle(1));
    EXPECT_EQ(strip.FindAt(3)->Key(), key) << "let go";
    EXPECT_EQ(strip.SelectedItem()->Key(), key);
}

TEST_F(TabStripViewTest, TheMiddleButtonClosesItsTabAndTheRightOneIsReported) {
    AddMany(3);
    Show();
    QPoint reported;
    widget.RightButtonDown.ConnectForLife([&](QPoint point) { reported = point; });
    QTest::mousePress(&widget, Qt::RightButton, {}, Middle(2));
    EXPECT_EQ(reported, Middle(2));
    EXPECT_EQ(closed, "");
    QTest::mouseRelease(&widget, Qt::RightButton, {}, Middle(2));
    QTest::mousePress(&widget, Qt::MiddleButton, {}, Middle(2));
    EXPECT_EQ(closed, ToUtf8(strip.FindAt(2)->Caption()) + ";");
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(1));
    QTest::mouseRelease(&widget, Qt::MiddleButton, {}, Middle(2));
}

TEST_F(TabStripViewTest, ADoubleClickOnTheEmptyRowAsksForABlankTab) {
    AddMany(1);
    Show();
    int asked = 0;
    widget.BlankRequested.ConnectForLife([&] { ++asked; });
    QTest::mouseDClick(&widget, Qt::LeftButton, {}, Middle(1));
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Middle(1));
    EXPECT_EQ(asked, 0);
    QTest::mouseDClick(&widget, Qt::LeftButton, {}, {widget.width() - 2, 5});
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, {widget.width() - 2, 5});
    EXPECT_EQ(asked, 1);
}

/// Drags the data to a point of the strip and drops it there.
void DropAt(TabStripView& widget, QPoint point, const QMimeData& data) {
    QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &enter);
    QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &drop);
}

/// What is dragged over the strip and dropped there: "text 2;" or "none 2;" for each time over tab 2, and what is
/// dropped with a "!".
class TabStripViewDropTest : public TabStripViewTest {
protected:
    void SetUp() override {
        TabStripViewTest::SetUp();
        AddMany(2);
        Show();
        widget.DragOver.ConnectForLife([this](bool hasText, QPointF point) {
            told += (hasText ? "text " : "none ") +
                    std::to_string(strip.PositionOf(widget.FindTabAt(point.toPoint()))) + ";";
        });
        widget.Drop.ConnectForLife([this](const Text& text) { told += ToUtf8(text) + "!"; });
    }
    std::string Dropped(const QMimeData& data) { return DroppedAt(Middle(2), data); }
    std::string DroppedAt(QPoint point, const QMimeData& data) {
        told.clear();
        DropAt(widget, point, data);
        return told;
    }
    static QList<QUrl> Link() { return {QUrl(QStringLiteral("http://one.example/x y"))}; }
    static QList<QUrl> Files() {
        return {QUrl::fromLocalFile(QStringLiteral("/home/me/a b.html")),
                QUrl::fromLocalFile(QStringLiteral("/home/me/c.html"))};
    }

    QMimeData data;
    std::string told;
};

TEST_F(TabStripViewDropTest, TextIsDroppedAsItIs) {
    data.setText(QStringLiteral(" a\nb "));
    EXPECT_EQ(Dropped(data), "text 2;text 2; a\nb !");
}

TEST_F(TabStripViewDropTest, OfALinkThePlainTextIsDroppedThatIsOffered) {
    data.setUrls(Link());
    data.setText(QStringLiteral("http://other.example/"));
    EXPECT_EQ(Dropped(data), "text 2;text 2;http://other.example/!");
    data.setHtml(QStringLiteral("<p><a href='http://one.example/x%20y'>One</a> and <a href='#'>more</a></p>"));
    EXPECT_EQ(Dropped(data), "text 2;text 2;http://other.example/!");
}

TEST_F(TabStripViewDropTest, ALinkWithoutTextIsDroppedToo) {
    data.setUrls(Link());
    EXPECT_EQ(DroppedAt({widget.width() - 2, 5}, data), "text 0;text 0;http://one.example/x%20y!");
    data.setData(QStringLiteral("text/plain"), {});
    EXPECT_EQ(Dropped(data), "text 2;text 2;http://one.example/x%20y!");
}

TEST_F(TabStripViewDropTest, OfAPagesLinkItIsDroppedWhereItLeadsNotWhatOneReads) {
    data.setUrls(Link());
    data.setText(QStringLiteral("Some link text"));
    data.setHtml(QStringLiteral("<a class=\"x\" href=\"http://one.example/x%20y\">Some <b>link</b> text</a>"));
    EXPECT_EQ(Dropped(data), "text 2;text 2;http://one.example/x%20y!");
}

TEST_F(TabStripViewDropTest, ALinkOfAPageOnTheLocalDiskIsDroppedLikeAnyOther) {
    data.setUrls({Files().constFirst()});
    data.setText(QStringLiteral("Local"));
    data.setHtml(QStringLiteral("<a href=\"file:///home/me/a%20b.html\">Local</a>\n"));
    EXPECT_EQ(Dropped(data), "text 2;text 2;file:///home/me/a%20b.html!");
}

TEST_F(TabStripViewDropTest, FilesAloneChangeNothing) {
    data.setUrls(Files());
    EXPECT_EQ(Dropped(data), "none 2;") << "what is refused on its way in is not dropped";
    data.setHtml(QStringLiteral("<img src=\"file:///home/me/a%20b.html\">"));
    EXPECT_EQ(Dropped(data), "none 2;") << "a picture of a page comes as a file";
}

TEST_F(TabStripViewDropTest, FilesThatAreNamedInPlainTextAreStillFilesAlone) {
    data.setUrls(Files());
    for (const char* names :
         {"", "/home/me/a b.html\n/home/me/c.html\n", "file:///home/me/a%20b.html\r\nfile:///home/me/c.html\r\n",
          "file:///home/me/a b.html", "a b.html\nc.html"}) {
        data.setData(QStringLiteral("text/plain"), names);
        EXPECT_EQ(Dropped(data), "none 2;") << names;
    }
}

TEST_F(TabStripViewDropTest, TextBesideFilesIsDropped) {
    data.setUrls(Files());
    data.setText(QStringLiteral("c.html\nand what is in it"));
    EXPECT_EQ(Dropped(data), "text 2;text 2;c.html\nand what is in it!");
}

TEST_F(TabStripViewDropTest, ATextThatIsPromisedAndNotGivenChangesNothing) {
    data.setData(QStringLiteral("text/plain"), {});
    EXPECT_EQ(Dropped(data), "text 2;text 2;");
}

TEST_F(TabStripViewTest, OtherButtonsAndTheEmptyRowSelectNothing) {
    AddMany(2);
    Show();
    QTest::mouseClick(&widget, Qt::RightButton, {}, Middle(2));
    QTest::mouseClick(&widget, Qt::MiddleButton, {}, Middle(2));
    ClickOn({widget.width() - 2, 5});
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(1));
    EXPECT_EQ(clicks, 0);
}

TEST_F(TabStripViewTest, TheCloseButtonClosesWithoutSelecting) {
    AddMany(3);
    Show();
    ClickOn(widget.ClosePlace(2).center());
    EXPECT_EQ(closed, "page 2;");
    EXPECT_EQ(clicks, 0);
}

TEST_F(TabStripViewTest, ACloseButtonLeftBeforeTheReleaseClosesNothing) {
    AddMany(3);
    Show();
    QTest::mousePress(&widget, Qt::LeftButton, {}, widget.ClosePlace(2).center());
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, Middle(2));
    QTest::mousePress(&widget, Qt::LeftButton, {}, widget.ClosePlace(2).center());
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, widget.ClosePlace(3).center());
    EXPECT_EQ(closed, "");
}

TEST_F(TabStripViewTest, ATabThatGoesWhileItsCloseButtonIsHeldIsNotMistakenForItsNeighbour) {
    AddMany(3);
    Show();
    QTest::mousePress(&widget, Qt::LeftButton, {}, widget.ClosePlace(2).center());
    strip.Remove(strip.FindAt(2));
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, widget.ClosePlace(2).center());
    EXPECT_EQ(closed, "");
}

TEST_F(TabStripViewTest, TheCloseButtonShowsOnTheSelectedTabAndUnderThePointer) {
    AddMany(3);
    Show();
    const auto picture = [&](std::size_t position) { return widget.grab(widget.ClosePlace(position)).toImage(); };
    EXPECT_NE(picture(1), picture(2));
    const QImage bare = picture(2);
    QTest::mouseMove(&widget, Middle(2));
    ASSERT_TRUE(QTest::qWaitFor([&] { return picture(2) != bare; }));
    QTest::mouseMove(&widget, Middle(3));
    ASSERT_TRUE(QTest::qWaitFor([&] { return picture(2) == bare; }));
}

TEST_F(TabStripViewTest, TheSelectedTabIsScrolledIntoView) {
    AddMany(100);
    Show();
    EXPECT_TRUE(Shows(1));
    EXPECT_FALSE(Shows(77));
    strip.Select(strip.FindAt(77));
    EXPECT_TRUE(Shows(77));
    EXPECT_FALSE(Shows(1));
}

TEST_F(TabStripViewTest, ANewTabBehindLeavesTheRowWhereItWasScrolled) {
    AddMany(100);
    Show();
    Wheel(-120);
    const QRect before = widget.TabPlace(10);
    Add("behind");
    EXPECT_EQ(widget.TabPlace(10), before);
}

TEST_F(TabStripViewTest, TheWheelScrollsTabsThatDoNotFitAndSelectsNone) {
    AddMany(100);
    Show();
    Wheel(-120);
    EXPECT_FALSE(Shows(1));
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(1));
    for (int i = 0; i < 100; ++i) Wheel(-120);
    EXPECT_EQ(widget.TabPlace(100).intersected(widget.rect()), widget.TabPlace(100));
    for (int i = 0; i < 100; ++i) Wheel(120);
    EXPECT_EQ(widget.TabPlace(1).left(), 0);
}

TEST_F(TabStripViewTest, TheWheelLeavesTabsThatFitAlone) {
    AddMany(2);
    Show();
    Wheel(-120);
    EXPECT_EQ(widget.TabPlace(1).left(), 0);
}

TEST_F(TabStripViewTest, TheListButtonIsThereWhenTabsDoNotFit) {
    int asked = 0;
    QPoint corner;
    widget.ListRequested.ConnectForLife([&](QPoint point) {
        corner = point;
        ++asked;
    });
    AddMany(2);
    Show();
    EXPECT_TRUE(widget.ListPlace().isEmpty());
    AddMany(60);
    ASSERT_FALSE(widget.ListPlace().isEmpty());
    EXPECT_TRUE(widget.rect().contains(widget.ListPlace()));
    ClickOn(widget.ListPlace().center());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(corner, widget.mapToGlobal(QPoint(widget.width(), widget.height())));
    EXPECT_EQ(clicks, 0);
}

TEST_F(TabStripViewTest, TheButtonBehindTheLastTabOpensANewOne) {
    int blanks = 0, menus = 0, rights = 0;
    widget.BlankRequested.ConnectForLife([&] { ++blanks; });
    widget.NewMenuRequested.ConnectForLife([&] { ++menus; });
    widget.RightButtonDown.ConnectForLife([&](QPoint) { ++rights; });
    AddMany(2);
    Show();
    EXPECT_EQ(widget.NewPlace().left(), widget.TabPlace(2).right() + 1);
    ClickOn(widget.NewPlace().center());
    EXPECT_EQ(blanks, 1);
    QTest::mouseDClick(&widget, Qt::LeftButton, {}, widget.NewPlace().center());
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, widget.NewPlace().center());
    EXPECT_EQ(blanks, 2) << "the second of two quick clicks counts like the first";
    QTest::mouseClick(&widget, Qt::RightButton, {}, widget.NewPlace().center());
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(rights, 0);
    QTest::mouseClick(&widget, Qt::RightButton, {}, {790, 5});
    EXPECT_EQ(rights, 1) << "the empty part is another thing";
    EXPECT_EQ(clicks, 0);
}

TEST_F(TabStripViewTest, TheButtonForANewTabStaysInSightWhenTabsDoNotFit) {
    for (const int count : {3, 8, 60}) {
        AddMany(count);
        if (!widget.isVisible()) Show();
        EXPECT_TRUE(widget.rect().contains(widget.NewPlace())) << count;
        EXPECT_FALSE(widget.NewPlace().intersects(widget.ListPlace())) << count;
        EXPECT_EQ(widget.FindTabAt(widget.NewPlace().center()), nullptr) << count;
    }
}

TEST_F(TabStripViewTest, TellsWhenTabsCameOrWent) {
    AddMany(2);
    Show();
    int told = 0;
    widget.Rearranged.ConnectForLife([&] { ++told; });
    Add("third");
    EXPECT_TRUE(QTest::qWaitFor([&] { return told == 1; }));
}

TEST_F(TabStripViewTest, ThePressedSoundMarkMutesAndSelectsNothing) {
    std::string muted;
    widget.MuteRequested.ConnectForLife([&](Tab& tab) { muted += ToUtf8(tab.Caption()) + ";"; });
    AddMany(2);
    Show();
    const QPoint mark = widget.SoundPlace(2).center();
    strip.SetSound(strip.FindAt(2), TabSound::Playing);
    ClickOn(mark);
    EXPECT_EQ(muted, "page 2;");
    EXPECT_EQ(clicks, 0);
    strip.SetSound(strip.FindAt(2), TabSound::None);
    ClickOn(mark);
    EXPECT_EQ(muted, "page 2;");
    EXPECT_EQ(clicks, 1);
}

TEST_F(TabStripViewTest, TheSoundMarkIsPainted) {
    AddMany(2);
    Show();
    const auto picture = [&](TabSound sound) {
        strip.SetSound(strip.FindAt(2), sound);
        Quiet();
        return widget.grab(widget.SoundPlace(2)).toImage();
    };
    const QImage none = picture(TabSound::None), playing = picture(TabSound::Playing), muted = picture(TabSound::Muted);
    EXPECT_NE(none, playing);
    EXPECT_NE(playing, muted);
}

TEST_F(TabStripViewTest, TheToolTipIsTheOwnersText) {
    AddMany(1);
    faces.tip = [](const Tab& tab) { return tab.Caption() + u"\n<b>http://page/"; };
    Show();
    QHelpEvent event(QEvent::ToolTip, Middle(1), widget.mapToGlobal(Middle(1)));
    QApplication::sendEvent(&widget, &event);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("page 1"))) << QToolTip::text().toStdString();
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("&lt;b&gt;http")));
}

TEST_F(TabStripViewTest, TheButtonForANewTabTellsItsKeys) {
    AddMany(1);
    Show();
    const QPoint button = widget.NewPlace().center();
    const auto tip = [&] {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, button, widget.mapToGlobal(button));
        QApplication::sendEvent(&widget, &event);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(tip(), "New tab; more with the right button");
    faces.newTabKeys = u"Ctrl+E";
    EXPECT_EQ(tip(), "New tab (Ctrl+E); more with the right button");
}

TEST_F(TabStripViewTest, TheArrowsScroll) {
    AddMany(100);
    Show();
    ClickOn({widget.width() - 25, 10});
    EXPECT_FALSE(Shows(1));
    ClickOn({widget.width() - 50, 10});
    EXPECT_TRUE(Shows(1));
    EXPECT_EQ(clicks, 0);
}

TEST_F(TabStripViewTest, TheArrowKeysStepThroughTheTabs) {
    AddMany(3);
    Show();
    QTest::keyClick(&widget, Qt::Key_Left);
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(1));
    QTest::keyClick(&widget, Qt::Key_Right);
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(2));
    QTest::keyClick(&widget, Qt::Key_End);
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(3));
    QTest::keyClick(&widget, Qt::Key_Right);
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(3));
    QTest::keyClick(&widget, Qt::Key_Home);
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(1));
}

TEST_F(TabStripViewTest, TheToolTipIsTheFullCaptionAsText) {
    Add("<b>a caption that no tab is wide enough to show</b> " + std::string(300, 'x'));
    Show();
    QHelpEvent help(QEvent::ToolTip, Middle(1), widget.mapToGlobal(Middle(1)));
    QApplication::sendEvent(&widget, &help);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("&lt;b&gt;a caption")));
    EXPECT_EQ(QToolTip::text().count(QLatin1Char('x')), 300);
    QToolTip::hideText();
}

// The tip that is on the screen.
QSize ShownTip() {
    for (const QWidget* each : QApplication::topLevelWidgets()) {
        if (each->isVisible() && each->inherits("QTipLabel")) return each->size();
    }
    return {};
}

TEST_F(TabStripViewTest, TheLinesOfAToolTipStayWholeAsLongAsTheyMay) {
    AddMany(1);
    QString line;
    faces.tip = [&](const Tab&) { return FromQt(line); };
    Show();
    const auto tip = [&](const QString& shown) {
        line = shown;
        QHelpEvent help(QEvent::ToolTip, Middle(1), widget.mapToGlobal(Middle(1)));
        QApplication::sendEvent(&widget, &help);
        return ShownTip();
    };
    const QSize one = tip(QStringLiteral("Title"));
    const QString sentence =
        QStringLiteral("Private tab: nothing of it is kept, and that is all there is to say of it");
    const QSize lengthy = tip(sentence);
    EXPECT_EQ(lengthy.height(), one.height()) << "a narrow column is hard to read";
    EXPECT_FALSE(QToolTip::text().contains(QStringLiteral("<br/>")));
    EXPECT_GT(tip(sentence + QLatin1Char(' ') + sentence + QLatin1Char(' ') + sentence).height(), one.height());
    EXPECT_EQ(QToolTip::text().remove(QStringLiteral("<br/>")).count(sentence.left(11)), 3) << "it breaks at blanks";
    const int most = ShownTip().width();
    EXPECT_LT(tip(QString(3000, QLatin1Char('x'))).width(), most + 100) << "a word without end is broken too";
    QToolTip::hideText();
}

TEST_F(TabStripViewTest, TheRowIsNeverLowerThan22AndGrowsWithTheFont) {
    int changes = 0;
    widget.RowHeightChanged.ConnectForLife([&] { ++changes; });
    QFont font = widget.font();
    font.setPixelSize(6);
    widget.setFont(font);
    EXPECT_EQ(widget.RowHeight().value, 22);
    font.setPixelSize(40);
    widget.setFont(font);
    EXPECT_GE(widget.RowHeight().value, 40);
    EXPECT_EQ(strip.RowHeight, widget.RowHeight());
    EXPECT_GE(changes, 1);
}

TEST_F(TabStripViewTest, AnEmptyStripAndATinyOneAreShown) {
    Show();
    widget.grab();
    ClickOn({5, 5});
    QTest::keyClick(&widget, Qt::Key_Right);
    AddMany(50);
    widget.resize(10, 22);
    widget.grab();
    ClickOn({5, 5});
    widget.resize(0, 0);
    widget.grab();
    EXPECT_EQ(clicks, 0);
}

TEST_F(TabStripViewTest, TabsRemovedBeforeTheLayoutAreNotPainted) {
    AddMany(20);
    Show();
    while (strip.Count() > 1) strip.Remove(strip.FindAt(1));
    widget.repaint();
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(1));
    ClickOn(Middle(1));
    EXPECT_EQ(clicks, 1);
}

TEST(TabStripViewLife, AStripGoesOnWithoutItsWidget) {
    TabStrip strip;
    { TabStripView widget(strip); }
    EXPECT_NE(strip.Add(0, u"Tab1"), nullptr);
}

// What screen readers see.

TEST_F(TabStripViewTest, SignsThatTurnTheWritingAroundAreShownAndReadAsWhatTheyAre) {
    Tab* tab = Add("\u202Eevil\u2066...");
    Show();
    const QImage turned = widget.grab().toImage();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->child(0)->text(QAccessible::Name),
              QStringLiteral("\uFFFDevil\uFFFD..."));
    strip.SetCaption(tab, u"\uFFFDevil\uFFFD...");
    Quiet();
    EXPECT_EQ(widget.grab().toImage(), turned);
}

QAccessibleInterface* Accessible(QWidget& widget) { return QAccessible::queryAccessibleInterface(&widget); }

TEST_F(TabStripViewTest, ScreenReadersSeeAListOfPageTabs) {
    AddMany(3);
    strip.SetImage(strip.FindAt(3), TabImage::Red);
    Show();
    QAccessibleInterface* list = Accessible(widget);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::PageTabList);
    EXPECT_EQ(list->text(QAccessible::Name), QStringLiteral("Tabs"));
    ASSERT_EQ(list->childCount(), 4);
    for (int i = 0; i < 3; ++i) {
        QAccessibleInterface* tab = list->child(i);
        EXPECT_EQ(tab->role(), QAccessible::PageTab);
        EXPECT_EQ(tab->text(QAccessible::Name), QStringLiteral("page %1").arg(i + 1));
        EXPECT_EQ(tab->state().selected, i == 0);
        EXPECT_EQ(tab->state().busy, i == 2);
        EXPECT_EQ(tab->parent(), list);
        EXPECT_EQ(list->indexOfChild(tab), i);
        EXPECT_EQ(list->childAt(tab->rect().center().x(), tab->rect().center().y()), tab);
    }
    EXPECT_EQ(list->child(4), nullptr);
    EXPECT_EQ(list->child(-1), nullptr);
}

TEST_F(TabStripViewTest, ScreenReadersFindTheButtonForANewTabBehindTheTabs) {
    int blanks = 0, menus = 0;
    widget.BlankRequested.ConnectForLife([&] { ++blanks; });
    widget.NewMenuRequested.ConnectForLife([&] { ++menus; });
    AddMany(2);
    Show();
    QAccessibleInterface* list = Accessible(widget);
    QAccessibleInterface* button = list->child(2);
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->role(), QAccessible::Button);
    EXPECT_EQ(button->text(QAccessible::Name), QStringLiteral("New Tab"));
    EXPECT_EQ(button->parent(), list);
    EXPECT_EQ(list->indexOfChild(button), 2);
    EXPECT_EQ(list->childAt(button->rect().center().x(), button->rect().center().y()), button);
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    button->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_EQ(blanks, 1);
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(clicks, 0);
    Add("one more");
    Quiet();
    EXPECT_EQ(list->child(3), button) << "it is always the last";
}

TEST_F(TabStripViewTest, ScreenReadersSelectATabByItsAction) {
    AddMany(3);
    Show();
    QAccessibleActionInterface* action = Accessible(widget)->child(1)->actionInterface();
    ASSERT_NE(action, nullptr);
    ASSERT_EQ(action->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(strip.SelectedItem(), strip.FindAt(2));
    EXPECT_EQ(clicks, 1);
}

TEST_F(TabStripViewTest, ScreenReadersAreToldWhatATabWaitsFor) {
    AddMany(1);
    Show();
    strip.SetAwaited(strip.FindAt(1), u"https://bank.example/");
    strip.SetImage(strip.FindAt(1), TabImage::Red);
    QAccessibleInterface* tab = Accessible(widget)->child(0);
    EXPECT_EQ(tab->text(QAccessible::Description),
              QStringLiteral("Waiting for https://bank.example/, still shows the page before"));
    strip.SetAwaited(strip.FindAt(1), {});
    EXPECT_EQ(tab->text(QAccessible::Description), QStringLiteral("Loading"));
}

TEST_F(TabStripViewTest, AnInterfaceOfATabThatHasGoneAnswersNothing) {
    AddMany(2);
    Show();
    QAccessibleInterface* gone = Accessible(widget)->child(1);
    strip.Remove(strip.FindAt(2));
    EXPECT_TRUE(gone->state().invalid);
    EXPECT_EQ(gone->text(QAccessible::Name), QString());
    EXPECT_TRUE(gone->rect().isEmpty());
    gone->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicks, 0);
}

TEST_F(TabStripViewTest, ScreenReadersFollowChanges) {
    AddMany(3);
    Show();
    QAccessibleInterface* list = Accessible(widget);
    QAccessibleInterface* third = list->child(2);
    ASSERT_EQ(list->childCount(), 4);
    strip.SetCaption(strip.FindAt(3), u"renamed");
    strip.Select(strip.FindAt(3));
    strip.Remove(strip.FindAt(1));
    Add("new");
    Quiet();
    ASSERT_EQ(list->childCount(), 4);
    EXPECT_EQ(list->child(1), third);
    EXPECT_EQ(third->text(QAccessible::Name), QStringLiteral("renamed"));
    EXPECT_TRUE(third->state().selected);
    EXPECT_FALSE(list->child(0)->state().selected);
    EXPECT_EQ(list->child(2)->text(QAccessible::Name), QStringLiteral("new"));
}

} // namespace

} // namespace tessa::qt
