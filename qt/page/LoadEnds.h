#pragma once
#include "pages/LoadWords.h"

class QWebEngineLoadingInfo;

namespace tessa::qt {

/// How a load has ended, by what the engine tells of it.
[[nodiscard]] LoadEnd LoadEndOf(const QWebEngineLoadingInfo& info);

} // namespace tessa::qt
