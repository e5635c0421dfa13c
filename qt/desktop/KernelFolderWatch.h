#pragma once
#include "platform/FolderWatch.h"

#include <QFileSystemWatcher>
#include <QString>
#include <map>
#include <memory>

namespace tessa::qt {

/// Watches folders through the kernel. Of one that does not exist it watches the folder above, until it does.
class KernelFolderWatch final : public FolderWatch {
public:
    void Watch(TextView folder) override;
    void Unwatch(TextView folder) override;

private:
    void OnChanged(const QString& path);
    [[nodiscard]] QString Hold(const QString& folder);
    void Release(const QString& path);

    std::unique_ptr<QFileSystemWatcher> m_watcher; ///< made when first needed
    std::map<Text, QString> m_held;                ///< each folder, and what the kernel watches for it
};

} // namespace tessa::qt
