#include "mainwindow/Session.h"

#include <cstdint>
#include <cstdlib>

// Any bytes may lie where a session should: what is read of them is sound, and comes back from its own bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto read = SessionFromBytes({reinterpret_cast<const char*>(data), size});
    if (!read) return 0;
    if (read->Selected > read->Pages.size() || read->Time < 0 || read->Pages.size() > size) std::abort();
    // Control characters become blanks when they are written for the first time.
    const auto again = SessionFromBytes(SessionBytes(*read));
    if (!again || again->Pages.size() != read->Pages.size()) std::abort();
    if (SessionFromBytes(SessionBytes(*again)) != again) std::abort();
    return 0;
}
