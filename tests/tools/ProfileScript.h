#pragma once
// Runs profile function calls from a script and prints what each answered, to be held against other answers.
// A line is `get FILE SECTION KEY DEFAULT SIZE` or `write FILE SECTION KEY VALUE`; fields are separated by one blank,
// FILE is a plain path, the others are the hexadecimal of their bytes, "-" for none at all, "." for the empty string.
// A get prints the count of bytes that came back and their hexadecimal ("." for none), a write 1 or 0.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace tessa {

namespace ProfileScript {

using Field = std::optional<std::string>;

/// Who answers the calls.
struct Functions {
    std::function<std::string(const std::string& file, const Field& section, const Field& key, const Field& whenMissing,
                              std::size_t size)>
        get;
    std::function<bool(const std::string& file, const Field& section, const Field& key, const Field& value)> write;
};

inline int HexDigit(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    return digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
}

inline Field Decoded(const std::string& text) {
    if (text == "-") return std::nullopt;
    std::string bytes;
    for (std::size_t at = 0; text != "." && at + 1 < text.size(); at += 2) {
        bytes.push_back(static_cast<char>(HexDigit(text[at]) * 16 + HexDigit(text[at + 1])));
    }
    return bytes;
}

inline void PrintBytes(const std::string& bytes) {
    std::printf("%s ", std::to_string(bytes.size()).c_str());
    for (const char byte : bytes) std::printf("%02x", static_cast<unsigned char>(byte));
    std::puts(bytes.empty() ? "." : "");
}

inline bool Run(const std::vector<std::string>& fields, const Functions& functions) {
    if (fields.size() == 6 && fields[0] == "get") {
        PrintBytes(functions.get(fields[1], Decoded(fields[2]), Decoded(fields[3]), Decoded(fields[4]),
                                 std::strtoul(fields[5].c_str(), nullptr, 10)));
        return true;
    }
    if (fields.size() == 5 && fields[0] == "write") {
        std::puts(functions.write(fields[1], Decoded(fields[2]), Decoded(fields[3]), Decoded(fields[4])) ? "1" : "0");
        return true;
    }
    return fields.empty();
}

/// Runs a script; gives what the program ends with.
inline int RunAll(const char* path, const Functions& functions) {
    std::ifstream script(path);
    if (!script) {
        std::fputs("There is no such script.\n", stderr);
        return 2;
    }
    std::string text;
    for (int number = 1; std::getline(script, text); ++number) {
        std::istringstream line(text);
        std::vector<std::string> fields;
        for (std::string field; std::getline(line, field, ' ');) fields.push_back(field);
        if (Run(fields, functions)) continue;
        std::fprintf(stderr, "line %d: not a call\n", number);
        return 1;
    }
    return 0;
}

} // namespace ProfileScript

} // namespace tessa
