#include "base/ini/IniFile.h"

#include <cstdint>
#include <cstdlib>

namespace tessa {

// Any bytes are a file: reading, writing and removing must neither crash nor lose what was just written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    IniFile file(std::string_view(reinterpret_cast<const char*>(data), size));
    (void)file.KeyList("s", "d", 64);
    (void)file.SectionList(64);
    file.SetValue("s", "k", "v");
    if (IniFile(file.Bytes()).Value("s", "k", "", 10) != "v") std::abort();
    file.RemoveKey("s", "k");
    file.RemoveSection("s");
    return 0;
}

} // namespace tessa
