#pragma once
#include <QtGlobal>

namespace tessa::qt {

/// While it lives, a start that Qt gives up ends the process with a clear message and the exit code 1, in place of a
/// crash. Qt does so when the display does not answer, or cannot show windows.
class QtStartFailure {
public:
    QtStartFailure();
    ~QtStartFailure();
    QtStartFailure(const QtStartFailure&) = delete;
    QtStartFailure& operator=(const QtStartFailure&) = delete;
};

} // namespace tessa::qt
