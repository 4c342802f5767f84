// The cut line: a temporary polyline fences the objects it crosses, and the
// crossings become the points of a new chain.
#include "app/CutLine.h"

#include "app/DimJig.h"
#include "app/DimPlace.h"
#include "app/Panel.h"
#include "host/db/AcDbCurve.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbPolyline.h"
#include "host/db/acutads.h"
#include "host/ed/AcEdInput.h"
#include "host/ed/AcEdSelection.h"
#include "host/ed/AcEdUcs.h"
#include "host/ge/geassign.h"
#include "options/GlobDimOptions.h"
#include "services/Append.h"
#include "services/Documents.h"
#include "services/Locks.h"
#include "services/Messages.h"

namespace {

constexpr int kMaxFencedObjects = 100;

// The fence of the curve: its vertices (a lightweight polyline) or its ends, in UCS.
void FenceVertices(const AcDbCurve* pCurve, AcGePoint3dArray& vertices)
{
    if (const AcDbPolyline* pPline = AcDbPolyline::cast(pCurve)) {
        for (unsigned int i = 0; i < pPline->numVerts(); ++i) {
            AcGePoint3d pt;
            if (pPline->getPointAt(i, pt) == Acad::eOk)
                vertices.append(pt);
        }
    } else {
        AcGePoint3d ptStart, ptEnd;
        if (pCurve->getStartPoint(ptStart) == Acad::eOk && pCurve->getEndPoint(ptEnd) == Acad::eOk) {
            vertices.append(ptStart);
            vertices.append(ptEnd);
        }
    }
    for (int i = 0; i < vertices.length(); ++i) {
        AcGePoint3d ptUcs;
        acdbWcs2Ucs(vertices[i], ptUcs);
        vertices[i] = ptUcs;
    }
}

// The temporary polyline through the points (WCS), added to the drawing and closed.
AcDbObjectId AddCutLine(const AcGePoint3dArray& points)
{
    auto* pPline = new AcDbPolyline(static_cast<unsigned int>(points.length()));
    pPline->setElevation(points[0].z);
    for (int i = 0; i < points.length(); ++i)
        pPline->addVertexAt(static_cast<unsigned int>(i), AcGePoint2d(points[i].x, points[i].y));
    AcDbObjectId id;
    if (postToDb(pPline, &id) != Acad::eOk) {
        delete pPline;
        return AcDbObjectId::kNull;
    }
    return id;
}

// The crossings of the cut line; the line itself is erased again.
void CrossingsOf(AcDbObjectId lineId, AcGePoint3dArray& points)
{
    AcDbCurve* pLine = nullptr;
    if (acdbOpenObject(pLine, lineId, AcDb::kForRead) != Acad::eOk || !pLine)
        return;
    GetIntersectPoints(pLine, points);
    if (pLine->upgradeOpen() == Acad::eOk)
        pLine->erase();
    pLine->close();
}

} // namespace

int RemoveDuplicatePoints(AcGePoint3dArray& points)
{
    AcGePoint3dArray kept;
    for (int i = 0; i < points.length(); ++i) {
        bool bSeen = false;
        for (int k = 0; k < kept.length() && !bSeen; ++k)
            bSeen = kept[k].isEqualTo(points[i]);
        if (!bSeen)
            kept.append(points[i]);
    }
    points = kept;
    return points.length();
}

int GetIntersectPoints(const AcDbCurve* pCurve, AcGePoint3dArray& points)
{
    if (!pCurve)
        return 0;
    AcGePoint3dArray vertices;
    FenceVertices(pCurve, vertices);
    if (vertices.length() < 2)
        return 0;
    resbuf* pFence = nullptr;
    resbuf** ppTail = &pFence;
    for (int i = 0; i < vertices.length(); ++i) {
        resbuf* rb = acutNewRb(RT3DPOINT);
        rb->resval.rpoint[0] = vertices[i].x;
        rb->resval.rpoint[1] = vertices[i].y;
        rb->resval.rpoint[2] = vertices[i].z;
        *ppTail = rb;
        ppTail = &rb->rbnext;
    }
    ads_name ss = {0, 0};
    const int rc = acedSSGet(L"_F", pFence, nullptr, nullptr, ss);
    acutRelRb(pFence);
    if (rc != RTNORM)
        return 0;
    Adesk::Int32 nLength = 0;
    acedSSLength(ss, &nLength);
    const int nBefore = points.length();
    for (Adesk::Int32 i = 0; i < nLength && i < kMaxFencedObjects; ++i) {
        ads_name ent = {0, 0};
        AcDbObjectId id;
        if (acedSSName(ss, i, ent) != RTNORM || acdbGetObjectId(id, ent) != Acad::eOk || id == pCurve->objectId())
            continue;
        AcDbEntity* pEnt = nullptr;
        if (acdbOpenObject(pEnt, id, AcDb::kForRead) != Acad::eOk || !pEnt)
            continue;
        if (AcDbCurve::cast(pEnt)) {
            AcGePoint3dArray hits;
            if (pEnt->intersectWith(pCurve, AcDb::kOnBothOperands, hits) == Acad::eOk)
                for (int k = 0; k < hits.length(); ++k)
                    points.append(hits[k]);
        }
        pEnt->close();
    }
    acedSSFree(ss);
    return points.length() - nBefore;
}

void MakeDimByLine(int iType)
{
    if (!pGlobDimOptions)
        return;
    HideDlgMain();
    AcGePoint3dArray linePoints;
    ads_point ptLast = {0, 0, 0};
    int rc = RTNORM;
    for (;;) {
        ads_point pt = {0, 0, 0};
        rc = acedGetPoint(linePoints.isEmpty() ? nullptr : ptLast, L"\nSchnittlinie:", pt);
        if (rc != RTNORM)
            break;
        for (int k = 0; k < 3; ++k)
            ptLast[k] = pt[k];
        AcGePoint3d ptWcs;
        acdbUcs2Wcs(asPnt3d(pt), ptWcs);
        linePoints.append(ptWcs);
        if (iType == 2 && linePoints.length() == 2)
            break;
    }
    if (rc == RTCAN || linePoints.length() < 2) {
        ShowDlgMain();
        return;
    }

    AcDbDatabase* pDb = acdbCurDwg();
    if (!pDb) {
        ShowDlgMain();
        return;
    }
    const int bWasLocked = TestLocked(pDb, L"MakeDimByLine");
    // The helper line is no step the user should undo.
    const bool bUndo = pDb->undoRecording();
    pDb->disableUndoRecording(true);
    AcGePoint3dArray crossings;
    const AcDbObjectId lineId = AddCutLine(linePoints);
    if (!lineId.isNull())
        CrossingsOf(lineId, crossings);
    pDb->disableUndoRecording(!bUndo);

    if (RemoveDuplicatePoints(crossings) < 2) {
        MessageBoxText(L"Schnittpunkte nicht gefunden...");
        ShowDlgMain();
    } else {
        ArmClickRecorder();
        ads_point pt = {0, 0, 0};
        rc = acedGetPoint(nullptr, L"\nMaßkette wählen oder die Position der Maßlinie bestimmen: ", pt);
        DisarmClickRecorder();
        ShowDlgMain();
        if (rc == RTNORM) {
            AcGePoint3d ptDim;
            acdbUcs2Wcs(asPnt3d(pt), ptDim);
            const POINT pixel{iLastClickX, iLastClickY};
            MakeDim(crossings, ptDim, iType, HasRecordedClick() ? &pixel : nullptr);
        }
    }
    if (!bWasLocked)
        UnlockDB(pDb);
}
