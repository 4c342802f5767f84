// Record type numbers of the proxy-graphics format, shared by its writer and reader.
#pragma once

#include <cstdint>

namespace GiProxy {
enum Type : std::uint32_t {
    kExtents = 1,
    kCircle = 2,
    kCircle3P = 3,
    kCircularArc = 4,
    kCircularArc3P = 5,
    kPolyline = 6,
    kPolygon = 7,
    kText = 10,
    kText2 = 11,
    kXline = 12,
    kRay = 13,
    kColor = 14,
    kLayer = 16,
    kLinetype = 18,
    kMarker = 19,
    kFill = 20,
    kTrueColor = 22,
    kLineweight = 23,
    kLinetypeScale = 24,
    kThickness = 25,
    kPushMatrix = 29,
    kPushMatrix2 = 30,
    kPopMatrix = 31,
    kPolylineWithNormal = 32,
    kUnicodeText = 36,
    kUnicodeText2 = 38,
};
}  // namespace GiProxy
