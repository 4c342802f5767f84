// Geometry shared by the native curves: pieces, intersections, bulges and planar transforms.
#include "host/db/AcDbCurveGeom.h"

#include <cmath>

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDimStyleTable.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/ge/AcGePlane.h"

double AcDbCurveGeom::normalizeAngle(double a)
{
    double r = std::fmod(a, kTwoPi);
    if (r < 0.0)
        r += kTwoPi;
    if (r >= kTwoPi)
        r = 0.0;
    return r;
}

AcDbCurvePiece AcDbCurveGeom::extended(const AcDbCurvePiece& piece)
{
    if (piece.isArc) {
        const AcGeCircArc3d& a = piece.arc;
        return AcDbCurvePiece::fromArc(AcGeCircArc3d(a.center(), a.normal(), a.refVec(), a.radius(), 0.0, kTwoPi));
    }
    AcGeLine3d line;
    piece.line.getLine(line);
    return AcDbCurvePiece::fromLine(line);
}

namespace {

void addUnique(AcGePoint3dArray& points, const AcGePoint3d& p)
{
    for (int i = 0; i < points.length(); ++i)
        if (points[i].isEqualTo(p))
            return;
    points.append(p);
}

}  // namespace

void AcDbCurveGeom::intersect(const AcDbCurvePiece& a, const AcDbCurvePiece& b, AcGePoint3dArray& points)
{
    AcGePoint3d p1, p2;
    int n = 0;
    if (!a.isArc && !b.isArc) {
        if (a.line.intersectWith(b.line, p1))
            addUnique(points, p1);
        return;
    }
    if (a.isArc && b.isArc)
        a.arc.intersectWith(b.arc, n, p1, p2);
    else if (a.isArc)
        a.arc.intersectWith(b.line, n, p1, p2);
    else
        b.arc.intersectWith(a.line, n, p1, p2);
    if (n >= 1)
        addUnique(points, p1);
    if (n >= 2)
        addUnique(points, p2);
}

void AcDbCurveGeom::intersect(const AcDbCurvePieces& a, bool extendA, const AcDbCurvePieces& b, bool extendB,
                              AcGePoint3dArray& points)
{
    for (const AcDbCurvePiece& pa : a) {
        AcDbCurvePiece ea = extendA ? extended(pa) : pa;
        for (const AcDbCurvePiece& pb : b)
            intersect(ea, extendB ? extended(pb) : pb, points);
    }
}

bool AcDbCurveGeom::closestPoint(const AcDbCurvePieces& pieces, const AcGePoint3d& pt, AcGePoint3d& result)
{
    double best = -1.0;
    for (const AcDbCurvePiece& piece : pieces) {
        AcGePoint3d c = piece.curve().closestPointTo(pt);
        double d = c.distanceTo(pt);
        if (best < 0.0 || d < best) {
            best = d;
            result = c;
        }
    }
    return best >= 0.0;
}

bool AcDbCurveGeom::bulgeArc(const AcGePoint2d& p1, const AcGePoint2d& p2, double bulge, AcDbBulgeArc& arc)
{
    AcGeVector2d chord = p2 - p1;
    if (bulge == 0.0 || !std::isfinite(bulge) || chord.isZeroLength())
        return false;
    // The centre sits on the chord's bisector; its offset follows from the sagitta.
    AcGePoint2d mid = p1 + chord * 0.5;
    AcGeVector2d left(-chord.y, chord.x);
    arc.center = mid + left * ((1.0 - bulge * bulge) / (4.0 * bulge));
    arc.radius = arc.center.distanceTo(p1);
    arc.startAngle = (p1 - arc.center).angle();
    arc.sweep = 4.0 * std::atan(bulge);
    return true;
}

Acad::ErrorStatus AcDbCurveGeom::planarImage(const AcGeMatrix3d& xform, const AcGeVector3d& normal,
                                             const AcGeVector3d& xAxis, PlanarImage& image)
{
    AcGeVector3d x = xform * xAxis;
    AcGeVector3d y = xform * normal.crossProduct(xAxis);
    AcGeVector3d n = xform * normal;
    double lx = x.length(), ly = y.length(), ln = n.length();
    if (lx < 1e-12 || ly < 1e-12 || ln < 1e-12)
        return Acad::eInvalidInput;
    // The plane keeps its shape when its axes stay perpendicular and equally long, and the
    // normal stays perpendicular to both (a shear off the plane would tilt it).
    const double rel = 1e-9;
    if (std::fabs(lx - ly) > rel * std::max(lx, ly) || std::fabs(x.dotProduct(y)) > rel * lx * ly
        || std::fabs(n.dotProduct(x)) > rel * ln * lx || std::fabs(n.dotProduct(y)) > rel * ln * ly)
        return Acad::eCannotScaleNonUniformly;
    image.newXAxis = x / lx;
    image.newYAxis = y / ly;
    image.newNormal = n / ln;
    image.scale = lx;
    image.mirrored = image.newXAxis.crossProduct(image.newYAxis).dotProduct(image.newNormal) < 0.0;
    return Acad::eOk;
}

double AcDbCurveGeom::ocsAngle(const AcGeVector3d& normal, const AcGeVector3d& direction)
{
    AcGeVector3d xAxis = normal.perpVector();
    AcGeVector3d yAxis = normal.crossProduct(xAxis);
    return normalizeAngle(std::atan2(direction.dotProduct(yAxis), direction.dotProduct(xAxis)));
}

AcGeVector3d AcDbCurveGeom::ocsDirection(const AcGeVector3d& normal, double angle)
{
    AcGeVector3d xAxis = normal.perpVector();
    AcGeVector3d yAxis = normal.crossProduct(xAxis);
    return xAxis * std::cos(angle) + yAxis * std::sin(angle);
}

bool AcDbCurveGeom::unitNormal(const AcGeVector3d& v, AcGeVector3d& normal)
{
    double len = v.length();
    if (!std::isfinite(len) || len < 1e-12)
        return false;
    normal = v / len;
    return true;
}

Acad::ErrorStatus AcDbCurveGeom::setNormal(AcDbObject& object, AcGeVector3d& member, const AcGeVector3d& normal)
{
    AcGeVector3d n;
    if (!unitNormal(normal, n))
        return Acad::eInvalidInput;
    object.assertWriteEnabled();
    member = n;
    return Acad::eOk;
}

std::wstring AcDbCurveGeom::recordName(AcDbObjectId id)
{
    if (id.isNull())
        return L"";
    AcDbSymbolTableRecord* rec = nullptr;
    if (acdbOpenObject(rec, id, AcDb::kForRead, true) != Acad::eOk)
        return L"";
    std::wstring name = rec->name();
    rec->close();
    return name;
}

AcDbObjectId AcDbCurveGeom::recordId(AcDbDatabase* db, Table table, const std::wstring& name)
{
    AcDbObjectId id;
    if (!db || name.empty())
        return id;
    AcDbSymbolTable* tab = nullptr;
    Acad::ErrorStatus es = Acad::eNotApplicable;
    switch (table) {
    case Table::kTextStyle: {
        AcDbTextStyleTable* t = nullptr;
        es = db->getTextStyleTable(t);
        tab = t;
        break;
    }
    case Table::kDimStyle: {
        AcDbDimStyleTable* t = nullptr;
        es = db->getDimStyleTable(t);
        tab = t;
        break;
    }
    case Table::kBlock: {
        AcDbBlockTable* t = nullptr;
        es = db->getBlockTable(t);
        tab = t;
        break;
    }
    }
    if (es != Acad::eOk || !tab)
        return id;
    if (tab->getAt(name.c_str(), id) != Acad::eOk)
        id.setNull();
    tab->close();
    return id;
}

void AcDbCurveGeom::writeThickness(AcDbDxfFiler* filer, double thickness)
{
    if (thickness != 0.0 || filer->includesDefaultValues())
        filer->writeDouble(AcDb::kDxfThickness, thickness);
}

void AcDbCurveGeom::writeNormal(AcDbDxfFiler* filer, const AcGeVector3d& normal)
{
    if (normal != AcGeVector3d::kZAxis || filer->includesDefaultValues())
        filer->writeVector3d(AcDb::kDxfNormalX, normal);
}

bool AcDbCurveGeom::readThicknessOrNormal(const resbuf& rb, double& thickness, AcGeVector3d& normal)
{
    if (rb.restype == 39) {
        thickness = rb.resval.rreal;
        return true;
    }
    if (rb.restype == 210) {
        if (!unitNormal(vector(rb), normal))
            normal = AcGeVector3d::kZAxis;
        return true;
    }
    return false;
}

void AcDbCurveGeom::writeCirclePart(AcDbDxfFiler* filer, const AcGePoint3d& center, double radius,
                                    const AcGeVector3d& normal, double thickness)
{
    filer->writeSubclassMarker(L"AcDbCircle");
    writeThickness(filer, thickness);
    filer->writePoint3d(AcDb::kDxfXCoord, AcGeMatrix3d::worldToPlane(normal) * center);
    filer->writeDouble(AcDb::kDxfReal, radius);
    writeNormal(filer, normal);
}

bool AcDbCurveGeom::readCirclePart(const resbuf& rb, AcGePoint3d& ocsCenter, double& radius, double& thickness,
                                   AcGeVector3d& normal)
{
    switch (rb.restype) {
    case 10: ocsCenter = point(rb); return true;
    case 40: radius = std::fabs(rb.resval.rreal); return true;
    default: return readThicknessOrNormal(rb, thickness, normal);
    }
}
