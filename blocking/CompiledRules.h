#pragma once
#include "blocking/RuleCompiler.h"
#include "blocking/RuleImage.h"

#include <string>
#include <vector>

namespace tessa {

/// A list to be compiled: a file, or its bytes where there is no path.
struct ListSource {
    std::string Path;
    std::string Bytes;
};

/// What became of the lists.
struct CompiledLists {
    RuleImage Image;
    std::vector<ListReport> Reports; ///< one a list, in their order; none where all came from the cache
    std::vector<bool> Missing;       ///< of each list, whether its file could not be read
    bool FromCache = false;
};

/// The rules of these lists: from the cache file when that was made of the same lists, else made anew and kept there. A
/// cache file that cannot be written costs time at the next start and nothing else. May run in any thread.
[[nodiscard]] CompiledLists CompileLists(const std::vector<ListSource>& lists, const std::string& cacheFile);

} // namespace tessa
