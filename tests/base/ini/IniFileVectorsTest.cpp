#include "base/ini/IniFile.h"
#include "base/os/AtomicFile.h"
#include "base/os/ProcessUse.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace tessa {

// Recorded answers of the profile functions, tests/data/profile-vectors.txt, one call a line: bytes in hexadecimal,
// "-" for none at all and "." for no bytes.

namespace {

std::optional<std::string> Bytes(const std::string& field) {
    if (field == "-") return std::nullopt;
    std::string bytes;
    for (std::size_t at = 0; field != "." && at + 1 < field.size(); at += 2) {
        bytes.push_back(static_cast<char>(std::stoi(field.substr(at, 2), nullptr, 16)));
    }
    return bytes;
}

std::string Hex(std::string_view bytes) {
    std::ostringstream hex;
    for (const char byte : bytes) {
        char two[3];
        std::snprintf(two, sizeof two, "%02x", static_cast<unsigned char>(byte));
        hex << two;
    }
    return hex.str();
}

std::optional<std::string_view> View(const std::optional<std::string>& text) {
    return text ? std::optional<std::string_view>(*text) : std::nullopt;
}

void Get(const std::string& path, std::istringstream& line) {
    std::string section, key, whenMissing, result;
    std::size_t size = 0, count = 0;
    line >> section >> key >> whenMissing >> size >> count >> result;
    const auto s = Bytes(section), k = Bytes(key), d = Bytes(whenMissing);
    const std::string got = GetPrivateProfileString(path, View(s), View(k), View(d), size);
    EXPECT_EQ(got.size(), count);
    EXPECT_EQ(Hex(got), Hex(*Bytes(result)));
}

void Write(const std::string& path, std::istringstream& line) {
    std::string section, key, value;
    int ok = 0;
    line >> section >> key >> value >> ok;
    const auto s = Bytes(section), k = Bytes(key), v = Bytes(value);
    EXPECT_EQ(WritePrivateProfileString(path, View(s), View(k), View(v)), ok != 0);
}

TEST(IniFileVectors, AnswersAsRecorded) {
    const std::string path =
        (std::filesystem::temp_directory_path() / ("vectors-" + std::to_string(ThisProcess()))).string();
    std::ifstream recorded(TEST_DATA "/profile-vectors.txt");
    int cases = 0;
    std::string text, name;
    while (std::getline(recorded, text)) {
        std::istringstream line(text);
        std::string word, field;
        line >> word;
        SCOPED_TRACE(name + ": " + text.substr(0, 200));
        if (word == "case") {
            line >> name;
            ++cases;
        } else if (word == "file" || word == "final") {
            line >> field;
            const auto bytes = Bytes(field);
            if (word == "final") {
                EXPECT_EQ(ReadWholeFile(path).has_value(), bytes.has_value());
                EXPECT_EQ(Hex(ReadWholeFile(path).value_or("")), Hex(bytes.value_or("")));
            }
            std::remove(path.c_str());
            if (word == "file" && bytes) std::ofstream(path, std::ios::binary) << *bytes;
        } else if (word == "get") {
            Get(path, line);
        } else if (word == "write") {
            Write(path, line);
        }
    }
    EXPECT_EQ(cases, 229);
}

} // namespace

} // namespace tessa
