#include "qt/bar/customize/KeysPage.h"

#include "commands/DesignTimeBar.h"
#include "qt/bar/CommandBarView.h"
#include "qt/bar/customize/CustomizeDialog.h"
#include "qt/base/KeyFilter.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace tessa::qt {

namespace {

/// A user at the page, over a window with the designed bar whose keys work.
class KeysPageTest : public testing::Test, private KeyTaker {
protected:
    void SetUp() override {
        DesignTimeBar::Make(bar);
        bar.Click.ConnectForLife([this](Tool& tool) { clicked += ToUtf8(tool.Name()) + ";"; });
        shown = std::make_unique<CommandBarView>(bar, window);
        window.setCentralWidget(&page);
        page.setFocusPolicy(Qt::StrongFocus);
        window.resize(1000, 500);
        window.show();
        customize.Open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(customize.Dialog()));
        QTest::keyClick(customize.Dialog(), Qt::Key_K, Qt::AltModifier);
        ASSERT_EQ(At<QTabWidget>("pages").currentIndex(), 2);
    }

    template<typename T>
    T& At(const char* name) {
        T* found = customize.Dialog()->findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    std::string Focus() {
        const QWidget* focus = QApplication::focusWidget();
        return focus ? focus->objectName().toStdString() : "";
    }
    /// Presses a key on what has the keyboard.
    static void Key(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }
    void Search(const QString& words) {
        At<QLineEdit>("txtSearchKeys").setFocus();
        At<QLineEdit>("txtSearchKeys").clear();
        QTest::keyClicks(&At<QLineEdit>("txtSearchKeys"), words);
    }
    /// The commands that are listed, each with its keys.
    std::string Listed() {
        std::string all;
        const auto& list = At<QTreeWidget>("lstKeyCommands");
        for (int row = 0; row < list.topLevelItemCount(); ++row) {
            const QTreeWidgetItem& item = *list.topLevelItem(row);
            all +=
                item.text(0).toStdString() + "=" + item.text(2).toStdString() + (item.font(2).bold() ? "*" : "") + ";";
        }
        return all;
    }
    std::string Present() {
        std::string all;
        for (int row = 0; row < At<QListWidget>("lstPresentKeys").count(); ++row)
            all += At<QListWidget>("lstPresentKeys").item(row)->text().toStdString() + ";";
        return all;
    }
    std::string Verdict() { return At<QLabel>("lblVerdict").text().toStdString(); }
    bool Enabled(const char* button) { return At<QPushButton>(button).isEnabled(); }
    void Press(const char* button) {
        ASSERT_TRUE(Enabled(button)) << button;
        At<QPushButton>(button).click();
    }
    /// Selects a command and records a combination for it.
    void Record(const QString& command, Qt::Key key, Qt::KeyboardModifiers held = {}) {
        Search(command);
        At<QLineEdit>("txtNewKeys").setFocus();
        Key(key, held);
    }
    /// Presses a key in the main window; what it has clicked.
    std::string InWindow(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        clicked.clear();
        window.activateWindow();
        // For Qt's own wait a window is active as soon as its dialog is.
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &window; }));
        page.setFocus();
        QTest::keyClick(&page, key, held);
        return clicked;
    }
    void AnswerReset(bool resets) {
        auto* timer = new QTimer(&window);
        QObject::connect(timer, &QTimer::timeout, &window, [timer, resets] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            timer->stop();
            timer->deleteLater();
            if (!resets) return QTest::keyClick(box, Qt::Key_Return);
            for (auto* each : box->buttons()) {
                if (each->text() == QStringLiteral("&Reset All")) each->click();
            }
        });
        timer->start(5);
        Press("cmdResetAllKeys");
    }

    KeyUsed KeyDown(KeyStroke key) override { return bar.KeyDown(key); }
    KeyUsed KeyUp(KeyStroke) override { return KeyUsed::No; }
    [[nodiscard]] bool BeforeAccessKeys(KeyStroke key) const override { return bar.Combinations.IsChosen(key); }

    // What is told while the bar goes is written here.
    std::string clicked;
    CommandBar bar;
    QWidget& page = *new QWidget;
    QMainWindow window;
    KeyFilter keys{window, *this};
    std::unique_ptr<CommandBarView> shown;
    Customize customize{bar, window};
};

TEST_F(KeysPageTest, ListsEveryCommandWithItsKeysAndFindsThemByWords) {
    EXPECT_EQ(Focus(), "txtSearchKeys") << "the page's own access key leads there";
    EXPECT_GT(At<QTreeWidget>("lstKeyCommands").topLevelItemCount(), 100);
    Search(QStringLiteral("refresh"));
    EXPECT_EQ(Listed(), "Refresh=F5, Ctrl+R;");
    EXPECT_EQ(Present(), "F5;Ctrl+R;");
    EXPECT_EQ(At<QTreeWidget>("lstKeyCommands").topLevelItem(0)->text(1), QStringLiteral("View"));
    Search(QStringLiteral("ctrl+shift+t"));
    EXPECT_EQ(Listed(), "Previous Tab=Ctrl+Shift+Tab;Reopen Closed Tab=Ctrl+Shift+T;");
    Search(QStringLiteral("no such thing"));
    EXPECT_EQ(Listed() + Present(), "");
    EXPECT_FALSE(Enabled("cmdAssign") || Enabled("cmdRemoveKey") || Enabled("cmdResetKeys"));
    Search(QStringLiteral("copy edit"));
    EXPECT_EQ(Present(), "Ctrl+C (stays);");
    EXPECT_FALSE(Enabled("cmdRemoveKey"));
}

TEST_F(KeysPageTest, AKeyIsChangedByTheKeyboardAloneAndWorksInTheWindow) {
    const QAction& action = *shown->Find(u"mnuRefresh");
    Search(QStringLiteral("refresh"));
    Key(Qt::Key_Return);
    EXPECT_EQ(Focus(), "lstKeyCommands");
    Key(Qt::Key_Return);
    EXPECT_EQ(Focus(), "txtNewKeys");
    Key(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(Verdict(), "Ctrl+E is free.");
    EXPECT_EQ(At<QLineEdit>("txtNewKeys").accessibleDescription(), QStringLiteral("Ctrl+E is free."));
    Key(Qt::Key_Return);
    EXPECT_EQ(Listed(), "Refresh=Ctrl+E, F5, Ctrl+R*;");
    EXPECT_EQ(At<QLineEdit>("txtNewKeys").text() + QString::fromStdString(Verdict()), QString());
    EXPECT_EQ(action.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E)) << "the menu shows it at once";
    At<QListWidget>("lstPresentKeys").setCurrentRow(1);
    Press("cmdRemoveKey");
    EXPECT_EQ(Present(), "Ctrl+E;Ctrl+R;");
    EXPECT_EQ(InWindow(Qt::Key_E, Qt::ControlModifier), "mnuRefresh;");
    EXPECT_EQ(InWindow(Qt::Key_F5), "") << "the old one does nothing";
    EXPECT_EQ(InWindow(Qt::Key_R, Qt::ControlModifier), "mnuRefresh;") << "the other one stays";
}

TEST_F(KeysPageTest, AConflictIsNamedAtOnceAndTheKeyTakenOver) {
    Record(QStringLiteral("settings"), Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(Verdict(), "Ctrl+T belongs to \u201CNew Blank\u201D. Assign takes it over.");
    Press("cmdAssign");
    EXPECT_EQ(Listed(), "Settings...=Ctrl+T*;");
    EXPECT_EQ(InWindow(Qt::Key_T, Qt::ControlModifier), "mnuSettings;");
    Search(QStringLiteral("new blank"));
    EXPECT_EQ(Listed(), "New Blank=*;");
    Press("cmdResetKeys");
    EXPECT_EQ(Listed(), "New Blank=Ctrl+T;");
    EXPECT_EQ(Verdict(), "Ctrl+T was taken from \u201CSettings\u201D.");
    EXPECT_FALSE(Enabled("cmdResetKeys") || Enabled("cmdResetAllKeys"));
    EXPECT_EQ(InWindow(Qt::Key_T, Qt::ControlModifier), "mnuNewBlank;");
}

TEST_F(KeysPageTest, WhatCannotBeAssignedIsRefusedWithAReason) {
    Record(QStringLiteral("new blank"), Qt::Key_E);
    EXPECT_EQ(Verdict(), "E is for typing. Hold Ctrl or Alt with it.");
    EXPECT_FALSE(Enabled("cmdAssign"));
    Key(Qt::Key_Return);
    EXPECT_EQ(Listed(), "New Blank=Ctrl+T;");
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Verdict(), "Ctrl+C is needed for editing text in boxes and pages.");
    Key(Qt::Key_Semicolon, Qt::ControlModifier);
    EXPECT_EQ(Verdict(), "This key cannot be used here.");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Verdict(), "");
    EXPECT_FALSE(Enabled("cmdAssign"));
}

TEST_F(KeysPageTest, AnAccessKeyOfTheMenuBarThatWasTakenOverIsTheCommands) {
    Record(QStringLiteral("new blank"), Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(Verdict(), "Alt+F opens the menu \u201CFile\u201D. Assign takes it over.");
    Press("cmdAssign");
    EXPECT_EQ(InWindow(Qt::Key_F, Qt::AltModifier), "mnuNewBlank;");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(InWindow(Qt::Key_E, Qt::AltModifier), "");
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr) << "the others open their menus";
    menu->close();
}

TEST_F(KeysPageTest, TheVerdictFollowsTheCommandThatIsSelected) {
    Record(QStringLiteral("new"), Qt::Key_T, Qt::ControlModifier);
    auto& list = At<QTreeWidget>("lstKeyCommands");
    std::set<std::string> verdicts;
    for (int row = 0; row < list.topLevelItemCount(); ++row) {
        list.setCurrentItem(list.topLevelItem(row));
        verdicts.insert(Verdict());
    }
    EXPECT_EQ(verdicts, (std::set<std::string>{"Ctrl+T belongs to \u201CNew Blank\u201D. Assign takes it over.",
                                               "Ctrl+T is its key already."}));
}

TEST_F(KeysPageTest, AllKeysAreResetAfterAQuestion) {
    EXPECT_FALSE(Enabled("cmdResetAllKeys"));
    Record(QStringLiteral("settings"), Qt::Key_T, Qt::ControlModifier);
    Press("cmdAssign");
    AnswerReset(false);
    EXPECT_EQ(Listed(), "Settings...=Ctrl+T*;") << "Enter keeps them";
    AnswerReset(true);
    EXPECT_EQ(Listed(), "Settings...=;");
    EXPECT_FALSE(Enabled("cmdResetAllKeys"));
    EXPECT_EQ(InWindow(Qt::Key_T, Qt::ControlModifier), "mnuNewBlank;");
}

TEST_F(KeysPageTest, WhatIsSelectedStaysSoWhileKeysChange) {
    Search(QString());
    auto& list = At<QTreeWidget>("lstKeyCommands");
    list.setCurrentItem(list.findItems(QStringLiteral("Downloads"), Qt::MatchExactly).value(0));
    bar.Combinations.Choose(u"mnuNewBlank", {});
    EXPECT_EQ(list.currentItem()->text(0), QStringLiteral("Downloads"));
    EXPECT_EQ(Present(), "Ctrl+J;");
    QTest::keyClicks(&At<QLineEdit>("txtSearchKeys"), QStringLiteral("o"));
    EXPECT_EQ(list.currentItem()->text(0), QStringLiteral("Downloads")) << "it is found by that too";
    Search(QStringLiteral("private"));
    EXPECT_EQ(list.currentItem()->text(0), QStringLiteral("New Private Tab"));
    EXPECT_EQ(Present(), "Ctrl+Shift+N;");
}

TEST_F(KeysPageTest, EveryAccessKeyOfThePageIsItsOwn) {
    std::set<QString> seen;
    const auto add = [&](const QString& text) {
        const QString key = QKeySequence::mnemonic(text).toString();
        EXPECT_FALSE(key.isEmpty()) << text.toStdString();
        EXPECT_TRUE(seen.insert(key).second) << text.toStdString();
    };
    const auto& pages = At<QTabWidget>("pages");
    for (int index = 0; index < pages.count(); ++index) add(pages.tabText(index));
    add(At<QPushButton>("cmdClose").text());
    for (const auto* button : pages.currentWidget()->findChildren<QPushButton*>()) add(button->text());
    for (const auto* label : pages.currentWidget()->findChildren<QLabel*>()) {
        if (label->buddy()) add(label->text());
    }
    EXPECT_EQ(seen.size(), 13U);
    for (const auto& [key, name] : std::vector<std::pair<Qt::Key, std::string>>{{Qt::Key_M, "lstKeyCommands"},
                                                                                {Qt::Key_P, "lstPresentKeys"},
                                                                                {Qt::Key_S, "txtSearchKeys"},
                                                                                {Qt::Key_N, "txtNewKeys"}}) {
        Key(key, Qt::AltModifier);
        EXPECT_EQ(Focus(), name);
    }
    Key(Qt::Key_Tab);
    EXPECT_NE(Focus(), "txtNewKeys") << "Tab leaves the box that takes all keys";
}

} // namespace

} // namespace tessa::qt
