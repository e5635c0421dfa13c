#pragma once
#include "tabs/TabSet.h"

namespace tessa {

/// What can be done with the document of a view.
namespace Browser {

/// Hands a text size, 0 (smallest) to 4, to the view's document; nothing without a document.
void SetZoom(BrowserView& view, int level);
/// Shows the source of the view's document in a new tab in front; nothing without a document.
void ViewSource(TabSet& tabs, BrowserView& view);

} // namespace Browser

} // namespace tessa
