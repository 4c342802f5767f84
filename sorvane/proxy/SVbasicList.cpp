// SVdim: the LIST output. It shows what the chain stores, so that a user (or
// a test reading the transcript) can see a chain's state without drawing it.
#include "host/rx/acutPrintf.h"
#include "proxy/SVbasic.h"

void SVdim::list() const
{
    assertReadEnabled();
    AcDbEntity::list();
    const int iVersion = arrayInt.GetSize() > kIntAppVersion ? static_cast<int>(arrayInt[kIntAppVersion]) : 0;
    const int nExt = GetExtensions();
    acutPrintf(L"\n    Version: %d", iVersion);
    acutPrintf(L"    Typ: %d ", m_dimType);
    acutPrintf(L"\n    Anzahl von Hilfslinien: %d ", nExt);
    acutPrintf(L"\n    Rotation: %.1f (%.1f)", 180.0 * m_dRotation / kPi, m_dRotation);
    acutPrintf(L" vecDim: %.1f,%.1f,%.1f ", m_vectorDim.x, m_vectorDim.y, m_vectorDim.z);
    acutPrintf(L"\nOriginal-BKS: X(%.2f,%.2f,%.2f) Y(%.2f,%.2f,%.2f) Z(%.2f,%.2f,%.2f) ", m_xAxis.x, m_xAxis.y,
               m_xAxis.z, m_yAxis.x, m_yAxis.y, m_yAxis.z, m_zAxis.x, m_zAxis.y, m_zAxis.z);
    for (int i = 0; i < nExt; ++i) {
        const AcGePoint3d& ptInput = m_points[4 * i];
        const AcGePoint3d& ptDim = m_points[4 * i + 2];
        acutPrintf(L"\n  E%d=%f, %f, %f ", i, ptInput.x, ptInput.y, ptInput.z);
        acutPrintf(L"\n  D%d=%f, %f, %f ", i, ptDim.x, ptDim.y, ptDim.z);
        if (i == 0)
            continue;
        const CString strText = i < m_dimTexts.GetSize() ? m_dimTexts[i] : CString();
        acutPrintf(L"\n      Text%d=%s  (Dist=%.15f) ", i, strText, GetDistance(i));
    }
}
