#pragma once
#include "base/os/MemoryReader.h"
#include "base/os/MemoryTexts.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tessa {

/// Reads how much memory is left, from the files in which Linux tells it. They tell it of the machine, and of the
/// control groups around the program, of either version. A file that is missing counts as not said.
class MemoryFiles final : public MemoryReader {
public:
    /// `root` is put before every path; a test has its own files there.
    explicit MemoryFiles(std::string root = {}) : m_root(std::move(root)) {}

    [[nodiscard]] std::vector<MemoryRoom> Read() override;

private:
    [[nodiscard]] std::string ReadText(const std::string& path) const;
    /// Nothing for a group without a limit.
    [[nodiscard]] std::optional<MemoryRoom> RoomOf(ControlGroup::Version version, const std::string& folder) const;

    std::string m_root;
};

} // namespace tessa
