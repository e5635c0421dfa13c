// Tests: Notifications
#include "qt/questions/Notifications.h"

#include "qt/base/Strings.h"
#include "qt/engine/PageView.h"
#include "tests/engine/EngineDesk.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QLabel>
#include <QPushButton>
#include <QVariantMap>
#include <QWebEngineProfile>

namespace tessa::qt {

namespace {

constexpr auto kService = "org.freedesktop.Notifications";
constexpr auto kPath = "/org/freedesktop/Notifications";

} // namespace

/// The part of the desktop that shows notifications, on the test's own bus.
class NotificationDesktop final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    NotificationDesktop() {
        EXPECT_TRUE(m_bus.registerObject(QLatin1String(kPath), this,
                                         QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        EXPECT_TRUE(m_bus.registerService(QLatin1String(kService)));
    }
    ~NotificationDesktop() override {
        m_bus.unregisterService(QLatin1String(kService));
        QDBusConnection::disconnectFromBus(QStringLiteral("desktop"));
    }
    QStringList titles, bodies;
    QList<uint> closed;

public Q_SLOTS:
    uint Notify(const QString&, uint, const QString&, const QString& title, const QString& body, const QStringList&,
                const QVariantMap&, int) {
        titles << title;
        bodies << body;
        return static_cast<uint>(titles.size());
    }
    void CloseNotification(uint id) { closed << id; }

Q_SIGNALS:
    void ActionInvoked(uint id, const QString& action);
    void NotificationClosed(uint id, uint reason);

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("desktop"));
};

namespace {

/// A site that may notify, and who hears of it.
class NotificationsTest : public testing::Test {
protected:
    NotificationsTest() {
        notifications.Clicked.ConnectForLife([this] { clicked = true; });
        desk.host.permissions = &kept;
        desk.engine.Profiles().Made.ConnectForLife(
            [this](QWebEngineProfile& profile) { notifications.Follow(profile); });
        kept.Remember({FromQt(server.Address({}, host)), SitePermission::Notifications, true});
    }

    const QString host = QStringLiteral("localhost");
    FakeSettings settings;
    SitePermissions kept{settings};
    LocalServer server;
    NoticeBar bar{nullptr};
    Notifications notifications{bar};
    bool clicked = false;
    EngineView desk;
};

TEST_F(NotificationsTest, ReachTheDesktopAndComeBack) {
    NotificationDesktop desktop;
    server.Page(QStringLiteral("/page"),
                "<script>Notification.requestPermission().then(() => {"
                "const n = new Notification('Tea\\u202E is ready', {body: '<b>come</b>\\nnow'});"
                "n.onclick = () => document.title = 'clicked'; window.kept = n; })</script>");
    desk.Load(server.Address(QStringLiteral("/page"), host));
    ASSERT_TRUE(WaitUntil([&] { return !desktop.titles.isEmpty(); }));
    EXPECT_EQ(desktop.titles.constFirst(), u"Tea is ready") << "nothing in it turns the text around";
    EXPECT_EQ(desktop.bodies.constFirst(),
              QStringLiteral("localhost:%1\n&lt;b&gt;come&lt;/b&gt;\nnow").arg(server.serverPort()));
    // The page is told once the desktop has answered; a click may come as soon as that.
    EXPECT_TRUE(WaitUntil([&] {
        Q_EMIT desktop.ActionInvoked(1, QStringLiteral("default"));
        QCoreApplication::processEvents();
        return clicked;
    }));
    EXPECT_TRUE(WaitUntil([&] { return desk.Real().Page()->title() == u"clicked"; }));
    desk.Script(QStringLiteral("kept.close(); ''"));
    EXPECT_TRUE(WaitUntil([&] { return desktop.closed == QList<uint>{1}; }));
}

TEST_F(NotificationsTest, AreShownInTheWindowWhereTheDesktopShowsNone) {
    server.Page(QStringLiteral("/page"),
                "<script>Notification.requestPermission().then(() => {"
                "window.kept = new Notification('Tea'); window.other = new Notification('Cake', {body: 'two'});"
                "other.onclick = () => document.title = 'clicked'; })</script>");
    desk.Load(server.Address(QStringLiteral("/page"), host));
    ASSERT_TRUE(WaitUntil([&] { return bar.Count() == 2; }));
    const auto* words = bar.findChild<QLabel*>(QStringLiteral("lblNotice"));
    EXPECT_EQ(words->text(), QStringLiteral("localhost:%1: Tea").arg(server.serverPort()));
    desk.Script(QStringLiteral("kept.close(); ''"));
    ASSERT_TRUE(WaitUntil([&] { return bar.Count() == 1; }));
    EXPECT_EQ(words->text(), QStringLiteral("localhost:%1: Cake\ntwo").arg(server.serverPort()));
    bar.findChild<QPushButton*>(QStringLiteral("cmdShowNotice"))->click();
    EXPECT_TRUE(clicked);
    EXPECT_EQ(bar.Count(), 0U);
    EXPECT_TRUE(WaitUntil([&] { return desk.Real().Page()->title() == u"clicked"; }));
}

} // namespace

} // namespace tessa::qt

#include "NotificationsTest.moc"
