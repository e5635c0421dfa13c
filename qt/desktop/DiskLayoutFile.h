#pragma once
#include "platform/LayoutFile.h"

#include <QString>

namespace tessa::qt {

/// A layout file on disk, readable by the user alone.
class DiskLayoutFile final : public LayoutFile {
public:
    /// `folder` is made when the file is first written.
    explicit DiskLayoutFile(const QString& folder);

    [[nodiscard]] std::optional<std::string> Read() override;
    Outcome Write(const std::string& bytes) override;

private:
    QString m_folder;
    std::string m_path;
};

} // namespace tessa::qt
