#pragma once
#include "base/ResumeNext.h"
#include "base/Text.h"

#include <functional>
#include <string>
#include <vector>

namespace tessa {

/// A session that has ended, as it was last written. `Id` names it among the others.
struct KeptSession {
    Text Id;
    std::string Bytes;
};

/// Where the sessions of this user are kept: the one that runs, and the last ten that have ended. Owned by the
/// program's entry.
class SessionFiles {
public:
    /// Tells how a write went, once, at once or later, but not after the event loop has ended.
    using Written = std::function<void(Outcome)>;

    virtual ~SessionFiles() = default;
    /// Replaces what is kept of the session that runs; no bytes remove it. Written whole or not at all, in the order of
    /// the calls, soon after this returns, before the program ends.
    virtual void WriteOwn(const std::string& bytes, Written done) = 0;
    /// The sessions that have ended, newest first. One that another instance is running is not among them.
    [[nodiscard]] virtual std::vector<KeptSession> Earlier() = 0;
    /// Replaces a session that has ended; no bytes remove it.
    virtual void Rewrite(TextView Id, const std::string& bytes, Written done) = 0;
};

} // namespace tessa
