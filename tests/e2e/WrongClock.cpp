// Preloaded into a program, tells it another time: as many seconds later, or earlier, as the file says that the
// variable WRONG_CLOCK names, eight bytes of a number. The file may change meanwhile, as a clock is set. How much time
// has passed is told as it is, as it would be by a clock that is set.
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

const volatile std::int64_t* g_seconds = nullptr;

__attribute__((constructor)) void FindFile() {
    const char* name = std::getenv("WRONG_CLOCK");
    const int file = name ? ::open(name, O_RDONLY | O_CLOEXEC) : -1;
    if (file < 0) std::abort();
    void* bytes = ::mmap(nullptr, sizeof(std::int64_t), PROT_READ, MAP_SHARED, file, 0);
    ::close(file);
    if (bytes == MAP_FAILED) std::abort();
    g_seconds = static_cast<const std::int64_t*>(bytes);
}

bool IsTimeOfDay(clockid_t clock) { return clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE; }

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept {
    const auto result = static_cast<int>(::syscall(SYS_clock_gettime, clock, time));
    if (result == 0 && g_seconds && IsTimeOfDay(clock)) time->tv_sec += *g_seconds;
    return result;
}

int gettimeofday(timeval* time, void*) noexcept {
    timespec now{};
    const int result = clock_gettime(CLOCK_REALTIME, &now);
    constexpr long kNanosecondsInMicrosecond = 1000;
    *time = {now.tv_sec, now.tv_nsec / kNanosecondsInMicrosecond};
    return result;
}

std::time_t time(std::time_t* time) noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (time) *time = now.tv_sec;
    return now.tv_sec;
}
}
