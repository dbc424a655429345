#include "platform/own_process.h"

#include <windows.h>

#include <cstdint>

namespace vk {

namespace {

// In units of 100 ns.
std::int64_t Number(const FILETIME& time) {
    return static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

} // namespace

long OwnProcessAgeMs() {
    FILETIME started{}, ended{}, kernel{}, user{}, now{};
    if (!::GetProcessTimes(::GetCurrentProcess(), &started, &ended, &kernel, &user)) return 0;
    ::GetSystemTimeAsFileTime(&now);
    return static_cast<long>((Number(now) - Number(started)) / 10000);
}

} // namespace vk
