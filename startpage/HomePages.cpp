#include "startpage/HomePages.h"

#include "base/OwnAddresses.h"
#include "tabs/OpenTabs.h"

namespace tessa {

HomePages::Shown HomePages::Refresh(const TabStrip& pcPage, ViewArray& Browser) {
    Shown shown = Shown::Now;
    for (const OpenTab open : OpenTabs(pcPage, Browser)) {
        if (open.Address() != OwnAddresses::kStart) continue;
        const auto* life = open.Life();
        if (!life || life->Asleep()) continue;
        const PageActivity activity = life->Activity();
        if (activity.HoldsInput) continue;
        // What it has read of the folders may be older than the change.
        if (activity.Loading)
            shown = Shown::Later;
        else
            ResumeNext(open.View->Control->Refresh());
    }
    return shown;
}

} // namespace tessa
