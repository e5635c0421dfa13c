#include "qt/QtNullGuard.h"

#include <csetjmp>
#include <csignal>
#include <cstdint>

namespace {

/// What a pointer that is null still reaches: the members of an object.
constexpr std::uintptr_t kNearNull = 4096;

thread_local sigjmp_buf* t_wayBack = nullptr;
struct sigaction g_faultsBefore {};

void OnFault(int, siginfo_t* info, void*) {
    const auto address = reinterpret_cast<std::uintptr_t>(info->si_addr);
    if (t_wayBack && address < kNearNull) siglongjmp(*t_wayBack, 1);
    // Somebody else's fault, which comes again at once and is treated as ever.
    ::sigaction(SIGSEGV, &g_faultsBefore, nullptr);
}

} // namespace

bool QtNullGuard::Survives(void (*act)(void* context), void* context) {
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
