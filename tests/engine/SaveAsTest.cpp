#include "tests/engine/CommandsOnPages.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimer>

namespace tessa::qt {

namespace {

/// Saving the page in front, in the dialog that a user sees.
class SaveAsTest : public CommandsOnPages, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        server.Page(QStringLiteral("/rose"), "<title>Rose</title><p>red petals</p><img src=/dot.svg>");
        server.Raw(QStringLiteral("/dot.svg"),
                   "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nContent-Length: 41\r\n"
                   "\r\n<svg xmlns='http://www.w3.org/2000/svg'/>");
        server.Page(QStringLiteral("/tulip"), "<title>Tulip</title><p>yellow petals</p>");
        Show(QStringLiteral("/rose"), u"Rose");
    }
    /// What the dialog is answered with once it is open: a file, or nothing to cancel it; and what happens behind it
    /// before that.
    void Answer(const QString& path, const std::function<void()>& behind = {}) {
        auto* timer = new QTimer(&desk.window);
        timer->setInterval(10);
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, path, behind] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            timer->deleteLater();
            timer->stop();
            if (behind) behind();
            answered = true;
            if (path.isEmpty()) return dialog->reject();
            dialog->selectFile(path);
            static_cast<QDialog*>(dialog)->accept();
        });
        timer->start();
    }
    /// Has the page saved in the dialog, which comes later and is answered.
    void Save() {
        answered = false;
        Click(u"mnuSaveAs");
        ASSERT_TRUE(WaitUntil([this] { return answered && !QApplication::activeModalWidget(); }));
    }
    [[nodiscard]] QString File() const { return folder.filePath(QLatin1String(GetParam())); }
    [[nodiscard]] static bool IsPdf() { return QString::fromLatin1(GetParam()).endsWith(u".pdf"); }

    QTemporaryDir folder;
    bool answered = false;
};

TEST_P(SaveAsTest, WritesThePage) {
    Answer(File());
    Save();
    EXPECT_TRUE(WaitUntil([&] { return QFileInfo(File()).size() > 0; }));
}

TEST_P(SaveAsTest, WritesThePageThatWasInFrontWhenItWasAskedFor) {
    Answer(File(), [this] { desk.Open({server.Address(QStringLiteral("/tulip"))}); });
    Save();
    ASSERT_TRUE(WaitTitle(u"Tulip"));
    ASSERT_TRUE(WaitUntil([&] { return QFileInfo(File()).size() > 0; }));
    if (IsPdf()) return;
    const auto written = [this] {
        QFile file(File());
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    };
    EXPECT_TRUE(WaitUntil([&] { return written().contains("red petals"); })) << written().toStdString();
}

TEST_P(SaveAsTest, WritesNothingWhenThePageHasGoneBehindTheDialog) {
    Answer(File(), [this] {
        Click(u"mnuNewBlank");
        desk.main->CloseBrowserTab(1);
    });
    Save();
    Show(QStringLiteral("/tulip"), u"Tulip");
    EXPECT_FALSE(QFileInfo::exists(File()));
}

TEST_P(SaveAsTest, TheTabMayCloseAtOnce) {
    Answer(File());
    Save();
    Click(u"mnuNewBlank");
    desk.main->CloseBrowserTab(1);
    Show(QStringLiteral("/rose"), u"Rose");
    if (IsPdf()) {
        EXPECT_TRUE(WaitUntil([&] { return QFileInfo(File()).size() > 0; })) << "what was begun is finished";
    }
}

TEST_P(SaveAsTest, TheTabMayCloseWhileTheFileIsWritten) {
    for (int turns = 0; turns < 12; turns += 3) {
        Answer(folder.filePath(QString::number(turns) + QLatin1String(GetParam())));
        Save();
        for (int turn = 0; turn < turns; ++turn) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        Click(u"mnuNewBlank");
        desk.main->CloseBrowserTab(desk.main->pcPage.FindAt(1)->Tag);
        Show(QStringLiteral("/rose"), u"Rose");
    }
}

TEST_P(SaveAsTest, TheProgramMayEndAtOnce) {
    Answer(File());
    Save();
    desk.main->Form_Unload();
    desk.engine.Shutdown();
    if (IsPdf()) {
        EXPECT_GT(QFileInfo(File()).size(), 0) << "what was begun is finished";
    }
}

TEST_P(SaveAsTest, ACancelledDialogWritesNothing) {
    Answer({});
    Save();
    Click(u"mnuRefresh");
    ASSERT_TRUE(WaitTitle(u"Rose"));
    EXPECT_FALSE(QFileInfo::exists(File()));
}

/// Dialogs about a page that is busy with itself: it waits for a server that does not answer.
class DialogsOfABusyPage : public CommandsOnPages {
protected:
    DialogsOfABusyPage() {
        QObject::connect(&look, &QTimer::timeout, &look, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            shown << dialog->windowTitle();
            dialog->reject();
        });
        look.start(10);
    }
    void SetUp() override {
        server.Stall(QStringLiteral("/held"));
        server.Page(QStringLiteral("/rose"), "<title>Rose</title><p>red petals</p>");
        server.Page(QStringLiteral("/tulip"), "<title>Tulip</title><p>yellow petals</p>");
        Show(QStringLiteral("/rose"), u"Rose");
        Front().Page()->runJavaScript(
            QStringLiteral("var held = new XMLHttpRequest(); held.open('GET', '/held', false); held.send();"));
        ASSERT_TRUE(WaitUntil([this] { return server.requests.contains(QStringLiteral("/held")); }));
    }

    QTimer look;
    QStringList shown; ///< the titles of the dialogs that came
};

TEST_F(DialogsOfABusyPage, ComeLaterAndTheWindowGoesOn) {
    Click(u"mnuSaveAs");
    EXPECT_EQ(shown.join(u','), QString()) << "the window has waited for the page";
    const auto* tab = desk.main->pcPage.SelectedItem();
    Click(u"mnuNewBlank");
    EXPECT_NE(desk.main->pcPage.SelectedItem(), tab);
    EXPECT_TRUE(WaitUntil([this] { return shown.size() == 1; }));
    EXPECT_EQ(shown.join(u','), u"Save As");
}

TEST_F(DialogsOfABusyPage, AreThatWhichWasAskedForLast) {
    Click(u"mnuSaveAs");
    Click(u"mnuSaveAs");
    Click(u"mnuPrint");
    EXPECT_TRUE(WaitUntil([this] { return shown.contains(QStringLiteral("Print")); }));
    EXPECT_EQ(shown.join(u','), u"Print");
    Click(u"mnuSaveAs");
    EXPECT_TRUE(WaitUntil([this] { return shown.size() == 2; }));
    EXPECT_EQ(shown.join(u','), u"Print,Save As");
}

TEST_F(DialogsOfABusyPage, DoNotComeWhenItIsClosedBefore) {
    const QPointer<QWebEnginePage> page = Front().Page();
    Click(u"mnuSaveAs");
    Click(u"mnuNewBlank");
    desk.main->CloseBrowserTab(1);
    ASSERT_TRUE(WaitUntil([&page] { return !page; }));
    Show(QStringLiteral("/tulip"), u"Tulip");
    Click(u"mnuPrint");
    EXPECT_TRUE(WaitUntil([this] { return !shown.isEmpty(); }));
    EXPECT_EQ(shown.join(u','), u"Print");
}

TEST_F(DialogsOfABusyPage, AreForgottenWhenTheProgramEnds) {
    Click(u"mnuSaveAs");
    desk.main->Form_Unload();
    desk.engine.Shutdown();
    EXPECT_EQ(shown.join(u','), QString());
}

INSTANTIATE_TEST_SUITE_P(Kinds, SaveAsTest, testing::Values("page.html", "page.mhtml", "page.pdf"),
                         [](const auto& info) { return QFileInfo(QLatin1String(info.param)).suffix().toStdString(); });

} // namespace

} // namespace tessa::qt
