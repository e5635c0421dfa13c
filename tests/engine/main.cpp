#include "qt/QtDialogScheme.h"
#include "qt/QtStartPage.h"

#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The engine looks for dictionaries in one folder in a run.
    const QTemporaryDir dictionaries;
    qputenv("TESSAVIEW_TEST_DICTIONARIES", dictionaries.path().toUtf8());
    qputenv("QTWEBENGINE_DICTIONARIES_PATH", dictionaries.path().toUtf8());
    ::testing::InitGoogleTest(&argc, argv);
    QtStartPage::RegisterScheme();
    QtDialogScheme::RegisterScheme();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
