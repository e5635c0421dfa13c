#pragma once
#include "base/ResumeNext.h"
#include "base/Signal.h"
#include "base/Text.h"

namespace tessa {

/// What is done about a file that cannot be written. Each failure is counted and tried again. The user is told once
/// until a write succeeds. A member of whoever writes the file.
class WriteTrouble {
public:
    /// What the user is told.
    explicit WriteTrouble(TextView complaint) : m_complaint(complaint) {}

    /// How a write went.
    void Note(Outcome written, const std::source_location& where = std::source_location::current());
    /// Whether what was to be written last is not on disk.
    [[nodiscard]] bool Pending() const { return m_pending; }

    /// The user is to be told.
    Signal<void(TextView)> Say;
    /// The write is to be tried again in a while; else the next change does that.
    Signal<void()> TryAgain;

private:
    Text m_complaint;
    bool m_pending = false;
};

} // namespace tessa
