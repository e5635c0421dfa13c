#pragma once
#include "groups/GroupHealth.h"

#include <functional>
#include <list>
#include <vector>

namespace tessa {
class AcceptedCertificates;
} // namespace tessa

namespace tessa::qt {

/// Checks of groups that nobody looks at.
class GroupChecks {
public:
    /// Checks the group of that file, and tells how it stands with its addresses.
    void Check(const Text& file, std::function<void(const std::vector<HealthLine>&)> checked);

private:
    struct Running;
    using Places = std::list<Running>;

    const AcceptedCertificates& m_accepted;
    Places m_running;

public:
    /// `accepted` are the certificates that count although nobody vouches for them; they outlive it.
    explicit GroupChecks(const AcceptedCertificates& accepted);
    ~GroupChecks();
};

} // namespace tessa::qt
