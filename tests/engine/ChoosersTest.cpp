#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"
#include "tests/fakes/TemporaryFolder.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QFileDialog>
#include <QTimer>
#include <QWebEngineView>

namespace tessa::qt {

namespace {

/// What pages ask the desktop for: files, colours, the clipboard.
class Choosers : public testing::Test {
protected:
    void Load(const QByteArray& html) {
        server.Page(QStringLiteral("/page"), "<p>words</p>" + html);
        desk.Load(server.Address(QStringLiteral("/page")));
    }
    /// What the user does in the next dialog of that kind, which may have an event loop of its own.
    template<typename T>
    void InNext(const std::function<void(T&)>& user) {
        m_look.callOnTimeout(&desk.window, [this, user] {
            for (auto* each : QApplication::topLevelWidgets()) {
                auto* dialog = qobject_cast<T*>(each);
                if (!dialog || !dialog->isVisible()) continue;
                m_look.stop();
                user(*dialog);
                QMetaObject::invokeMethod(dialog, "accept");
                return;
            }
        });
        m_look.start(10);
    }
    bool Titled(const char* title) {
        return WaitUntil([&] { return desk.Real().Page()->title() == QLatin1String(title); });
    }

    TemporaryFolder folder;
    LocalServer server;
    EngineView desk;
    QTimer m_look;
};

TEST_F(Choosers, AFileIsChosenInTheDesktopsDialog) {
    const QString path = QString::fromStdString(folder.Write("letter.txt", "dear"));
    Load("<input id=file type=file onchange='file.files[0].text().then(t => document.title = t)'>");
    InNext<QFileDialog>([&](QFileDialog& dialog) { dialog.selectFile(path); });
    desk.ClickOn(QStringLiteral("file"));
    EXPECT_TRUE(Titled("dear"));
}

TEST_F(Choosers, AColourIsChosenInTheDesktopsDialog) {
    Load("<input id=colour type=color onchange='document.title = colour.value'>");
    InNext<QColorDialog>([](QColorDialog& dialog) { dialog.setCurrentColor(QColor(0x12, 0x34, 0x56)); });
    desk.ClickOn(QStringLiteral("colour"));
    EXPECT_TRUE(Titled("#123456"));
}

TEST_F(Choosers, TheClipboardIsWrittenByAClickAndNotReadByAPage) {
    QGuiApplication::clipboard()->setText(QStringLiteral("secret"));
    Load("<button id=copy onclick=\"navigator.clipboard.writeText('copied').then(() => document.title = 'written', e "
         "=> document.title = e)\">copy</button><script>navigator.clipboard && navigator.clipboard.readText().then(t "
         "=> document.title = t, () => document.title = 'refused')</script>");
    // Engines before 6.8 refuse by themselves; later ones ask, and ask once.
    auto& questions = desk.Real().Questions()->questions;
    const auto blocked = [&](const QString& title) {
        return WaitUntil([&] {
            if (questions.Current()) questions.Answer(1, false);
            return desk.Real().Page()->title() == title;
        });
    };
    EXPECT_TRUE(blocked(QStringLiteral("refused")));
    desk.Script(QStringLiteral("navigator.clipboard.writeText('forced').then(() => document.title = 'forced', () => "
                               "document.title = 'not forced'); 1"));
    EXPECT_TRUE(blocked(QStringLiteral("not forced")));
    desk.ClickOn(QStringLiteral("copy"));
    EXPECT_TRUE(Titled("written")) << desk.Real().Page()->title().toStdString();
    // The page is told sooner than the desktop.
    EXPECT_TRUE(WaitUntil([] { return QGuiApplication::clipboard()->text() == QStringLiteral("copied"); }))
        << QGuiApplication::clipboard()->text().toStdString();
}

// The engine calls it possible, but has no window for it.
TEST_F(Choosers, APictureInAPictureIsRefusedByTheEngine) {
    Load("<video id=film muted></video><canvas id=paper></canvas><script>const x = paper.getContext('2d');"
         "setInterval(() => x.fillRect(0, 0, 40, 40), 30); film.srcObject = paper.captureStream(30); film.play()"
         "</script><button id=small onclick=\"film.requestPictureInPicture().then(() => document.title = 'small', e => "
         "document.title = e.name)\">small</button>");
    ASSERT_TRUE(WaitUntil([this] { return desk.Script(QStringLiteral("film.readyState > 1")) == u"true"; }));
    desk.ClickOn(QStringLiteral("small"));
    EXPECT_TRUE(Titled("NotSupportedError")) << desk.Real().Page()->title().toStdString();
}

} // namespace

} // namespace tessa::qt
