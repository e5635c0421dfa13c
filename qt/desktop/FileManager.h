#pragma once
#include <QDBusConnection>
#include <QDesktopServices>
#include <QObject>
#include <functional>

namespace tessa::qt {

/// The desktop's file manager.
class FileManager final : public QObject {
public:
    explicit FileManager(QDBusConnection bus = QDBusConnection::sessionBus()) : m_bus(std::move(bus)) {}

    /// Shows a file selected in its folder. Shows the folder alone, in the desktop's program, when no file manager can
    /// select or the file is missing. Whether it could be asked for.
    bool Show(const QString& path);

    /// Opens a folder in the desktop's program for folders.
    std::function<bool(const QUrl&)> OpenFolder = QDesktopServices::openUrl;

private:
    QDBusConnection m_bus;
};

} // namespace tessa::qt
