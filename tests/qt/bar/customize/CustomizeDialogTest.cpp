// Tests: BandPanels, ToolBarLook, CommandsPage, LookPage, ResetQuestion, ToolbarName, ToolbarsPage
#include "qt/bar/customize/CustomizeDialog.h"

#include "commands/DesignTimeBar.h"
#include "qt/bar/CommandBarView.h"
#include "qt/bar/ToolBarLook.h"
#include "qt/bar/customize/BandList.h"
#include "qt/base/Strings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <gtest/gtest.h>
#include <memory>

namespace tessa::qt {

namespace {

/// A user at the dialog, over a window with the designed bar.
class CustomizeDialogTest : public testing::Test {
protected:
    void SetUp() override {
        DesignTimeBar::Make(bar);
        look = std::make_unique<ToolBarLook>(bar, window);
        shown = std::make_unique<CommandBarView>(bar, window);
        customize = std::make_unique<Customize>(bar, window);
        customize->Closed.ConnectForLife([this] { ++closed; });
        window.resize(1000, 500);
        window.show();
        Open();
    }

    void Open() {
        customize->Open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(customize->Dialog()));
    }

    template<typename T>
    T& At(const char* name) {
        T* found = customize->Dialog()->findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    void Press(const char* button) {
        ASSERT_TRUE(At<QPushButton>(button).isEnabled()) << button;
        At<QPushButton>(button).click();
    }
    bool Enabled(const char* button) { return At<QPushButton>(button).isEnabled(); }
    void ShowPage(int index) { At<QTabWidget>("pages").setCurrentIndex(index); }
    void Choose(const char* list, const QString& text) {
        const auto found = At<QListWidget>(list).findItems(text, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << list << ": " << qPrintable(text);
        At<QListWidget>(list).setCurrentItem(found[0]);
    }
    void ChooseBand(const QString& title) {
        const int row = At<QComboBox>("cboBands").findText(title);
        ASSERT_GE(row, 0) << qPrintable(title);
        At<QComboBox>("cboBands").setCurrentIndex(row);
    }
    std::string Tools(TextView band) const {
        std::string all;
        for (const BandEntry& entry : bar.FindBand(band)->Entries())
            all += (all.empty() ? "" : " ") + std::string(entry.Group == BeginGroup::Yes ? "|" : "") +
                   ToUtf8(entry.Item->Name());
        return all;
    }
    std::string Items(const char* list) {
        std::string all;
        for (int row = 0; row < At<QListWidget>(list).count(); ++row)
            all += At<QListWidget>(list).item(row)->text().toStdString() + ";";
        return all;
    }
    /// Runs once a modal dialog is open.
    template<typename Act>
    void WhenAsked(Act act) {
        auto* timer = new QTimer(&window);
        QObject::connect(timer, &QTimer::timeout, &window, [timer, act] {
            QWidget* modal = QApplication::activeModalWidget();
            if (!modal) return;
            timer->stop();
            timer->deleteLater();
            act(*modal);
        });
        timer->start(5);
    }
    void AnswerName(const QString& name) {
        WhenAsked([name](QWidget& modal) {
            modal.findChild<QLineEdit*>(QStringLiteral("txtName"))->setText(name);
            QTest::keyClick(&modal, Qt::Key_Return);
        });
    }

    CommandBar bar;
    QMainWindow window;
    std::unique_ptr<ToolBarLook> look;
    std::unique_ptr<CommandBarView> shown;
    std::unique_ptr<Customize> customize;
    int closed = 0;
};

TEST_F(CustomizeDialogTest, OpensOnceWithItsListInFocusAndClosesByEscape) {
    CustomizeDialog* dialog = customize->Dialog();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Customize"));
    EXPECT_FALSE(dialog->isModal());
    EXPECT_EQ(QApplication::focusWidget(), &At<QListWidget>("lstToolbars"));
    customize->Open();
    EXPECT_EQ(customize->Dialog(), dialog);
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(customize->Dialog(), nullptr);
    EXPECT_EQ(closed, 1);
    Open();
    Press("cmdClose");
    EXPECT_EQ(closed, 2);
}

TEST_F(CustomizeDialogTest, AccessKeysReachPagesListsAndButtons) {
    QTest::keyClick(customize->Dialog(), Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(At<QTabWidget>("pages").currentIndex(), 1);
    QTest::keyClick(customize->Dialog(), Qt::Key_M, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), &At<QListWidget>("lstCommands"));
    QTest::keyClick(customize->Dialog(), Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), &At<QComboBox>("cboBands"));
    QTest::keyClick(customize->Dialog(), Qt::Key_O, Qt::AltModifier);
    QTest::keyClick(customize->Dialog(), Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), &At<QComboBox>("cboIcons"));
    QTest::keyClick(customize->Dialog(), Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return closed == 1; })) << "the button is seen to go down first";
}

TEST_F(CustomizeDialogTest, TheSpaceBarShowsAndHidesAToolbar) {
    Choose("lstToolbars", QStringLiteral("Go"));
    QTest::keyClick(&At<QListWidget>("lstToolbars"), Qt::Key_Space);
    EXPECT_FALSE(bar.FindBand(u"bndGo")->Visible());
    QTest::keyClick(&At<QListWidget>("lstToolbars"), Qt::Key_Space);
    EXPECT_TRUE(bar.FindBand(u"bndGo")->Visible());
    Choose("lstToolbars", QStringLiteral("Menu Bar"));
    QTest::keyClick(&At<QListWidget>("lstToolbars"), Qt::Key_Space);
    EXPECT_TRUE(bar.FindBand(u"bndMenu")->Visible());
}

TEST_F(CustomizeDialogTest, AToolbarIsMadeRenamedAndDeleted) {
    EXPECT_FALSE(Enabled("cmdRename") || Enabled("cmdDelete"));
    AnswerName(QStringLiteral("Mine"));
    Press("cmdNew");
    const Band* made = bar.FindBand(u"gui1");
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(ToUtf8(made->Caption()), "Mine");
    EXPECT_NE(window.findChild<QToolBar*>(QStringLiteral("gui1")), nullptr);
    EXPECT_EQ(At<QListWidget>("lstToolbars").currentItem()->text(), QStringLiteral("Mine"));
    EXPECT_FALSE(Enabled("cmdReset")) << "it has no design";
    AnswerName(QStringLiteral("Yours"));
    Press("cmdRename");
    EXPECT_EQ(At<QListWidget>("lstToolbars").currentItem()->text(), QStringLiteral("Yours"));
    Press("cmdDelete");
    EXPECT_EQ(bar.FindBand(u"gui1"), nullptr);
    EXPECT_EQ(Items("lstToolbars").find("Yours"), std::string::npos);
}

TEST_F(CustomizeDialogTest, ANameInUseIsRefusedAtOnceAndEscapeMakesNothing) {
    bool accepts = true;
    QString why;
    WhenAsked([&](QWidget& modal) {
        modal.findChild<QLineEdit*>(QStringLiteral("txtName"))->setText(QStringLiteral("Go"));
        for (auto* button : modal.findChildren<QPushButton*>()) {
            if (button->isDefault()) accepts = button->isEnabled();
        }
        why = modal.findChild<QLabel*>(QStringLiteral("lblWhy"))->text();
        QTest::keyClick(&modal, Qt::Key_Escape);
    });
    Press("cmdNew");
    EXPECT_FALSE(accepts);
    EXPECT_EQ(why, QStringLiteral("There is a toolbar of that name already."));
    EXPECT_EQ(bar.FindBand(u"gui1"), nullptr);
}

TEST_F(CustomizeDialogTest, OneToolbarOrAllAreReset) {
    bar.FindBand(u"bndGo")->RemoveAt(0);
    bar.FindBand(u"bndFile")->RemoveAt(0);
    Choose("lstToolbars", QStringLiteral("Go"));
    Press("cmdReset");
    EXPECT_EQ(Tools(u"bndGo").substr(0, 9), "mnuGoBack");
    // The first one is what Enter answers.
    for (const bool resets : {false, true}) {
        WhenAsked([resets](QWidget& modal) {
            auto& box = dynamic_cast<QMessageBox&>(modal);
            EXPECT_EQ(box.defaultButton()->text(), QStringLiteral("&Keep Them"));
            if (!resets) return QTest::keyClick(&box, Qt::Key_Return);
            for (auto* each : box.buttons()) {
                if (each->text() == QStringLiteral("&Reset All")) each->click();
            }
        });
        EXPECT_EQ(Tools(u"bndFile"), "mnuOpen mnuClose mnuCloseAll");
        Press("cmdResetAll");
    }
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuOpen mnuClose mnuCloseAll");
}

TEST_F(CustomizeDialogTest, ACommandIsAddedMovedSeparatedAndRemovedByButtons) {
    ShowPage(1);
    Choose("lstCategories", QStringLiteral("Edit"));
    EXPECT_EQ(Items("lstCommands"), "Cut;Copy;Paste;Select All;Find (on this page)...;");
    Choose("lstCommands", QStringLiteral("Copy"));
    EXPECT_EQ(At<QLabel>("lblDescription").text(), QStringLiteral("Copies the selection to the clipboard"));
    ChooseBand(QStringLiteral("Toolbar: File"));
    EXPECT_EQ(Items("lstEntries"), "New \u25B8;Open;Close;Close All;");
    Press("cmdAdd");
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuCopy mnuOpen mnuClose mnuCloseAll");
    EXPECT_EQ(At<QListWidget>("lstEntries").currentItem()->text(), QStringLiteral("Copy"));
    Press("cmdDown");
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuOpen mnuCopy mnuClose mnuCloseAll");
    Press("cmdGroup");
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuOpen |mnuCopy mnuClose mnuCloseAll");
    EXPECT_TRUE(At<QPushButton>("cmdGroup").isChecked());
    Press("cmdGroup");
    Press("cmdUp");
    Press("cmdUp");
    EXPECT_EQ(Tools(u"bndFile"), "mnuCopy tbNew mnuOpen mnuClose mnuCloseAll");
    EXPECT_FALSE(Enabled("cmdUp") || Enabled("cmdGroup"));
    Press("cmdRemove");
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuOpen mnuClose mnuCloseAll");
    QTest::keyClick(&At<QListWidget>("lstCommands"), Qt::Key_Return);
    EXPECT_EQ(Tools(u"bndFile"), "tbNew mnuCopy mnuOpen mnuClose mnuCloseAll") << "Enter adds too";
}

TEST_F(CustomizeDialogTest, WhatABandDoesNotTakeCannotBeAdded) {
    ShowPage(1);
    Choose("lstCategories", QStringLiteral("Address"));
    Choose("lstCommands", QStringLiteral("Address (box)"));
    ChooseBand(QStringLiteral("Menu: File"));
    EXPECT_FALSE(Enabled("cmdAdd"));
    ChooseBand(QStringLiteral("Toolbar: Go"));
    EXPECT_TRUE(Enabled("cmdAdd"));
}

TEST_F(CustomizeDialogTest, AnEmptyBandHasNothingToMoveOrRemove) {
    for (int i = 0; i < 3; ++i) bar.FindBand(u"bndTabPopup")->RemoveAt(0);
    while (!bar.FindBand(u"bndTabPopup")->Entries().empty()) bar.FindBand(u"bndTabPopup")->RemoveAt(0);
    ShowPage(1);
    ChooseBand(QStringLiteral("Pop-up menu: Tab Popup"));
    EXPECT_FALSE(Enabled("cmdRemove") || Enabled("cmdUp") || Enabled("cmdDown") || Enabled("cmdGroup"));
    Choose("lstCommands", QStringLiteral("Open"));
    Press("cmdAdd");
    EXPECT_EQ(Tools(u"bndTabPopup"), "mnuOpen");
}

TEST_F(CustomizeDialogTest, TheOptionsAreAppliedAtOnce) {
    ShowPage(3);
    auto& toolBar = *window.findChild<QToolBar*>(QStringLiteral("bndGo"));
    EXPECT_EQ(toolBar.iconSize(), QSize(22, 22));
    EXPECT_EQ(toolBar.toolButtonStyle(), Qt::ToolButtonIconOnly);
    At<QComboBox>("cboIcons").setCurrentIndex(2);
    EXPECT_EQ(toolBar.iconSize(), QSize(32, 32));
    At<QComboBox>("cboIcons").setCurrentIndex(0);
    EXPECT_EQ(toolBar.iconSize(), QSize(16, 16));
    for (const auto& [row, style] : std::vector<std::pair<int, Qt::ToolButtonStyle>>{
             {1, Qt::ToolButtonTextBesideIcon}, {2, Qt::ToolButtonTextUnderIcon}, {3, Qt::ToolButtonTextOnly}}) {
        At<QComboBox>("cboText").setCurrentIndex(row);
        EXPECT_EQ(toolBar.toolButtonStyle(), style);
    }
    const Band* later = bar.AddBand(u"gui9", u"Later", BandKind::Toolbar);
    EXPECT_EQ(window.findChild<QToolBar*>(ToQt(later->Name()))->iconSize(), QSize(16, 16)) << "of later ones too";
    At<QCheckBox>("chkTips").setChecked(false);
    EXPECT_EQ(bar.Look(), (BarLook{IconSize::Small, ToolText::TextOnly, false}));
}

TEST_F(CustomizeDialogTest, ToolTipsOfToolbarsAreShownOrNot) {
    auto* button = window.findChild<QToolBar*>(QStringLiteral("bndGo"))->findChild<QToolButton*>();
    for (const bool wanted : {true, false}) {
        bar.Look = BarLook{IconSize::Medium, ToolText::IconsOnly, wanted};
        struct Watch final : QObject {
            bool eventFilter(QObject*, QEvent* event) override {
                seen = seen || event->type() == QEvent::ToolTip;
                return event->type() == QEvent::ToolTip;
            }
            bool seen = false;
        } watch;
        button->installEventFilter(&watch);
        QHelpEvent help(QEvent::ToolTip, {1, 1}, button->mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(button, &help);
        EXPECT_EQ(watch.seen, wanted);
    }
}

} // namespace

} // namespace tessa::qt
