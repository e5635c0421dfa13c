// Tests: WebPageTools
#include "tests/engine/CommandsOnPages.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTemporaryDir>

namespace tessa::qt {

namespace {

/// Commands that work on what a page holds.
class PageCommandsTest : public CommandsOnPages {
protected:
    void SetUp() override {
        server.Page(QStringLiteral("/rose"), "<title>Rose</title><p id=text>red petals</p><img src=/dot.svg>"
                                             "<input id=one value=thorn><input id=two>");
        server.Raw(QStringLiteral("/dot.svg"),
                   "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nContent-Length: 41\r\n"
                   "\r\n<svg xmlns='http://www.w3.org/2000/svg'/>");
    }
    /// Gives the page the keyboard and selects an input's text.
    void SelectInput(const QString& id) {
        Front().SetFocus();
        Script(
            QStringLiteral("document.getElementById('%1').focus(); document.getElementById('%1').select(); 1").arg(id));
    }
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
    const QTemporaryDir folder;
    QFile file(folder.filePath(QString::fromUtf8("a b#c%20?ü.html")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<title>A file</title>");
    file.close();
    desk.files.chosen = FromQt(file.fileName());
    Click(u"mnuOpen");
    EXPECT_TRUE(WaitTitle(u"A file")) << ToUtf8(Front().LocationURL());
}

} // namespace

} // namespace tessa::qt
