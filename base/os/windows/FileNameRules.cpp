#include "base/os/FileNameRules.h"

#include <algorithm>

namespace tessa {

namespace {
constexpr TextView kRefusedInNames = u"/\\:*?\"<>|";
} // namespace

Text FitForDisk(Text name) {
    std::ranges::replace_if(
        name, [](char16_t unit) { return kRefusedInNames.find(unit) != TextView::npos; }, u'-');
    // The system drops these from the end, and another name than that which was asked for comes out.
    name.resize(name.find_last_not_of(u". ") + 1);
    return name.empty() || NamesDevice(name) ? u"_" + name : name;
}

} // namespace tessa
