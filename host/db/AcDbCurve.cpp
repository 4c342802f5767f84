// AcDbCurve: operations shared by the native curves, built on their pieces and parameters.
#include "host/db/AcDbCurve.h"

#include <cmath>

#include "host/rx/AcRxBoiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)

Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d& point) const
{
    double p = 0.0;
    Acad::ErrorStatus es = getStartParam(p);
    return es == Acad::eOk ? getPointAtParam(p, point) : es;
}

Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d& point) const
{
    double p = 0.0;
    Acad::ErrorStatus es = getEndParam(p);
    return es == Acad::eOk ? getPointAtParam(p, point) : es;
}

Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& dist) const
{
    double p = 0.0;
    Acad::ErrorStatus es = getParamAtPoint(point, p);
    return es == Acad::eOk ? getDistAtParam(p, dist) : es;
}

Acad::ErrorStatus AcDbCurve::getPointAtDist(double dist, AcGePoint3d& point) const
{
    double p = 0.0;
    Acad::ErrorStatus es = getParamAtDist(dist, p);
    return es == Acad::eOk ? getPointAtParam(p, point) : es;
}

Acad::ErrorStatus AcDbCurve::getFirstDeriv(double param, AcGeVector3d& deriv) const
{
    double s = 0.0, e = 0.0;
    if (getStartParam(s) != Acad::eOk || getEndParam(e) != Acad::eOk)
        return Acad::eNotApplicable;
    double h = 1e-6 * std::max(1.0, std::fabs(e - s));
    double a = std::max(s, param - h), b = std::min(e, param + h);
    AcGePoint3d pa, pb;
    if (b <= a || getPointAtParam(a, pa) != Acad::eOk || getPointAtParam(b, pb) != Acad::eOk)
        return Acad::eInvalidInput;
    deriv = (pb - pa) / (b - a);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d& givenPoint, AcGePoint3d& pointOnCurve,
                                               Adesk::Boolean extend) const
{
    AcDbCurvePieces pieces;
    if (extend)
        getExtendedPieces(pieces);
    else
        getPieces(pieces);
    return AcDbCurveGeom::closestPoint(pieces, givenPoint, pointOnCurve) ? Acad::eOk : Acad::eDegenerateGeometry;
}

Acad::ErrorStatus AcDbCurve::getArea(double& area) const
{
    area = 0.0;
    return Acad::eOk;
}

void AcDbCurve::getExtendedPieces(AcDbCurvePieces& pieces) const
{
    getPieces(pieces);
    for (AcDbCurvePiece& p : pieces)
        p = AcDbCurveGeom::extended(p);
}

Acad::ErrorStatus AcDbCurve::intersectWith(const AcDbEntity* entity, AcDb::Intersect intType,
                                           AcGePoint3dArray& points, Adesk::GsMarker, Adesk::GsMarker) const
{
    assertReadEnabled();
    if (!entity)
        return Acad::eNullEntityPointer;
    const AcDbCurve* other = AcDbCurve::cast(entity);
    if (!other)
        return Acad::eOk;  // only curves meet curves here
    bool extendThis = intType == AcDb::kExtendThis || intType == AcDb::kExtendBoth;
    bool extendArg = intType == AcDb::kExtendArg || intType == AcDb::kExtendBoth;
    AcDbCurvePieces a, b;
    if (extendThis)
        getExtendedPieces(a);
    else
        getPieces(a);
    if (extendArg)
        other->getExtendedPieces(b);
    else
        other->getPieces(b);
    AcDbCurveGeom::intersect(a, false, b, false, points);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::intersectWith(const AcDbEntity* entity, AcDb::Intersect intType, const AcGePlane&,
                                           AcGePoint3dArray& points, Adesk::GsMarker thisGsMarker,
                                           Adesk::GsMarker otherGsMarker) const
{
    return intersectWith(entity, intType, points, thisGsMarker, otherGsMarker);
}

namespace {

// World axis extremes of an arc that lie within it.
void addArcExtremes(const AcGeCircArc3d& arc, AcDbExtents& ext)
{
    ext.addPoint(arc.startPoint());
    ext.addPoint(arc.endPoint());
    AcGeVector3d n = arc.normal();
    for (int axis = 0; axis < 3; ++axis) {
        AcGeVector3d w;
        w[axis] = 1.0;
        AcGeVector3d inPlane = w - n * n.dotProduct(w);
        if (inPlane.length() < 1e-12)
            continue;
        inPlane = inPlane.normal();
        for (double sign : {1.0, -1.0}) {
            AcGePoint3d p = arc.center() + inPlane * (sign * arc.radius());
            if (arc.isOn(p, AcGeTol(1e-9 * std::max(1.0, arc.radius()), 1e-12)))
                ext.addPoint(p);
        }
    }
}

}  // namespace

Acad::ErrorStatus AcDbCurve::getGeomExtents(AcDbExtents& extents) const
{
    assertReadEnabled();
    AcDbCurvePieces pieces;
    getPieces(pieces);
    AcDbExtents ext;
    for (const AcDbCurvePiece& p : pieces) {
        if (p.isArc) {
            addArcExtremes(p.arc, ext);
        } else {
            AcGePoint3d s, e;
            if (!p.line.hasStartPoint(s) || !p.line.hasEndPoint(e))
                return Acad::eInvalidExtents;  // unbounded
            ext.addPoint(s);
            ext.addPoint(e);
        }
    }
    if (ext.isEmpty())
        return Acad::eInvalidExtents;
    extents = ext;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker, const AcGePoint3d& pickPoint,
                                            const AcGePoint3d&, const AcGeMatrix3d&, AcGePoint3dArray& snapPoints,
                                            AcDbIntArray&) const
{
    assertReadEnabled();
    AcDbCurvePieces pieces;
    getPieces(pieces);
    for (const AcDbCurvePiece& p : pieces) {
        AcGePoint3d s, e;
        switch (osnapMode) {
        case AcDb::kOsModeEnd:
            if (p.curve().hasStartPoint(s))
                snapPoints.append(s);
            if (p.curve().hasEndPoint(e) && !(p.isArc && p.arc.isClosed()))
                snapPoints.append(e);
            break;
        case AcDb::kOsModeMid:
            if (p.isArc && !p.arc.isClosed())
                snapPoints.append(p.arc.evalPoint(0.5 * (p.arc.startAng() + p.arc.endAng())));
            else if (!p.isArc && p.line.hasStartPoint(s) && p.line.hasEndPoint(e))
                snapPoints.append(s + (e - s) * 0.5);
            break;
        case AcDb::kOsModeCen:
            if (p.isArc)
                snapPoints.append(p.arc.center());
            break;
        case AcDb::kOsModeQuad:
            if (p.isArc)
                for (int q = 0; q < 4; ++q) {
                    double a = q * AcDbCurveGeom::kPi / 2.0;
                    AcGeVector3d x = p.arc.normal().perpVector();
                    AcGeVector3d y = p.arc.normal().crossProduct(x);
                    AcGePoint3d pt = p.arc.center() + (x * std::cos(a) + y * std::sin(a)) * p.arc.radius();
                    if (p.arc.isOn(pt, AcGeTol(1e-9 * std::max(1.0, p.arc.radius()), 1e-12)))
                        snapPoints.append(pt);
                }
            break;
        default:
            break;
        }
    }
    if (osnapMode == AcDb::kOsModeNear) {
        AcGePoint3d near;
        if (AcDbCurveGeom::closestPoint(pieces, pickPoint, near))
            snapPoints.append(near);
    }
    return Acad::eOk;
}
