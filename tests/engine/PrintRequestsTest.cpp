#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QApplication>
#include <QPrintDialog>
#include <QTimer>

namespace tessa::qt {

namespace {

/// A page that wants to be printed; the user cancels each print dialog.
class PrintRequests : public testing::Test {
protected:
    PrintRequests() {
        m_look.callOnTimeout(&desk.window, [this] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            ++dialogs;
            dialog->reject();
        });
        m_look.start(10);
    }
    void Load(const QByteArray& html) {
        server.Page(QStringLiteral("/page"), html);
        desk.Load(server.Address(QStringLiteral("/page")));
    }
    bool Dialogs(int count) {
        return WaitUntil([&] { return dialogs == count; });
    }

    int dialogs = 0;
    LocalServer server;
    EngineView desk;

private:
    QTimer m_look;
};

TEST_F(PrintRequests, BringUpTheDialogWhenAPersonHasClicked) {
    Load("<p>words</p><button id=b onclick='print()'>print</button>");
    desk.ClickOn(QStringLiteral("b"));
    EXPECT_TRUE(Dialogs(1));
    desk.ClickOn(QStringLiteral("b"));
    EXPECT_TRUE(Dialogs(2)) << "each click asks again";
}

TEST_F(PrintRequests, OfAFrameAreThePages) {
    server.Page(QStringLiteral("/frame"), "<title>frame</title><p>words</p>");
    Load("<p>words</p><iframe id=f src=/frame></iframe>"
         "<button id=b onclick='f.contentWindow.print()'>print</button>");
    desk.ClickOn(QStringLiteral("b"));
    EXPECT_TRUE(Dialogs(1));
}

/// A window is opened by a click, and prints.
class PrintedWindows : public PrintRequests {
protected:
    /// Whether the window comes to the front at once.
    void Open(const QByteArray& click, bool inFront) {
        desk.events.supplyView = [this, inFront] {
            opened = desk.engine.Create(2, desk.events, Privacy::Ordinary);
            if (inFront) opened->BringToFront();
            return opened.get();
        };
        server.Page(QStringLiteral("/receipt"), "<title>receipt</title><script>print()</script>");
        Load("<p>words</p><button id=b onclick='" + click + "'>print</button>");
        desk.ClickOn(QStringLiteral("b"));
        ASSERT_TRUE(WaitUntil([this] { return opened != nullptr; }));
    }
    std::unique_ptr<BrowserView> opened;
};

constexpr auto kWrittenWindow = "const w = window.open(); w.document.write(`paper`); w.document.close(); w.print()";

TEST_F(PrintedWindows, BringUpTheDialogWithTheClickThatOpenedThem) {
    Open(kWrittenWindow, true);
    EXPECT_TRUE(Dialogs(1));
}

TEST_F(PrintedWindows, OfTheSameSiteMayPrintByThemselves) {
    Open("window.open(`/receipt`)", true);
    EXPECT_TRUE(Dialogs(1));
}

TEST_F(PrintedWindows, WaitUntilTheyAreSeen) {
    Open(kWrittenWindow, false);
    Settle(desk.engine, desk.Real().Page());
    EXPECT_EQ(dialogs, 0);
    opened->BringToFront();
    EXPECT_TRUE(Dialogs(1));
}

TEST_F(PrintedWindows, OfAnotherSiteHaveNoClickOfTheirOwn) {
    const QByteArray other = server.Address(QStringLiteral("/receipt"), QStringLiteral("localhost")).toUtf8();
    Open("window.open(`" + other + "`)", true);
    ASSERT_TRUE(WaitUntil([this] { return opened->LocationName() == u"receipt" && !opened->Busy(); }));
    Settle(desk.engine, static_cast<PageView&>(*opened).Page());
    EXPECT_EQ(dialogs, 0);
}

TEST_F(PrintRequests, ThatNobodyClickedForBringUpNothing) {
    Load("<p>words</p><button id=b onclick='print()'>print</button><script>for (let i = 0; i < 9; ++i) "
         "print()</script>");
    desk.Script(QStringLiteral("print()"));
    // What comes later shows that nothing comes of what was before.
    desk.ClickOn(QStringLiteral("b"));
    EXPECT_TRUE(Dialogs(1));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_EQ(dialogs, 1);
}

} // namespace

} // namespace tessa::qt
