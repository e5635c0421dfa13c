#include "qt/base/paint/DarkFrames.h"

#include "qt/base/Palette.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace tessa::qt {

namespace {

const QString& OwnStyle() {
    static const QString s_name = QStringLiteral("fusion");
    return s_name;
}

/// How far a frame is from the window's colour to that of its words; 0 for what gets none. What is pressed or ticked
/// must be found, so it stands out most.
double ShareOf(QStyle::PrimitiveElement element) {
    switch (element) {
    case QStyle::PE_IndicatorCheckBox:
    case QStyle::PE_IndicatorRadioButton:
        return 0.5;
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_FrameMenu:
        return 0.3;
    default:
        return 0;
    }
}

// What has the keyboard is framed in its own colour already.
bool IsFramed(QStyle::PrimitiveElement element, const QStyleOption& option) {
    const bool box = element == QStyle::PE_FrameLineEdit;
    return ShareOf(element) > 0 && Palette::IsDark(option.palette) &&
           !(box && option.state.testFlag(QStyle::State_HasFocus));
}

} // namespace

DarkFrames::DarkFrames() : QProxyStyle(OwnStyle()) {}

void DarkFrames::Install() {
    if (QApplication::style()->name() == OwnStyle()) QApplication::setStyle(new DarkFrames);
}

void DarkFrames::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!option || !IsFramed(element, *option)) return;
    const double share = option->state.testFlag(State_Enabled) ? ShareOf(element) : ShareOf(element) / 2;
    const QPalette& palette = option->palette;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Palette::Mix(palette.color(QPalette::Window), palette.color(QPalette::WindowText), share));
    painter->setBrush(Qt::NoBrush);
    const QRectF frame = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (element == PE_IndicatorRadioButton)
        painter->drawEllipse(frame);
    else if (element == PE_FrameLineEdit)
        painter->drawRoundedRect(frame, 2, 2);
    else
        painter->drawRect(frame);
    painter->restore();
}

} // namespace tessa::qt
