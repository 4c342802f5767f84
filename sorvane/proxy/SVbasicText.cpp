// SVdim: the value text of each segment, its record with the user's value,
// prefix and postfix, and the assembly of what is drawn on the chain.
#include <cmath>

#include "host/win/WinCrt.h"
#include "options/GlobDimOptions.h"
#include "proxy/DimText.h"
#include "proxy/SVbasic.h"
#include "services/Numbers.h"
#include "services/Token.h"

namespace {

constexpr wchar_t kFieldMark = L'@';
constexpr wchar_t kPosMark = L'#';
constexpr int kFieldUser = 1;
constexpr int kFieldPrefix = 2;
constexpr int kFieldPostfix = 3;
constexpr int kStrDimDescription = 6;
constexpr int kDblUserTextTolerance = 12;
constexpr int kOptStringAltFormat = 3;

CString JoinFields(const CStringArray& fields)
{
    CString strRecord;
    for (INT_PTR i = 0; i < fields.GetSize(); ++i) {
        if (i > 0)
            strRecord += kFieldMark;
        strRecord += fields[i];
    }
    return strRecord;
}

CString FieldAt(const CStringArray& fields, int iField)
{
    return iField < fields.GetSize() ? fields[iField] : CString();
}

// The position code in field 0, between "#" and the end; 0 without "#".
int PositionOf(const CString& strField0)
{
    const int iMark = strField0.Find(kPosMark);
    return iMark < 0 ? 0 : _wtoi(strField0.Mid(iMark + 1));
}

// The alternative-unit template made ready for one value: the first "%"
// turns into a blank (so a stray format code cannot reach the text), and
// the first "#" - else the first "9" - marks where the value goes.
CString FillAltTemplate(CString strTemplate, const CString& strValue)
{
    const int iPercent = strTemplate.Find(L'%');
    if (iPercent >= 0)
        strTemplate.SetAt(iPercent, L' ');
    int iSlot = strTemplate.Find(L'#');
    if (iSlot < 0)
        iSlot = strTemplate.Find(L'9');
    if (iSlot < 0)
        return strTemplate + strValue;
    return strTemplate.Left(iSlot) + strValue + strTemplate.Mid(iSlot + 1);
}

} // namespace

CString SVdim::DistanceToText(int iType, double dValue) const
{
    CString strText;
    // Only the repair of a zero AcadUnits writes, as GetAcadUnits does.
    return ::DistanceToText(strText, iType, dValue, arrayString, arrayInt,
                            const_cast<SVdim*>(this)->arrayDouble);
}

int SVdim::GetDimTextArray(int iExt, CStringArray& fields) const
{
    fields.RemoveAll();
    if (iExt < 1 || iExt >= m_dimTexts.GetSize())
        return 0;
    const CString& strRecord = m_dimTexts[iExt];
    if (strRecord.Find(kFieldMark) < 0) {
        fields.Add(strRecord);
        return 1;
    }
    CToken token(strRecord, kFieldMark);
    while (token.MoreTokens())
        fields.Add(token.GetNextToken());
    return static_cast<int>(fields.GetSize());
}

int SVdim::GetDimTextPos(int iExt, int bAbs) const
{
    if (m_dimType == kArc || iExt < 1)
        return 0;
    if (iExt >= m_dimTexts.GetSize()) {
        if (iExt != GetExtensions())
            return 0;
        if (GetChainLabelCode() > 1)
            return 6;
        return GetDimTextPos(iExt - 1, 1) == 14 ? 4 : 5;
    }
    const CString& strRecord = m_dimTexts[iExt];
    const int iField = strRecord.Find(kFieldMark);
    const int iPos = PositionOf(iField < 0 ? strRecord : strRecord.Left(iField));
    return bAbs ? std::abs(iPos) : iPos;
}

CString SVdim::GetDimValueText(int iExt) const
{
    if (iExt < 0)
        return CString(L"000");
    const int nExt = GetExtensions();
    if (iExt == nExt) {
        double dSum = 0.0;
        for (int k = 1; k < nExt; ++k)
            dSum += GetDistance(k);
        return DistanceToText(kDistChain, dSum);
    }
    if (iExt < m_dimTexts.GetSize()) {
        CStringArray fields;
        GetDimTextArray(iExt, fields);
        const CString strUser = FieldAt(fields, kFieldUser);
        if (!strUser.IsEmpty())
            return IsNumber(strUser) ? DistanceToText(kDistChain, ValueTextToDouble(strUser)) : strUser;
        const CString& strRecord = m_dimTexts[iExt];
        const int iMark = strRecord.Find(kPosMark);
        return iMark < 0 ? strRecord.SpanExcluding(L"@") : strRecord.Left(iMark);
    }
    // A record short of the segments (as read from older drawings) is made
    // here, so the next refresh has a place to write to.
    if (m_dimTexts.GetSize() < nExt - 1)
        const_cast<SVdim*>(this)->m_dimTexts.SetSize(nExt - 1);
    return CString(L"???");
}

int SVdim::GetDisplayTexts(int iExt, CStringArray& texts, const CAppendTextObject* pAppend) const
{
    texts.RemoveAll();
    texts.Add(CString());
    if (!pGlobDimOptions)
        return 0;
    CString strValue;
    CString strWhole;
    CString strAlt;
    if (!pAppend) {
        if (iExt == -100) {
            texts[0] = GetChainLabelText();
            return 0;
        }
        CStringArray fields;
        GetDimTextArray(iExt, fields);
        const CString strPrefix = FieldAt(fields, kFieldPrefix);
        strValue = GetDimValueText(iExt);
        if (IsAltUnits()) {
            const CString strIni = arrayString.GetSize() > kStrIniFile ? arrayString[kStrIniFile] : CString();
            const CString strTemplate =
                ReadChainIniEntry(strIni, ParamKey(kParamOptString, kOptStringAltFormat, kModeLinear),
                                  pGlobDimOptions->GetOptString(kOptStringAltFormat));
            if (!strTemplate.IsEmpty())
                strAlt = FillAltTemplate(strTemplate, DistanceToText(kDistAlternative, GetDistance(iExt)));
        }
        const CString strPostfix = FieldAt(fields, kFieldPostfix);
        if (!strPostfix.IsEmpty())
            strAlt += strAlt.IsEmpty() ? strPostfix : L" " + strPostfix;
        if (IsArcCircleChain())
            strValue = L"U=" + strValue;
        if (!strPrefix.IsEmpty())
            strValue = strPrefix + L" " + strValue;
        strWhole = strAlt.IsEmpty() ? strValue : strValue + L" " + strAlt;
    } else if (pAppend->bAutoPos == 0 || pAppend->dValue <= 0.0 || pAppend->strText.Find(kRaisedMark) >= 0) {
        strValue = strWhole = pAppend->strText;
    } else {
        strValue = strWhole = DistanceToText(kDistChain, pAppend->dValue);
    }

    texts[0] = strWhole;
    const int iRaised = strValue.Find(kRaisedMark);
    if (strValue.Find(L'\\') >= 0 || iRaised < 0)
        return 0;
    const CString strRight = strValue.Mid(iRaised + 1);
    if (strRight.IsEmpty())
        return 0;
    texts[0] = strValue.Left(iRaised);
    texts.Add(strRight);
    if (!strAlt.IsEmpty())
        texts.Add(L" " + strAlt);
    return 1;
}

int SVdim::SetDimTextDim(int iExt, const wchar_t* pszText)
{
    if (!pszText || iExt < 0)
        return 0;
    if (iExt == 0)
        iExt = 1;
    CString strText(pszText);
    if (strText.IsEmpty())
        strText = L"0";
    if (iExt >= m_dimTexts.GetSize())
        m_dimTexts.SetSize(iExt + 1);
    CStringArray fields;
    if (GetDimTextArray(iExt, fields) == 0)
        fields.Add(CString());
    const int iMark = fields[0].Find(kPosMark);
    const int iPos = iMark > 0 ? PositionOf(fields[0]) : 0;
    fields[0].Format(L"%s%c%d", strText, kPosMark, iPos);
    m_dimTexts[iExt] = JoinFields(fields);
    return 1;
}

int SVdim::SetDimTextPos(int iExt, int iPos)
{
    if (iExt < 1 || iExt >= m_dimTexts.GetSize())
        return 0;
    if (iPos < 0 && m_dimType == kArc)
        iPos = 8;
    CStringArray fields;
    if (GetDimTextArray(iExt, fields) == 0 || m_dimTexts[iExt].IsEmpty())
        return 1;
    const CString strText = fields[0].SpanExcluding(L"#");
    fields[0].Format(L"%s%c%d", strText, kPosMark, iPos);
    m_dimTexts[iExt] = JoinFields(fields);
    return 1;
}

int SVdim::SetDimTextField(int iExt, int iField, const wchar_t* pszText)
{
    if (iExt == 0)
        iExt = 1;
    CStringArray fields;
    if (GetDimTextArray(iExt, fields) == 0)
        return 0;
    const CString strText(pszText);
    if (strText.IsEmpty()) {
        if (iField >= fields.GetSize())
            return 1;
        fields[iField].Empty();
        // Empty fields at the end carry nothing; the record reads as before.
        while (fields.GetSize() > 1 && fields[fields.GetSize() - 1].IsEmpty())
            fields.RemoveAt(fields.GetSize() - 1);
    } else {
        while (fields.GetSize() <= iField)
            fields.Add(CString());
        fields[iField] = strText;
    }
    m_dimTexts[iExt] = JoinFields(fields);
    return 1;
}

int SVdim::SetDimTextUser(int iExt, const wchar_t* pszText)
{
    const int iResult = SetDimTextField(iExt, kFieldUser, pszText);
    if (iResult && (!pszText || !*pszText))
        RefreshDimText(iExt);
    return iResult;
}

int SVdim::SetDimTextPrefix(int iExt, const wchar_t* pszText)
{
    return SetDimTextField(iExt, kFieldPrefix, pszText);
}

int SVdim::SetDimTextPostfix(int iExt, const wchar_t* pszText)
{
    return SetDimTextField(iExt, kFieldPostfix, pszText);
}

int SVdim::RefreshDimText(int iExt)
{
    if (iExt < 0 || (iExt == 0 && m_dimType != kArc))
        iExt = 1;
    SetDimTextDim(iExt, DistanceToText(kDistChain, GetDistance(iExt)));
    return 1;
}

bool SVdim::IsUserTextOff(int iExt) const
{
    CStringArray fields;
    if (GetDimTextArray(iExt, fields) == 0)
        return false;
    const CString strUser = FieldAt(fields, kFieldUser);
    if (strUser.IsEmpty() || !IsNumber(strUser))
        return false;
    double dTolerance = 0.0;
    if (pGlobDimOptions) {
        const CDoubleArray& global = pGlobDimOptions->GetSet(kModeLinear).arrayDouble;
        if (kDblUserTextTolerance < global.GetSize())
            dTolerance = global[kDblUserTextTolerance];
    } else if (kDblUserTextTolerance < arrayDouble.GetSize()) {
        dTolerance = arrayDouble[kDblUserTextTolerance];
    }
    return std::fabs(ValueTextToDouble(strUser) - GetDistance(iExt)) > ToDrawing(dTolerance);
}

int SVdim::GetChainLabelCode() const
{
    if (arrayString.GetSize() <= kStrDimDescription)
        return 0;
    const CString& strLabel = arrayString[kStrDimDescription];
    if (strLabel.GetLength() < 2 || strLabel[0] < L'0' || strLabel[0] > L'9')
        return 0;
    return strLabel[0] - L'0';
}

CString SVdim::GetChainLabelText() const
{
    if (arrayString.GetSize() <= kStrDimDescription || arrayString[kStrDimDescription].GetLength() < 2)
        return CString();
    return arrayString[kStrDimDescription].Mid(1);
}

bool SVdim::IsArcCircleChain() const
{
    if (m_dimType != kArc || arrayInt.GetSize() <= kIntArcAsCircle || arrayInt[kIntArcAsCircle] == 0)
        return false;
    const int nExt = GetExtensions();
    return nExt >= 1 && nExt <= 2 && m_points.length() >= 5 && m_points[0].isEqualTo(m_points[4]);
}
