// Tests: Typing
#include "qt/base/Typing.h"
#include "base/OwnAddresses.h"
#include "tests/engine/CommandsOnPages.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QWebEngineSettings>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

/// A user who types while the page in front has the keyboard.
class TypingOverPages : public CommandsOnPages {
protected:
    TypingOverPages() {
        box.setGeometry(0, 0, 200, 20);
        box.show();
        view = desk.main->actBar.FocusWanted.Connect([this](Band&, Tool&) {
            box.setFocus();
            box.selectAll();
        });
        typing.OverPage.ConnectForLife([this] { desk.main->Form_Type(); });
        // The engine drops input until it has drawn words or a picture.
        server.Page(QStringLiteral("/field"), "<title>Field</title><input id=field autofocus>words");
        desk.window.activateWindow();
    }

    /// The page in front gets the keyboard.
    void FocusPage() {
        ASSERT_TRUE(WaitUntil([&] {
            Front().SetFocus();
            const QWidget* page = Front().Widget();
            return page && QApplication::focusWidget() && page->isAncestorOf(QApplication::focusWidget());
        }));
    }
    void Type(const QString& text) {
        for (const QChar each : text) QTest::keyClick(QApplication::focusWidget(), each.toLatin1());
    }

    QLineEdit box{QStringLiteral("about:blank"), &desk.window};
    Typing typing{desk.window};
    Connection view;
};

TEST_F(TypingOverPages, IsForTheAddressBoxWhenThePageIsBlank) {
    desk.main->GetNewBrowser(InFront::Yes);
    FocusPage();
    Type(QStringLiteral("a b/?"));
    EXPECT_EQ(box.text(), u"a b/?");
}

TEST_F(TypingOverPages, IsForTheAddressBoxInAPrivateTabToo) {
    ResumeNext(desk.main->GetNewBrowser(InFront::Yes, Privacy::Private)->Navigate(OwnAddresses::kPrivate));
    ASSERT_TRUE(WaitTitle(u"Private tab"));
    FocusPage();
    Type(QStringLiteral("x"));
    EXPECT_EQ(box.text(), u"x");
}

TEST_F(TypingOverPages, GoesThereWhenItIsPasted) {
    desk.main->GetNewBrowser(InFront::Yes);
    FocusPage();
    QApplication::clipboard()->setText(QStringLiteral("pasted.example"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box.text(), u"pasted.example");
}

TEST_F(TypingOverPages, LeavesCommandsAlone) {
    desk.main->GetNewBrowser(InFront::Yes);
    FocusPage();
    for (const auto held : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier})
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_K, held);
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Down, Qt::Key_F7})
        QTest::keyClick(QApplication::focusWidget(), key);
    EXPECT_FALSE(box.hasFocus());
}

TEST_F(TypingOverPages, IsForAPageThatShowsSomething) {
    Show(QStringLiteral("/field"), u"Field");
    FocusPage();
    ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("document.hasFocus()")) == u"true"; }));
    ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("document.activeElement.id")) == u"field"; }));
    WaitForPicture();
    Type(QStringLiteral("ab"));
    EXPECT_TRUE(WaitUntil([&] { return Script(QStringLiteral("document.activeElement.value")) == u"ab"; }));
    EXPECT_EQ(box.text(), u"about:blank");
}

TEST_F(TypingOverPages, IsForABlankPageThatAnotherOneHasFilled) {
    Show(QStringLiteral("/field"), u"Field");
    Front().Page()->settings()->setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, true);
    Script(QStringLiteral("document.onclick = () => window.open('').document.write("
                          "'<title>Filled</title><input id=field autofocus>'); 1"));
    WaitForPicture();
    QTest::mouseClick(Front().Widget()->focusProxy(), Qt::LeftButton, {}, QPoint(300, 60));
    ASSERT_TRUE(WaitUntil([&] { return Front().LocationName() == u"Filled"; }));
    FocusPage();
    Type(QStringLiteral("a"));
    EXPECT_FALSE(box.hasFocus());
}

} // namespace

} // namespace tessa::qt
