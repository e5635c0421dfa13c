#include "qt/program/DesktopInput.h"

#include <QClipboard>
#include <QGuiApplication>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(DesktopInput, CopiesToTheClipboard) {
    DesktopInput input;
    input.Copy(u"words \u00e9");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("words \u00e9"));
}

TEST(DesktopInput, ShiftIsUpWhileNobodyPressesIt) { EXPECT_FALSE(DesktopInput().ShiftHeld()); }

} // namespace

} // namespace tessa::qt
