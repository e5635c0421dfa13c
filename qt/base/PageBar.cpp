#include "qt/base/PageBar.h"

#include "qt/base/Palette.h"

#include <QPainter>

namespace tessa::qt {

namespace {
constexpr double kBarLineShare = 0.25; // of the way from the ground's colour to the text's
}

PageBar::PageBar(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
}

void PageBar::paintEvent(QPaintEvent*) {
    const QColor line =
        Palette::Mix(palette().color(backgroundRole()), palette().color(foregroundRole()), kBarLineShare);
    QPainter(this).fillRect(0, height() - 1, width(), 1, line);
}

} // namespace tessa::qt
