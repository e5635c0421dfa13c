#include "qt/QtStartFailure.h"

#include <QString>

#include <cstdio>
#include <unistd.h>

namespace {

QtMessageHandler s_before = nullptr;

void SayWhy() {
    const QByteArray display = qgetenv("DISPLAY"), wayland = qgetenv("WAYLAND_DISPLAY");
    std::fprintf(stderr,
                 "TessaView cannot open a window: the display does not answer, or Qt's part for it is missing.\n"
                 "DISPLAY is \"%s\", WAYLAND_DISPLAY is \"%s\".\n",
                 display.constData(), wayland.constData());
}

void Handle(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (type == QtFatalMsg) {
        SayWhy();
        ::_exit(1);
    }
    if (s_before) s_before(type, context, message);
}

} // namespace

QtStartFailure::QtStartFailure() { s_before = qInstallMessageHandler(Handle); }

QtStartFailure::~QtStartFailure() { qInstallMessageHandler(s_before); }
