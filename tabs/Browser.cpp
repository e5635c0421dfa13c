#include "tabs/Browser.h"

namespace tessa {

namespace Browser {

void SetZoom(BrowserView& view, int level) {
    if (auto* document = view.Document()) ResumeNext(document->Zoom(level));
}

void ViewSource(TabSet& tabs, BrowserView& view) {
    if (!view.Document()) return;
    const Text address = u"view-source:" + view.LocationURL();
    if (auto* shown = tabs.GetNewBrowser(InFront::Yes, tabs.CurrentPrivacy())) ResumeNext(shown->Navigate(address));
}

} // namespace Browser

} // namespace tessa
