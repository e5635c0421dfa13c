#pragma once
#include <QtGlobal>

/// While it lives, a start that Qt gives up, because the display does not answer or windows cannot be shown on it,
/// ends the process with a message a person understands and the exit code 1, in place of a crash.
class QtStartFailure {
public:
    QtStartFailure();
    ~QtStartFailure();
    QtStartFailure(const QtStartFailure&) = delete;
    QtStartFailure& operator=(const QtStartFailure&) = delete;
};
