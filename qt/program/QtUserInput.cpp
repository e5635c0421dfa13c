#include "qt/program/QtUserInput.h"

#include "qt/base/QtText.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tessa::qt {

bool QtUserInput::ShiftHeld() const {
    return m_middleClick.Now() || QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

void QtUserInput::Copy(TextView text) { QGuiApplication::clipboard()->setText(ToQt(text)); }

} // namespace tessa::qt
