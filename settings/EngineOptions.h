#pragma once
#include "settings/BrowsingData.h"

namespace tessa {

/// Puts what is stored in the settings into effect for the engine. Owned by the program's entry.
class EngineOptions {
public:
    virtual ~EngineOptions() = default;

    /// What pages may load.
    virtual void ApplyLoadOptions() = 0;
    /// The Internet Options.
    virtual void ApplyInternetOptions() = 0;
    /// Has the engine forget what it keeps of where pages have been. `done` is told when it has, which may be never.
    virtual void Clear(const BrowsingData& data, Forgotten done) = 0;
};

} // namespace tessa
