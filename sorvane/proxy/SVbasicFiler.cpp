// SVdim: the chain's record in a drawing (save, undo and copy share it) and
// its DXF form, which holds the entity properties only.
#include <exception>

#include "app/App.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbDxfFiler.h"
#include "options/GlobDimOptions.h"
#include "options/ParamTable.h"
#include "proxy/SVbasic.h"
#include "services/Trace.h"

namespace {

// The record layout this build writes; newer records are kept as proxies.
constexpr Adesk::Int16 kRecordVersion = 4;

// The running system's version, stored as AppVersion in every record written.
constexpr int kVersionMajor = 2;
constexpr int kVersionMinor = 0;
constexpr int kVersionBuild = 20;
constexpr int kSystemVersion = (kVersionMinor + kVersionMajor * 10) * 100 + kVersionBuild;

Adesk::Int16 Count(INT_PTR n)
{
    return static_cast<Adesk::Int16>(n);
}

int ReadCount(AcDbDwgFiler* pFiler)
{
    Adesk::Int16 n = 0;
    pFiler->readInt16(&n);
    return n > 0 ? n : 0;
}

void WriteAppendText(AcDbDwgFiler* pFiler, const CAppendTextObject& text)
{
    pFiler->writeInt16(static_cast<Adesk::Int16>(text.iExt));
    pFiler->writePoint3d(text.ptText);
    pFiler->writeInt16(static_cast<Adesk::Int16>(text.bAutoPos));
    pFiler->writeString(text.strText);
    pFiler->writeDouble(text.dValue);
    pFiler->writeInt16(text.iReserved);
    pFiler->writeString(text.strReserved);
}

void ReadAppendText(AcDbDwgFiler* pFiler, CAppendTextObject& text)
{
    Adesk::Int16 iValue = 0;
    pFiler->readInt16(&iValue);
    text.iExt = iValue;
    pFiler->readPoint3d(&text.ptText);
    pFiler->readInt16(&iValue);
    text.bAutoPos = iValue;
    pFiler->readString(text.strText);
    pFiler->readDouble(&text.dValue);
    pFiler->readInt16(&text.iReserved);
    pFiler->readString(text.strReserved);
}

bool IsDefaultable(const AcGeVector3d& vector)
{
    return vector.length() == 0.0;
}

}  // namespace

Acad::ErrorStatus SVdim::dwgOutFields(AcDbDwgFiler* pFiler) const
{
    assertReadEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgOutFields(pFiler);
    if (es != Acad::eOk)
        return es;
    // Without the option store the chain cannot be filed faithfully: refuse
    // rather than write a record that reads back different.
    if (!pGlobDimOptions || bUnloaded)
        return Acad::eInvalidInput;
    if (arrayDouble.IsEmpty() || arrayString.IsEmpty() || arrayInt.IsEmpty())
        return Acad::eInvalidInput;

    try {
        const int nExt = GetExtensions();
        pFiler->writeInt16(kRecordVersion);
        pFiler->writeInt16(static_cast<Adesk::Int16>(m_dimType));
        pFiler->writePoint3d(m_xyzOrigin);
        pFiler->writeVector3d(m_xAxis);
        pFiler->writeVector3d(m_yAxis);
        pFiler->writeVector3d(m_zAxis);
        pFiler->writeDouble(m_dRotation);
        pFiler->writeVector3d(m_vectorDim);

        pFiler->writeInt16(Count(m_points.length()));
        for (int i = 0; i < m_points.length(); ++i)
            pFiler->writePoint3d(m_points[i]);

        if (m_dimTexts.GetSize() != nExt)
            TraceF(L"\ndwgOutFields: %d text records for %d extensions", static_cast<int>(m_dimTexts.GetSize()),
                   nExt);
        pFiler->writeInt16(Count(m_dimTexts.GetSize()));
        for (INT_PTR i = 0; i < m_dimTexts.GetSize(); ++i)
            pFiler->writeString(m_dimTexts[i]);

        pFiler->writeInt16(Count(arrayDouble.GetSize()));
        for (INT_PTR i = 0; i < arrayDouble.GetSize(); ++i)
            pFiler->writeDouble(arrayDouble[i]);
        pFiler->writeInt16(Count(arrayString.GetSize()));
        for (INT_PTR i = 0; i < arrayString.GetSize(); ++i)
            pFiler->writeString(arrayString[i]);
        pFiler->writeInt16(Count(arrayInt.GetSize()));
        for (INT_PTR i = 0; i < arrayInt.GetSize(); ++i) {
            const UINT nValue = i == kIntAppVersion ? static_cast<UINT>(kSystemVersion) : arrayInt[i];
            pFiler->writeUInt16(static_cast<Adesk::UInt16>(nValue));
        }

        pFiler->writeVector3d(m_normal);
        pFiler->writeHardPointerId(m_textStyleId);

        pFiler->writeInt16(Count(AppendTextList.GetSize()));
        for (INT_PTR i = 0; i < AppendTextList.GetSize(); ++i) {
            const auto* pText = static_cast<const CAppendTextObject*>(AppendTextList[i]);
            WriteAppendText(pFiler, pText ? *pText : CAppendTextObject());
        }

        if (m_dimType == kArc) {
            pFiler->writeInt16(Count(m_arcPoints.length() + 1));
            pFiler->writeHardPointerId(m_arcObjectId);
            pFiler->writeUInt16(static_cast<Adesk::UInt16>(m_arcSegment));
            for (int i = 0; i < m_arcPoints.length(); ++i)
                pFiler->writePoint3d(m_arcPoints[i]);
            pFiler->writeInt16(Count(m_arcParams.length()));
            for (int i = 0; i < m_arcParams.length(); ++i)
                pFiler->writeDouble(m_arcParams[i]);
        } else {
            pFiler->writeInt16(0);
            pFiler->writeInt16(0);
        }

        // Flags that do not fit the extensions are meaningless: file zeros.
        const bool bFlagsFit = m_extFlags.GetSize() == nExt;
        pFiler->writeInt16(Count(nExt));
        for (int i = 0; i < nExt; ++i)
            pFiler->writeInt16(static_cast<Adesk::Int16>(bFlagsFit ? m_extFlags[i] : 0));
        if (nExt != 0)
            pFiler->writeInt16(0);
    } catch (CException* pError) {
        pError->Delete();
    } catch (const std::exception&) {
    }
    return pFiler->filerStatus();
}

Acad::ErrorStatus SVdim::dwgInFields(AcDbDwgFiler* pFiler)
{
    assertWriteEnabled();
    Acad::ErrorStatus es = AcDbEntity::dwgInFields(pFiler);
    if (es != Acad::eOk)
        return es;
    if (!pGlobDimOptions || bUnloaded)
        return Acad::eInvalidInput;

    try {
        Adesk::Int16 iVersion = 0;
        pFiler->readInt16(&iVersion);
        if (iVersion > kRecordVersion)
            return Acad::eMakeMeProxy;
        Adesk::Int16 iValue = 0;
        pFiler->readInt16(&iValue);
        m_dimType = iValue;

        if (iVersion < 3) {
            m_xyzOrigin = AcGePoint3d(0, 0, 0);
            m_xAxis = AcGeVector3d(1, 0, 0);
            m_yAxis = AcGeVector3d(0, 1, 0);
            m_zAxis = AcGeVector3d(0, 0, 1);
        } else {
            pFiler->readPoint3d(&m_xyzOrigin);
            pFiler->readVector3d(&m_xAxis);
            pFiler->readVector3d(&m_yAxis);
            pFiler->readVector3d(&m_zAxis);
        }
        if (IsDefaultable(m_xAxis) || IsDefaultable(m_yAxis) || IsDefaultable(m_zAxis)) {
            m_xAxis = AcGeVector3d(1, 0, 0);
            m_yAxis = AcGeVector3d(0, 1, 0);
            m_zAxis = AcGeVector3d(0, 0, 1);
        }

        pFiler->readDouble(&m_dRotation);
        if (iVersion > 1)
            pFiler->readVector3d(&m_vectorDim);
        else
            m_vectorDim = AcGeVector3d(1, 0, 0);
        if (IsDefaultable(m_vectorDim))
            m_vectorDim = AcGeVector3d(1, 0, 0);

        const int nPoints = ReadCount(pFiler);
        m_points.setLogicalLength(nPoints);
        for (int i = 0; i < nPoints; ++i)
            pFiler->readPoint3d(&m_points[i]);

        const int nTexts = ReadCount(pFiler);
        m_dimTexts.SetSize(nTexts);
        for (int i = 0; i < nTexts; ++i) {
            CString strText;
            pFiler->readString(strText);
            if (!strText.IsEmpty())
                m_dimTexts[i] = strText;
        }

        // Parameters an older record lacks keep the current option values.
        const CParamSet& set = pGlobDimOptions->GetSet(kModeLinear);
        arrayDouble.Copy(set.arrayDouble);
        arrayString.Copy(set.arrayString);
        arrayInt.Copy(set.arrayInt);
        const int nDoubles = ReadCount(pFiler);
        for (int i = 0; i < nDoubles; ++i) {
            double dValue = 0.0;
            pFiler->readDouble(&dValue);
            arrayDouble.SetAtGrow(i, dValue);
        }
        const int nStrings = ReadCount(pFiler);
        for (int i = 0; i < nStrings; ++i) {
            CString strValue;
            pFiler->readString(strValue);
            arrayString.SetAtGrow(i, strValue);
        }
        const int nInts = ReadCount(pFiler);
        for (int i = 0; i < nInts; ++i) {
            Adesk::UInt16 nValue = 0;
            pFiler->readUInt16(&nValue);
            arrayInt.SetAtGrow(i, nValue);
        }

        pFiler->readVector3d(&m_normal);
        AcDbHardPointerId styleId;
        pFiler->readHardPointerId(&styleId);
        m_textStyleId = styleId;

        // The record replaces the texts the chain had (undo reads into a live chain).
        for (INT_PTR i = 0; i < AppendTextList.GetSize(); ++i)
            delete static_cast<CAppendTextObject*>(AppendTextList[i]);
        AppendTextList.RemoveAll();
        const int nAppend = ReadCount(pFiler);
        for (int i = 0; i < nAppend; ++i) {
            auto* pNew = new CAppendTextObject;
            ReadAppendText(pFiler, *pNew);
            CAppendTextObject* pOld = nullptr;
            if (GetAppendingText(pNew->iExt, pOld) < 0 || !pOld) {
                AppendTextList.Add(pNew);
            } else {
                pOld->Assign(pNew);
                delete pNew;
            }
        }

        Acad::ErrorStatus esResult = Acad::eOk;
        const int nArc = ReadCount(pFiler);
        m_arcObjectId = AcDbObjectId::kNull;
        m_arcPoints.setLogicalLength(0);
        if (nArc != 0) {
            AcDbHardPointerId arcId;
            pFiler->readHardPointerId(&arcId);
            Adesk::UInt16 nSegment = 0;
            pFiler->readUInt16(&nSegment);
            m_arcSegment = nSegment;
            // A file may hold the source after the chain: its id is then a
            // placeholder that becomes valid when the source is read.
            const bool bPending = pFiler->filerType() == AcDb::kFileFiler && !arcId.isValid();
            if (!arcId.isNull() && !arcId.isErased() && (arcId.isValid() || bPending))
                m_arcObjectId = arcId;
            m_arcPoints.setLogicalLength(nArc - 1);
            for (int i = 0; i < nArc - 1; ++i)
                pFiler->readPoint3d(&m_arcPoints[i]);
        }
        if (m_dimType == kArc) {
            while (m_arcPoints.length() < 7)
                m_arcPoints.append(AcGePoint3d(0, 0, 0));
            if (m_arcObjectId.isNull() && iVersion == 3)
                esResult = Acad::eMakeMeProxy;
        }

        const int nParams = ReadCount(pFiler);
        m_arcParams.setLogicalLength(nParams);
        for (int i = 0; i < nParams; ++i)
            pFiler->readDouble(&m_arcParams[i]);

        const int nExt = GetExtensions();
        if (m_dimTexts.GetSize() != nExt)
            m_dimTexts.SetSize(nExt > 0 ? nExt - 1 : 0);
        if (nExt == 0)
            return pFiler->filerStatus() != Acad::eOk ? pFiler->filerStatus() : Acad::eMakeMeProxy;
        if (m_dimType == kArc) {
            if (m_arcParams.length() != nExt)
                MakeParamArray();
            if (arrayInt.GetSize() > kIntAppVersion && arrayInt[kIntAppVersion] == 0)
                RearrangeExtensions(0);
        }

        const int nFlags = ReadCount(pFiler);
        m_extFlags.RemoveAll();
        m_extFlags.SetSize(nExt);
        if (nFlags != 0) {
            for (int i = 0; i < nFlags; ++i) {
                Adesk::Int16 iFlag = 0;
                pFiler->readInt16(&iFlag);
                m_extFlags.SetAtGrow(i, static_cast<Adesk::UInt16>(iFlag));
            }
            if (nFlags != nExt) {
                m_extFlags.RemoveAll();
                m_extFlags.SetSize(nExt);
            }
            Adesk::Int16 iReserved = 0;
            pFiler->readInt16(&iReserved);
        }
        // A record cut short is a damaged record, whatever was read from it.
        if (pFiler->filerStatus() != Acad::eOk)
            return pFiler->filerStatus();
        return esResult;
    } catch (CException* pError) {
        pError->Delete();
    } catch (const std::exception&) {
    }
    return Acad::eMakeMeProxy;
}

Acad::ErrorStatus SVdim::dxfOutFields(AcDbDxfFiler* pFiler) const
{
    assertReadEnabled();
    AcDbEntity::dxfOutFields(pFiler);
    return pFiler->filerStatus();
}

Acad::ErrorStatus SVdim::dxfInFields(AcDbDxfFiler* pFiler)
{
    assertWriteEnabled();
    AcDbEntity::dxfInFields(pFiler);
    return pFiler->filerStatus();
}
