// Clock and time types of the Win32 API: tick counts, Sleep, FILETIME.
#pragma once

#include <cstdint>
#include <ctime>

#include "host/win/WinTypes.h"

// 100-nanosecond intervals since 1601-01-01 UTC, split in two halves.
struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
using LPFILETIME = FILETIME*;

// Milliseconds since an arbitrary start (monotonic); wraps after 49.7 days.
DWORD GetTickCount();
std::uint64_t GetTickCount64();
// Suspends the calling thread for the given milliseconds.
void Sleep(DWORD dwMilliseconds);

namespace svwin {
FILETIME FileTimeFromUnix(std::time_t seconds, long nanoseconds = 0);
// Whole seconds since 1970 (rounded down).
std::time_t UnixFromFileTime(const FILETIME& ft);
} // namespace svwin
