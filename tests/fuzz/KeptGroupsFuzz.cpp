#include "tabs/KeptGroups.h"

#include <cstdint>
#include <cstdlib>
#include <set>
#include <string_view>

namespace tessa {

namespace {

// Any text may stand where groups and pins should: each page that is read is there and in one place, and all of it
// comes back from its own text.
void CheckGroups(TextView text) {
    constexpr std::size_t kPages = 7;
    const KeptGroups kept = KeptGroupsIn(text, kPages);
    if (KeptGroupsIn(KeptGroupsText(kept), kPages) != kept) std::abort();
    std::set<std::int32_t> seen;
    const auto see = [&seen](std::int32_t number) {
        if (number < 1 || number > static_cast<std::int32_t>(kPages) || !seen.insert(number).second) std::abort();
    };
    for (const std::int32_t each : kept.Pins) see(each);
    for (const KeptGroup& group : kept.Groups) {
        if (group.Members.empty() || group.Path.empty()) std::abort();
        for (const KeptMember& each : group.Members) see(each.Number);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckGroups(FromBytes(bytes));
    CheckGroups(u"[Group]\nFile=a\nTabs=\"1\", " + FromBytes(bytes));
    return 0;
}

} // namespace tessa
