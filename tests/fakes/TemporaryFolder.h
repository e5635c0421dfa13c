#pragma once
#include "base/Text.h"
#ifdef _WIN32
#include "base/os/windows/WidePath.h"
#endif

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace tessa {

/// A folder of the test's own, gone with it.
class TemporaryFolder {
public:
    TemporaryFolder()
        : m_path(std::filesystem::temp_directory_path() /
                 ("tessaview-test-" + std::to_string(std::random_device{}()))) {
        std::filesystem::create_directories(m_path);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string Path(const std::string& name) const { return NameOnDisk(OnDisk(name)); }
    [[nodiscard]] Text PathText(const std::string& name) const { return FromBytes(Path(name)); }
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(OnDisk(name), std::ios::binary) << bytes;
        return Path(name);
    }
    [[nodiscard]] std::string Read(const std::string& name) const {
        std::ifstream file(OnDisk(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] std::size_t Files() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

private:
#ifdef _WIN32
    // Names are wide, and a path that is made of bytes takes them for another text.
    [[nodiscard]] std::filesystem::path OnDisk(const std::string& name) const { return m_path / Wide(name); }
    static std::string NameOnDisk(const std::filesystem::path& path) { return BytesOfWide(path.wstring()); }
#else
    [[nodiscard]] std::filesystem::path OnDisk(const std::string& name) const { return m_path / name; }
    static std::string NameOnDisk(const std::filesystem::path& path) { return path.string(); }
#endif

    std::filesystem::path m_path;
};

} // namespace tessa
