#include "qt/QtDialogScheme.h"
#include "qt/QtStartPage.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QtStartPage::RegisterScheme();
    QtDialogScheme::RegisterScheme();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
