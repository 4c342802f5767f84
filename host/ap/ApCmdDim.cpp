// Dimension commands: DIMLINEAR, DIMALIGNED, DIMANGULAR, DIMRADIUS and DIMDIAMETER, each
// making the native dimension in the current dimension style.
#include <cmath>

#include "host/ap/ApCmdSupport.h"
#include "host/db/AcDb2LineAngularDimension.h"
#include "host/db/AcDbAlignedDimension.h"
#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDiametricDimension.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbRadialDimension.h"
#include "host/db/AcDbRotatedDimension.h"
#include "host/ed/acedads.h"

using apcmd::getPoint;

namespace {

constexpr double kHalfPi = 1.57079632679489661923;

// Horizontal when the dimension line lies above or below the points, vertical when it lies
// beside them; inside their box the longer extent decides.
double linearRotation(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& at)
{
    const bool outsideY = at.y > std::max(a.y, b.y) || at.y < std::min(a.y, b.y);
    const bool outsideX = at.x > std::max(a.x, b.x) || at.x < std::min(a.x, b.x);
    if (outsideY && !outsideX)
        return 0.0;
    if (outsideX && !outsideY)
        return kHalfPi;
    return std::fabs(b.x - a.x) >= std::fabs(b.y - a.y) ? 0.0 : kHalfPi;
}

bool twoPointsAndLocation(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& at)
{
    return getPoint(L"\nSpecify first extension line origin: ", a) == RTNORM &&
           getPoint(L"\nSpecify second extension line origin: ", b, &a) == RTNORM &&
           getPoint(L"\nSpecify dimension line location: ", at, &b) == RTNORM;
}

void cmdDimLinear()
{
    AcDbDatabase* db = apcmd::database();
    AcGePoint3d a, b, at;
    if (!db || !twoPointsAndLocation(a, b, at))
        return;
    apcmd::append(new AcDbRotatedDimension(linearRotation(a, b, at), a, b, at, nullptr, db->dimstyle()));
}

void cmdDimAligned()
{
    AcDbDatabase* db = apcmd::database();
    AcGePoint3d a, b, at;
    if (!db || !twoPointsAndLocation(a, b, at))
        return;
    apcmd::append(new AcDbAlignedDimension(a, b, at, nullptr, db->dimstyle()));
}

// The circle or arc under a pick: centre and radius. False after a miss or another kind.
int pickRound(const ACHAR* prompt, AcGePoint3d& center, double& radius, AcGePoint3d& pick, bool& isArc,
              double& startAngle, double& endAngle)
{
    for (;;) {
        AcDbObjectId id;
        const int rc = apcmd::entSel(prompt, id, pick);
        if (rc == RTERROR)
            continue;  // a miss asks again
        if (rc != RTNORM)
            return rc;
        AcDbEntity* e = nullptr;
        if (acdbOpenAcDbEntity(e, id, AcDb::kForRead) != Acad::eOk)
            continue;
        bool ok = true;
        if (const AcDbArc* arc = AcDbArc::cast(e)) {
            center = arc->center();
            radius = arc->radius();
            isArc = true;
            startAngle = arc->startAngle();
            endAngle = arc->endAngle();
        } else if (const AcDbCircle* circle = AcDbCircle::cast(e)) {
            center = circle->center();
            radius = circle->radius();
            isArc = false;
        } else {
            ok = false;
        }
        e->close();
        if (ok)
            return RTNORM;
        apcmd::say(L"Select an arc or a circle.");
    }
}

void cmdDimRadialOrDiameter(bool diameter)
{
    AcDbDatabase* db = apcmd::database();
    if (!db)
        return;
    AcGePoint3d center, pick, at;
    double radius = 0.0, s = 0.0, e = 0.0;
    bool isArc = false;
    if (pickRound(L"\nSelect arc or circle: ", center, radius, pick, isArc, s, e) != RTNORM ||
        getPoint(L"\nSpecify dimension line location: ", at, &center) != RTNORM)
        return;
    AcGeVector3d dir = at - center;
    if (dir.length() <= 0.0)
        dir = AcGeVector3d::kXAxis;
    dir = dir.normal();
    const AcGePoint3d chord = center + dir * radius;
    const double leader = std::max(0.0, center.distanceTo(at) - radius);
    if (diameter)
        apcmd::append(new AcDbDiametricDimension(chord, center - dir * radius, leader, nullptr, db->dimstyle()));
    else
        apcmd::append(new AcDbRadialDimension(center, chord, leader, nullptr, db->dimstyle()));
}

void cmdDimRadius()
{
    cmdDimRadialOrDiameter(false);
}

void cmdDimDiameter()
{
    cmdDimRadialOrDiameter(true);
}

bool lineEnds(AcDbObjectId id, AcGePoint3d& s, AcGePoint3d& e)
{
    AcDbLine* line = nullptr;
    if (acdbOpenObject(line, id, AcDb::kForRead) != Acad::eOk)
        return false;
    s = line->startPoint();
    e = line->endPoint();
    line->close();
    return true;
}

void cmdDimAngular()
{
    AcDbDatabase* db = apcmd::database();
    if (!db)
        return;
    for (;;) {
        AcDbObjectId id;
        AcGePoint3d pick;
        const int rc = apcmd::entSel(L"\nSelect arc or line: ", id, pick);
        if (rc == RTERROR)
            continue;
        if (rc != RTNORM)
            return;
        AcGePoint3d s1, e1, s2, e2, at;
        AcDbEntity* ent = nullptr;
        if (acdbOpenAcDbEntity(ent, id, AcDb::kForRead) != Acad::eOk)
            continue;
        if (const AcDbArc* arc = AcDbArc::cast(ent)) {
            const AcGePoint3d c = arc->center();
            const double r = arc->radius();
            const AcGePoint3d ps(c.x + r * std::cos(arc->startAngle()), c.y + r * std::sin(arc->startAngle()), c.z);
            const AcGePoint3d pe(c.x + r * std::cos(arc->endAngle()), c.y + r * std::sin(arc->endAngle()), c.z);
            ent->close();
            if (getPoint(L"\nSpecify dimension arc line location: ", at, &c) != RTNORM)
                return;
            apcmd::append(new AcDb2LineAngularDimension(c, ps, c, pe, at, nullptr, db->dimstyle()));
            return;
        }
        const bool isLine = AcDbLine::cast(ent) != nullptr;
        ent->close();
        if (!isLine) {
            apcmd::say(L"Select an arc or a line.");
            continue;
        }
        lineEnds(id, s1, e1);
        for (;;) {
            AcDbObjectId id2;
            const int rc2 = apcmd::entSel(L"\nSelect second line: ", id2, pick);
            if (rc2 == RTERROR)
                continue;
            if (rc2 != RTNORM)
                return;
            if (id2 != id && lineEnds(id2, s2, e2))
                break;
            apcmd::say(L"Select another line.");
        }
        if (getPoint(L"\nSpecify dimension arc line location: ", at) != RTNORM)
            return;
        apcmd::append(new AcDb2LineAngularDimension(s1, e1, s2, e2, at, nullptr, db->dimstyle()));
        return;
    }
}

} // namespace

void apRegisterDimCommands()
{
    apcmd::add(L"DIMLINEAR", cmdDimLinear);
    apcmd::add(L"DIMALIGNED", cmdDimAligned);
    apcmd::add(L"DIMANGULAR", cmdDimAngular);
    apcmd::add(L"DIMRADIUS", cmdDimRadius);
    apcmd::add(L"DIMDIAMETER", cmdDimDiameter);
}
