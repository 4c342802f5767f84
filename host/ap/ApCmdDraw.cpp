// Drawing commands: LINE, ARC, CIRCLE, PLINE, TEXT (DTEXT) and MTEXT.
#include <algorithm>
#include <cmath>
#include <cwchar>

#include "host/ap/ApCmdSupport.h"
#include "host/db/AcDbArc.h"
#include "host/db/AcDbCircle.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbLine.h"
#include "host/db/AcDbMText.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/AcDbText.h"
#include "host/db/AcDbTextStyleTable.h"
#include "host/ed/acedads.h"
#include "host/ge/AcGeCircArc3d.h"

using apcmd::getPoint;

namespace {

// The keyword last answered (after RTKWORD).
std::wstring lastKeyword()
{
    ACHAR buffer[133] = {};
    acedGetInput(buffer, 133);
    return buffer;
}

double angleOf(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return std::atan2(to.y - from.y, to.x - from.x);
}

void cmdLine()
{
    if (!apcmd::database())
        return;
    AcGePoint3d first, last;
    if (getPoint(L"\nSpecify first point: ", first) != RTNORM)
        return;
    last = first;
    std::vector<AcDbObjectId> made;
    std::vector<AcGePoint3d> starts;
    for (;;) {
        acedInitGet(0, made.size() >= 2 ? L"Close Undo" : L"Undo");
        AcGePoint3d next;
        const int rc = getPoint(L"\nSpecify next point or [Close/Undo]: ", next, &last);
        if (rc == RTKWORD) {
            const std::wstring kw = lastKeyword();
            if (kw == L"Close") {
                apcmd::append(new AcDbLine(last, first));
                return;
            }
            if (made.empty()) {
                apcmd::say(L"All segments already undone.");
                continue;
            }
            apcmd::forEachForWrite({made.back()}, [](AcDbEntity* e) { e->erase(); });
            last = starts.back();
            made.pop_back();
            starts.pop_back();
            continue;
        }
        if (rc != RTNORM)
            return;
        if (next.isEqualTo(last)) {
            apcmd::say(L"The points must differ.");
            continue;
        }
        made.push_back(apcmd::append(new AcDbLine(last, next)));
        starts.push_back(last);
        last = next;
    }
}

// An arc through start, second and end, counter-clockwise about +z.
AcDbArc* arcThrough(const AcGePoint3d& s, const AcGePoint3d& m, const AcGePoint3d& e)
{
    const AcGeCircArc3d geo(s, m, e);
    if (geo.radius() <= 0.0)
        return nullptr;
    const AcGePoint3d c = geo.center();
    const bool ccw = (m.x - s.x) * (e.y - s.y) - (m.y - s.y) * (e.x - s.x) > 0.0;
    return ccw ? new AcDbArc(c, geo.radius(), angleOf(c, s), angleOf(c, e))
               : new AcDbArc(c, geo.radius(), angleOf(c, e), angleOf(c, s));
}

void cmdArc()
{
    if (!apcmd::database())
        return;
    AcGePoint3d s, m, e;
    acedInitGet(0, L"Center");
    const int rc = getPoint(L"\nSpecify start point of arc or [Center]: ", s);
    if (rc == RTKWORD) {
        AcGePoint3d c;
        if (getPoint(L"\nSpecify center point of arc: ", c) != RTNORM ||
            getPoint(L"\nSpecify start point of arc: ", s, &c) != RTNORM ||
            getPoint(L"\nSpecify end point of arc: ", e, &c) != RTNORM)
            return;
        const double r = c.distanceTo(s);
        if (r <= 0.0) {
            apcmd::say(L"The start point must differ from the center.");
            return;
        }
        apcmd::append(new AcDbArc(c, r, angleOf(c, s), angleOf(c, e)));
        return;
    }
    if (rc != RTNORM || getPoint(L"\nSpecify second point of arc: ", m, &s) != RTNORM ||
        getPoint(L"\nSpecify end point of arc: ", e, &m) != RTNORM)
        return;
    AcDbArc* arc = arcThrough(s, m, e);
    if (!arc) {
        apcmd::say(L"The three points lie on one line: no arc.");
        return;
    }
    apcmd::append(arc);
}

void cmdCircle()
{
    if (!apcmd::database())
        return;
    AcGePoint3d c;
    if (getPoint(L"\nSpecify center point for circle: ", c) != RTNORM)
        return;
    double r = 0.0;
    acedInitGet(RSG_NONULL | RSG_NOZERO | RSG_NONEG, L"Diameter");
    int rc = apcmd::getDist(L"\nSpecify radius of circle or [Diameter]: ", r, &c);
    if (rc == RTKWORD) {
        acedInitGet(RSG_NONULL | RSG_NOZERO | RSG_NONEG, nullptr);
        rc = apcmd::getDist(L"\nSpecify diameter of circle: ", r, &c);
        r /= 2.0;
    }
    if (rc != RTNORM || r <= 0.0)
        return;
    apcmd::append(new AcDbCircle(c, AcGeVector3d::kZAxis, r));
}

void cmdPline()
{
    if (!apcmd::database())
        return;
    AcGePoint3d p;
    if (getPoint(L"\nSpecify start point: ", p) != RTNORM)
        return;
    std::vector<AcGePoint3d> points{p};
    bool closed = false;
    for (;;) {
        acedInitGet(0, points.size() >= 3 ? L"Close Undo" : L"Undo");
        const int rc = getPoint(L"\nSpecify next point or [Close/Undo]: ", p, &points.back());
        if (rc == RTKWORD) {
            if (lastKeyword() == L"Close") {
                closed = true;
                break;
            }
            if (points.size() > 1)
                points.pop_back();
            continue;
        }
        if (rc == RTCAN && points.size() < 2)
            return;
        if (rc != RTNORM)
            break;
        if (p.isEqualTo(points.back()))
            continue;
        points.push_back(p);
    }
    if (points.size() < 2)
        return;
    auto* pl = new AcDbPolyline(static_cast<unsigned>(points.size()));
    for (size_t i = 0; i < points.size(); ++i)
        pl->addVertexAt(static_cast<unsigned>(i), AcGePoint2d(points[i].x, points[i].y));
    pl->setClosed(closed);
    apcmd::append(pl);
}

// The fixed height of the current text style, 0 when it has none.
double styleHeight(AcDbDatabase* db)
{
    AcDbTextStyleTableRecord* style = nullptr;
    if (acdbOpenObject(style, db->textstyle(), AcDb::kForRead) != Acad::eOk)
        return 0.0;
    const double h = style->textSize();
    style->close();
    return h;
}

void cmdText()
{
    AcDbDatabase* db = apcmd::database();
    if (!db)
        return;
    AcGePoint3d at;
    if (getPoint(L"\nSpecify start point of text: ", at) != RTNORM)
        return;
    double height = styleHeight(db);
    if (height <= 0.0) {
        height = db->textsize();
        wchar_t prompt[80];
        swprintf(prompt, 80, L"\nSpecify height <%.4f>: ", height);
        acedInitGet(RSG_NOZERO | RSG_NONEG, nullptr);
        double given = 0.0;
        const int rc = apcmd::getDist(prompt, given, &at);
        if (rc == RTNORM)
            height = given;
        else if (rc != RTNONE)
            return;
        db->setTextsize(height);
    }
    double rotation = 0.0;
    const int rc = apcmd::getAngle(L"\nSpecify rotation angle of text <0>: ", rotation, &at);
    if (rc != RTNORM && rc != RTNONE)
        return;
    const AcGeVector3d down = AcGeVector3d(std::sin(rotation), -std::cos(rotation), 0.0) * (height * 5.0 / 3.0);
    for (;;) {
        ACHAR line[1024] = {};
        if (acedGetString(1, L"\nEnter text: ", line, 1024) != RTNORM || !line[0])
            return;
        apcmd::append(new AcDbText(at, line, db->textstyle(), height, rotation));
        at += down;
    }
}

void cmdMText()
{
    AcDbDatabase* db = apcmd::database();
    if (!db)
        return;
    AcGePoint3d c1, c2;
    if (getPoint(L"\nSpecify first corner: ", c1) != RTNORM ||
        getPoint(L"\nSpecify opposite corner: ", c2, &c1) != RTNORM)
        return;
    std::wstring contents;
    for (;;) {
        ACHAR line[1024] = {};
        if (acedGetString(1, L"\nEnter text: ", line, 1024) != RTNORM || !line[0])
            break;
        if (!contents.empty())
            contents += L"\\P";
        contents += line;
    }
    if (contents.empty())
        return;
    auto* mt = new AcDbMText();
    mt->setLocation(AcGePoint3d(std::min(c1.x, c2.x), std::max(c1.y, c2.y), c1.z));
    mt->setWidth(std::fabs(c2.x - c1.x));
    mt->setTextHeight(db->textsize() > 0.0 ? db->textsize() : 0.25);
    mt->setContents(contents.c_str());
    apcmd::append(mt);
}

} // namespace

void apRegisterDrawCommands()
{
    apcmd::add(L"LINE", cmdLine);
    apcmd::add(L"ARC", cmdArc);
    apcmd::add(L"CIRCLE", cmdCircle);
    apcmd::add(L"PLINE", cmdPline);
    apcmd::add(L"TEXT", cmdText);
    apcmd::add(L"DTEXT", cmdText);
    apcmd::add(L"MTEXT", cmdMText);
}
