#include "qt/QtBrowserView.h"
#include "qt/QtKeys.h"
#include "qt/QtText.h"
#include "tests/engine/EngineDesk.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QWebEngineView>

namespace {

/// The commands that touch a page, clicked in a window on the real engine.
class PageCommandsTest : public testing::Test {
protected:
    void SetUp() override {
        server.Page(QStringLiteral("/rose"), "<title>Rose</title><p id=text>red petals</p><img src=/dot.svg>"
                                             "<input id=one value=thorn><input id=two>");
        server.Raw(QStringLiteral("/dot.svg"),
                   "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nContent-Length: 41\r\n"
                   "\r\n<svg xmlns='http://www.w3.org/2000/svg'/>");
        server.Page(QStringLiteral("/tulip"), "<title>Tulip</title>tulip");
    }

    void Click(TextView tool) { desk.main->actBar.UserClick(*desk.main->actBar.Find(tool)); }
    bool Enabled(TextView tool) { return desk.main->actBar.Find(tool)->Enabled(); }
    QtBrowserView& Front() { return static_cast<QtBrowserView&>(*desk.main->Tabs.CurrentView()->Control); }
    bool WaitTitle(TextView title) {
        return WaitUntil([&] { return Front().LocationName() == title && !Front().Busy(); });
    }
    void Show(const QString& path, TextView title) {
        ResumeNext(Front().Navigate(FromQt(server.Address(path))));
        ASSERT_TRUE(WaitTitle(title));
    }
    QString Script(const QString& source) {
        // A tab that has just come to the front has no page yet.
        if (!Front().Page()) return {};
        QVariant result;
        bool answered = false;
        Front().Page()->runJavaScript(source, [&](const QVariant& value) {
            result = value;
            answered = true;
        });
        EXPECT_TRUE(WaitUntil([&] { return answered; }));
        return result.toString();
    }
    /// Gives the page the keyboard and selects an input's text.
    void SelectInput(const QString& id) {
        Front().SetFocus();
        Script(
            QStringLiteral("document.getElementById('%1').focus(); document.getElementById('%1').select(); 1").arg(id));
    }
    QString Path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    LocalServer server;
    EngineDesk desk;
};

TEST_F(PageCommandsTest, CutCopyAndPasteWorkInThePage) {
    Show(QStringLiteral("/rose"), u"Rose");
    QApplication::clipboard()->clear();
    SelectInput(QStringLiteral("one"));
    Click(u"mnuCopy");
    ASSERT_TRUE(WaitUntil([] { return QApplication::clipboard()->text() == u"thorn"; }));
    EXPECT_EQ(Script(QStringLiteral("one.value")), QStringLiteral("thorn"));
    SelectInput(QStringLiteral("two"));
    Click(u"mnuPaste");
    ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("two.value")) == u"thorn"; }));
    SelectInput(QStringLiteral("one"));
    Click(u"mnuCut");
    ASSERT_TRUE(WaitUntil([&] { return Script(QStringLiteral("one.value")).isEmpty(); }));
}

TEST_F(PageCommandsTest, SelectAllGivesThePageTheKeyboardAndSelectsIt) {
    Show(QStringLiteral("/rose"), u"Rose");
    Script(QStringLiteral("document.activeElement.blur(); 1"));
    Click(u"mnuSelectAll");
    ASSERT_TRUE(WaitUntil([&] { return Front().Page()->selectedText().contains(u"red petals"); }));
    EXPECT_TRUE(Front().Widget()->isAncestorOf(QApplication::focusWidget()) ||
                Front().Widget() == QApplication::focusWidget());
}

TEST_F(PageCommandsTest, SourceOpensInATabInFront) {
    Show(QStringLiteral("/rose"), u"Rose");
    Click(u"mnuViewSource");
    EXPECT_EQ(Front().LocationURL(), FromQt(QStringLiteral("view-source:") + server.Address(QStringLiteral("/rose"))));
    ASSERT_TRUE(WaitUntil([&] {
        return !Front().Busy() && Script(QStringLiteral("document.body.innerText")).contains(u"<title>Rose</title>");
    }));
}

TEST_F(PageCommandsTest, OpenShowsAFileWhateverItsName) {
    QFile file(Path(QString::fromUtf8("a b#c%20?ü.html")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<title>A file</title>");
    file.close();
    desk.files.chosen = FromQt(file.fileName());
    Click(u"mnuOpen");
    EXPECT_TRUE(WaitTitle(u"A file")) << ToUtf8(Front().LocationURL());
}

/// A page that handles every key itself.
class PageKeysTest : public PageCommandsTest {
protected:
    void SetUp() override {
        server.Page(QStringLiteral("/keys"),
                    "<title>Keys</title><script>var seen = '';"
                    "addEventListener('keydown', e => { seen += e.key + ';'; e.preventDefault(); }, true);</script>");
        desk.main->actBar.Attach({.BandsChanged = {},
                                  .Popup = {},
                                  .FocusTool = [this](Band&, Tool& tool) { focused = ToUtf8(tool.Name()); },
                                  .RecalcLayout = {}});
        keys.Down = [this](KeyStroke key) { return desk.main->Form_KeyDown(key); };
        keys.Up = [this](KeyStroke key) { return desk.main->Form_KeyUp(key); };
        Show(QStringLiteral("/keys"), u"Keys");
        desk.window.activateWindow();
        Front().SetFocus();
        ASSERT_TRUE(WaitUntil([&] { return Target() != nullptr; }));
    }
    void TearDown() override { desk.main->actBar.Attach({}); }

    /// What has the keyboard, when that is the page.
    QWidget* Target() {
        QWidget* focus = QApplication::focusWidget();
        QWidget* page = Front().Widget();
        return focus && page && (page == focus || page->isAncestorOf(focus)) ? focus : nullptr;
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers held) {
        Front().SetFocus();
        ASSERT_TRUE(WaitUntil([&] { return Target() != nullptr; }));
        QTest::keyClick(Target(), key, held);
    }

    std::string focused;
    QtKeys keys{desk.window};
};

TEST_F(PageKeysTest, CtrlTabGoesRoundTheTabsFromWithinAPage) {
    Click(u"mnuNewCurrent");
    ASSERT_TRUE(WaitTitle(u"Keys"));
    const Tab* second = desk.main->pcPage.SelectedItem();
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_NE(desk.main->pcPage.SelectedItem(), second);
    Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(desk.main->pcPage.SelectedItem(), second);
    EXPECT_EQ(Script(QStringLiteral("seen"))
                  .replace(QStringLiteral("Control;"), QString())
                  .replace(QStringLiteral("Shift;"), QString()),
              QString());
}

} // namespace
