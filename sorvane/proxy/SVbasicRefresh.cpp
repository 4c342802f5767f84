// SVdim: re-measuring a whole chain in three strengths (Refresh, DimRefresh,
// Regenerate), and placing a parallel chain beside another.
#include <cmath>
#include <stdexcept>

#include "app/App.h"
#include "app/DlgMain.h"
#include "host/db/AcDbDatabase.h"
#include "host/ed/AcEdInput.h"
#include "host/ed/AcEdUcs.h"
#include "host/ge/geassign.h"
#include "host/mfc/CException.h"
#include "host/rx/acutPrintf.h"
#include "options/GlobDimOptions.h"
#include "proxy/SVbasic.h"
#include "proxy/Util.h"
#include "services/Locks.h"

namespace {

constexpr int kOptExtNewPosition = 1;
constexpr int kOptAutoPosition = 11;
constexpr int kDblTextOffset = 7;
constexpr int kStrDelimiter = 5;

// Holds the drawing lock for one refresh: takes it only when it isn't held,
// and gives back only what it took.
class RefreshLock {
public:
    explicit RefreshLock(AcDbDatabase* pDb) : m_pDb(pDb), m_bTook(pDb && !IsLocked(pDb) && LockDb(pDb)) {}
    ~RefreshLock()
    {
        if (m_bTook)
            UnlockDB(m_pDb);
    }
    RefreshLock(const RefreshLock&) = delete;
    RefreshLock& operator=(const RefreshLock&) = delete;

private:
    AcDbDatabase* m_pDb;
    bool m_bTook;
};

// Write access for one refresh on a chain open for read; restores the state.
class WriteScope {
public:
    explicit WriteScope(SVdim& chain) : m_chain(chain)
    {
        if (!chain.isDatabaseResident() || chain.isWriteEnabled())
            return;
        if (chain.isNotifyEnabled())
            m_bNotify = chain.upgradeFromNotify(m_bWasWritable) == Acad::eOk;
        else
            m_bRead = chain.upgradeOpen() == Acad::eOk;
    }
    ~WriteScope()
    {
        if (m_bNotify)
            m_chain.downgradeToNotify(m_bWasWritable);
        else if (m_bRead)
            m_chain.downgradeOpen();
    }
    WriteScope(const WriteScope&) = delete;
    WriteScope& operator=(const WriteScope&) = delete;
    bool Failed() const { return m_chain.isDatabaseResident() && !m_chain.isWriteEnabled(); }

private:
    SVdim& m_chain;
    bool m_bNotify = false;
    bool m_bRead = false;
    Adesk::Boolean m_bWasWritable = false;
};

// The option store's mode set to the linear set for one call.
class LinearModeScope {
public:
    LinearModeScope() : m_iOld(pGlobDimOptions ? pGlobDimOptions->m_iMode : 0)
    {
        if (pGlobDimOptions)
            pGlobDimOptions->m_iMode = kModeLinear;
    }
    ~LinearModeScope()
    {
        if (pGlobDimOptions)
            pGlobDimOptions->m_iMode = m_iOld;
    }
    LinearModeScope(const LinearModeScope&) = delete;
    LinearModeScope& operator=(const LinearModeScope&) = delete;

private:
    int m_iOld;
};

AcDbDatabase* ChainDatabase(const SVdim& chain)
{
    return chain.databaseToUse();
}

AcGePoint3dArray TextPoints(const SVdim& chain)
{
    AcGePoint3dArray points;
    for (int i = 0; i < chain.GetExtensions(); ++i)
        points.append(chain.m_points[4 * i + 3]);
    return points;
}

}  // namespace

BOOL SVdim::Refresh()
{
    AcDbDatabase* pDb = ChainDatabase(*this);
    if (!pDb)
        return FALSE;
    RefreshLock lock(pDb);
    WriteScope write(*this);
    try {
        for (int i = 0; i < GetExtensions(); ++i) {
            AcGePoint3d ptInput = m_points[4 * i];
            if (SetPointInput(i, ptInput, 0) < 0)
                break;
        }
    } catch (CException* pError) {
        pError->Delete();
        acutPrintf(L"\n!!!REFRESH ERROR");
    } catch (const std::exception&) {
        acutPrintf(L"\n!!!REFRESH ERROR");
    }
    recordGraphicsModified(1);
    return TRUE;
}

BOOL SVdim::DimRefresh(int iType)
{
    AcDbDatabase* pDb = ChainDatabase(*this);
    if (!pDb)
        return FALSE;
    RefreshLock lock(pDb);
    WriteScope write(*this);
    RecalcVectorDim();
    if (iType > 0 && arrayDouble.GetSize() > kDblTextOffset)
        arrayDouble[kDblTextOffset] = GlobalDouble(kDblTextOffset);
    RearrangeExtensions(0);
    const AcGePoint3dArray savedTexts = TextPoints(*this);
    for (int i = 0; i < GetExtensions(); ++i) {
        const AcGePoint3d ptSaved = m_points[4 * i + 1];
        AcGePoint3d ptInput = m_points[4 * i];
        const int iNew = SetPointInput(i, ptInput, 0);
        if (iNew < 0)
            break;
        if (iType >= 0 && iNew == i) {
            AcGePoint3d ptStart = ptSaved;
            SetPoint(i, ptStart, 0);
        }
    }
    if (iType <= 0) {
        // A text that a re-measure put across the dimension line is mirrored
        // back to the side it stood on.
        const AcGeLine3d lineDim = GetDimLine();
        AcGeVector3d vAcross = GetChainNormal().crossProduct(m_vectorDim);
        if (vAcross.length() > 0.0)
            vAcross.normalize();
        const AcGePoint3d ptOnDim = GetPointDim(0);
        for (int i = 1; i < GetExtensions() && i < savedTexts.length(); ++i) {
            const AcGePoint3d ptSaved = savedTexts[i];
            m_points[4 * i + 3] = ptSaved;
            AcGePoint3dArray corners;
            double dWidth = 0.0, dHeight = 0.0;
            GetTextCorners(i, 0.0, corners, dWidth, dHeight);
            if (corners.length() < 3)
                continue;
            const double d0 = (corners[0] - ptOnDim).dotProduct(vAcross);
            const double d2 = (corners[2] - ptOnDim).dotProduct(vAcross);
            if (!((d0 > 0.0001 && d2 < -0.0001) || (d0 < -0.0001 && d2 > 0.0001)))
                continue;
            AcGePoint3d ptCross;
            if (MyIntersect(AcGeLine3d(ptSaved, GetLineExt(i).direction()), lineDim, ptCross))
                m_points[4 * i + 3] = ptCross + (ptCross - ptSaved);
        }
    }
    if (iType <= 0 && GlobalOptInt(kOptAutoPosition) && m_dimType != kArc)
        AdjustAllTexts();
    recordGraphicsModified(1);
    return TRUE;
}

BOOL SVdim::Regenerate(int iType)
{
    AcDbDatabase* pDb = ChainDatabase(*this);
    if (!pDb)
        return FALSE;
    RefreshLock lock(pDb);
    WriteScope write(*this);
    if (write.Failed())
        return FALSE;
    LinearModeScope mode;
    int iTextMode = 0;
    if (iType < 1) {
        if (dlgMyApp)
            dlgMyApp->InitParameters(this, &iTextMode);
        RecalcVectorDim();
    }
    if (pGlobDimOptions && arrayString.GetSize() > kStrDelimiter)
        arrayString[kStrDelimiter] = pGlobDimOptions->GetSet(kModeLinear).arrayString[kStrDelimiter];
    if (iType != 0 && arrayDouble.GetSize() > kDblTextOffset)
        arrayDouble[kDblTextOffset] = GlobalDouble(kDblTextOffset);
    RearrangeExtensions(0);
    const AcGePoint3dArray savedTexts = TextPoints(*this);
    const bool bKeepStarts = GlobalOptInt(kOptExtNewPosition) == 0;
    for (int i = 0; i < GetExtensions(); ++i) {
        const AcGePoint3d ptSaved = m_points[4 * i + 1];
        AcGePoint3d ptInput = m_points[4 * i];
        if (SetPointInput(i, ptInput, 0) < 0)
            break;
        if (bKeepStarts)
            m_points[4 * i + 1] = ptSaved;
    }
    const bool bAuto = GlobalOptInt(kOptAutoPosition) && m_dimType != kArc;
    if (iTextMode != 1) {
        for (int i = 1; i < GetExtensions() && i < savedTexts.length(); ++i) {
            if (iTextMode == 0 || bAuto) {
                m_points[4 * i + 3] = savedTexts[i];
            } else if (iTextMode == 2 && m_dimType != kArc) {
                // The text stays on its own line along the chain.
                AcGePoint3d ptHit;
                if (MyIntersect(AcGeLine3d(m_points[4 * i + 3], m_vectorDim),
                                AcGeLine3d(savedTexts[i], GetLineExt(i).direction()), ptHit))
                    m_points[4 * i + 3] = ptHit;
            }
            // Arc chains keep the text on its circle with the arc forms.
        }
    }
    if (iTextMode != 0 && bAuto)
        AdjustAllTexts();
    recordGraphicsModified(1);
    return TRUE;
}

BOOL SVdim::GetOffsetDimPoint(const SVdim* pSource)
{
    if (!pSource || pSource->GetExtensions() < 2)
        return FALSE;
    AcGePoint3d ptLine;
    if (pSource->m_dimType == kArc) {
        // Arc chains: the farther of the first two dimension points.
        const AcGePoint3d ptInput = pSource->GetPointInput(0);
        const AcGePoint3d ptA = pSource->GetPointDim(0);
        const AcGePoint3d ptB = pSource->GetPointDim(1);
        ptLine = ptA.distanceTo(ptInput) >= ptB.distanceTo(ptInput) ? ptA : ptB;
    } else {
        const AcGePoint3d ptFirst = pSource->GetPointDim(0);
        AcGeVector3d vAcross = pSource->GetChainNormal().crossProduct(pSource->m_vectorDim);
        if (vAcross.length() == 0.0)
            return FALSE;
        vAcross.normalize();
        // Without an answer the new chain goes to the side away from the measured points.
        double dSide = (ptFirst - pSource->GetPointInput(0)).dotProduct(vAcross) >= 0.0 ? 1.0 : -1.0;
        ads_point ptPicked;
        if (acedGetPoint(nullptr, L"\nZu versetzende Seite angeben: ", ptPicked) == RTNORM) {
            AcGePoint3d ptWcs;
            acdbUcs2Wcs(asPnt3d(ptPicked), ptWcs);
            dSide = (ptWcs - ptFirst).dotProduct(vAcross) >= 0.0 ? 1.0 : -1.0;
        }
        ptLine = ptFirst + vAcross * (dSide * ToDrawing(GlobalDouble(kDblDimLinesDistance)));
    }
    ChangePointMainDim(ptLine, 0);
    return TRUE;
}
