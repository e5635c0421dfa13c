#pragma once
#include "tests/fakes/System.h"

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#endif

namespace tessa {

#ifdef _WIN32

// No limit for files can be set there; a test that asks for this is left out.
class FullDisk {
public:
    explicit FullDisk(std::size_t = 0) {} // NOLINT: not trivial, so that nobody is told that it is unused
};

#else

/// A disk that has no room while this object lives: no file can be made longer than a few bytes, or than `room`.
class FullDisk {
public:
    explicit FullDisk(std::size_t room = 4) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit none{room, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    void (*m_handler)(int);
    rlimit m_before{};
};

#endif

} // namespace tessa
