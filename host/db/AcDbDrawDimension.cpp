// Drawing of the native dimensions from their points and dimension variables: linear
// (rotated, aligned), radial, diametric, angular between two lines and arc length. Explode
// gives what is drawn, as lines, solids, arcs and texts.
#include <cmath>

#include "host/db/AcDb2LineAngularDimension.h"
#include "host/db/AcDbAlignedDimension.h"
#include "host/db/AcDbArcDimension.h"
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbDrawDimension.h"
#include "host/db/AcDbExplodeDraw.h"
#include "host/db/AcDbRadialDimension.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/gi/AcGiWorldDraw.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

AcGeVector3d InPlane(const AcGeVector3d& v, const AcGeVector3d& normal)
{
    return v - normal * v.dotProduct(normal);
}

// The label's middle beside a line through mid along lineDir: on it with DIMTAD 0, else
// above it (the side that faces up on the sheet) by the gap and the label's reach.
AcGePoint3d LabelMiddle(const AcDbDimPainter& p, const AcDbDimLabel& label, const AcGePoint3d& mid,
                        const AcGeVector3d& lineDir)
{
    if (p.vars().dimtad == 0 || label.empty)
        return mid;
    AcGeVector3d side = p.normal().crossProduct(lineDir).normal();
    const AcGeVector3d up = p.normal().crossProduct(p.xAxis());
    if (side.dotProduct(up) < -1e-9 || (std::fabs(side.dotProduct(up)) <= 1e-9 && side.dotProduct(p.xAxis()) > 0))
        side = -side;
    const AcGeVector3d x = label.direction;
    const AcGeVector3d y = p.normal().crossProduct(x).normal();
    const double reach = label.halfWidth * std::fabs(side.dotProduct(x)) + label.halfHeight * std::fabs(side.dotProduct(y));
    return mid + side * (std::fabs(p.gap()) + reach);
}

void DrawLinear(AcDbDimPainter& p, const AcDbDimension* dim, const AcGePoint3d& x1, const AcGePoint3d& x2,
                const AcGePoint3d& dimPoint, AcGeVector3d along)
{
    const AcDbDimVars& v = p.vars();
    along = InPlane(along, p.normal());
    along = along.length() > 1e-12 ? along.normal() : p.xAxis();
    const AcGePoint3d d1 = dimPoint + along * (x1 - dimPoint).dotProduct(along);
    const AcGePoint3d d2 = dimPoint + along * (x2 - dimPoint).dotProduct(along);
    const AcGeVector3d offSide = p.normal().crossProduct(along);

    p.part(kAcDbDimMarkerExtLine1, v.dimclre);
    if (!v.dimse1)
        p.extensionLine(x1, d1, offSide);
    p.part(kAcDbDimMarkerExtLine2, v.dimclre);
    if (!v.dimse2)
        p.extensionLine(x2, d2, offSide);

    const double length = d1.distanceTo(d2);
    const AcGeVector3d dir = length > 1e-12 ? (d2 - d1) / length : along;
    AcDbDimLabel label = p.label(acdbDimLabelContents(dim->dimensionTextString(), acdbDimMeasuredText(dim, v)));
    label.direction = p.labelDirection(dir);
    label.middle = dim->isUsingDefaultTextPosition() ? LabelMiddle(p, label, d1 + (d2 - d1) / 2.0, dir)
                                                     : dim->textPosition();

    // Arrows that do not fit between the extension lines point in from outside.
    const double size = p.arrowSize();
    const bool inside = p.ticks() || length >= 3.0 * size;
    AcGePoint3d a = d1, b = d2;
    if (p.ticks()) {
        a -= dir * p.scaled(v.dimdle);
        b += dir * p.scaled(v.dimdle);
    } else if (!inside) {
        a -= dir * (2.0 * size);
        b += dir * (2.0 * size);
    }
    p.part(kAcDbDimMarkerDimLine, v.dimclrd);
    p.lineAround(a, b, label);
    p.arrow(d1, inside ? dir : -dir, false);
    p.arrow(d2, inside ? -dir : dir, true);

    p.part(kAcDbDimMarkerText, v.dimclrt);
    p.drawLabel(label);
}

// Radius and diameter: a line through the centre side with arrows at the chord points.
void DrawRadial(AcDbDimPainter& p, const AcDbDimension* dim, const AcGePoint3d& center, const AcGePoint3d& far,
                const AcGePoint3d& chord, bool diameter)
{
    const AcDbDimVars& v = p.vars();
    const AcGePoint3d centre = diameter ? far + (chord - far) / 2.0 : center;
    const double radius = centre.distanceTo(chord);
    if (radius <= 1e-12)
        return;
    const AcGeVector3d u = (chord - centre) / radius;
    p.part(kAcDbDimMarkerCenter, v.dimclrd);
    p.centerMark(centre);

    AcDbDimLabel label = p.label(
        acdbDimLabelContents(dim->dimensionTextString(), acdbDimMeasuredText(dim, v, diameter ? L"%%c" : L"R")));
    label.direction = p.labelDirection(u);
    const AcGePoint3d start = diameter ? far : centre;
    label.middle = dim->isUsingDefaultTextPosition() ? LabelMiddle(p, label, start + (chord - start) / 2.0, u)
                                                     : dim->textPosition();

    p.part(kAcDbDimMarkerDimLine, v.dimclrd);
    const double reach = (label.middle - centre).dotProduct(u);
    if (!label.empty && reach > radius) {
        // The text stands outside: the line runs on from the chord point to the text.
        p.line(start, chord);
        p.line(chord, centre + u * (reach - label.halfWidth - std::fabs(p.gap())));
        p.arrow(chord, u, true);
        if (diameter)
            p.arrow(far, -u, false);
    } else {
        p.lineAround(start, chord, label);
        p.arrow(chord, -u, true);
        if (diameter)
            p.arrow(far, u, false);
    }
    p.part(kAcDbDimMarkerText, v.dimclrt);
    p.drawLabel(label);
}

// An arc of the dimension with its arrows, broken under a label that sits on it.
void DrawDimArc(AcDbDimPainter& p, const AcGePoint3d& c, double radius, const AcGeVector3d& start, double sweep,
                const AcDbDimLabel& label, bool labelOnArc)
{
    const double gapAngle = labelOnArc && !label.empty ? (label.halfWidth + std::fabs(p.gap())) / radius : 0.0;
    if (gapAngle > 0.0 && 2.0 * gapAngle < sweep) {
        const double half = (sweep - 2.0 * gapAngle) / 2.0;
        p.arc(c, radius, start, half);
        p.arc(c, radius, AcGeVector3d(start).rotateBy(half + 2.0 * gapAngle, p.normal()), half);
    } else {
        p.arc(c, radius, start, sweep);
    }
    const AcGeVector3d end = AcGeVector3d(start).rotateBy(sweep, p.normal());
    p.arrow(c + start * radius, p.normal().crossProduct(start), false);
    p.arrow(c + end * radius, -p.normal().crossProduct(end), true);
}

// The label of an arc-shaped dimension: outside the arc's middle, or on it with DIMTAD 0.
void PlaceArcLabel(const AcDbDimPainter& p, const AcDbDimension* dim, AcDbDimLabel& label, const AcGePoint3d& c,
                   double radius, const AcGeVector3d& start, double sweep)
{
    const AcGeVector3d mid = AcGeVector3d(start).rotateBy(sweep / 2.0, p.normal());
    label.direction = p.labelDirection(p.normal().crossProduct(mid));
    if (!dim->isUsingDefaultTextPosition()) {
        label.middle = dim->textPosition();
        return;
    }
    const double lift = p.vars().dimtad == 0 ? 0.0 : std::fabs(p.gap()) + label.halfHeight;
    label.middle = c + mid * (radius + lift);
}

// An extension line along a ray from the centre: from the object at distance from to the arc.
void RadialExtension(AcDbDimPainter& p, const AcGePoint3d& c, const AcGeVector3d& ray, double from, double radius)
{
    const double exo = p.scaled(p.vars().dimexo), exe = p.scaled(p.vars().dimexe);
    if (radius > from)
        p.line(c + ray * (from + exo), c + ray * (radius + exe));
    else if (radius < from)
        p.line(c + ray * (from - exo), c + ray * (radius - exe));
}

void DrawAngular(AcDbDimPainter& p, const AcDb2LineAngularDimension* dim)
{
    const AcDbDimVars& v = p.vars();
    const AcGeVector3d n = p.normal();
    const AcGePoint3d s1 = dim->xLine1Start(), e1 = dim->xLine1End(), s2 = dim->xLine2Start(), e2 = dim->xLine2End();
    const AcGeVector3d u1 = InPlane(e1 - s1, n).normal(), u2 = InPlane(e2 - s2, n).normal();
    const double denominator = u1.crossProduct(u2).dotProduct(n);
    AcDbDimLabel label = p.label(acdbDimLabelContents(dim->dimensionTextString(), acdbDimMeasuredText(dim, v)));
    if (std::fabs(denominator) < 1e-12) {
        // Parallel lines make no angle: only the label shows.
        label.middle = dim->isUsingDefaultTextPosition() ? dim->arcPoint() : dim->textPosition();
        label.direction = p.xAxis();
        p.part(kAcDbDimMarkerText, v.dimclrt);
        p.drawLabel(label);
        return;
    }
    const AcGePoint3d c = s1 + u1 * ((s2 - s1).crossProduct(u2).dotProduct(n) / denominator);
    const AcGeVector3d toArc = InPlane(dim->arcPoint() - c, n);
    const double radius = toArc.length();
    if (radius <= 1e-12)
        return;
    // Of the four sectors the lines make, the one that holds the arc point.
    AcGeVector3d from = u1, to = u2;
    double sweep = 0.0;
    bool found = false;
    for (int k = 0; k < 8 && !found; ++k) {
        const AcGeVector3d a = (k & 1 ? -u1 : u1), b = (k & 2 ? -u2 : u2);
        from = k & 4 ? b : a;
        to = k & 4 ? a : b;
        sweep = from.angleTo(to, n);
        found = sweep <= kPi + 1e-9 && from.angleTo(toArc, n) <= sweep + 1e-9;
    }
    p.part(kAcDbDimMarkerExtLine1, v.dimclre);
    auto extension = [&](const AcGePoint3d& s, const AcGePoint3d& e, const AcGeVector3d& ray) {
        const double ps = (s - c).dotProduct(ray), pe = (e - c).dotProduct(ray);
        const double lo = std::min(ps, pe), hi = std::max(ps, pe);
        if (radius > hi)
            RadialExtension(p, c, ray, hi, radius);
        else if (radius < lo)
            RadialExtension(p, c, ray, lo, radius);
    };
    const bool firstIsFrom = from.isParallelTo(u1);
    if (!v.dimse1)
        extension(s1, e1, firstIsFrom ? from : to);
    p.part(kAcDbDimMarkerExtLine2, v.dimclre);
    if (!v.dimse2)
        extension(s2, e2, firstIsFrom ? to : from);

    PlaceArcLabel(p, dim, label, c, radius, from, sweep);
    p.part(kAcDbDimMarkerDimLine, v.dimclrd);
    DrawDimArc(p, c, radius, from, sweep, label, dim->isUsingDefaultTextPosition() && v.dimtad == 0);
    p.part(kAcDbDimMarkerText, v.dimclrt);
    p.drawLabel(label);
}

void DrawArcLength(AcDbDimPainter& p, const AcDbArcDimension* dim)
{
    const AcDbDimVars& v = p.vars();
    const AcGeVector3d n = p.normal();
    const AcGePoint3d c = dim->centerPoint();
    const double radius = InPlane(dim->arcPoint() - c, n).length();
    if (radius <= 1e-12)
        return;
    double startAngle = 0.0, endAngle = 0.0;
    dim->getArcAngles(startAngle, endAngle);
    const AcGeVector3d start = AcGeVector3d(p.xAxis()).rotateBy(startAngle, n);
    const double sweep = endAngle - startAngle;

    const AcGePoint3d xs[2] = {dim->xLine1Point(), dim->xLine2Point()};
    for (int i = 0; i < 2; ++i) {
        p.part(i == 0 ? kAcDbDimMarkerExtLine1 : kAcDbDimMarkerExtLine2, v.dimclre);
        const AcGeVector3d ray = InPlane(xs[i] - c, n);
        if ((i == 0 ? v.dimse1 : v.dimse2) || ray.length() <= 1e-12)
            continue;
        RadialExtension(p, c, ray.normal(), ray.length(), radius);
    }
    if (dim->hasLeader()) {
        p.part(kAcDbDimMarkerDimLine, v.dimclrd);
        p.line(dim->leader1Point(), dim->leader2Point());
    }
    AcDbDimLabel label = p.label(acdbDimLabelContents(dim->dimensionTextString(), acdbDimMeasuredText(dim, v)));
    PlaceArcLabel(p, dim, label, c, radius, start, sweep);
    p.part(kAcDbDimMarkerDimLine, v.dimclrd);
    DrawDimArc(p, c, radius, start, sweep, label, dim->isUsingDefaultTextPosition() && v.dimtad == 0);
    p.part(kAcDbDimMarkerText, v.dimclrt);
    p.drawLabel(label);
    if (!label.empty && v.dimarcsym != 2) {
        // The arc length symbol: a small arc over the text.
        const AcGeVector3d x = label.direction;
        const AcGeVector3d y = n.crossProduct(x).normal();
        const double h = label.halfHeight;
        const AcGePoint3d top = label.middle + y * (h + std::fabs(p.gap()));
        p.arc(top - y * h, h * 1.2, AcGeVector3d(x).rotateBy(kPi / 4.0, n), kPi / 2.0);
    }
}

} // namespace

Adesk::Boolean AcDbDimension::worldDraw(AcGiWorldDraw* worldDraw)
{
    assertReadEnabled();
    if (!worldDraw)
        return Adesk::kTrue;
    acdbSetEntityTraits(this, worldDraw);
    AcDbDimPainter painter(this, worldDraw);
    if (const auto* rotated = AcDbRotatedDimension::cast(this)) {
        const AcGeVector3d along = AcGeVector3d(painter.xAxis()).rotateBy(rotated->rotation(), painter.normal());
        DrawLinear(painter, this, rotated->xLine1Point(), rotated->xLine2Point(), rotated->dimLinePoint(), along);
    } else if (const auto* aligned = AcDbAlignedDimension::cast(this)) {
        DrawLinear(painter, this, aligned->xLine1Point(), aligned->xLine2Point(), aligned->dimLinePoint(),
                   aligned->xLine2Point() - aligned->xLine1Point());
    } else if (const auto* radial = AcDbRadialDimension::cast(this)) {
        DrawRadial(painter, this, radial->center(), radial->center(), radial->chordPoint(), false);
    } else if (const auto* diametric = AcDbDiametricDimension::cast(this)) {
        DrawRadial(painter, this, AcGePoint3d(), diametric->farChordPoint(), diametric->chordPoint(), true);
    } else if (const auto* angular = AcDb2LineAngularDimension::cast(this)) {
        DrawAngular(painter, angular);
    } else if (const auto* arc = AcDbArcDimension::cast(this)) {
        DrawArcLength(painter, arc);
    }
    return Adesk::kTrue;
}

Acad::ErrorStatus AcDbDimension::explode(AcDbVoidPtrArray& entitySet) const
{
    assertReadEnabled();
    return acdbExplodeByDraw(this, entitySet);
}
