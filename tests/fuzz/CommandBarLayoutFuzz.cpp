#include "tests/bar/LayoutCheck.h"

#include <cstdint>
#include <cstdlib>

namespace tessa {

// Any bytes are a layout file: the bar stays whole, and what it is saved as comes back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!WrongAfterLoading(std::string_view(reinterpret_cast<const char*>(data), size)).empty()) std::abort();
    return 0;
}

} // namespace tessa
