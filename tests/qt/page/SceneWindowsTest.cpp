#include "qt/page/SceneWindows.h"

#include <QQuickWindow>
#include <QWidget>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

TEST(SceneWindows, ThoseThatPaintPagesAreListedWithTheirViewAndOthersStay) {
    QQuickWindow painting, other;
    painting.setTitle(QStringLiteral("Offscreen"));
    other.setTitle(QStringLiteral("A page"));
    QWidget view;
    SceneWindows::Hide(view);
    EXPECT_NE(painting.type(), Qt::Popup) << "nothing is painted yet";
    const QWidget page(&view);
    EXPECT_EQ(painting.type(), Qt::Popup);
    EXPECT_NE(other.type(), Qt::Popup);
}

TEST(SceneWindows, OneThatComesLaterIsHiddenToo) {
    QWidget view;
    SceneWindows::Hide(view);
    const QWidget page(&view);
    QQuickWindow painting;
    painting.setTitle(QStringLiteral("Offscreen"));
    const QWidget pageOfAnotherProcess(&view);
    EXPECT_EQ(painting.type(), Qt::Popup);
}

} // namespace

} // namespace tessa::qt
