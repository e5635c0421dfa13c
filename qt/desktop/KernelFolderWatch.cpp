#include "qt/desktop/KernelFolderWatch.h"

#include "qt/base/Strings.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <vector>

namespace tessa::qt {

namespace {

QString Existing(QString folder) {
    folder = QDir::cleanPath(folder);
    while (!QFileInfo(folder).isDir()) {
        const QString above = QFileInfo(folder).path();
        if (above == folder) break;
        folder = above;
    }
    return folder;
}

} // namespace

void KernelFolderWatch::Watch(TextView folder) {
    if (folder.empty()) return;
    if (!m_watcher) {
        m_watcher = std::make_unique<QFileSystemWatcher>();
        QObject::connect(m_watcher.get(), &QFileSystemWatcher::directoryChanged, m_watcher.get(),
                         [this](const QString& path) { OnChanged(path); });
    }
    m_held[Text(folder)] = Hold(ToQt(folder));
}

void KernelFolderWatch::Unwatch(TextView folder) {
    const auto found = m_held.find(Text(folder));
    if (found == m_held.end()) return;
    const QString path = found->second;
    m_held.erase(found);
    Release(path);
}

// A folder may come or go between the look at it and the watch on it.
QString KernelFolderWatch::Hold(const QString& folder) {
    QString path = Existing(folder);
    for (;;) {
        if (!m_watcher->directories().contains(path)) m_watcher->addPath(path);
        const QString now = Existing(folder);
        if (now == path) return path;
        path = now;
    }
}

void KernelFolderWatch::Release(const QString& path) {
    const bool needed = std::ranges::any_of(m_held, [&](const auto& each) { return each.second == path; });
    if (!needed) m_watcher->removePath(path);
}

void KernelFolderWatch::OnChanged(const QString& path) {
    std::vector<Text> changed;
    for (auto& [folder, held] : m_held) {
        if (held != path) continue;
        held = Hold(ToQt(folder));
        // A change in the folder above is one only when the folder has come.
        if (path == QDir::cleanPath(ToQt(folder)) || held != path) changed.push_back(folder);
    }
    Release(path);
    for (const Text& folder : changed) {
        Changed(folder);
    }
}

} // namespace tessa::qt
