// Picking: primitives reduced to plan-view segments, arcs and areas, then tested.
#include "host/gi/GiHitTest.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2 * kPi;

using P = AcGePoint2d;

P flat(const AcGePoint3d& p) { return {p.x, p.y}; }

enum class Extent { kSegment, kRay, kLine };

struct Seg {
    P a, b;
    Adesk::GsMarker marker;
    Extent extent = Extent::kSegment;
};

struct Arc {  // counter-clockwise from start by sweep
    P c;
    double r, start, sweep;
    Adesk::GsMarker marker;
};

struct Shape {
    std::vector<Seg> segs;
    std::vector<Arc> arcs;
    std::vector<std::vector<P>> areas;  // filled regions and text boxes
    Adesk::GsMarker areaMarker = 0;
};

double cross(const AcGeVector2d& u, const AcGeVector2d& v) { return u.x * v.y - u.y * v.x; }
double dot(const AcGeVector2d& u, const AcGeVector2d& v) { return u.x * v.x + u.y * v.y; }

double wrap(double a)
{
    a = std::fmod(a, kTwoPi);
    return a < 0 ? a + kTwoPi : a;
}

bool angleOn(const Arc& arc, double angle)
{
    return arc.sweep >= kTwoPi - 1e-12 || wrap(angle - arc.start) <= arc.sweep + 1e-12;
}

P arcPoint(const Arc& arc, double angle) { return {arc.c.x + arc.r * std::cos(angle), arc.c.y + arc.r * std::sin(angle)}; }

// Parameter range of a segment-like piece.
double tMin(Extent e) { return e == Extent::kLine ? -std::numeric_limits<double>::infinity() : 0.0; }
double tMax(Extent e) { return e == Extent::kSegment ? 1.0 : std::numeric_limits<double>::infinity(); }

double distanceToSeg(const P& p, const Seg& s)
{
    const AcGeVector2d d = s.b - s.a;
    const double len2 = dot(d, d);
    if (len2 <= 0)
        return p.distanceTo(s.a);
    const double t = std::clamp(dot(p - s.a, d) / len2, tMin(s.extent), tMax(s.extent));
    return p.distanceTo(s.a + d * t);
}

double distanceToArc(const P& p, const Arc& arc)
{
    const AcGeVector2d v = p - arc.c;
    const double toCentre = std::hypot(v.x, v.y);
    if (toCentre > 0 && angleOn(arc, std::atan2(v.y, v.x)))
        return std::fabs(toCentre - arc.r);
    if (toCentre == 0 && arc.sweep >= kTwoPi - 1e-12)
        return arc.r;
    return std::min(p.distanceTo(arcPoint(arc, arc.start)), p.distanceTo(arcPoint(arc, arc.start + arc.sweep)));
}

bool insideArea(const P& p, const std::vector<P>& area)
{
    bool in = false;
    for (std::size_t i = 0, j = area.size() - 1; i < area.size(); j = i++) {
        const P& a = area[i];
        const P& b = area[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            in = !in;
    }
    return in;
}

bool segsMeet(const Seg& s, const Seg& f)
{
    const AcGeVector2d d1 = s.b - s.a, d2 = f.b - f.a;
    const double den = cross(d1, d2);
    const AcGeVector2d w = f.a - s.a;
    if (std::fabs(den) <= 1e-300) {
        // Parallel: they meet only when collinear and overlapping.
        if (std::fabs(cross(w, d1)) > 1e-12 * (std::hypot(d1.x, d1.y) * std::hypot(w.x, w.y) + 1e-300))
            return false;
        return distanceToSeg(f.a, s) <= 1e-12 || distanceToSeg(f.b, s) <= 1e-12 ||
               distanceToSeg(s.a, f) <= 1e-12;
    }
    const double t = cross(w, d2) / den;
    const double u = cross(w, d1) / den;
    const double eps = 1e-12;
    return t >= tMin(s.extent) - eps && t <= tMax(s.extent) + eps && u >= tMin(f.extent) - eps &&
           u <= tMax(f.extent) + eps;
}

bool segMeetsArc(const Seg& s, const Arc& arc)
{
    const AcGeVector2d d = s.b - s.a;
    const AcGeVector2d w = s.a - arc.c;
    const double A = dot(d, d), B = 2 * dot(w, d), C = dot(w, w) - arc.r * arc.r;
    if (A <= 0)
        return std::fabs(std::sqrt(dot(w, w)) - arc.r) <= 1e-12 && angleOn(arc, std::atan2(w.y, w.x));
    const double disc = B * B - 4 * A * C;
    if (disc < 0)
        return false;
    const double root = std::sqrt(disc);
    for (double t : {(-B - root) / (2 * A), (-B + root) / (2 * A)}) {
        if (t < tMin(s.extent) - 1e-12 || t > tMax(s.extent) + 1e-12)
            continue;
        const P q = s.a + d * t;
        if (angleOn(arc, std::atan2(q.y - arc.c.y, q.x - arc.c.x)))
            return true;
    }
    return false;
}

std::vector<P> sampledArc(const GiPrimitive& p, bool closeOverCentre)
{
    std::vector<P> pts;
    const int n = std::max(8, static_cast<int>(std::ceil(std::fabs(p.sweep) / kTwoPi * 128)));
    if (closeOverCentre)
        pts.push_back(flat(p.center));
    for (int i = 0; i <= n; ++i)
        pts.push_back(flat(p.arcPoint(p.sweep * i / n)));
    return pts;
}

Shape shapeOf(const GiPrimitive& p)
{
    Shape s;
    s.areaMarker = p.traits.marker;
    switch (p.kind) {
    case GiPrimitiveKind::kPolyline:
    case GiPrimitiveKind::kPolygon: {
        const std::size_t n = p.points.size();
        if (n == 1)
            s.segs.push_back({flat(p.points[0]), flat(p.points[0]), p.markerOf(0)});
        for (std::size_t i = 0; i + 1 < n; ++i)
            s.segs.push_back({flat(p.points[i]), flat(p.points[i + 1]), p.markerOf(i)});
        if (p.kind == GiPrimitiveKind::kPolygon && n > 2) {
            s.segs.push_back({flat(p.points[n - 1]), flat(p.points[0]), p.markerOf(n - 1)});
            if (p.isFilled()) {
                std::vector<P> area;
                for (const AcGePoint3d& q : p.points)
                    area.push_back(flat(q));
                s.areas.push_back(std::move(area));
            }
        }
        break;
    }
    case GiPrimitiveKind::kCircle:
    case GiPrimitiveKind::kArc: {
        const bool closed = p.kind == GiPrimitiveKind::kCircle || p.arcType != kAcGiArcSimple;
        if (std::fabs(p.normal.z) > 1.0 - 1e-12) {
            const double a0 = std::atan2(p.startVector.y, p.startVector.x);
            const double start = p.normal.z > 0 ? a0 : a0 - p.sweep;
            s.arcs.push_back({flat(p.center), p.radius, wrap(start), std::min(std::fabs(p.sweep), kTwoPi),
                              p.traits.marker});
        } else {
            const std::vector<P> pts = sampledArc(p, false);
            for (std::size_t i = 0; i + 1 < pts.size(); ++i)
                s.segs.push_back({pts[i], pts[i + 1], p.traits.marker});
        }
        if (p.kind == GiPrimitiveKind::kArc && p.arcType == kAcGiArcSector) {
            s.segs.push_back({flat(p.center), flat(p.arcStart()), p.traits.marker});
            s.segs.push_back({flat(p.center), flat(p.arcEnd()), p.traits.marker});
        } else if (p.kind == GiPrimitiveKind::kArc && p.arcType == kAcGiArcChord) {
            s.segs.push_back({flat(p.arcStart()), flat(p.arcEnd()), p.traits.marker});
        }
        if (closed && p.isFilled())
            s.areas.push_back(sampledArc(p, p.arcType == kAcGiArcSector));
        break;
    }
    case GiPrimitiveKind::kXline:
    case GiPrimitiveKind::kRay:
        if (p.points.size() >= 2)
            s.segs.push_back({flat(p.points[0]), flat(p.points[1]), p.traits.marker,
                              p.kind == GiPrimitiveKind::kXline ? Extent::kLine : Extent::kRay});
        break;
    case GiPrimitiveKind::kText:
        if (p.text) {
            AcGePoint3d c[4];
            p.text->corners(c);
            std::vector<P> box;
            for (int i = 0; i < 4; ++i) {
                box.push_back(flat(c[i]));
                s.segs.push_back({flat(c[i]), flat(c[(i + 1) % 4]), p.traits.marker});
            }
            s.areas.push_back(std::move(box));
        }
        break;
    }
    return s;
}

struct Rect {
    double x0, y0, x1, y1;
    Rect(const P& a, const P& b)
        : x0(std::min(a.x, b.x)), y0(std::min(a.y, b.y)), x1(std::max(a.x, b.x)), y1(std::max(a.y, b.y))
    {
    }
    bool contains(const P& p) const { return p.x >= x0 && p.x <= x1 && p.y >= y0 && p.y <= y1; }
    std::vector<Seg> edges() const
    {
        const P a{x0, y0}, b{x1, y0}, c{x1, y1}, d{x0, y1};
        return {{a, b, 0}, {b, c, 0}, {c, d, 0}, {d, a, 0}};
    }
    std::vector<P> corners() const { return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}; }
};

bool inWindow(const GiPrimitive& p, const Rect& r)
{
    if (p.kind == GiPrimitiveKind::kXline || p.kind == GiPrimitiveKind::kRay)
        return false;
    const GiExtents e = giPrimitiveExtents(p);
    return e.isValid() && r.contains({e.min.x, e.min.y}) && r.contains({e.max.x, e.max.y});
}

// Whether the shape crosses or touches any of the fence's segments.
bool crossesAny(const Shape& s, const std::vector<Seg>& fence)
{
    for (const Seg& f : fence) {
        for (const Seg& g : s.segs)
            if (segsMeet(g, f))
                return true;
        for (const Arc& a : s.arcs)
            if (segMeetsArc(f, a))
                return true;
    }
    return false;
}

}  // namespace

std::vector<GiHit> giHitPoint(const GiDisplayList& list, const AcGePoint2d& point, double aperture)
{
    std::vector<GiHit> hits;
    for (std::size_t i = 0; i < list.primitives.size(); ++i) {
        const Shape s = shapeOf(list.primitives[i]);
        GiHit best{i, 0, std::numeric_limits<double>::infinity()};
        for (const Seg& g : s.segs) {
            const double d = distanceToSeg(point, g);
            if (d < best.distance)
                best = {i, g.marker, d};
        }
        for (const Arc& a : s.arcs) {
            const double d = distanceToArc(point, a);
            if (d < best.distance)
                best = {i, a.marker, d};
        }
        for (const std::vector<P>& area : s.areas)
            if (insideArea(point, area)) {
                // The outline's own marker when the point is also on it, else the area's.
                if (best.distance > aperture)
                    best = {i, s.areaMarker, 0.0};
                else
                    best.distance = 0.0;
            }
        if (best.distance <= aperture)
            hits.push_back(best);
    }
    return hits;
}

std::vector<std::size_t> giHitFence(const GiDisplayList& list, const std::vector<AcGePoint2d>& fence)
{
    std::vector<std::size_t> out;
    std::vector<Seg> segs;
    for (std::size_t i = 0; i + 1 < fence.size(); ++i)
        segs.push_back({fence[i], fence[i + 1], 0});
    if (fence.size() == 1)
        segs.push_back({fence[0], fence[0], 0});
    for (std::size_t i = 0; i < list.primitives.size(); ++i) {
        const Shape s = shapeOf(list.primitives[i]);
        bool hit = crossesAny(s, segs);
        for (const std::vector<P>& area : s.areas)
            for (const AcGePoint2d& f : fence)
                hit = hit || insideArea(f, area);
        if (hit)
            out.push_back(i);
    }
    return out;
}

std::vector<std::size_t> giHitWindow(const GiDisplayList& list, const AcGePoint2d& corner1,
                                     const AcGePoint2d& corner2)
{
    const Rect r(corner1, corner2);
    std::vector<std::size_t> out;
    for (std::size_t i = 0; i < list.primitives.size(); ++i)
        if (inWindow(list.primitives[i], r))
            out.push_back(i);
    return out;
}

std::vector<std::size_t> giHitCrossing(const GiDisplayList& list, const AcGePoint2d& corner1,
                                       const AcGePoint2d& corner2)
{
    const Rect r(corner1, corner2);
    const std::vector<Seg> edges = r.edges();
    std::vector<std::size_t> out;
    for (std::size_t i = 0; i < list.primitives.size(); ++i) {
        const GiPrimitive& p = list.primitives[i];
        bool hit = inWindow(p, r);
        if (!hit) {
            const Shape s = shapeOf(p);
            for (const Seg& g : s.segs)
                hit = hit || (g.extent == Extent::kSegment && (r.contains(g.a) || r.contains(g.b)));
            for (const Arc& a : s.arcs)
                hit = hit || r.contains(arcPoint(a, a.start));
            hit = hit || crossesAny(s, edges);
            for (const std::vector<P>& area : s.areas)
                for (const P& c : r.corners())
                    hit = hit || insideArea(c, area);
        }
        if (hit)
            out.push_back(i);
    }
    return out;
}
