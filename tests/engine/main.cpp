#include "qt/blocking/ElementHiding.h"
#include "qt/blocking/EmptyAnswers.h"
#include "qt/page/DialogScheme.h"
#include "qt/page/StartPageScheme.h"

#include <QApplication>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    using namespace tessa::qt;
    // The engine looks for dictionaries in one folder in a run.
    const QTemporaryDir dictionaries;
    qputenv("TESSAVIEW_TEST_DICTIONARIES", dictionaries.path().toUtf8());
    qputenv("QTWEBENGINE_DICTIONARIES_PATH", dictionaries.path().toUtf8());
    // A camera and a microphone that show and say nothing: machines that test have none. The user is asked all the
    // same.
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS",
            qgetenv("QTWEBENGINE_CHROMIUM_FLAGS") + " --use-fake-device-for-media-stream");
    ::testing::InitGoogleTest(&argc, argv);
    StartPageScheme::RegisterScheme();
    DialogScheme::RegisterScheme();
    ElementHiding::RegisterScheme();
    EmptyAnswers::RegisterScheme();
    QApplication application(argc, argv);
    // As the program draws where there is no graphics processor, which is where tests run.
    if (qgetenv("TESSAVIEW_DRAWING") != "hardware") QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
