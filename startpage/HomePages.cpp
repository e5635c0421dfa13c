#include "startpage/HomePages.h"

#include "base/OwnAddresses.h"

HomePages::Shown HomePages::Refresh(const TabStrip& pcPage, ViewArray& Browser) {
    Shown shown = Shown::Now;
    for (std::size_t position = 1; position <= pcPage.Count(); ++position) {
        const auto* view = Browser.Find(pcPage.FindAt(position)->Tag);
        if (!view || view->Control->LocationURL() != OwnAddresses::kStart) continue;
        auto* life = view->Control->Life();
        if (!life || life->Asleep()) continue;
        const PageActivity activity = life->Activity();
        if (activity.HoldsInput) continue;
        // What it has read of the folders may be older than the change.
        if (activity.Loading)
            shown = Shown::Later;
        else
            ResumeNext(view->Control->Refresh());
    }
    return shown;
}
