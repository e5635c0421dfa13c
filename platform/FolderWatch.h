#pragma once
#include "base/Signal.h"
#include "base/Text.h"

namespace tessa {

/// Tells when something in a folder comes, goes or gets another name. Owned by the program's entry.
class FolderWatch {
public:
    virtual ~FolderWatch() = default;
    /// Watches a folder, which may come into being later, until `Unwatch`. Once is enough.
    virtual void Watch(TextView folder) = 0;
    /// Does nothing for a folder that is not watched.
    virtual void Unwatch(TextView folder) = 0;

    /// Something in a folder has changed; it is named as it was given.
    Signal<void(TextView folder)> Changed;
};

} // namespace tessa
