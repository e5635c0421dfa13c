#include "sessions/Session.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace tessa {

namespace {

// Any bytes may lie where a session should: what is read of them is sound, and comes back from its own bytes.
void Check(std::string_view bytes) {
    const auto read = SessionFromBytes(bytes);
    if (!read) return;
    if (read->Selected > read->Pages.size() || read->Time < 0 || read->Pages.size() > bytes.size()) std::abort();
    // Control characters become blanks when they are written for the first time.
    const auto again = SessionFromBytes(SessionBytes(*read));
    if (!again || again->Pages.size() != read->Pages.size()) std::abort();
    if (SessionFromBytes(SessionBytes(*again)) != again) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    Check(bytes);
    // Nobody guesses the first line by chance.
    Check("TessaView session 1\n" + bytes);
    Check("[Session]\n" + bytes);
    return 0;
}

} // namespace tessa
