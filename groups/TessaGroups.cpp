#include "groups/TessaGroups.h"

#include "common/AtomicFile.h"
#include "common/IniFile.h"

namespace {

constexpr std::string_view kSection = "TessaGroup";
constexpr std::size_t kValueSize = 512;
constexpr std::size_t kKeyListSize = 16384;

} // namespace

namespace TessaGroups {

Text ReadIniValue(TextView path, TextView section, TextView key, TextView whenMissing) {
    return FromBytes(
        GetPrivateProfileString(ToUtf8(path), ToUtf8(section), ToUtf8(key), ToUtf8(whenMissing), kValueSize));
}

CStrings Load(TextView path) {
    CStrings addresses;
    const IniFile file(ReadWholeFile(ToUtf8(path)).value_or(std::string()));
    const std::string keys = file.KeyList(kSection, "", kKeyListSize);
    // A name that was cut off has no NUL behind it and is dropped.
    std::size_t begin = 0;
    for (std::size_t end = keys.find('\0'); end != std::string::npos; end = keys.find('\0', begin)) {
        addresses.Add(FromBytes(file.Value(kSection, keys.substr(begin, end - begin), "", kValueSize)));
        begin = end + 1;
    }
    return addresses;
}

} // namespace TessaGroups
