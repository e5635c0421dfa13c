#include "qt/desktop/ScreenReader.h"

#include "qt/base/EngineVersions.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace tessa::qt {

namespace {

constexpr int kStatusPatience = 500; ///< milliseconds
const QString kStatusService = QStringLiteral("org.a11y.Bus");

QVariantMap StatusOf(const QDBusConnection& bus) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kStatusService, QStringLiteral("/org/a11y/bus"),
                                       QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"));
    call << QStringLiteral("org.a11y.Status");
    const QVariantList values = bus.call(call, QDBus::Block, kStatusPatience).arguments();
    return values.isEmpty() ? QVariantMap() : qdbus_cast<QVariantMap>(values.first());
}

} // namespace

// Who is not there yet is not started for the question: then nobody reads.
bool ScreenReader::IsOn() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(kStatusService)) return false;
    // Screen readers set the one or the other, or have the desktop do it. Newer desktops know the second alone.
    const QVariantMap status = StatusOf(bus);
    return status.value(QStringLiteral("ScreenReaderEnabled")).toBool() ||
           status.value(QStringLiteral("IsEnabled")).toBool();
}

// It costs each page time and memory, so the engine does it on demand alone.
void ScreenReader::Prepare() {
    if (IsOn()) EngineVersions::TellScreenReaders();
}

} // namespace tessa::qt
