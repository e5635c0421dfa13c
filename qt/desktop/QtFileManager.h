#pragma once
#include <QDBusConnection>
#include <QDesktopServices>
#include <QObject>
#include <functional>

/// The desktop's file manager.
class QtFileManager final : public QObject {
public:
    explicit QtFileManager(QDBusConnection bus = QDBusConnection::sessionBus()) : m_bus(std::move(bus)) {}

    /// Shows a file selected in its folder; the folder alone, in the desktop's program for folders, where no file
    /// manager can do that or the file is not there. Whether it could be asked for.
    bool Show(const QString& path);

    /// Opens a folder in the desktop's program for folders.
    std::function<bool(const QUrl&)> OpenFolder = QDesktopServices::openUrl;

private:
    QDBusConnection m_bus;
};
