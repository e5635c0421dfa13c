#include "qt/desktop/StartFailure.h"

#include "qt/base/DrawingChoice.h"

#include <QString>

#include <cstdio>
#include <unistd.h>

namespace tessa::qt {

namespace {

QtMessageHandler s_before = nullptr;
bool s_starting = false;

void SayWhy() {
    const QByteArray display = qgetenv("DISPLAY"), wayland = qgetenv("WAYLAND_DISPLAY");
    std::fprintf(stderr,
                 "TessaView cannot open a window: the display does not answer, or Qt's part for it is missing.\n"
                 "DISPLAY is \"%s\", WAYLAND_DISPLAY is \"%s\".\n",
                 display.constData(), wayland.constData());
}

void Handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg && s_starting) {
        SayWhy();
        ::_exit(1);
    }
    if (s_before && !DrawingChoice::IsExpected(message)) s_before(type, context, message);
}

} // namespace

StartFailure::StartFailure() {
    s_before = qInstallMessageHandler(Handle);
    s_starting = true;
}

StartFailure::~StartFailure() {
    s_starting = false;
    // Whoever listens by now goes on, and passes on to us.
    const QtMessageHandler current = qInstallMessageHandler(s_before);
    if (current != Handle) qInstallMessageHandler(current);
}

} // namespace tessa::qt
