#pragma once
#include "common/ResumeNext.h"
#include "common/Text.h"

#include <string>
#include <vector>

/// A session that has ended, as it was last written. `Id` names it among the others.
struct KeptSession {
    Text Id;
    std::string Bytes;
};

/// Where the sessions of this user are kept: the one that runs, and the last ten that have ended, however they did.
/// Owned by the program's entry.
class SessionFiles {
public:
    virtual ~SessionFiles() = default;
    /// Replaces what is kept of the session that runs; no bytes remove it. Written whole or not at all, soon after this
    /// returns and before the program ends; a failure to begin is reported.
    virtual Outcome WriteOwn(const std::string& bytes) = 0;
    /// The sessions that have ended, newest first. One that another instance is running is not among them.
    [[nodiscard]] virtual std::vector<KeptSession> Earlier() = 0;
    /// Replaces a session that has ended; no bytes remove it.
    virtual Outcome Rewrite(TextView Id, const std::string& bytes) = 0;
};
