#include "qt/questions/Notifications.h"

#include "base/PlainText.h"
#include "qt/base/Strings.h"
#include "qt/page/WebPage.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>
#include <QWebEngineNotification>
#include <QWebEngineProfile>

namespace tessa::qt {

namespace {

constexpr auto kNotificationsService = "org.freedesktop.Notifications";
constexpr auto kNotificationsPath = "/org/freedesktop/Notifications";
constexpr std::size_t kLongestTitle = 100;
constexpr std::size_t kMostBodyLines = 4;
constexpr std::size_t kLongestBodyLine = 200;
constexpr qsizetype kMostNotifications = 50;

QDBusMessage Call(const char* method) {
    return QDBusMessage::createMethodCall(QLatin1String(kNotificationsService), QLatin1String(kNotificationsPath),
                                          QLatin1String(kNotificationsService), QLatin1String(method));
}

} // namespace

Notifications::Notifications(NoticeBar& inside) : m_bar(inside) {
    auto bus = QDBusConnection::sessionBus();
    const auto listen = [&](const char* signal, const char* slot) {
        bus.connect(QLatin1String(kNotificationsService), QLatin1String(kNotificationsPath),
                    QLatin1String(kNotificationsService), QLatin1String(signal), this, slot);
    };
    listen("ActionInvoked", SLOT(OnAction(uint, QString)));
    listen("NotificationClosed", SLOT(OnClosed(uint, uint)));
}

void Notifications::Follow(QWebEngineProfile& profile) {
    profile.setNotificationPresenter(
        [this](std::unique_ptr<QWebEngineNotification> notification) { Show(std::move(notification)); });
}

void Notifications::Show(std::shared_ptr<QWebEngineNotification> notification) {
    if (m_shown.size() + m_inside.size() >= kMostNotifications) return;
    // Whoever reads it is to know who speaks; what a page says is text, not markup.
    const QString title = ToQt(PlainLine(FromQt(notification->title()), kLongestTitle));
    const QString words = ToQt(PlainLines(FromQt(notification->message()), kMostBodyLines, kLongestBodyLine));
    const QString body = WebPage::HostAndPort(notification->origin()) + u'\n' + words;
    QDBusMessage call = Call("Notify");
    call.setArguments({QStringLiteral("TessaView"), 0U, QStringLiteral("tessaview"), title, body.toHtmlEscaped(),
                       QStringList{QStringLiteral("default"), QStringLiteral("Show")},
                       QVariantMap{{QStringLiteral("desktop-entry"), QStringLiteral("tessaview")}}, -1});
    const QString inside = WebPage::HostAndPort(notification->origin()) + QStringLiteral(": ") + title +
                           (words.isEmpty() ? QString() : u'\n' + words);
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, notification, inside](QDBusPendingCallWatcher* done) {
                const QDBusPendingReply<uint> reply = *done;
                done->deleteLater();
                if (reply.isError()) return ShowHere(notification, inside);
                m_shown.insert(reply.value(), notification);
                notification->show();
            });
    connect(notification.get(), &QWebEngineNotification::closed, this,
            [this, gone = notification.get()] { TakeBack(gone); });
}

// A page takes back what it has shown.
void Notifications::TakeBack(QWebEngineNotification* gone) {
    if (const auto inside = m_inside.find(gone); inside != m_inside.end()) {
        const int number = *inside;
        m_inside.erase(inside);
        // Later: what the window lets go may be the last that holds what is just telling this.
        QMetaObject::invokeMethod(
            this, [this, number] { m_bar.Remove(number); }, Qt::QueuedConnection);
        return;
    }
    for (auto each = m_shown.begin(); each != m_shown.end(); ++each) {
        if (each.value().get() != gone) continue;
        QDBusMessage close = Call("CloseNotification");
        close.setArguments({each.key()});
        QDBusConnection::sessionBus().send(close);
        return;
    }
}

// What was allowed is to be seen, whatever the desktop lacks.
void Notifications::ShowHere(const std::shared_ptr<QWebEngineNotification>& notification, const QString& words) {
    const auto answered = [this, notification] { m_inside.remove(notification.get()); };
    const int number = m_bar.Add({words,
                                  [this, notification, answered] {
                                      answered();
                                      notification->click();
                                      notification->close();
                                      Clicked();
                                  },
                                  [notification, answered] {
                                      answered();
                                      notification->close();
                                  }});
    m_inside.insert(notification.get(), number);
    notification->show();
}

void Notifications::OnAction(uint id, const QString&) {
    if (const auto notification = m_shown.value(id)) {
        notification->click();
        Clicked();
    }
}

void Notifications::OnClosed(uint id, uint) {
    // Held until the page has been told.
    if (const auto notification = m_shown.take(id)) notification->close();
}

} // namespace tessa::qt
