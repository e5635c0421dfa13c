#pragma once
#include "base/Text.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

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

    [[nodiscard]] std::string Path(const std::string& name) const { return (m_path / name).generic_string(); }
    [[nodiscard]] Text PathText(const std::string& name) const { return FromBytes(Path(name)); }
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(m_path / name, std::ios::binary) << bytes;
        return Path(name);
    }
    [[nodiscard]] std::string Read(const std::string& name) const {
        std::ifstream file(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] std::size_t Files() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(m_path), {}));
    }

private:
    std::filesystem::path m_path;
};
