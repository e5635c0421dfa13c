#pragma once
#include "base/ResumeNext.h"

#include <optional>
#include <string>

namespace tessa {

/// The file that keeps the command bar's layout between runs, "user.tb". Owned by the program's entry.
class LayoutFile {
public:
    virtual ~LayoutFile() = default;
    /// Its bytes, none when there is no file. Nothing when there is one that cannot be read.
    [[nodiscard]] virtual std::optional<std::string> Read() = 0;
    /// Replaces the file. On disk, whole, when this returns; a failure leaves the old file.
    virtual Outcome Write(const std::string& bytes) = 0;
};

} // namespace tessa
