#pragma once
#include "platform/BrowserView.h"
#include "qt/engine/QtViewServices.h"

namespace tessa::qt {

/// One view, as its parts know it. All of it outlives them.
struct QtViewContext {
    std::int16_t index;
    BrowserViewEvents& events;
    const QtViewServices& services;
    Privacy privacy;
};

} // namespace tessa::qt
