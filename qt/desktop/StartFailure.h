#pragma once
#include <QtGlobal>

namespace tessa::qt {

/// While it lives, a start that Qt gives up does not crash. It ends the process with a clear message and the exit code
/// 1. Qt does so when the display does not answer, or cannot show windows.
class StartFailure {
public:
    StartFailure();
    ~StartFailure();
    StartFailure(const StartFailure&) = delete;
    StartFailure& operator=(const StartFailure&) = delete;
};

} // namespace tessa::qt
