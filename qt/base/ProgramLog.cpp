#include "qt/base/ProgramLog.h"

#include "base/os/Log.h"
#include "qt/base/DrawingChoice.h"
#include "qt/base/PathBytes.h"

#include <QDateTime>
#include <QtGlobal>

namespace tessa::qt {

namespace {

QtMessageHandler s_beforeLog = nullptr;

void TakeQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (DrawingChoice::IsExpected(message)) return;
    if (type != QtDebugMsg && type != QtInfoMsg) {
        const auto level = type == QtWarningMsg ? LogLevel::Warning : LogLevel::Error;
        Log::NoteForeign(level, context.category ? context.category : "", message.toStdString());
    }
    if (s_beforeLog) s_beforeLog(type, context, message);
}

} // namespace

ProgramLog::ProgramLog(const QString& folder)
    : m_file(PathBytes(folder + QStringLiteral("/log")), [] { return QDateTime::currentSecsSinceEpoch(); }) {
    Log::To(&m_file);
    s_beforeLog = qInstallMessageHandler(TakeQtMessage);
}

ProgramLog::~ProgramLog() {
    qInstallMessageHandler(s_beforeLog);
    Log::To(nullptr);
}

} // namespace tessa::qt
