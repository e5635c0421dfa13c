#include "qt/desktop/FileManager.h"

#include "tests/fakes/TemporaryFolder.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

namespace tessa::qt {

namespace {

/// A bus of the test's own.
class Bus {
public:
    Bus() {
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
        EXPECT_TRUE(m_daemon.waitForReadyRead());
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~Bus() {
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    [[nodiscard]] QDBusConnection Connect(const char* name) const {
        return QDBusConnection::connectToBus(m_address, QLatin1String(name));
    }

private:
    QProcess m_daemon;
    QString m_address;
};

/// A file manager that writes down what it was to show.
class FakeFileManager final : public QDBusVirtualObject {
public:
    QStringList shown;

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.member() != u"ShowItems" || message.interface() != u"org.freedesktop.FileManager1") return false;
        shown += message.arguments().value(0).toStringList();
        return connection.send(message.createReply());
    }
};

class FileManagerTest : public testing::Test {
protected:
    FileManagerTest() {
        folder.Write("a file & more.txt", "x");
        shown.OpenFolder = [this](const QUrl& url) {
            opened << url.toLocalFile();
            return true;
        };
    }
    ~FileManagerTest() override {
        QDBusConnection::disconnectFromBus(QStringLiteral("program"));
        QDBusConnection::disconnectFromBus(QStringLiteral("desktop"));
    }
    void StartFileManager() {
        auto bus = m_bus.Connect("desktop");
        ASSERT_TRUE(bus.registerVirtualObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager));
        ASSERT_TRUE(bus.registerService(QStringLiteral("org.freedesktop.FileManager1")));
    }
    [[nodiscard]] QString Path(const char* name) const { return QString::fromStdString(folder.Path(name)); }
    [[nodiscard]] QString Folder() const { return Path("").chopped(1); }

    Bus m_bus;
    TemporaryFolder folder;
    FakeFileManager manager;
    FileManager shown{m_bus.Connect("program")};
    QStringList opened;
};

TEST_F(FileManagerTest, SelectsTheFile) {
    StartFileManager();
    EXPECT_TRUE(shown.Show(Path("a file & more.txt")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.shown.isEmpty(); }));
    EXPECT_EQ(QUrl(manager.shown.value(0)).toLocalFile(), Path("a file & more.txt"));
    EXPECT_TRUE(manager.shown.value(0).startsWith(u"file:///")) << manager.shown.value(0).toStdString();
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(FileManagerTest, OpensTheFolderWhereNoFileManagerListens) {
    EXPECT_TRUE(shown.Show(Path("a file & more.txt")));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opened.isEmpty(); }));
    EXPECT_EQ(opened, QStringList{Folder()});
}

TEST_F(FileManagerTest, OpensTheFolderOfAFileThatIsNotThere) {
    StartFileManager();
    EXPECT_TRUE(shown.Show(Path("gone.txt")));
    EXPECT_EQ(opened, QStringList{Folder()});
    EXPECT_TRUE(manager.shown.isEmpty());
}

TEST_F(FileManagerTest, OpensTheFolderWithoutABus) {
    FileManager alone(QDBusConnection(QStringLiteral("none")));
    alone.OpenFolder = shown.OpenFolder;
    EXPECT_TRUE(alone.Show(Path("a file & more.txt")));
    EXPECT_EQ(opened, QStringList{Folder()});
}

} // namespace

} // namespace tessa::qt
