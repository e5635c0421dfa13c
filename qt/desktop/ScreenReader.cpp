#include "qt/desktop/ScreenReader.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>

namespace tessa::qt {

namespace {

constexpr int kStatusPatience = 500; ///< milliseconds
const QString kStatusService = QStringLiteral("org.a11y.Bus");

// Screen readers set the one or the other, or have the desktop do it.
bool StatusSays(const QDBusConnection& bus, const char* property) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(kStatusService, QStringLiteral("/org/a11y/bus"),
                                       QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    call << QStringLiteral("org.a11y.Status") << QString::fromLatin1(property);
    const QDBusMessage answer = bus.call(call, QDBus::Block, kStatusPatience);
    const QVariantList values = answer.arguments();
    return answer.type() == QDBusMessage::ReplyMessage && !values.isEmpty() &&
           values.first().value<QDBusVariant>().variant().toBool();
}

} // namespace

// Who is not there yet is not started for the question: then nobody reads.
bool ScreenReader::IsOn() {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(kStatusService)) return false;
    return StatusSays(bus, "ScreenReaderEnabled") || StatusSays(bus, "IsEnabled");
}

// It costs each page time and memory, so the engine does it on demand alone.
void ScreenReader::Prepare() {
    if (IsOn()) qputenv("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1");
}

} // namespace tessa::qt
