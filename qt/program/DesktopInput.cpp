#include "qt/program/DesktopInput.h"

#include "qt/base/Strings.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tessa::qt {

bool DesktopInput::ShiftHeld() const {
    return m_middleClick.Now() || QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

void DesktopInput::Copy(TextView text) { QGuiApplication::clipboard()->setText(ToQt(text)); }

} // namespace tessa::qt
