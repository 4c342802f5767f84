// The linear placement commands: two points, then the jig places the line
// and takes further points; or the cut line when DimByLine is on.
#include "app/DimPlace.h"

#include "app/App.h"
#include "app/CutLine.h"
#include "app/DimJig.h"
#include "app/DlgMain.h"
#include "app/Panel.h"
#include "host/db/AcDbDatabase.h"
#include "host/ed/AcEdInput.h"
#include "host/ed/AcEdUcs.h"
#include "host/ge/AcGeTol.h"
#include "host/ge/geassign.h"
#include "host/rx/acutPrintf.h"
#include "options/GlobDimOptions.h"
#include "proxy/SVbasic.h"
#include "services/Append.h"
#include "services/Documents.h"
#include "services/Layers.h"
#include "services/Locks.h"
#include "services/Messages.h"

namespace {

constexpr int kModeChains = 2;
constexpr int kIntForbidLayer0 = 18;
constexpr int kOptDimByLine = 0;

// The two measured points (UCS). RTNORM, or the status that ended the input.
int AskTwoPoints(ads_point pt1, ads_point pt2)
{
    int rc = acedGetPoint(nullptr, L"\nErster Maßpunkt: ", pt1);
    if (rc != RTNORM)
        return rc;
    for (;;) {
        rc = acedGetPoint(pt1, L"\nZweiter Maßpunkt: ", pt2);
        if (rc != RTNORM)
            return rc;
        if (!asPnt3d(pt1).isEqualTo(asPnt3d(pt2)))
            return RTNORM;
        acutPrintf(L"\nDer erste und zweite Punkt dürfen nicht identisch sein!");
    }
}

} // namespace

BOOL CheckLayerRule()
{
    if (!pGlobDimOptions || !pGlobDimOptions->GetInt(kIntForbidLayer0))
        return TRUE;
    // The headless panel shows no layer of its own: the chain takes the current one.
    AcDbDatabase* pDb = acdbCurDwg();
    if (!pDb || GetLayerName(pDb->clayer()).CompareNoCase(L"0") != 0)
        return TRUE;
    MessageBoxText(L"Layer \"0\" ist verboten.");
    return FALSE;
}

BOOL PrepareMode()
{
    if (!dlgMyApp)
        StartApp(0);
    if (!dlgMyApp)
        return FALSE;
    if (dlgMyApp->m_iCurrentMode != kModeChains)
        dlgMyApp->AdjustMode(kModeChains);
    return CheckLayerRule();
}

int DimPlace(int iType)
{
    const int bWasVisible = dlgMyApp && dlgMyApp->IsWindowVisible() ? 1 : 0;
    if (!bWasVisible)
        StartApp(0);
    if (!dlgMyApp || !pGlobDimOptions)
        return 0;
    if (!CheckLayerRule())
        return 0;
    FocusAcad();
    if (dlgMyApp->m_iCurrentMode != kModeChains)
        dlgMyApp->AdjustMode(kModeChains);
    dlgMyApp->EnableWindow(FALSE);
    if (pGlobDimOptions->GetOptInt(kOptDimByLine)) {
        pGlobDimOptions->m_iRunningCommand = iType;
        MakeDimByLine(iType);
        return 0;
    }
    const int iResult = bWasVisible ? 0 : 1;
    HideDlgMain();
    ads_point pt1 = {0, 0, 0}, pt2 = {0, 0, 0};
    if (AskTwoPoints(pt1, pt2) != RTNORM)
        return iResult;

    UnlockAll();
    AcDbDatabase* pDb = acdbCurDwg();
    const int bWasLocked = pDb ? TestLocked(pDb, L"DimPlace") : 1;
    {
        AcGePoint3d ptWcs1, ptWcs2;
        acdbUcs2Wcs(asPnt3d(pt1), ptWcs1);
        acdbUcs2Wcs(asPnt3d(pt2), ptWcs2);
        SVdimJig jig(ptWcs1, ptWcs2, iType, AcDbObjectId::kNull, 0);
        jig.dragAcquire();
    }
    if (!bWasLocked)
        UnlockDB(pDb);
    return iResult;
}

AcDbObjectId MakeDim(const AcGePoint3dArray& points, const AcGePoint3d& ptDim, int iType, const POINT* pPickedPixel)
{
    if (points.length() < 2 || iType < SVdim::kHorizontal || iType > SVdim::kAligned)
        return AcDbObjectId::kNull;
    // An aligned chain follows its own first two points and asks for nothing.
    const AcGeVector3d vAlong = points[1] - points[0];
    const bool bAlong = iType == SVdim::kAligned && !vAlong.isZeroLength();
    AcGeVector3d vUnit = bAlong ? vAlong.normal() : AcGeVector3d::kXAxis;
    auto* pDim = new SVdim(points[0], points[1], ptDim, iType, bAlong ? &vUnit : nullptr);
    for (int i = 2; i < points.length(); ++i) {
        AcGePoint3d pt = points[i];
        pDim->AddPointInput(pt, false);
    }
    AcGePoint3d ptLine = ptDim;
    if (pPickedPixel)
        TakeLineFromPickedChain(pDim, *pPickedPixel, ptLine);
    pDim->ChangePointMainDim(ptLine, 0);
    pDim->AdjustTexts(0);
    AcDbObjectId id;
    if (addToDb(pDim, &id) != Acad::eOk) {
        delete pDim;
        return AcDbObjectId::kNull;
    }
    pDim->close();
    return id;
}

void RunPlacementCommand(int (*pfnDriver)(int), int iType)
{
    if (pfnDriver && pfnDriver(iType) == 1)
        EndApp(1, 0);
    ShowDlgMain();
    FocusAcad();
    if (dlgMyApp)
        dlgMyApp->EnableWindow(TRUE);
}
