#include "qt/base/QtLog.h"

#include "base/os/Log.h"
#include "qt/base/QtDrawing.h"
#include "qt/base/QtPathBytes.h"

#include <QDateTime>
#include <QtGlobal>

namespace tessa::qt {

namespace {

QtMessageHandler s_beforeLog = nullptr;

void TakeQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (QtDrawing::IsExpected(message)) return;
    if (type != QtDebugMsg && type != QtInfoMsg) {
        const auto level = type == QtWarningMsg ? LogLevel::Warning : LogLevel::Error;
        Log::NoteForeign(level, context.category ? context.category : "", message.toStdString());
    }
    if (s_beforeLog) s_beforeLog(type, context, message);
}

} // namespace

QtLog::QtLog(const QString& folder)
    : m_file(PathBytes(folder + QStringLiteral("/log")), [] { return QDateTime::currentSecsSinceEpoch(); }) {
    Log::To(&m_file);
    s_beforeLog = qInstallMessageHandler(TakeQtMessage);
}

QtLog::~QtLog() {
    qInstallMessageHandler(s_beforeLog);
    Log::To(nullptr);
}

} // namespace tessa::qt
