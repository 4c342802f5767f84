// Internal helpers of the geometry library's implementation; not part of its interface.
#pragma once

#include <cmath>

namespace acge_detail {

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kTwoPi = 2.0 * kPi;

// The angle brought into [0, 2pi).
inline double normalizeAngle(double a)
{
    double r = std::fmod(a, kTwoPi);
    if (r < 0.0)
        r += kTwoPi;
    if (r >= kTwoPi)
        r = 0.0;
    return r;
}

} // namespace acge_detail
