// Tests: DialogScheme, PageDialog, PageDialogCovers
#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "qt/page/PageDialog.h"
#include "tests/engine/EngineDesk.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWebEngineView>
#include <deque>

namespace tessa::qt {

namespace {

PageDialog* DialogIn(const QWidget& window) {
    for (auto* each : window.findChildren<PageDialog*>()) {
        if (each->isVisible()) return each;
    }
    return nullptr;
}

/// A person's steps while a page waits in a dialog, whose own event loop runs inside the test's: each is taken as soon
/// as its condition holds.
class Steps {
public:
    explicit Steps(QWidget& window) : m_window(window) {
        m_timer.setInterval(5);
        m_timer.callOnTimeout([this] { Next(); });
    }

    Steps& When(std::function<bool()> condition, std::function<void()> action) {
        m_steps.push_back({std::move(condition), std::move(action)});
        return *this;
    }

    /// A dialog is seen, and takes answers.
    Steps& WhenShown(std::function<void(PageDialog&)> action) {
        const auto shown = [this] { return DialogIn(m_window) && TakesAnswers(*DialogIn(m_window)); };
        return When(shown, [this, action] { action(*DialogIn(m_window)); });
    }

    /// Takes all steps, in their order.
    void Take() {
        m_clock.start();
        m_timer.start();
        EXPECT_TRUE(WaitUntil([this] { return m_steps.empty(); }));
        m_timer.stop();
    }

private:
    struct Step {
        std::function<bool()> condition;
        std::function<void()> action;
    };

    void Next() {
        if (m_steps.empty() || m_clock.elapsed() > kPatience) return GiveUp();
        if (!m_steps.front().condition()) return;
        const auto action = m_steps.front().action;
        m_steps.pop_front();
        action();
    }

    // Else a failed test would wait in the dialog for ever.
    void GiveUp() {
        if (m_clock.elapsed() <= kPatience) return;
        if (auto* dialog = DialogIn(m_window)) QTest::keyClick(dialog, Qt::Key_Escape);
    }

    static constexpr qint64 kPatience = 60000;
    QWidget& m_window;
    QTimer m_timer;
    QElapsedTimer m_clock;
    std::deque<Step> m_steps;
};

void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

QString Label(const PageDialog& dialog, const char* name) {
    const auto* label = dialog.findChild<QLabel*>(QLatin1String(name));
    return label ? label->text() : QString();
}

class PageDialogs : public ::testing::Test {
protected:
    PageDialogs() {
        server.Page(QStringLiteral("/page"), "<title>Page</title>");
        server.Page(QStringLiteral("/self"), "<title>Self</title><script>alert('again'); location.href = '/self2'"
                                             "</script>");
        server.Page(QStringLiteral("/self2"), "<title>Self</title><script>alert('again'); location.reload()</script>");
        server.Page(QStringLiteral("/form"), "<title>Form</title><input id='field'><script>"
                                             "addEventListener('beforeunload', e => { e.preventDefault(); "
                                             "e.returnValue = 'x'; })</script>");
        desk.Load(server.Address(QStringLiteral("/page")));
    }

    /// The page runs its script in a timer, so that the test goes on meanwhile.
    void Run(const QString& script) {
        desk.Real().Page()->runJavaScript(QStringLiteral("setTimeout(function () { %1 }, 0); 1").arg(script));
    }
    bool Titled(const QString& title) {
        return WaitUntil([&] { return desk.events.lines.contains(QStringLiteral("T:") + title); });
    }

    LocalServer server;
    EngineView desk;
    Steps steps{desk.window};
};

TEST_F(PageDialogs, AnAlertIsADialogOfItsTab) {
    Run(QStringLiteral("alert('Hello\\nthere'); document.title = 'on'"));
    steps
        .WhenShown([&](PageDialog& dialog) {
            EXPECT_EQ(Label(dialog, "lblHeading"), QStringLiteral("127.0.0.1:%1 says:").arg(server.serverPort()));
            EXPECT_EQ(Label(dialog, "lblMessage"), u"Hello\nthere");
            EXPECT_EQ(dialog.findChild<QCheckBox*>(), nullptr) << "the first one";
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            EXPECT_FALSE(desk.events.lines.contains(QStringLiteral("T:on"))) << "the page waits";
            Key(Qt::Key_Escape);
        })
        .Take();
    EXPECT_TRUE(Titled(QStringLiteral("on")));
    EXPECT_EQ(DialogIn(desk.window), nullptr);
}

TEST_F(PageDialogs, AConfirmationTellsThePageWhatWasChosen) {
    Run(QStringLiteral("document.title = 'yes ' + confirm('Sure?')"));
    steps.WhenShown([](PageDialog&) { Key(Qt::Key_Return); }).Take();
    EXPECT_TRUE(Titled(QStringLiteral("yes true")));
    Run(QStringLiteral("document.title = 'no ' + confirm('Sure?')"));
    steps.WhenShown([](PageDialog&) { Key(Qt::Key_Escape); }).Take();
    EXPECT_TRUE(Titled(QStringLiteral("no false")));
}

TEST_F(PageDialogs, APromptGivesThePageTheText) {
    Run(QStringLiteral("document.title = 'got ' + prompt('Name?', 'Ada')"));
    steps
        .WhenShown([](PageDialog& dialog) {
            auto* text = dialog.findChild<QLineEdit*>();
            EXPECT_EQ(text->text(), u"Ada");
            QTest::keyClicks(text, QStringLiteral("Bob"));
            Key(Qt::Key_Return);
        })
        .Take();
    EXPECT_TRUE(Titled(QStringLiteral("got Bob")));
    Run(QStringLiteral("document.title = 'none ' + prompt('Name?')"));
    steps.WhenShown([](PageDialog&) { Key(Qt::Key_Escape); }).Take();
    EXPECT_TRUE(Titled(QStringLiteral("none null")));
}

TEST_F(PageDialogs, FramesFromElsewhereOrInASandboxAreToldNoAtOnce) {
    const QByteArray asks = "<script>alert('a'); parent.postMessage('said ' + confirm('b') + ' ' + prompt('c'), '*')"
                            "</script>";
    server.Page(QStringLiteral("/asks"), asks);
    const QByteArray frames[] = {
        "<iframe sandbox='allow-scripts' src='/asks'></iframe>",
        "<iframe sandbox='allow-scripts allow-same-origin' src='/asks'></iframe>",
        "<iframe src='" + server.Address(QStringLiteral("/asks"), QStringLiteral("localhost")).toUtf8() + "'></iframe>",
        "<iframe src=\"data:text/html," + QByteArray(asks).replace('"', "'") + "\"></iframe>"};
    int number = 0;
    for (const QByteArray& frame : frames) {
        const QString path = QStringLiteral("/framed%1").arg(++number);
        server.Page(path, "<script>onmessage = e => document.title = 'heard ' + e.data</script>" + frame);
        desk.events.Take();
        desk.Navigate(server.Address(path));
        EXPECT_TRUE(Titled(QStringLiteral("heard said false null"))) << frame.toStdString();
        EXPECT_EQ(desk.events.Count(QStringLiteral("asks+")), 0) << frame.toStdString();
    }
}

TEST_F(PageDialogs, AFrameCannotGetRoundItByAskingTheProgramItself) {
    // What our function in a frame knows its page can read.
    server.Page(QStringLiteral("/asks"), "<script>const token = /page=([0-9a-f]+)/.exec(alert.toString())[1];"
                                         "const r = new XMLHttpRequest(); let said = 'failed'; try {"
                                         "r.open('GET', 'tessaview-ask:confirm?text=x&page=' + token, false); r.send();"
                                         "said = JSON.parse(r.responseText).accepted } catch (e) {}"
                                         "parent.postMessage('said ' + said, '*')</script>");
    server.Page(QStringLiteral("/framed"),
                "<script>onmessage = e => document.title = 'heard ' + e.data</script><iframe src='" +
                    server.Address(QStringLiteral("/asks"), QStringLiteral("localhost")).toUtf8() + "'></iframe>");
    desk.Navigate(server.Address(QStringLiteral("/framed")));
    EXPECT_TRUE(Titled(QStringLiteral("heard said false")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("asks+")), 0);
}

TEST_F(PageDialogs, NoPageGoesToTheAddressThatAsks) {
    server.Page(QStringLiteral("/goes"), "<script>const token = /page=([0-9a-f]+)/.exec(alert.toString())[1];"
                                         "onclick = () => { document.title = 'gone';"
                                         "location.href = 'tessaview-ask:confirm?text=x&page=' + token }</script>");
    desk.Load(server.Address(QStringLiteral("/goes")));
    const QSignalSpy led(desk.Real().Page(), &WebPage::NavigationRequested);
    desk.Real().Page()->runJavaScript(QStringLiteral("onclick()"));
    ASSERT_TRUE(Titled(QStringLiteral("gone")));
    Settle(desk.engine, desk.Real().Page());
    EXPECT_TRUE(led.isEmpty());
    EXPECT_EQ(desk.Real().Page()->url(), server.Address(QStringLiteral("/goes")));
    EXPECT_EQ(desk.events.Count(QStringLiteral("asks+")), 0);
}

TEST_F(PageDialogs, FramesOfThePageItselfSpeakForIt) {
    server.Page(QStringLiteral("/framed"), "<iframe srcdoc=\"<script>alert('inner');"
                                           "parent.document.title = 'on'</script>\"></iframe>");
    desk.Navigate(server.Address(QStringLiteral("/framed")));
    steps
        .WhenShown([&](PageDialog& dialog) {
            EXPECT_EQ(Label(dialog, "lblMessage"), u"inner");
            Key(Qt::Key_Return);
        })
        .Take();
    EXPECT_TRUE(Titled(QStringLiteral("on")));
}

TEST_F(PageDialogs, PagesWithoutAHostSpeakToo) {
    desk.Navigate(QStringLiteral("data:text/html,<script>alert('here'); document.title = 'on'</script>"));
    steps.WhenShown([](PageDialog&) { Key(Qt::Key_Return); }).Take();
    EXPECT_TRUE(Titled(QStringLiteral("on")));
}

TEST_F(PageDialogs, ALongMessageScrolls) {
    Run(QStringLiteral("alert('word '.repeat(100000)); document.title = 'on'"));
    steps
        .WhenShown([&](PageDialog& dialog) {
            EXPECT_LT(dialog.childrenRect().height(), desk.window.height());
            EXPECT_NE(dialog.findChild<QWidget*>(QStringLiteral("txtMessage")), nullptr);
            Key(Qt::Key_Escape);
        })
        .Take();
    EXPECT_TRUE(Titled(QStringLiteral("on")));
}

TEST_F(PageDialogs, LeavingAPageWithInputAsksFirst) {
    desk.Load(server.Address(QStringLiteral("/form")));
    desk.ClickOn(QStringLiteral("field"));
    ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("document.activeElement.id")) == u"field"; }));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("a"));
    ASSERT_TRUE(WaitUntil([&] { return desk.Script(QStringLiteral("document.activeElement.value")) == u"a"; }));
    desk.Navigate(server.Address(QStringLiteral("/page")));
    steps
        .WhenShown([](PageDialog& dialog) {
            EXPECT_TRUE(Label(dialog, "lblHeading").startsWith(u"Leave this page"));
            Key(Qt::Key_Escape);
        })
        .Take();
    EXPECT_EQ(desk.Script(QStringLiteral("document.title")), u"Form");
    desk.events.Take();
    desk.Navigate(server.Address(QStringLiteral("/page")));
    steps
        .WhenShown([](PageDialog& dialog) {
            auto* leave = dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"));
            EXPECT_FALSE(leave->isDefault()) << "Enter stays";
            leave->click();
        })
        .Take();
    EXPECT_TRUE(Titled(QStringLiteral("Page")));
}

TEST_F(PageDialogs, FromTheSecondOnABoxSilencesThePage) {
    Run(QStringLiteral("for (let i = 0; i < 10000; ++i) alert(i); document.title = 'through ' + confirm('?')"));
    steps
        .WhenShown([](PageDialog& dialog) {
            EXPECT_EQ(dialog.findChild<QCheckBox*>(), nullptr);
            Key(Qt::Key_Return);
        })
        .WhenShown([](PageDialog& dialog) {
            auto* box = dialog.findChild<QCheckBox*>();
            ASSERT_NE(box, nullptr);
            box->click();
            Key(Qt::Key_Return);
        })
        .Take();
    EXPECT_TRUE(Titled(QStringLiteral("through false")));
    EXPECT_EQ(DialogIn(desk.window), nullptr);
}

TEST_F(PageDialogs, APageThatLoadsItselfAnewStaysOneThatCanBeSilenced) {
    desk.Navigate(server.Address(QStringLiteral("/self")));
    int boxes = 0;
    const auto answer = [&boxes](PageDialog& dialog) {
        boxes += dialog.findChild<QCheckBox*>() ? 1 : 0;
        Key(Qt::Key_Return);
    };
    steps.WhenShown(answer).WhenShown(answer).WhenShown(answer);
    steps
        .WhenShown([&](PageDialog& dialog) {
            EXPECT_EQ(boxes, 2) << "all but the first";
            dialog.findChild<QCheckBox*>()->click();
            Key(Qt::Key_Return);
        })
        .Take();
    const auto loads = server.requests.size();
    EXPECT_TRUE(WaitUntil([&] { return server.requests.size() > loads + 3; })) << "it goes on without a word";
    EXPECT_EQ(DialogIn(desk.window), nullptr);
}

TEST_F(PageDialogs, AMenuOpensWhileTheDialogIsShown) {
    Run(QStringLiteral("alert('wait'); document.title = 'on'"));
    QMenu menu(&desk.window);
    bool chosen = false;
    menu.addAction(QStringLiteral("Choose"), &menu, [&chosen] { chosen = true; });
    steps.WhenShown([&](PageDialog&) { menu.popup(desk.window.mapToGlobal(QPoint(10, 10))); });
    steps.When([&] { return menu.isVisible(); },
               [&] {
                   QTest::keyClick(&menu, Qt::Key_Down);
                   QTest::keyClick(&menu, Qt::Key_Return);
               });
    steps.WhenShown([&](PageDialog& dialog) {
        EXPECT_TRUE(chosen);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    steps.Take();
    EXPECT_TRUE(Titled(QStringLiteral("on")));
}

class DialogsOfTabs : public ::testing::Test {
protected:
    DialogsOfTabs() {
        server.Page(QStringLiteral("/first"), "<title>First</title>");
        server.Page(QStringLiteral("/asks"), "<title>Asks</title><script>alert('behind'); document.title = 'Went on'"
                                             "</script>");
        server.Page(QStringLiteral("/storm"), "<title>Storm</title><script>for (;;) alert('storm')</script>");
    }

    [[nodiscard]] Tab* TabOf(const char16_t* key) const { return desk.main->pcPage.Find(key); }
    std::function<bool()> Asks(const char16_t* key) {
        return [this, key] { return TabOf(key) && TabOf(key)->Asks(); };
    }
    bool Titled(const char16_t* key, TextView title) {
        return WaitUntil([&] { return TabOf(key) && TabOf(key)->Caption() == title; });
    }
    void Select(const char16_t* key) { desk.main->pcPage.UserClick(TabOf(key)); }
    void OpenBehind(const QString& path) {
        auto* view = desk.main->GetNewBrowser(InFront::No);
        ResumeNext(view->Navigate(FromQt(server.Address(path))));
    }

    LocalServer server;
    EngineDesk desk;
    Steps steps{desk.window};
};

TEST_F(DialogsOfTabs, ABackgroundTabIsMarkedAndDoesNotComeToTheFront) {
    OpenBehind(QStringLiteral("/asks"));
    steps.When(Asks(u"Tab2"), [&] {
        EXPECT_EQ(desk.main->pcPage.SelectedItem()->Key(), u"Tab1");
        EXPECT_EQ(DialogIn(desk.window), nullptr);
        Select(u"Tab2");
    });
    steps.WhenShown([](PageDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    steps.Take();
    EXPECT_TRUE(Titled(u"Tab2", u"Went on"));
    EXPECT_FALSE(TabOf(u"Tab2")->Asks());
}

TEST_F(DialogsOfTabs, OtherTabsLoadWhileOneAsks) {
    OpenBehind(QStringLiteral("/asks"));
    steps.When(Asks(u"Tab2"), [&] { OpenBehind(QStringLiteral("/first")); });
    steps.When([&] { return TabOf(u"Tab3")->Caption() == u"First"; }, [&] { desk.main->CloseBrowserTab(2); });
    steps.Take();
    EXPECT_EQ(TabOf(u"Tab2"), nullptr);
}

TEST_F(DialogsOfTabs, ATabWhoseDialogIsOpenCanBeClosed) {
    OpenBehind(QStringLiteral("/storm"));
    QPointer<WebPage> page;
    steps.When(Asks(u"Tab2"), [&] {
        page = desk.View(2).Page();
        Select(u"Tab2");
    });
    steps.WhenShown([&](PageDialog&) { desk.main->CloseBrowserTab(2); });
    steps.Take();
    EXPECT_EQ(TabOf(u"Tab2"), nullptr);
    EXPECT_TRUE(WaitUntil([&] { return page.isNull(); })) << "it ends once its dialog has returned";
    EXPECT_EQ(DialogIn(desk.window), nullptr);
    OpenBehind(QStringLiteral("/first"));
    EXPECT_TRUE(Titled(u"Tab3", u"First"));
}

TEST_F(DialogsOfTabs, TwoDialogsAreAnsweredInAnyOrder) {
    OpenBehind(QStringLiteral("/asks"));
    steps.When(Asks(u"Tab2"), [&] { OpenBehind(QStringLiteral("/asks")); });
    steps.When(Asks(u"Tab3"), [&] { Select(u"Tab2"); });
    steps.WhenShown([](PageDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    steps.When([&] { return DialogIn(desk.window) == nullptr; }, [&] { Select(u"Tab3"); });
    steps.WhenShown([](PageDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    steps.Take();
    EXPECT_TRUE(Titled(u"Tab2", u"Went on"));
    EXPECT_TRUE(Titled(u"Tab3", u"Went on"));
}

TEST_F(DialogsOfTabs, StormsLeaveMenusAndTabsUsable) {
    const QByteArray storms[] = {"for (let i = 0; i < 10000; ++i) window.open('/first')",
                                 "for (let i = 0; i < 10000; ++i) location.hash = i",
                                 "for (let i = 0; i < 10000; ++i) history.pushState(i, '', '/' + i)",
                                 "setInterval(() => { location.href = '/' + Math.random() }, 0)"};
    for (std::size_t i = 0; i < std::size(storms); ++i) {
        const Text key = u"Tab" + Decimal(static_cast<std::int64_t>(i) + 2);
        const QString path = QStringLiteral("/storm%1").arg(i);
        server.Page(path, "<title>Storm</title><script>" + storms[i] + "; document.title = 'Over'</script>");
        auto* view = desk.main->GetNewBrowser(InFront::Yes);
        ResumeNext(view->Navigate(FromQt(server.Address(path))));
        ASSERT_TRUE(WaitUntil([&] { return server.requests.contains(path); }));
        QMenu menu(&desk.window);
        menu.addAction(QStringLiteral("Choose"));
        menu.popup(desk.window.mapToGlobal(QPoint(10, 10)));
        EXPECT_TRUE(WaitUntil([&] { return menu.isVisible(); }));
        menu.hide();
        EXPECT_EQ(desk.main->pcPage.Count(), 2u) << "no popup became a tab";
        desk.main->CloseBrowserTab(desk.main->pcPage.Find(key)->Tag);
        EXPECT_EQ(desk.main->pcPage.Find(key), nullptr);
    }
    OpenBehind(QStringLiteral("/first"));
    EXPECT_TRUE(Titled(u"Tab6", u"First"));
}

} // namespace

} // namespace tessa::qt
