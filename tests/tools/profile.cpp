// Runs profile function calls from a script and prints what each answered, to be held against recorded answers.
//   profile SCRIPT
// A line is `get FILE SECTION KEY DEFAULT SIZE` or `write FILE SECTION KEY VALUE`; fields are separated by one blank,
// FILE is a plain path, the others are the hexadecimal of their bytes, "-" for none at all, "." for the empty string.
// A get prints the count of bytes that came back and their hexadecimal ("." for none), a write 1 or 0.

#include "base/ini/IniFile.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

namespace {

using Field = std::optional<std::string>;

int HexDigit(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
}

Field Decoded(const std::string& text) {
    if (text == "-") return std::nullopt;
    std::string bytes;
    for (std::size_t at = 0; text != "." && at + 1 < text.size(); at += 2) {
        bytes.push_back(static_cast<char>(HexDigit(text[at]) * 16 + HexDigit(text[at + 1])));
    }
    return bytes;
}

std::optional<std::string_view> View(const Field& field) {
    return field ? std::optional<std::string_view>(*field) : std::nullopt;
}

void PrintBytes(const std::string& bytes) {
    std::printf("%zu ", bytes.size());
    for (const char byte : bytes) std::printf("%02x", static_cast<unsigned char>(byte));
    std::puts(bytes.empty() ? "." : "");
}

bool Run(const std::vector<std::string>& fields) {
    if (fields.size() == 6 && fields[0] == "get") {
        const Field section = Decoded(fields[2]), key = Decoded(fields[3]), whenMissing = Decoded(fields[4]);
        PrintBytes(GetPrivateProfileString(fields[1], View(section), View(key), View(whenMissing),
                                           std::strtoul(fields[5].c_str(), nullptr, 10)));
        return true;
    }
    if (fields.size() == 5 && fields[0] == "write") {
        const Field section = Decoded(fields[2]), key = Decoded(fields[3]), value = Decoded(fields[4]);
        std::puts(WritePrivateProfileString(fields[1], View(section), View(key), View(value)) ? "1" : "0");
        return true;
    }
    return fields.empty();
}

} // namespace

int main(int argc, char** argv) {
    std::ifstream script(argc == 2 ? argv[1] : "");
    if (!script) {
        std::fputs("usage: profile SCRIPT\n", stderr);
        return 2;
    }
    std::string text;
    for (int number = 1; std::getline(script, text); ++number) {
        std::istringstream line(text);
        std::vector<std::string> fields;
        for (std::string field; std::getline(line, field, ' ');) fields.push_back(field);
        if (Run(fields)) continue;
        std::fprintf(stderr, "line %d: not a call\n", number);
        return 1;
    }
    return 0;
}
