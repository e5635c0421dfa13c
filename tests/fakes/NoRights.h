#pragma once
#include "tests/fakes/System.h"

#ifndef _WIN32
#include <unistd.h>
#endif

namespace tessa {

#ifdef _WIN32

// Who may do everything there cannot become somebody else for a while; a test that asks for this is left out.
class NoRights {
public:
    NoRights() {} // NOLINT: not trivial, so that nobody is told that it is unused
};

#else

/// While this object lives, files that nobody may read cannot be read, also when the tests run as root.
class NoRights {
public:
    NoRights() {
        if (m_before == 0) m_changed = ::seteuid(kNobody) == 0;
    }
    ~NoRights() {
        if (m_changed) (void)!::seteuid(m_before);
    }
    NoRights(const NoRights&) = delete;
    NoRights& operator=(const NoRights&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    uid_t m_before = ::geteuid();
    bool m_changed = false;
};

#endif

} // namespace tessa
