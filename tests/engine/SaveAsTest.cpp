#include "tests/engine/CommandsOnPages.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
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
        QObject::connect(timer, &QTimer::timeout, timer, [timer, path, behind] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            timer->deleteLater();
            timer->stop();
            if (behind) behind();
            if (path.isEmpty()) return dialog->reject();
            dialog->selectFile(path);
            static_cast<QDialog*>(dialog)->accept();
        });
        timer->start();
    }
    [[nodiscard]] QString File() const { return folder.filePath(QLatin1String(GetParam())); }
    [[nodiscard]] static bool IsPdf() { return QString::fromLatin1(GetParam()).endsWith(u".pdf"); }

    QTemporaryDir folder;
};

TEST_P(SaveAsTest, WritesThePage) {
    Answer(File());
    Click(u"mnuSaveAs");
    EXPECT_TRUE(WaitUntil([&] { return QFileInfo(File()).size() > 0; }));
}

TEST_P(SaveAsTest, WritesThePageThatWasInFrontWhenItWasAskedFor) {
    Answer(File(), [this] { desk.Open({server.Address(QStringLiteral("/tulip"))}); });
    Click(u"mnuSaveAs");
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
    Click(u"mnuSaveAs");
    Show(QStringLiteral("/tulip"), u"Tulip");
    EXPECT_FALSE(QFileInfo::exists(File()));
}

TEST_P(SaveAsTest, TheTabMayCloseAtOnce) {
    Answer(File());
    Click(u"mnuSaveAs");
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
        Click(u"mnuSaveAs");
        for (int turn = 0; turn < turns; ++turn) QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        Click(u"mnuNewBlank");
        desk.main->CloseBrowserTab(desk.main->pcPage.FindAt(1)->Tag);
        Show(QStringLiteral("/rose"), u"Rose");
    }
}

TEST_P(SaveAsTest, TheProgramMayEndAtOnce) {
    Answer(File());
    Click(u"mnuSaveAs");
    desk.main->Form_Unload();
    desk.engine.Shutdown();
    if (IsPdf()) {
        EXPECT_GT(QFileInfo(File()).size(), 0) << "what was begun is finished";
    }
}

TEST_P(SaveAsTest, ACancelledDialogWritesNothing) {
    Answer({});
    Click(u"mnuSaveAs");
    Click(u"mnuRefresh");
    ASSERT_TRUE(WaitTitle(u"Rose"));
    EXPECT_FALSE(QFileInfo::exists(File()));
}

INSTANTIATE_TEST_SUITE_P(Kinds, SaveAsTest, testing::Values("page.html", "page.mhtml", "page.pdf"),
                         [](const auto& info) { return QFileInfo(QLatin1String(info.param)).suffix().toStdString(); });

} // namespace

} // namespace tessa::qt
