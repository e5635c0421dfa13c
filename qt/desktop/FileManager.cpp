#include "qt/desktop/FileManager.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QUrl>

namespace tessa::qt {

namespace {

constexpr auto kManagerService = "org.freedesktop.FileManager1";
constexpr auto kManagerPath = "/org/freedesktop/FileManager1";

} // namespace

bool FileManager::Show(const QString& path) {
    const QUrl folder = QUrl::fromLocalFile(QFileInfo(path).path());
    if (!QFileInfo::exists(path) || !m_bus.isConnected()) return OpenFolder(folder);
    QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(kManagerService), QLatin1String(kManagerPath),
                                                       QLatin1String(kManagerService), QStringLiteral("ShowItems"));
    call.setArguments({QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)}, QString()});
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, folder](QDBusPendingCallWatcher* done) {
        const QDBusPendingReply<> reply = *done;
        done->deleteLater();
        if (reply.isError()) OpenFolder(folder);
    });
    return true;
}

} // namespace tessa::qt
