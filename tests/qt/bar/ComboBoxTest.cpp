// Tests: ComboBoxes, ComboEdit
#include "tests/qt/bar/BarDesk.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QListView>

namespace tessa::qt {

namespace {

constexpr TextView kBox = u"cboAddress";

class ComboBoxTest : public BarDesk {
protected:
    void SetUp() override {
        AddTool(u"mnuStop", u"&Stop");
        AddLabel(u"mnuAddress", u"A&ddress");
        address = AddCombo(kBox);
        AddCombo(u"cboSearch");
        AddBand(u"bndAddress", BandKind::Toolbar, {u"mnuAddress", kBox});
        AddBand(u"bndSearch", BandKind::Toolbar, {u"cboSearch"});
        program = bar.ComboKeyDown.Connect([this](ComboTool& box, KeyStroke key, KeyUsed& used) {
            keys += std::to_string(key.KeyCode) + ":" + ToUtf8(box.Value()) + ";";
            if (key.KeyCode == Keys::kEnter) used = KeyUsed::Yes;
        });
        bar.TextChange.ConnectForLife([this](ComboTool& box) { Complete(box); });
        bar.SelChange.ConnectForLife([this](ComboTool& box) { chosen += ToUtf8(box.Value()) + ";"; });
        ShowWindow();
    }

    // As the program does it: goes on with what was typed from the first item that begins so.
    void Complete(ComboTool& box) {
        changes += State(box) + ";";
        const Text typed = box.Value().substr(0, box.Selection().Start + box.Selection().Length);
        const bool grown = typed.size() > before.size();
        before = typed;
        if (!grown) return;
        for (const Text& item : box.List()) {
            if (!item.starts_with(typed)) continue;
            box.Value = item;
            box.Selection = TextSelection{typed.size(), item.size() - typed.size()};
            return;
        }
    }

    // The text with its selection in brackets, or the caret as a bar.
    static std::string State(const ComboTool& box) {
        const Text& value = box.Value();
        const auto [start, length] = box.Selection();
        const std::string selected = ToUtf8(value.substr(start, length));
        return ToUtf8(value.substr(0, start)) + (length == 0 ? "|" : "[" + selected + "]") +
               ToUtf8(value.substr(start + length));
    }

    std::string Seen() {
        const QLineEdit& field = Field(kBox);
        QString text = field.text();
        if (!field.hasSelectedText()) return text.insert(field.cursorPosition(), u'|').toStdString();
        text.insert(field.selectionEnd(), u']');
        return text.insert(field.selectionStart(), u'[').toStdString();
    }

    void Type(const char* text) { QTest::keyClicks(&Box(kBox), QString::fromUtf8(text)); }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) { QTest::keyClick(&Box(kBox), key, held); }

    void OpenList() {
        Press(Qt::Key_F4);
        ASSERT_TRUE(QTest::qWaitFor([&] { return Box(kBox).view()->isVisible(); }));
    }

    ComboTool* address = nullptr;
    Connection program; ///< what is told of keys
    Text before;
    std::string keys, changes, chosen;
};

TEST_F(ComboBoxTest, BoxAndToolShowTheSame) {
    address->Value = u"https://one.example/";
    EXPECT_EQ(Field(kBox).text(), QStringLiteral("https://one.example/"));
    Box(kBox).setFocus();
    Field(kBox).selectAll();
    Type("two");
    EXPECT_EQ(ToUtf8(address->Value()), "two");
    Press(Qt::Key_Return);
    EXPECT_EQ(keys.substr(keys.find("13:")), "13:two;");
}

TEST_F(ComboBoxTest, TypingIsCompletedAtOnceAndTypingOnReplacesTheCompletion) {
    address->List = std::vector<Text>{u"abcdef", u"abxy"};
    Box(kBox).setFocus();
    Type("a");
    EXPECT_EQ(Seen(), "a[bcdef]");
    EXPECT_EQ(State(*address), "a[bcdef]");
    Type("bx");
    EXPECT_EQ(Seen(), "abx[y]");
    EXPECT_EQ(changes, "a|;ab|;abx|;");
}

TEST_F(ComboBoxTest, BackspaceTakesTheCompletionAway) {
    address->List = std::vector<Text>{u"abcdef"};
    Box(kBox).setFocus();
    Type("ab");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Seen(), "ab|");
    EXPECT_EQ(State(*address), "ab|");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Seen(), "a|");
    Type("b");
    EXPECT_EQ(Seen(), "ab[cdef]");
}

TEST_F(ComboBoxTest, TypingInTheMiddleKeepsTheCaret) {
    address->Value = u"ac";
    Box(kBox).setFocus();
    Field(kBox).setCursorPosition(1);
    Type("b");
    EXPECT_EQ(Seen(), "ab|c");
    EXPECT_EQ(State(*address), "ab|c");
}

TEST_F(ComboBoxTest, TheToolFollowsTheCaret) {
    address->Value = u"abc";
    Box(kBox).setFocus();
    Press(Qt::Key_End);
    EXPECT_EQ(State(*address), "abc|");
    Press(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(State(*address), "ab[c]");
    Press(Qt::Key_Home);
    EXPECT_EQ(State(*address), "|abc");
}

TEST_F(ComboBoxTest, ASelectionThatTheProgramSetsIsShown) {
    address->Value = u"abcdef";
    address->Selection = TextSelection{0, 6};
    EXPECT_EQ(Seen(), "[abcdef]");
    address->Selection = TextSelection{4, 50};
    EXPECT_EQ(Seen(), "abcd[ef]");
}

TEST_F(ComboBoxTest, UndoLeadsBackToWhatStoodThereBefore) {
    address->Value = u"page";
    address->List = std::vector<Text>{u"abcdef"};
    Box(kBox).setFocus();
    Field(kBox).selectAll();
    Type("ab");
    ASSERT_EQ(Seen(), "ab[cdef]");
    while (Field(kBox).isUndoAvailable()) Field(kBox).undo();
    EXPECT_EQ(Field(kBox).text(), QStringLiteral("page"));
    EXPECT_EQ(ToUtf8(address->Value()), "page");
}

TEST_F(ComboBoxTest, KeysReachTheProgramBeforeTheBoxWithTheTextAsItIs) {
    Box(kBox).setFocus();
    Type("x");
    Press(Qt::Key_Backspace);
    EXPECT_EQ(keys, "88:;8:x;");
}

TEST_F(ComboBoxTest, AKeyThatTheProgramUsesDoesNothingMore) {
    program = bar.ComboKeyDown.Connect([](ComboTool&, KeyStroke key, KeyUsed& used) {
        if (key.KeyCode == 'Y') used = KeyUsed::Yes;
    });
    Box(kBox).setFocus();
    Type("xyz");
    EXPECT_EQ(Seen(), "xz|");
}

TEST_F(ComboBoxTest, PasteIsCompletedAsTypingIs) {
    address->List = std::vector<Text>{u"abcdef"};
    QApplication::clipboard()->setText(QStringLiteral("abc"));
    Box(kBox).setFocus();
    Press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Seen(), "abc[def]");
}

TEST_F(ComboBoxTest, AnInputMethodIsLeftAloneUntilItHasDecided) {
    address->List = std::vector<Text>{u"日本語"};
    Box(kBox).setFocus();
    QInputMethodEvent composing(QStringLiteral("にほん"), {});
    QCoreApplication::sendEvent(&Box(kBox), &composing);
    EXPECT_EQ(changes, "");
    EXPECT_EQ(ToUtf8(address->Value()), "");
    QInputMethodEvent decided;
    decided.setCommitString(QStringLiteral("日本"));
    QCoreApplication::sendEvent(&Box(kBox), &decided);
    EXPECT_EQ(changes, "日本|;");
    EXPECT_EQ(Seen(), "日本[語]");
}

TEST_F(ComboBoxTest, AnInputMethodThatReplacesTheSelectionIsNotCompletedYet) {
    address->List = std::vector<Text>{u"abcdef"};
    Box(kBox).setFocus();
    Type("ab");
    changes.clear();
    QInputMethodEvent composing(QStringLiteral("ん"), {});
    QCoreApplication::sendEvent(&Box(kBox), &composing);
    EXPECT_EQ(changes, "");
    EXPECT_EQ(ToUtf8(address->Value()), "ab");
}

TEST_F(ComboBoxTest, AClickThatBringsTheKeyboardSelectsAllAndTheNextDoesNot) {
    address->Value = u"https://one.example/";
    Box(u"cboSearch").setFocus();
    QTest::mouseClick(&Field(kBox), Qt::LeftButton);
    EXPECT_EQ(Seen(), "[https://one.example/]");
    QTest::mouseClick(&Field(kBox), Qt::LeftButton);
    EXPECT_FALSE(Field(kBox).hasSelectedText());
}

TEST_F(ComboBoxTest, EscapeRestoresThePageAddressAndStopsNothing) {
    bar.SetShortcuts({{u"mnuStop", {Keys::kEscape, 0}}});
    address->Value = u"https://one.example/";
    Box(kBox).setFocus();
    Type("xyz");
    EXPECT_EQ(bar.KeyDown({Keys::kEscape, 0}), KeyUsed::No);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Seen(), "[https://one.example/]");
    EXPECT_EQ(ToUtf8(address->Value()), "https://one.example/");
    EXPECT_EQ(clicked, "");
    EXPECT_EQ(bar.KeyDown({Keys::kEscape, 0}), KeyUsed::Yes) << "nothing is being typed any more";
}

TEST_F(ComboBoxTest, TheProgramMayAnswerEscapeItself) {
    program = bar.ComboKeyDown.Connect([](ComboTool& box, KeyStroke key, KeyUsed& used) {
        if (key.KeyCode != Keys::kEscape) return;
        box.Value = u"https://now.example/";
        box.Selection = TextSelection{0, box.Value().size()};
        used = KeyUsed::Yes;
    });
    Box(kBox).setFocus();
    Type("xyz");
    Press(Qt::Key_Escape);
    EXPECT_EQ(Seen(), "[https://now.example/]");
}

TEST_F(ComboBoxTest, APageThatMovesOnDoesNotDisturbTheTyping) {
    address->Value = u"https://one.example/";
    Box(kBox).setFocus();
    Field(kBox).selectAll();
    Type("wor");
    address->Value = u"https://two.example/";
    EXPECT_EQ(Seen(), "wor|");
    EXPECT_EQ(ToUtf8(address->Value()), "wor");
    Type("ds");
    EXPECT_EQ(Seen(), "words|");
    Press(Qt::Key_Escape);
    EXPECT_EQ(Seen(), "[https://two.example/]");
}

TEST_F(ComboBoxTest, TheAddressThatWaitedIsShownWhenTheKeyboardGoesElsewhere) {
    Box(kBox).setFocus();
    Type("words");
    address->Value = u"https://two.example/";
    Box(u"cboSearch").setFocus();
    EXPECT_EQ(Field(kBox).text(), QStringLiteral("https://two.example/"));
    EXPECT_EQ(ToUtf8(address->Value()), "https://two.example/");
}

TEST_F(ComboBoxTest, WhatWasTypedStaysWhenTheKeyboardGoesElsewhere) {
    Box(kBox).setFocus();
    Type("words");
    Box(u"cboSearch").setFocus();
    EXPECT_EQ(ToUtf8(address->Value()), "words");
    address->Value = u"https://two.example/";
    EXPECT_EQ(Field(kBox).text(), QStringLiteral("https://two.example/"));
}

TEST_F(ComboBoxTest, AfterEnterTheAddressOfThePageIsShownAtOnce) {
    Box(kBox).setFocus();
    Type("words");
    Press(Qt::Key_Return);
    address->Value = u"https://two.example/";
    EXPECT_EQ(Field(kBox).text(), QStringLiteral("https://two.example/"));
}

TEST_F(ComboBoxTest, TheListOpensByKeysAndByItsArrow) {
    address->List = std::vector<Text>{u"one", u"two"};
    address->Value = u"typed";
    const auto opens = [this](Qt::Key key, Qt::KeyboardModifiers held) {
        Press(key, held);
        const bool open = Box(kBox).view()->isVisible();
        Box(kBox).hidePopup();
        return open;
    };
    Box(kBox).setFocus();
    EXPECT_TRUE(opens(Qt::Key_F4, Qt::NoModifier));
    EXPECT_TRUE(opens(Qt::Key_Down, Qt::AltModifier));
    EXPECT_TRUE(opens(Qt::Key_Down, Qt::NoModifier));
    EXPECT_FALSE(opens(Qt::Key_Up, Qt::NoModifier));
    EXPECT_EQ(Field(kBox).text(), QStringLiteral("typed")) << "opening the list changes nothing";
    EXPECT_EQ(Box(kBox).count(), 2);
    QTest::mouseClick(&Box(kBox), Qt::LeftButton, {}, QPoint(Box(kBox).width() - 8, Box(kBox).height() / 2));
    EXPECT_TRUE(Box(kBox).view()->isVisible());
}

TEST_F(ComboBoxTest, AnEmptyListDoesNotOpen) {
    Box(kBox).setFocus();
    Press(Qt::Key_F4);
    EXPECT_FALSE(Box(kBox).view()->isVisible());
}

TEST_F(ComboBoxTest, AChoiceFromTheListIsShownAndReported) {
    address->List = std::vector<Text>{u"one", u"two"};
    Box(kBox).setFocus();
    Type("x");
    OpenList();
    QTest::keyClick(Box(kBox).view(), Qt::Key_Down);
    QTest::keyClick(Box(kBox).view(), Qt::Key_Down);
    QTest::keyClick(Box(kBox).view(), Qt::Key_Return);
    EXPECT_EQ(chosen, "two;");
    EXPECT_EQ(Field(kBox).text(), QStringLiteral("two"));
    EXPECT_EQ(keys.find("13:"), std::string::npos) << "a choice is no Enter";
}

TEST_F(ComboBoxTest, TheSameItemMayBeChosenAgain) {
    address->List = std::vector<Text>{u"one", u"two"};
    for (int i = 0; i < 2; ++i) {
        address->Value = u"one";
        Box(kBox).setFocus();
        OpenList();
        const QModelIndex first = Box(kBox).model()->index(0, 0);
        QTest::mouseClick(Box(kBox).view()->viewport(), Qt::LeftButton, {},
                          Box(kBox).view()->visualRect(first).center());
        ASSERT_TRUE(QTest::qWaitFor([&] { return !Box(kBox).view()->isVisible(); }));
    }
    EXPECT_EQ(chosen, "one;one;");
}

TEST_F(ComboBoxTest, LeavingATextThatTheListHasIsNoChoice) {
    address->List = std::vector<Text>{u"one", u"two"};
    Box(kBox).setFocus();
    OpenList();
    Box(kBox).hidePopup();
    Field(kBox).selectAll();
    Type("two");
    Box(u"cboSearch").setFocus();
    EXPECT_EQ(chosen, "");
}

TEST_F(ComboBoxTest, TheWheelChoosesNothing) {
    address->List = std::vector<Text>{u"one", u"two"};
    Box(kBox).setFocus();
    OpenList();
    Box(kBox).hidePopup();
    QWheelEvent wheel({5, 5}, Box(kBox).mapToGlobal(QPoint(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Box(kBox), &wheel);
    EXPECT_EQ(chosen, "");
    EXPECT_EQ(Field(kBox).text(), QString());
}

TEST_F(ComboBoxTest, TheAccessKeyOfItsLabelBringsTheKeyboard) {
    const auto* label = ToolBarOf(u"bndAddress").findChild<QLabel*>();
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->buddy(), &Box(kBox));
    address->Value = u"https://one.example/";
    Box(u"cboSearch").setFocus();
    QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(Box(kBox).hasFocus());
    EXPECT_EQ(Seen(), "[https://one.example/]");
}

TEST_F(ComboBoxTest, TheProgramCanBringTheKeyboard) {
    address->Value = u"https://one.example/";
    Box(u"cboSearch").setFocus();
    bar.FocusTool(u"bndAddress", kBox);
    EXPECT_TRUE(Box(kBox).hasFocus());
    EXPECT_EQ(Seen(), "[https://one.example/]");
}

TEST_F(ComboBoxTest, ItIsAsWideAsItsToolSays) {
    address->Width = Pixels{310};
    bar.RecalcLayout();
    EXPECT_EQ(Box(kBox).width(), 310);
    const int wide = ToolBarOf(u"bndAddress").width();
    address->Width = Pixels{0};
    bar.RecalcLayout();
    EXPECT_EQ(Box(kBox).width(), 0);
    EXPECT_LT(ToolBarOf(u"bndAddress").width(), wide - 280) << "its toolbar gives the room away";
    address->Width = Pixels{50};
    bar.RecalcLayout();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Box(kBox).width() == 50; }));
}

TEST_F(ComboBoxTest, ABoxThatFillsItsRowFollowsTheWindowAndTellsItsWidth) {
    address->FillsRow = true;
    bar.RecalcLayout();
    ASSERT_TRUE(QTest::qWaitFor([&] { return ToolBarOf(u"bndSearch").geometry().right() >= window.width() - 10; }));
    const int narrow = Box(kBox).width();
    EXPECT_EQ(address->Width().value, narrow);
    window.resize(1300, 400);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Box(kBox).width() == narrow + 400; }));
    EXPECT_EQ(address->Width().value, narrow + 400);
    EXPECT_EQ(Box(u"cboSearch").width(), 240);
}

TEST_F(ComboBoxTest, AWidthThatIsSetEndsTheFilling) {
    address->FillsRow = true;
    bar.RecalcLayout();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Box(kBox).width() > 400; }));
    const Pixels before = address->Width();
    address->Width = Pixels{before.value - 25};
    bar.RecalcLayout();
    EXPECT_FALSE(address->FillsRow());
    EXPECT_EQ(Box(kBox).width(), before.value - 25);
}

TEST_F(ComboBoxTest, TwoBoxesOfOneToolShowTheSame) {
    Band* second = AddBand(u"bndSecond", BandKind::Toolbar, {kBox});
    auto* other = shown->ToolBar(second->Name())->findChild<ComboBox*>();
    ASSERT_NE(other, nullptr);
    ComboBox* first = ToolBarOf(u"bndAddress").findChild<ComboBox*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return other->isVisible(); }));
    other->setFocus();
    QTest::keyClicks(other, QStringLiteral("words"));
    EXPECT_EQ(first->currentText(), QStringLiteral("words"));
    address->Value = u"https://two.example/";
    EXPECT_EQ(other->currentText(), QStringLiteral("words")) << "it is being typed in";
    bar.RemoveBand(u"bndSecond");
    address->Value = u"https://three.example/";
    EXPECT_EQ(first->currentText(), QStringLiteral("https://three.example/"));
}

TEST_F(ComboBoxTest, TheToolGoesOnWithoutItsView) {
    shown.reset();
    address->Value = u"https://one.example/";
    address->Width = Pixels{100};
    EXPECT_EQ(ToUtf8(address->Value()), "https://one.example/");
}

} // namespace

} // namespace tessa::qt
