#include "qt/base/LatinKeys.h"

#include "tests/qt/bar/BarDesk.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>
#include <QWindow>

namespace tessa::qt {

namespace {

/// A key of a Russian keyboard: what it gives, and where it is.
struct RussianKey {
    char16_t letter;
    quint32 scanCode;
};

constexpr RussianKey kRussianA{u'ф', 38}, kRussianC{u'с', 54}, kRussianV{u'м', 55}, kRussianX{u'ч', 53},
    kRussianZ{u'я', 52}, kRussianF{u'а', 41}, kN{u'т', 57}, kRussianD{u'в', 40}, kO{u'щ', 32}, kG{u'п', 42},
    kS{u'ы', 39};

/// What a person does at a Russian keyboard, seen as the windows of the desktop see it.
class LatinKeysTest : public BarDesk {
protected:
    void SetUp() override {
        AddTool(u"mnuFile", u"&File")->SubBand = u"bndFileMenu";
        AddTool(u"mnuEdit", u"&Edit")->SubBand = u"bndEditMenu";
        AddTool(u"mnuNew", u"&New");
        AddTool(u"mnuOpen", u"&Open");
        AddTool(u"mnuCyrillic", u"&Щука");
        AddLabel(u"mnuAddress", u"A&ddress");
        AddCombo(u"cboAddress");
        AddBand(u"bndMenu", BandKind::MenuBar, {u"mnuFile", u"mnuEdit"});
        AddBand(u"bndFileMenu", BandKind::Menu, {u"mnuNew", u"mnuOpen"});
        AddBand(u"bndEditMenu", BandKind::Menu, {u"mnuOpen", u"mnuCyrillic"});
        AddBand(u"bndAddress", BandKind::Toolbar, {u"mnuAddress", u"cboAddress"});
        ShowWindow();
    }

    static void Send(QWidget& to, QEvent::Type type, RussianKey key, Qt::KeyboardModifiers held) {
        const QString text(QChar(key.letter));
        QKeyEvent event(type, text.toUpper().at(0).unicode(), held, key.scanCode, 0, 0, text);
        // As from a real keyboard: for one of the program's own Qt does things that it then does not.
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(to.windowHandle(), &event);
    }
    static void PressIn(QWidget& to, RussianKey key, Qt::KeyboardModifiers held = {}) {
        Send(to, QEvent::ShortcutOverride, key, held);
        Send(to, QEvent::KeyPress, key, held);
        Send(to, QEvent::KeyRelease, key, held);
    }
    void Press(RussianKey key, Qt::KeyboardModifiers held = {}) { PressIn(window, key, held); }

    [[nodiscard]] static std::string OpenMenu() {
        const QWidget* menu = QApplication::activePopupWidget();
        return menu ? menu->objectName().toStdString() : "";
    }

    LatinKeys keys;
};

TEST_F(LatinKeysTest, TheBoxesOwnCombinationsWork) {
    Box(u"cboAddress").setFocus();
    Press(kRussianA);
    Press(kRussianC);
    EXPECT_EQ(Field(u"cboAddress").text(), QStringLiteral("фс")) << "what is typed is left alone";
    Press(kRussianA, Qt::ControlModifier);
    EXPECT_EQ(Field(u"cboAddress").selectedText(), QStringLiteral("фс"));
    Press(kRussianC, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("фс"));
    Press(kRussianX, Qt::ControlModifier);
    EXPECT_EQ(Field(u"cboAddress").text(), QString());
    Press(kRussianV, Qt::ControlModifier);
    Press(kRussianV, Qt::ControlModifier);
    EXPECT_EQ(Field(u"cboAddress").text(), QStringLiteral("фсфс"));
    Press(kRussianZ, Qt::ControlModifier);
    EXPECT_EQ(Field(u"cboAddress").text(), QStringLiteral("фс"));
}

TEST_F(LatinKeysTest, AltAndALetterOpenTheMenuAndTheLetterAloneChooses) {
    Press(kRussianF, Qt::AltModifier);
    EXPECT_EQ(OpenMenu(), "bndFileMenu");
    Press(kO);
    EXPECT_EQ(clicked, "mnuOpen;");
    EXPECT_EQ(OpenMenu(), "");
}

TEST_F(LatinKeysTest, AMenuThatHasTheLetterItselfIsGivenThat) {
    Press({u'у', 26}, Qt::AltModifier);
    ASSERT_EQ(OpenMenu(), "bndEditMenu");
    Press(kO);
    EXPECT_EQ(clicked, "mnuCyrillic;");
}

TEST_F(LatinKeysTest, TheMenuBarItselfKnowsTheLetterWhileItHasTheKeyboard) {
    window.menuBar()->setFocus();
    Press(kRussianF);
    EXPECT_EQ(OpenMenu(), "bndFileMenu");
    QApplication::activePopupWidget()->close();
}

TEST_F(LatinKeysTest, ALabelsLetterLeadsToItsBox) {
    window.centralWidget()->setFocusPolicy(Qt::StrongFocus);
    window.centralWidget()->setFocus();
    Press(kRussianD, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_FALSE(Box(u"cboAddress").hasFocus()) << "Alt alone is meant";
    Press(kRussianD, Qt::AltModifier);
    EXPECT_TRUE(Box(u"cboAddress").hasFocus());
}

TEST_F(LatinKeysTest, DialogsKnowTheirLettersToo) {
    QDialog dialog(&window);
    auto* rows = new QVBoxLayout(&dialog);
    auto* tabs = new QTabBar;
    auto* button = new QPushButton(QStringLiteral("&New"));
    auto* off = new QPushButton(QStringLiteral("&Off"));
    tabs->addTab(QStringLiteral("&General"));
    tabs->addTab(QStringLiteral("&Sites"));
    off->setEnabled(false);
    for (QWidget* each : std::initializer_list<QWidget*>{tabs, button, off}) rows->addWidget(each);
    int pressed = 0;
    QObject::connect(button, &QPushButton::clicked, [&] { ++pressed; });
    QObject::connect(off, &QPushButton::clicked, [&] { pressed += 100; });
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; }));
    PressIn(dialog, kS, Qt::AltModifier);
    EXPECT_EQ(tabs->currentIndex(), 1);
    PressIn(dialog, kG, Qt::AltModifier);
    EXPECT_EQ(tabs->currentIndex(), 0);
    PressIn(dialog, kO, Qt::AltModifier);
    PressIn(dialog, kRussianF, Qt::AltModifier);
    EXPECT_EQ(OpenMenu(), "") << "the window behind is not meant";
    PressIn(dialog, kN, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed > 0; }));
    EXPECT_EQ(pressed, 1);
}

} // namespace

} // namespace tessa::qt
