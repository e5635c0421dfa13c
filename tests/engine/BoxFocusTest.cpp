// Tests: ComboBoxes
#include "qt/bar/ComboBox.h"
#include "qt/bar/ComboBoxes.h"
#include "tests/engine/CommandsOnPages.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace tessa::qt {

namespace {

/// A user who types into the address box, a real one, while pages load.
class BoxFocusTest : public CommandsOnPages {
protected:
    void SetUp() override {
        for (const char* name : {"Rose", "Tulip"})
            server.Page(u'/' + QString::fromLatin1(name), QByteArray("<title>") + name + "</title><p>words</p>");
        Show(QStringLiteral("/Rose"), u"Rose");
        box = boxes.Make(desk.main->actBar.Share(u"cboAddress"), &desk.window);
        ASSERT_NE(box, nullptr);
        box->setGeometry(0, 0, 300, 25);
        box->show();
        desk.window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&desk.window));
        box->setFocus();
        box->lineEdit()->selectAll();
        QTest::keyClicks(box->lineEdit(), QStringLiteral("half"));
        ASSERT_TRUE(BoxHasKeyboard());
    }
    void TearDown() override { delete box; }

    [[nodiscard]] bool BoxHasKeyboard() const {
        return QApplication::focusWidget() == box || QApplication::focusWidget() == box->lineEdit();
    }
    [[nodiscard]] bool PageHasKeyboard() {
        QWidget* page = Front().Widget();
        QWidget* focus = QApplication::focusWidget();
        return page && focus && (page == focus || page->isAncestorOf(focus));
    }

    ComboBoxes boxes{desk.main->actBar};
    ComboBox* box = nullptr;
};

TEST_F(BoxFocusTest, ThePageInFrontTakesTheKeyboardWhenItIsThere) {
    server.Answer(QStringLiteral("/Late"), [this](const QByteArray&) {
        EXPECT_TRUE(BoxHasKeyboard()) << "the user types on while the page is on its way";
        EXPECT_EQ(box->lineEdit()->text(), u"half");
        return QByteArray("HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n"
                          "<title>Late</title><p>words</p>");
    });
    const QString late = server.Address(QStringLiteral("/Late"));
    ResumeNext(Front().Navigate(FromQt(late)));
    ASSERT_TRUE(WaitTitle(u"Late"));
    EXPECT_TRUE(WaitUntil([&] { return PageHasKeyboard(); }));
    EXPECT_EQ(box->lineEdit()->text(), late);
    EXPECT_EQ(desk.main->Tabs().AddressCombo()->Value(), FromQt(late));
}

TEST_F(BoxFocusTest, ARefreshTakesItToo) {
    ResumeNext(Front().Refresh());
    EXPECT_TRUE(WaitUntil([&] { return PageHasKeyboard(); }));
    EXPECT_EQ(box->lineEdit()->text(), server.Address(QStringLiteral("/Rose")));
}

TEST_F(BoxFocusTest, APageBehindLeavesItAndWhatWasTyped) {
    auto* behind = desk.main->GetNewBrowser(InFront::No);
    ASSERT_NE(behind, nullptr);
    ResumeNext(behind->Navigate(FromQt(server.Address(QStringLiteral("/Tulip")))));
    ASSERT_TRUE(WaitUntil([&] { return behind->LocationName() == u"Tulip" && !behind->Busy(); }));
    Settle(desk.engine, static_cast<PageView*>(behind)->Page());
    EXPECT_TRUE(BoxHasKeyboard());
    EXPECT_EQ(box->lineEdit()->text(), u"half");
}

TEST_F(BoxFocusTest, AFrameThatLoadsOverAndOverTakesNothingFromWhoTypes) {
    server.Page(QStringLiteral("/Frame"), "<p>part</p>");
    Script(QStringLiteral("const f = document.createElement('iframe'); f.src = '/Frame'; document.body.append(f); 1"));
    for (int times = 1; times <= 5; ++times) {
        ASSERT_TRUE(WaitUntil([&] { return server.requests.count(QStringLiteral("/Frame")) == times; }));
        ASSERT_TRUE(WaitUntil([&] {
            return Script(QStringLiteral("String(f.contentDocument.readyState == 'complete' && f.contentWindow.length"
                                         " === 0 && f.contentDocument.URL.endsWith('/Frame'))")) == u"true";
        }));
        Settle(desk.engine, Front().Page());
        EXPECT_TRUE(BoxHasKeyboard());
        QTest::keyClicks(box->lineEdit(), QStringLiteral("x"));
        Script(QStringLiteral("f.contentWindow.location.reload(); 1"));
    }
    EXPECT_EQ(box->lineEdit()->text(), u"halfxxxxx");
}

TEST_F(BoxFocusTest, AnAddressThatOnlyChangesTakesNothingFromWhoTypes) {
    Script(QStringLiteral("history.pushState({}, '', '/pushed'); location.hash = 'there'; 1"));
    ASSERT_TRUE(WaitUntil([&] { return Front().LocationURL().ends_with(u"/pushed#there"); }));
    Settle(desk.engine, Front().Page());
    EXPECT_TRUE(BoxHasKeyboard());
    EXPECT_EQ(box->lineEdit()->text(), u"half");
}

} // namespace

} // namespace tessa::qt
