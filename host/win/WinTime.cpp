// Tick counts from the monotonic clock, and FILETIME conversions.
#include "host/win/WinTime.h"

#include <chrono>
#include <thread>

namespace {
// 1601-01-01 to 1970-01-01 in 100 ns units.
constexpr std::int64_t kEpochDelta = 116444736000000000LL;
}

std::uint64_t GetTickCount64()
{
    using namespace std::chrono;
    return static_cast<std::uint64_t>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

DWORD GetTickCount()
{
    return static_cast<DWORD>(GetTickCount64());
}

void Sleep(DWORD dwMilliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(dwMilliseconds));
}

namespace svwin {

FILETIME FileTimeFromUnix(std::time_t seconds, long nanoseconds)
{
    const auto units = static_cast<std::uint64_t>(static_cast<std::int64_t>(seconds) * 10000000LL + nanoseconds / 100 + kEpochDelta);
    return FILETIME{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

std::time_t UnixFromFileTime(const FILETIME& ft)
{
    const auto units = static_cast<std::int64_t>((static_cast<std::uint64_t>(ft.dwHighDateTime) << 32) | ft.dwLowDateTime);
    const std::int64_t delta = units - kEpochDelta;
    // Floor division, so times before 1970 round down too.
    std::int64_t secs = delta / 10000000LL;
    if (delta % 10000000LL < 0) --secs;
    return static_cast<std::time_t>(secs);
}

} // namespace svwin
