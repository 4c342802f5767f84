// Geometry shared by the native curves: their straight and circular pieces in world
// coordinates, intersections of pieces, polyline bulges, and how planar data transforms.
#pragma once

#include <string>
#include <vector>

#include "host/ge/AcGeArrays.h"
#include "host/ge/AcGeCircArc3d.h"
#include "host/ge/AcGeLinearEnt3d.h"
#include "host/ge/AcGeMatrix3d.h"
#include "host/ge/AcGePoint2d.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbObject.h"
#include "host/rx/AcadStrc.h"

// One straight or circular piece of a curve. A straight piece keeps its extent (segment,
// ray or infinite line); a circle is an arc of 0 to 2pi.
struct AcDbCurvePiece {
    bool isArc = false;
    AcGeLinearEnt3d line;
    AcGeCircArc3d arc;

    static AcDbCurvePiece fromLine(const AcGeLinearEnt3d& l)
    {
        AcDbCurvePiece p;
        p.line = l;
        return p;
    }
    static AcDbCurvePiece fromArc(const AcGeCircArc3d& a)
    {
        AcDbCurvePiece p;
        p.isArc = true;
        p.arc = a;
        return p;
    }
    const AcGeCurve3d& curve() const
    {
        return isArc ? static_cast<const AcGeCurve3d&>(arc) : static_cast<const AcGeCurve3d&>(line);
    }
};
using AcDbCurvePieces = std::vector<AcDbCurvePiece>;

// The arc a polyline bulge makes between two points of the plane: centre, radius, the
// angle of p1 seen from the centre, and the signed sweep (positive counter-clockwise).
struct AcDbBulgeArc {
    AcGePoint2d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0;
};

namespace AcDbCurveGeom {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;

// The angle brought into [0, 2pi).
double normalizeAngle(double a);

// A straight piece made unbounded, an arc made a full circle.
AcDbCurvePiece extended(const AcDbCurvePiece& piece);
// Adds the points where two pieces meet (within both pieces) to points, skipping points
// that are there already.
void intersect(const AcDbCurvePiece& a, const AcDbCurvePiece& b, AcGePoint3dArray& points);
// The pieces of both lists against each other; extendA/B make the lists' pieces unbounded.
void intersect(const AcDbCurvePieces& a, bool extendA, const AcDbCurvePieces& b, bool extendB,
               AcGePoint3dArray& points);
// The point of the pieces nearest to pt; false for an empty list.
bool closestPoint(const AcDbCurvePieces& pieces, const AcGePoint3d& pt, AcGePoint3d& result);

// False for a zero bulge or coincident points (no arc).
bool bulgeArc(const AcGePoint2d& p1, const AcGePoint2d& p2, double bulge, AcDbBulgeArc& arc);

// The image of a planar object's frame under xform. normal is the object's unit normal and
// xAxis a unit in-plane direction. newNormal is xform applied to the normal, made unit;
// scale is the in-plane scale factor; mirrored tells that the image of the plane is turned
// over seen from newNormal (x and y images run clockwise). eCannotScaleNonUniformly for a
// transformation that does not keep the plane's shape, eInvalidInput for a degenerate one.
struct PlanarImage {
    AcGeVector3d newNormal;
    AcGeVector3d newXAxis;  // image of xAxis, unit
    AcGeVector3d newYAxis;  // image of normal x xAxis, unit
    double scale = 1.0;
    bool mirrored = false;
};
Acad::ErrorStatus planarImage(const AcGeMatrix3d& xform, const AcGeVector3d& normal,
                              const AcGeVector3d& xAxis, PlanarImage& image);

// The angle of a world direction in the object coordinate system of normal (about the
// normal, from the arbitrary-axis x axis).
double ocsAngle(const AcGeVector3d& normal, const AcGeVector3d& direction);
// The world direction at an angle in the object coordinate system of normal.
AcGeVector3d ocsDirection(const AcGeVector3d& normal, double angle);

// A unit normal from a vector read or set; false for a zero or non-finite vector.
bool unitNormal(const AcGeVector3d& v, AcGeVector3d& normal);
// The setNormal of an entity: a vector unitNormal refuses leaves the object untouched
// (eInvalidInput); otherwise the object is opened up for the change and member takes it.
Acad::ErrorStatus setNormal(AcDbObject& object, AcGeVector3d& member, const AcGeVector3d& normal);

inline AcGePoint3d point(const resbuf& rb)
{
    return AcGePoint3d(rb.resval.rpoint[0], rb.resval.rpoint[1], rb.resval.rpoint[2]);
}
inline AcGeVector3d vector(const resbuf& rb)
{
    return AcGeVector3d(rb.resval.rpoint[0], rb.resval.rpoint[1], rb.resval.rpoint[2]);
}

// 39 thickness and 210 normal of a planar entity, each left out at its default unless the
// filer asks for defaults.
void writeThickness(AcDbDxfFiler* filer, double thickness);
void writeNormal(AcDbDxfFiler* filer, const AcGeVector3d& normal);
// Takes a 39 or 210 group (a zero normal becomes the z axis); false for any other group.
bool readThicknessOrNormal(const resbuf& rb, double& thickness, AcGeVector3d& normal);
// The "AcDbCircle" part that circles and arcs share: 39, 10 (the centre in the object
// coordinate system), 40 and 210.
void writeCirclePart(AcDbDxfFiler* filer, const AcGePoint3d& center, double radius,
                     const AcGeVector3d& normal, double thickness);
// Takes a group of that part (the centre stays in object coordinates); false otherwise.
bool readCirclePart(const resbuf& rb, AcGePoint3d& ocsCenter, double& radius, double& thickness,
                    AcGeVector3d& normal);

// Symbol references by name, for the DXF forms. The record's name, "" when the id
// cannot be opened; the id of a name in the database's table, null when missing.
std::wstring recordName(AcDbObjectId id);
enum class Table { kTextStyle, kDimStyle, kBlock };
AcDbObjectId recordId(AcDbDatabase* db, Table table, const std::wstring& name);

// Reads the object's remaining groups, handing each to fn(item, subclass) with the name of
// the latest 100 marker ("" before any, as in files without markers). eOk at the end of
// the object; a failure of the filer or of fn (a status other than eOk) ends the reading.
template <class Fn>
Acad::ErrorStatus readDxfGroups(AcDbDxfFiler* filer, Fn fn)
{
    std::wstring subclass;
    resbuf rb{};
    for (;;) {
        Acad::ErrorStatus es = filer->readResBuf(&rb);
        if (es == Acad::eEndOfObject)
            return Acad::eOk;
        if (es != Acad::eOk)
            return es;
        if (rb.restype == AcDb::kDxfSubclass) {
            subclass = rb.resval.rstring ? rb.resval.rstring : L"";
            continue;
        }
        es = fn(rb, subclass);
        if (es != Acad::eOk)
            return es;
    }
}

}  // namespace AcDbCurveGeom
