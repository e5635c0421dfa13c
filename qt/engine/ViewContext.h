#pragma once
#include "platform/BrowserView.h"
#include "qt/engine/ViewServices.h"

namespace tessa::qt {

/// One view, as its parts know it. All of it outlives them.
struct ViewContext {
    std::int16_t index;
    BrowserViewEvents& events;
    const ViewServices& services;
    Privacy privacy;
};

} // namespace tessa::qt
