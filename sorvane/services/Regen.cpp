// The redraw of all the module's entities and the repaint of the view.
#include "services/Regen.h"

#include "host/db/AcDbBlockTable.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbOpen.h"
#include "host/db/AcDbViewport.h"
#include "host/ed/AcEdWindow.h"
#include "host/mfc/CWaitCursor.h"
#include "host/rx/acutPrintf.h"
#include "host/win/WinWindow.h"
#include "services/BlockWalk.h"
#include "services/Documents.h"
#include "services/DrawOrder.h"
#include "services/Guard.h"
#include "services/Locks.h"
#include "services/Messages.h"
#include "services/SorvaneEntities.h"

namespace {

// The status a mode clears on a chain, or -1.
int ChainStatusOfMode(int mode)
{
    switch (mode) {
    case 1:
        return kStatusSum;
    case 2:
        return kStatusWipeOut;
    case 3:
        return kStatusAltUnits;
    default:
        return -1;
    }
}

void ClearForMode(AcDbEntity* pEntity, int mode)
{
    const int iStatus = ChainStatusOfMode(mode);
    if (IsHeightMark(pEntity)) {
        // Height marks show no sum; other modes recompute the mark.
        if (mode == 2 || mode == 3)
            ClearEntityStatus(pEntity, iStatus);
        else if (mode != 1)
            ResetHeightMark(pEntity);
    } else if (iStatus >= 0) {
        ClearEntityStatus(pEntity, iStatus);
    }
}

// Model space: clears and marks; the ids of the module's entities.
void RegenModelSpace(AcDbDatabase* pDb, int mode, AcDbObjectIdArray& touched)
{
    AcDbObjectIdArray ids;
    GetBlockEntityIds(pDb, ACDB_MODEL_SPACE, ids);
    for (int i = 0; i < ids.length(); ++i) {
        AcDbEntity* pEntity = nullptr;
        if (acdbOpenAcDbEntity(pEntity, ids[i], AcDb::kForRead) != Acad::eOk)
            continue;
        if (IsSorvaneEntity(pEntity)) {
            touched.append(ids[i]);
            if (pEntity->upgradeOpen() == Acad::eOk && pEntity->isWriteEnabled()) {
                ClearForMode(pEntity, mode);
                pEntity->recordGraphicsModified(true);
                pEntity->downgradeOpen();
            }
        }
        pEntity->close();
    }
}

// Paper space: marks the module's entities and has each viewport show the new state.
bool RegenPaperSpace(AcDbDatabase* pDb, const AcDbObjectIdArray& touched)
{
    AcDbObjectIdArray ids;
    if (!GetBlockEntityIds(pDb, ACDB_PAPER_SPACE, ids))
        return false;
    for (int i = 0; i < ids.length(); ++i) {
        AcDbEntity* pEntity = nullptr;
        if (acdbOpenAcDbEntity(pEntity, ids[i], AcDb::kForRead) != Acad::eOk)
            continue;
        if (IsSorvaneEntity(pEntity)) {
            if (pEntity->upgradeOpen() == Acad::eOk && pEntity->isWriteEnabled())
                pEntity->recordGraphicsModified(true);
            pEntity->close();
        } else if (AcDbViewport* pViewport = AcDbViewport::cast(pEntity)) {
            // The host draws every viewport from the database, so none is made current.
            pViewport->upgradeOpen();
            pViewport->updateDisplay();
            pViewport->close();
            ObjectsGraphicsModified(touched);
        } else {
            pEntity->close();
        }
    }
    return true;
}

} // namespace

void DwgRegenSVdim(int mode)
{
    CWaitCursor wait;
    AcDbDatabase* pDb = acdbCurDwg();
    if (!pDb)
        return;
    const int iWasLocked = TestLocked(pDb, L"DwgRegenSVdim");
    AcDbObjectIdArray touched;
    RegenModelSpace(pDb, mode, touched);
    const bool bPaper = RegenPaperSpace(pDb, touched);
    if (!bPaper)
        acutPrintf(L"\nCannot access paper space.");
    if (!iWasLocked)
        UnlockDB(pDb);
    if (bPaper)
        DwgRefresh();
}

void DwgRefresh()
{
    if (!RunGuarded([] { acedUpdateDisplay(); }))
        MessageBoxText(L"Any PROBLEM on UpdateDisplay");
    // Repaint through the main window, then hand the activity back (to the panel).
    const HWND hKept = GetActiveWindow();
    const HWND hMain = adsw_acadMainWnd();
    EnableWindow(hMain, TRUE);
    SetFocus(hMain);
    SetActiveWindow(hMain);
    if (hKept)
        SetActiveWindow(hKept);
}
