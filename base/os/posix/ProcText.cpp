#include "base/os/ProcText.h"

#include <fstream>
#include <iterator>

namespace tessa {

// Such files say that they are empty: only reading tells how much they hold.
std::string ProcText::ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace tessa
