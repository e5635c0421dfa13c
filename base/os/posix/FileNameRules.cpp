#include "base/os/FileNameRules.h"

#include <algorithm>

Text FitForDisk(Text name) {
    std::ranges::replace(name, u'/', u'-');
    return name;
}
