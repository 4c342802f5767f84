// Display-list geometry: arc points, boxes and extents of primitives.
#include "host/gi/GiDisplayList.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kTwoPi = 6.283185307179586476925286766559;

// Angle in [0, 2 pi) to which t must be moved forward to reach an angle equal to t mod 2 pi.
double wrapPositive(double a)
{
    a = std::fmod(a, kTwoPi);
    return a < 0 ? a + kTwoPi : a;
}

}  // namespace

bool GiTraits::operator==(const GiTraits& o) const
{
    return color == o.color && layer == o.layer && linetype == o.linetype && fill == o.fill &&
           marker == o.marker && lineWeight == o.lineWeight &&
           linetypeScale == o.linetypeScale && thickness == o.thickness;
}

void GiTextData::corners(AcGePoint3d out[4]) const
{
    // Backwards and upside-down text runs from its start to the other side.
    const AcGeVector3d x = style.isBackward() ? -direction : direction;
    const AcGeVector3d y = style.isUpsideDown() ? -upDirection() : upDirection();
    out[0] = position + x * boxMin.x + y * boxMin.y;
    out[1] = position + x * boxMax.x + y * boxMin.y;
    out[2] = position + x * boxMax.x + y * boxMax.y;
    out[3] = position + x * boxMin.x + y * boxMax.y;
}

Adesk::GsMarker GiPrimitive::markerOf(std::size_t segment) const
{
    if (baseMarker >= 0)
        return baseMarker + static_cast<Adesk::GsMarker>(segment);
    return traits.marker;
}

AcGePoint3d GiPrimitive::arcPoint(double t) const
{
    const AcGeVector3d v = normal.crossProduct(startVector);
    return center + (startVector * std::cos(t) + v * std::sin(t)) * radius;
}

bool GiPrimitive::isFilled() const
{
    if (traits.fill != kAcGiFillAlways)
        return false;
    switch (kind) {
    case GiPrimitiveKind::kPolygon:
    case GiPrimitiveKind::kCircle:
        return true;
    case GiPrimitiveKind::kArc:
        return arcType != kAcGiArcSimple;
    default:
        return false;
    }
}

void GiExtents::add(const AcGePoint3d& p)
{
    min.x = std::min(min.x, p.x);
    min.y = std::min(min.y, p.y);
    min.z = std::min(min.z, p.z);
    max.x = std::max(max.x, p.x);
    max.y = std::max(max.y, p.y);
    max.z = std::max(max.z, p.z);
}

void GiExtents::add(const GiExtents& e)
{
    if (e.isValid()) {
        add(e.min);
        add(e.max);
    }
}

GiExtents giPrimitiveExtents(const GiPrimitive& p)
{
    GiExtents e;
    switch (p.kind) {
    case GiPrimitiveKind::kPolyline:
    case GiPrimitiveKind::kPolygon:
        for (const AcGePoint3d& q : p.points)
            e.add(q);
        break;
    case GiPrimitiveKind::kXline:
    case GiPrimitiveKind::kRay:
        if (!p.points.empty())
            e.add(p.points.front());
        break;
    case GiPrimitiveKind::kCircle:
    case GiPrimitiveKind::kArc: {
        e.add(p.arcStart());
        e.add(p.arcEnd());
        if (p.kind == GiPrimitiveKind::kArc && p.arcType == kAcGiArcSector)
            e.add(p.center);
        // Each coordinate peaks where its derivative along the arc is zero.
        const AcGeVector3d v = p.normal.crossProduct(p.startVector);
        for (int k = 0; k < 3; ++k) {
            const double t0 = std::atan2(v[k], p.startVector[k]);
            for (double t : {t0, t0 + kTwoPi / 2}) {
                const double a = wrapPositive(t);
                if (a <= p.sweep)
                    e.add(p.arcPoint(a));
            }
        }
        break;
    }
    case GiPrimitiveKind::kText:
        if (p.text) {
            AcGePoint3d c[4];
            p.text->corners(c);
            for (const AcGePoint3d& q : c)
                e.add(q);
        }
        break;
    }
    return e;
}

GiExtents GiDisplayList::extents() const
{
    GiExtents e;
    for (const GiPrimitive& p : primitives)
        e.add(giPrimitiveExtents(p));
    return e;
}

bool giArcThroughPoints(const AcGePoint3d& start, const AcGePoint3d& mid, const AcGePoint3d& end,
                        GiPrimitive& arc)
{
    const AcGeVector3d u = mid - start;
    const AcGeVector3d w = end - start;
    const AcGeVector3d n = u.crossProduct(w);
    const double n2 = n.lengthSqrd();
    const double scale = std::max(u.lengthSqrd(), w.lengthSqrd());
    if (scale <= 0.0 || n2 <= 1e-24 * scale * scale)
        return false;
    // Circumcentre of the triangle.
    const AcGeVector3d toCenter =
        (n.crossProduct(u) * w.lengthSqrd() + w.crossProduct(n) * u.lengthSqrd()) / (2.0 * n2);
    arc.center = start + toCenter;
    arc.radius = toCenter.length();
    // start -> mid -> end runs counter-clockwise about n.
    arc.normal = n / std::sqrt(n2);
    arc.startVector = (start - arc.center) / arc.radius;
    const AcGeVector3d e = (end - arc.center) / arc.radius;
    const AcGeVector3d v = arc.normal.crossProduct(arc.startVector);
    double sweep = wrapPositive(std::atan2(e.dotProduct(v), e.dotProduct(arc.startVector)));
    if (sweep == 0.0)
        sweep = kTwoPi;
    arc.sweep = sweep;
    return true;
}
