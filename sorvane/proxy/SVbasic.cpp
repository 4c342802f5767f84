// SVdim: class registration, the empty chain and its end, the parameter seed
// from the option store and the chain's coordinate system.
#include "proxy/SVbasic.h"

#include "host/ed/AcEdUcs.h"
#include "host/rx/AcRxBoiler.h"
#include "options/GlobDimOptions.h"
#include "services/Trace.h"

const wchar_t* const kSorvaneClassAppText =
    L"Sorvane|Product Desc: Dimension chains and height marks for architects|Company: Halvorne|"
    L"WEB Address: https://www.halvorne.example/sorvane";

// Written out rather than through the one-line macro so that the application
// text can be the shared constant.
ACRX_DEFINE_MEMBERS(SVdim)
static AcRxObject* makeSVdim() { return new SVdim(); }
void SVdim::rxInit()
{
    // Drawing version 33, maintenance release 228, proxy flags 0xBFF (all operations).
    AcRxDetail::initClass(&SVdim::gpDesc, ACRX_T("SVdim"), AcDbEntity::desc(), 33, 228, 3071, &makeSVdim,
                          ACRX_T("KOVA_SORVANE"), kSorvaneClassAppText);
}

SVdim::SVdim() : m_arcPoints(0, 8), m_points(0, 8) {}

SVdim::~SVdim()
{
    for (INT_PTR i = 0; i < AppendTextList.GetSize(); ++i)
        delete AppendTextList[i];
    AppendTextList.RemoveAll();
}

BOOL SVdim::Initialize(int iMode)
{
    m_normal = AcGeVector3d(0, 0, 1);
    if (!pGlobDimOptions) {
        Trace(L"\nInitialize: !pGlobDimOptions");
        return FALSE;
    }
    if (iMode != 0)
        return TRUE;
    // A plain copy of the linear set; the panel overlays its current values later.
    const CParamSet& set = pGlobDimOptions->GetSet(kModeLinear);
    if (arrayDouble.GetSize() < set.arrayDouble.GetSize() || arrayString.GetSize() < set.arrayString.GetSize() ||
        arrayInt.GetSize() < set.arrayInt.GetSize()) {
        arrayDouble.Copy(set.arrayDouble);
        arrayString.Copy(set.arrayString);
        arrayInt.Copy(set.arrayInt);
    }
    return TRUE;
}

void SVdim::StoreCoordSystem(const AcGeMatrix3d* pMatrix)
{
    AcGeMatrix3d matrix;
    if (pMatrix)
        matrix = *pMatrix;
    else
        acdbUcsMatrix(matrix, database());
    AcGeVector3d zAxis;
    matrix.getCoordSystem(m_xyzOrigin, m_xAxis, m_yAxis, zAxis);
    m_xAxis.normalize();
    m_yAxis.normalize();
    m_zAxis = m_xAxis.crossProduct(m_yAxis);
}

void SVdim::SetCoordSystem(const AcGeMatrix3d* pMatrix)
{
    const bool bUpgraded = isDatabaseResident() && !isWriteEnabled() && upgradeOpen() == Acad::eOk;
    StoreCoordSystem(pMatrix);
    RecalcVectorDim();
    if (bUpgraded)
        downgradeOpen();
}

AcGeVector3d SVdim::GetChainNormal() const
{
    return m_xAxis.crossProduct(m_yAxis);
}

AcGeMatrix3d SVdim::ChainMatrix() const
{
    AcGeMatrix3d matrix;
    matrix.setCoordSystem(m_xyzOrigin, m_xAxis, m_yAxis, m_zAxis);
    return matrix;
}

void SVdim::WcsToChain(AcGePoint3d& point) const
{
    point.transformBy(ChainMatrix().inverse());
}

void SVdim::WcsToChain(AcGeVector3d& vector) const
{
    vector.transformBy(ChainMatrix().inverse());
}

void SVdim::ChainToWcs(AcGePoint3d& point) const
{
    point.transformBy(ChainMatrix());
}

void SVdim::ChainToWcs(AcGeVector3d& vector) const
{
    // Through the transposed, inverted matrix: only its rotation part acts
    // on a vector, which for orthonormal axes is the matrix's own.
    AcGeMatrix3d matrix = ChainMatrix();
    matrix.transposeIt();
    matrix.invert();
    vector.transformBy(matrix);
}
