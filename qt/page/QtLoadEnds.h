#pragma once
#include "pages/LoadWords.h"

class QWebEngineLoadingInfo;

/// How a load has ended, by what the engine tells of it.
[[nodiscard]] LoadEnd LoadEndOf(const QWebEngineLoadingInfo& info);
