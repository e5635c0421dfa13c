#pragma once
#include "sessions/Session.h"

namespace tessa {

/// Offers to reopen the pages of a session that ended badly. The user answers later, or never. Owned by the program's
/// entry.
class SessionOffer {
public:
    virtual ~SessionOffer() = default;

    /// Takes the place of an offer that is shown.
    virtual void Offer(TextView id, const Session& session) = 0;
    /// There is nothing left to reopen.
    virtual void Withdraw() = 0;
};

} // namespace tessa
