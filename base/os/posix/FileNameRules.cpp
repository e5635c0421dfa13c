#include "base/os/FileNameRules.h"

#include <algorithm>

namespace tessa {

Text FitForDisk(Text name) {
    std::ranges::replace(name, u'/', u'-');
    return name;
}

} // namespace tessa
