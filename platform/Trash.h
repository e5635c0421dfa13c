#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"

namespace tessa {

/// The desktop's place for what the user has thrown away. Owned by the program's entry.
class Trash {
public:
    virtual ~Trash() = default;
    /// Moves a file or a folder there. Fails, and leaves it, where the desktop has no such place for it.
    virtual Outcome Take(TextView path) = 0;
    /// Brings back what this object has taken from that path last. Fails, and leaves it in the trash, when something
    /// else lies at that path now or its folder is gone.
    virtual Outcome Restore(TextView path) = 0;
};

} // namespace tessa
