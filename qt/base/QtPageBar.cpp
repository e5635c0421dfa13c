#include "qt/base/QtPageBar.h"

#include "qt/base/QtPalette.h"

#include <QPainter>

namespace tessa::qt {

namespace {
constexpr double kBarLineShare = 0.25; // of the way from the ground's colour to the text's
}

QtPageBar::QtPageBar(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
}

void QtPageBar::paintEvent(QPaintEvent*) {
    const QColor line =
        QtPalette::Mix(palette().color(backgroundRole()), palette().color(foregroundRole()), kBarLineShare);
    QPainter(this).fillRect(0, height() - 1, width(), 1, line);
}

} // namespace tessa::qt
