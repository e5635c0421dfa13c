#include "qt/base/NullGuard.h"

#include <csetjmp>
#include <csignal>
#include <cstdint>

namespace tessa::qt {

namespace {

/// What a pointer that is null still reaches: the members of an object.
constexpr std::uintptr_t kNearNull = 4096;

thread_local sigjmp_buf* t_wayBack = nullptr;
struct sigaction g_faultsBefore {};

// A signal that was sent, and the fault of an address that no address can be, have no address.
bool HasAddress(const siginfo_t& info) { return info.si_code == SEGV_MAPERR || info.si_code == SEGV_ACCERR; }

// Whoever saw faults before sees this one; without anybody, it ends the program.
void PassOn(int signal, siginfo_t* info, void* context) {
    const struct sigaction before = g_faultsBefore;
    if (before.sa_flags & SA_SIGINFO) return before.sa_sigaction(signal, info, context);
    if (before.sa_handler != SIG_DFL && before.sa_handler != SIG_IGN) return before.sa_handler(signal);
    ::sigaction(SIGSEGV, &before, nullptr);
    // A fault comes again at once; what was sent would not.
    if (info->si_code <= 0) std::raise(signal);
}

void OnFault(int signal, siginfo_t* info, void* context) {
    const bool nearNull = HasAddress(*info) && reinterpret_cast<std::uintptr_t>(info->si_addr) < kNearNull;
    if (t_wayBack && nearNull) siglongjmp(*t_wayBack, 1);
    PassOn(signal, info, context);
}

} // namespace

bool NullGuard::Survives(void (*act)(void* context), void* context) {
    struct sigaction ours {};
    ours.sa_sigaction = OnFault;
    ours.sa_flags = SA_SIGINFO;
    if (::sigaction(SIGSEGV, &ours, &g_faultsBefore) != 0) return false;
    sigjmp_buf wayBack;
    t_wayBack = &wayBack;
    volatile bool survived = false;
    if (sigsetjmp(wayBack, 1) == 0) {
        act(context);
        survived = true;
    }
    t_wayBack = nullptr;
    ::sigaction(SIGSEGV, &g_faultsBefore, nullptr);
    return survived;
}

} // namespace tessa::qt
