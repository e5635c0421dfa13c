#include "qt/program/QtUserInput.h"

#include <QClipboard>
#include <QGuiApplication>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(QtUserInput, CopiesToTheClipboard) {
    QtUserInput input;
    input.Copy(u"words \u00e9");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("words \u00e9"));
}

TEST(QtUserInput, ShiftIsUpWhileNobodyPressesIt) { EXPECT_FALSE(QtUserInput().ShiftHeld()); }

} // namespace

} // namespace tessa::qt
