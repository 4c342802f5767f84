// SVdim: paper sizes to drawing sizes, the chain's whole-degree angle tests,
// the display switches combined with the global options, and the way back
// from a chain's format to the option store.
#include <cstdlib>
#include <cwchar>

#include "host/db/AcDbDatabase.h"
#include "host/rx/acutPrintf.h"
#include "options/GlobDimOptions.h"
#include "proxy/SVbasic.h"
#include "services/Annotative.h"

namespace {

// General integers not named by the option store.
constexpr int kOptIntShowSumOfDim = 7;
constexpr int kOptIntAltUnits = 14;

// The drawing's current annotation scale when the chain is annotative; 0 otherwise.
double AnnotationScaleOf(const SVdim* pChain)
{
    // Reading the flag and the drawing's scale changes nothing of the chain.
    SVdim* pSelf = const_cast<SVdim*>(pChain);
    if (!IsAnnotative(pSelf))
        return 0.0;
    return GetCurAnnotationScale(pChain->databaseToUse());
}

// A global switch combined with the chain's status: 0 follows the switch,
// 1 is on, 2 is off.
BOOL CombineStatus(int iGlobalIndex, UINT nStatus)
{
    const bool bGlobal = pGlobDimOptions && pGlobDimOptions->GetOptInt(iGlobalIndex) != 0;
    if (!bGlobal && nStatus != 1)
        return FALSE;
    return nStatus != 2;
}

}  // namespace

double SVdim::GetScale() const
{
    const double dAnno = AnnotationScaleOf(this);
    if (dAnno != 0.0)
        return dAnno;
    double dScale = arrayDouble[kDblScaleVal];
    if (dScale == 0.0) {
        acutPrintf(L"\n!!! Scale=0 !!!");
        dScale = 0.01;
        // A repair of the stored value, not a change of the chain.
        const_cast<SVdim*>(this)->arrayDouble[kDblScaleVal] = dScale;
    }
    return dScale;
}

double SVdim::GetAcadUnits() const
{
    double dUnits = arrayDouble[kDblAcadUnits];
    if (dUnits == 0.0) {
        dUnits = 0.001;
        const_cast<SVdim*>(this)->arrayDouble[kDblAcadUnits] = dUnits;
    }
    return dUnits;
}

double SVdim::ToDrawing(double dValue) const
{
    return dValue / GetScale() * GetAcadUnits();
}

double SVdim::AdaptByTextHeight(int iIndex) const
{
    double dPercent = 10.0;
    if (pGlobDimOptions && iIndex >= 0 && iIndex < pGlobDimOptions->GetSet().arrayDouble.GetSize())
        dPercent = pGlobDimOptions->GetDouble(iIndex);
    else if (iIndex >= 0 && iIndex < arrayDouble.GetSize())
        dPercent = arrayDouble[iIndex];
    else
        acutPrintf(L"\n!!! AdaptByTextHeight i=%d ", iIndex);
    if (dPercent == 0.0)
        dPercent = 10.0;
    return ToDrawing(arrayDouble[kDblTextHeight] / 10.0 * dPercent / 100.0);
}

double SVdim::DegRound(double dAngle, int iDecimals)
{
    // Printing and reading back rounds the way every angle test of the chain
    // expects: 89.6 degrees is 90.
    wchar_t szText[64];
    std::swprintf(szText, 64, iDecimals == 2 ? L"%.2f" : L"%.0f", 180.0 * dAngle / kPi);
    return std::wcstod(szText, nullptr);
}

double SVdim::SnapAngle(double& dAngle)
{
    const double dDeg = DegRound(dAngle, 2);
    if (dAngle < 0.1 && dDeg == 0)
        dAngle = 0.0;
    else if (dAngle > 1.5 && dAngle < 1.6 && dDeg == 90)
        dAngle = kHalfPi;
    else if (dAngle > 3.1 && dAngle < 3.2 && dDeg == 180)
        dAngle = 0.0;
    else if (dAngle > 4.6 && dAngle < 4.8 && dDeg == 270)
        dAngle = 270.0;  // degrees, not radians: the chain has always done so
    else if (dAngle > 6.2 && dDeg == 360)
        dAngle = 0.0;
    return dAngle;
}

double SVdim::LineRotation(const AcGeVector3d& vLine)
{
    const double dForward = vLine.angleTo(AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    const double dBackward = (-vLine).angleTo(AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    double dRotation = kPi - (dBackward < dForward ? dBackward : dForward);
    SnapAngle(dRotation);
    if (dRotation < 0.0)
        dRotation += kTwoPi;
    if (DegRound(dRotation) >= 180)
        dRotation -= kPi;
    return SnapAngle(dRotation);
}

BOOL SVdim::IsAltUnits() const
{
    return CombineStatus(kOptIntAltUnits, arrayInt[kIntAltUnitsStatus]);
}

BOOL SVdim::IsShowSum() const
{
    return CombineStatus(kOptIntShowSumOfDim, arrayInt[kIntSumStatus]);
}

BOOL SVdim::IsWipeOut() const
{
    return CombineStatus(kOptIntWipeOut, arrayInt[kIntWipeOutStatus]);
}

BOOL SVdim::SaveToGlobal() const
{
    if (!pGlobDimOptions)
        return FALSE;
    const CString strIniFile = pGlobDimOptions->GetString(kStrIniFile);
    for (int iIndex : {kDblScaleVal, kDblTextHeight, kDblExtLineLength, kDblDimLinesDistance, kDblAcadUnits})
        pGlobDimOptions->SetDouble(iIndex, arrayDouble[iIndex]);
    for (int iIndex : {kIntExtLine, kIntRoundMM, kIntDecimals})
        pGlobDimOptions->SetInt(iIndex, static_cast<int>(arrayInt[iIndex]));
    for (int i = 0; i < arrayString.GetSize(); ++i)
        pGlobDimOptions->SetString(i, arrayString[i]);
    pGlobDimOptions->SetString(kStrIniFile, strIniFile);
    return TRUE;
}
