// Drawing of the curves and simple shapes: lines, arcs, circles, both polylines (bulges and
// widths), xlines, points, solids and viewport borders. Single-part entities mark what they
// draw 1; polyline segment k is marked k + 1, as picking on a segment expects.
#include <algorithm>
#include <cmath>

#include "host/db/AcDb2dPolyline.h"
#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDraw.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbPoint.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbSolid.h"
#include "host/db/AcDbViewport.h"
#include "host/db/AcDbXline.h"
#include "host/gi/AcGiWorldDraw.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

// Draws a filled polygon and puts the fill back as it was.
void FilledPolygon(AcGiWorldDraw* wd, Adesk::UInt32 n, const AcGePoint3d* pts)
{
    AcGiSubEntityTraits& traits = wd->subEntityTraits();
    const AcGiFillType before = traits.fillType();
    traits.setFillType(kAcGiFillAlways);
    wd->geometry().polygon(n, pts);
    traits.setFillType(before);
}

// The point in the middle of a bulged segment a-b (object coordinates).
AcGePoint2d BulgeMidpoint(const AcGePoint2d& a, const AcGePoint2d& b, double bulge)
{
    const AcGeVector2d chord = b - a;
    const double length = chord.length();
    const AcGeVector2d right(chord.y / length, -chord.x / length);
    return AcGePoint2d((a.x + b.x) / 2.0, (a.y + b.y) / 2.0) + right * (bulge * length / 2.0);
}

} // namespace

Adesk::Boolean AcDbLine::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw)
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    worldDraw->subEntityTraits().setSelectionMarker(1);
    const AcGePoint3d pts[2] = {m_start, m_end};
    worldDraw->geometry().polyline(2, pts);
    return Adesk::kTrue;
}

Adesk::Boolean AcDbArc::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw || m_radius <= 0.0)
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    worldDraw->subEntityTraits().setSelectionMarker(1);
    const AcGeCircArc3d arc = geArc();
    const AcGeVector3d start = (arc.startPoint() - m_center).normal();
    worldDraw->geometry().circularArc(m_center, m_radius, m_normal.normal(), start, totalAngle());
    return Adesk::kTrue;
}

Adesk::Boolean AcDbCircle::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw || m_radius <= 0.0)
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    worldDraw->subEntityTraits().setSelectionMarker(1);
    worldDraw->geometry().circle(m_center, m_radius, m_normal.normal());
    return Adesk::kTrue;
}

Adesk::Boolean AcDbPolyline::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw || m_verts.empty())
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    AcGiSubEntityTraits& traits = worldDraw->subEntityTraits();
    AcGiWorldGeometry& geometry = worldDraw->geometry();
    const AcGeMatrix3d ecs = AcGeMatrix3d::planeToWorld(m_normal);
    auto world = [&](const AcGePoint2d& p) { return ecs * AcGePoint3d(p.x, p.y, m_elevation); };

    if (m_verts.size() == 1) {
        traits.setSelectionMarker(1);
        const AcGePoint3d dot[2] = {world(m_verts[0].pt), world(m_verts[0].pt)};
        geometry.polyline(2, dot);
        return Adesk::kTrue;
    }
    // Straight thin segments in a row go out as one polyline whose segment markers count
    // on from the first one's; arcs and wide segments one by one with the marker as trait.
    std::vector<AcGePoint3d> run;
    unsigned int runStart = 0;
    auto flush = [&] {
        if (run.size() >= 2) {
            traits.setSelectionMarker(runStart + 1);
            geometry.polyline(static_cast<Adesk::UInt32>(run.size()), run.data(), nullptr, runStart + 1);
        }
        run.clear();
    };
    const unsigned int n = numSegments();
    for (unsigned int k = 0; k < n; ++k) {
        const Vertex& a = m_verts[k];
        const Vertex& b = m_verts[(k + 1) % m_verts.size()];
        const bool wide = a.startWidth > 0.0 || a.endWidth > 0.0;
        const bool arc = std::fabs(a.bulge) > 1e-12 && !a.pt.isEqualTo(b.pt);
        if (!wide && !arc) {
            if (run.empty()) {
                runStart = k;
                run.push_back(world(a.pt));
            }
            run.push_back(world(b.pt));
            continue;
        }
        flush();
        traits.setSelectionMarker(k + 1);
        if (!wide) {
            geometry.circularArc(world(a.pt), world(BulgeMidpoint(a.pt, b.pt, a.bulge)), world(b.pt));
            continue;
        }
        // A wide segment is a band: both edges sampled along the segment, the width running
        // evenly from its start to its end value.
        std::vector<AcGePoint2d> centre;
        std::vector<AcGeVector2d> side;
        if (!arc) {
            // At a joint with another wide segment the band runs on by half its width, so
            // that corners come out filled (square at a right angle).
            const AcGeVector2d d = (b.pt - a.pt).normal();
            auto isWide = [&](unsigned int i) {
                const Vertex& v = m_verts[i % m_verts.size()];
                return v.startWidth > 0.0 || v.endWidth > 0.0;
            };
            const bool joinStart = (k > 0 || m_closed) && isWide(k + n - 1);
            const bool joinEnd = (k + 1 < n || m_closed) && isWide(k + 1);
            centre = {joinStart ? a.pt - d * (a.startWidth / 2.0) : a.pt, joinEnd ? b.pt + d * (a.endWidth / 2.0) : b.pt};
            side = {AcGeVector2d(-d.y, d.x), AcGeVector2d(-d.y, d.x)};
        } else {
            const double sweep = 4.0 * std::atan(a.bulge);
            const AcGePoint2d mid = BulgeMidpoint(a.pt, b.pt, a.bulge);
            const AcGeCircArc3d circle(AcGePoint3d(a.pt.x, a.pt.y, 0), AcGePoint3d(mid.x, mid.y, 0),
                                       AcGePoint3d(b.pt.x, b.pt.y, 0));
            const AcGePoint2d c(circle.center().x, circle.center().y);
            const double start = std::atan2(a.pt.y - c.y, a.pt.x - c.x);
            const int steps = std::clamp(static_cast<int>(std::ceil(std::fabs(sweep) / (kPi / 36.0))), 4, 72);
            for (int i = 0; i <= steps; ++i) {
                const double t = start + sweep * i / steps;
                const AcGeVector2d radial(std::cos(t), std::sin(t));
                centre.push_back(c + radial * circle.radius());
                side.push_back(a.bulge > 0 ? radial * -1.0 : radial);
            }
        }
        std::vector<AcGePoint3d> band(centre.size() * 2);
        const std::size_t m = centre.size();
        for (std::size_t i = 0; i < m; ++i) {
            const double half = (a.startWidth + (a.endWidth - a.startWidth) * i / (m - 1)) / 2.0;
            band[i] = world(centre[i] + side[i] * half);
            band[2 * m - 1 - i] = world(centre[i] - side[i] * half);
        }
        FilledPolygon(worldDraw, static_cast<Adesk::UInt32>(band.size()), band.data());
    }
    flush();
    return Adesk::kTrue;
}

Adesk::Boolean AcDb2dPolyline::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw)
        return Adesk::kTrue;
    AcDbPolyline light;
    toLightweight(light);
    light.setPropertiesFrom(this);
    return light.worldDraw(worldDraw);
}

Adesk::Boolean AcDbXline::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw)
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    worldDraw->subEntityTraits().setSelectionMarker(1);
    worldDraw->geometry().xline(m_base, m_base + m_dir);
    return Adesk::kTrue;
}

// The default point style draws a dot: a line of no length, which renders as a round pen mark.
Adesk::Boolean AcDbPoint::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw)
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    worldDraw->subEntityTraits().setSelectionMarker(1);
    const AcGePoint3d dot[2] = {m_position, m_position};
    worldDraw->geometry().polyline(2, dot);
    return Adesk::kTrue;
}

Adesk::Boolean AcDbSolid::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw)
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    worldDraw->subEntityTraits().setSelectionMarker(1);
    AcGePoint3d outline[4];
    Adesk::UInt32 n = 0;
    // The stored order 0, 1, 2, 3 goes round as 0, 1, 3, 2; a triangle repeats its third point.
    for (const Adesk::UInt16 i : {0, 1, 3, 2}) {
        AcGePoint3d p;
        getPointAt(i, p);
        if (n == 0 || !p.isEqualTo(outline[n - 1]))
            outline[n++] = p;
    }
    if (n > 1 && outline[n - 1].isEqualTo(outline[0]))
        --n;
    FilledPolygon(worldDraw, n, outline);
    return Adesk::kTrue;
}

// A viewport shows as its border; what it looks onto is drawn by whoever renders the layout.
Adesk::Boolean AcDbViewport::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw || !m_on)
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    worldDraw->subEntityTraits().setSelectionMarker(1);
    const double w = m_width / 2.0, h = m_height / 2.0;
    const AcGePoint3d box[5] = {m_center + AcGeVector3d(-w, -h, 0), m_center + AcGeVector3d(w, -h, 0),
                                m_center + AcGeVector3d(w, h, 0), m_center + AcGeVector3d(-w, h, 0),
                                m_center + AcGeVector3d(-w, -h, 0)};
    worldDraw->geometry().polyline(5, box, nullptr, 1);
    return Adesk::kTrue;
}
