// Preloaded into a program: the time of day is what a file says, so that a test moves the clock
// while the program runs.
//   KV_CLOCK=FILE   holds the seconds since 1970, as decimal digits
// Files keep the times that the system gives them.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <optional>

namespace {

// By calls of the system alone: the functions of that name are those in which faults are injected.
std::optional<std::time_t> Shown() {
    const char* const file = std::getenv("KV_CLOCK");
    if (file == nullptr) return std::nullopt;
    std::array<char, 32> digits{};
    const long clock = ::syscall(SYS_openat, AT_FDCWD, file, O_RDONLY | O_CLOEXEC, 0);
    const long size = ::syscall(SYS_read, clock, digits.data(), digits.size() - 1);
    (void)::syscall(SYS_close, clock);
    if (size <= 0) std::abort();
    return std::strtoll(digits.data(), nullptr, 10);
}

}  // namespace

extern "C" {

std::time_t time(std::time_t* place) noexcept {
    timeval now{};
    (void)gettimeofday(&now, nullptr);
    if (place != nullptr) *place = now.tv_sec;
    return now.tv_sec;
}

int gettimeofday(timeval* now, void* zone) noexcept {
    if (const auto shown = Shown()) {
        *now = {*shown, 0};
        return 0;
    }
    return static_cast<int>(::syscall(SYS_gettimeofday, now, zone));
}

int clock_gettime(clockid_t clock, timespec* now) noexcept {
    if (const auto shown = clock == CLOCK_REALTIME ? Shown() : std::nullopt) {
        *now = {*shown, 0};
        return 0;
    }
    return static_cast<int>(::syscall(SYS_clock_gettime, clock, now));
}

}  // extern "C"
