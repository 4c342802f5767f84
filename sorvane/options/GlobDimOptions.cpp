// The option store's accessors, the naming of parameters and the parsing of
// the automatic text position order.
#include "options/GlobDimOptions.h"

#include "host/rx/acutPrintf.h"
#include "services/Token.h"

CGlobDimOptions* pGlobDimOptions = nullptr;

namespace {

// A field of AutoPosLocationOrder as a number: FALSE unless it is digits only
// (blanks around them allowed) and small enough to be a location or flags.
BOOL ReadWholeNumber(CString strField, UINT& nValue)
{
    strField.Trim();
    if (strField.IsEmpty() || strField.GetLength() > 9)
        return FALSE;
    nValue = 0;
    for (int i = 0; i < strField.GetLength(); ++i) {
        const wchar_t ch = strField[i];
        if (ch < L'0' || ch > L'9')
            return FALSE;
        nValue = nValue * 10 + static_cast<UINT>(ch - L'0');
    }
    return TRUE;
}

BOOL StartsWithDigit(const CString& str)
{
    return !str.IsEmpty() && str[0] >= L'0' && str[0] <= L'9';
}

} // namespace

CWipeOutSwitch::operator BOOL() const
{
    return m_owner.GetOptInt(kOptIntWipeOut) != 0;
}

CWipeOutSwitch& CWipeOutSwitch::operator=(BOOL bOn)
{
    m_owner.arrayOptInt.SetAtGrow(kOptIntWipeOut, bOn ? 1u : 0u);
    return *this;
}

CBackgroundRgb::operator DWORD() const
{
    return m_owner.m_colorBackground.rgb();
}

CBackgroundRgb& CBackgroundRgb::operator=(DWORD dwRgb)
{
    m_owner.m_colorBackground.setRGB(static_cast<Adesk::UInt8>(dwRgb >> 16), static_cast<Adesk::UInt8>(dwRgb >> 8),
                                     static_cast<Adesk::UInt8>(dwRgb));
    return *this;
}

CGlobDimOptions::CGlobDimOptions()
{
    m_setLinear.Reset();
    m_setHeight.Reset();
    m_setText.Reset();
    arrayOptString.SetSize(kOptStrings);
    arrayOptInt.SetSize(kOptInts);
}

CGlobDimOptions::~CGlobDimOptions() = default;

CParamSet& CGlobDimOptions::GetSet(int iMode)
{
    switch (SetOfMode(iMode > 0 ? iMode : m_iMode)) {
    case kSetHeight:
        return m_setHeight;
    case kSetText:
        return m_setText;
    default:
        return m_setLinear;
    }
}

double CGlobDimOptions::GetDouble(int iIndex)
{
    const CDoubleArray& array = GetSet().arrayDouble;
    if (iIndex < 0 || iIndex >= array.GetSize()) {
        acutPrintf(L" !!!!GetDouble( %d ) size=%d ", iIndex, static_cast<int>(array.GetSize()));
        return 0.0;
    }
    return array[iIndex];
}

int CGlobDimOptions::GetInt(int iIndex)
{
    const CUIntArray& array = GetSet().arrayInt;
    return iIndex >= 0 && iIndex < array.GetSize() ? static_cast<int>(array[iIndex]) : 0;
}

CString CGlobDimOptions::GetString(int iIndex)
{
    const CStringArray& array = GetSet().arrayString;
    return iIndex >= 0 && iIndex < array.GetSize() ? array[iIndex] : CString();
}

BOOL CGlobDimOptions::SetDouble(int iIndex, double dValue)
{
    if (m_bNoWrite || iIndex < 0)
        return FALSE;
    if (m_iMode == kModeAll) {
        for (CParamSet* pSet : {&m_setLinear, &m_setHeight, &m_setText})
            pSet->arrayDouble.SetAtGrow(iIndex, dValue);
    } else {
        GetSet().arrayDouble.SetAtGrow(iIndex, dValue);
    }
    return TRUE;
}

BOOL CGlobDimOptions::SetInt(int iIndex, int iValue)
{
    if (m_bNoWrite || iIndex < 0)
        return FALSE;
    const UINT nValue = static_cast<UINT>(iValue);
    if (m_iMode == kModeAll) {
        for (CParamSet* pSet : {&m_setLinear, &m_setHeight, &m_setText})
            pSet->arrayInt.SetAtGrow(iIndex, nValue);
    } else {
        GetSet().arrayInt.SetAtGrow(iIndex, nValue);
    }
    return TRUE;
}

BOOL CGlobDimOptions::SetString(int iIndex, const CString& strValue)
{
    if (m_bNoWrite || iIndex < 0)
        return FALSE;
    if (m_iMode == kModeAll) {
        for (CParamSet* pSet : {&m_setLinear, &m_setHeight, &m_setText})
            pSet->arrayString.SetAtGrow(iIndex, strValue);
    } else {
        GetSet().arrayString.SetAtGrow(iIndex, strValue);
    }
    return TRUE;
}

int CGlobDimOptions::GetOptInt(int iIndex) const
{
    return iIndex >= 0 && iIndex < arrayOptInt.GetSize() ? static_cast<int>(arrayOptInt[iIndex]) : 0;
}

CString CGlobDimOptions::GetOptString(int iIndex) const
{
    return iIndex >= 0 && iIndex < arrayOptString.GetSize() ? arrayOptString[iIndex] : CString();
}

void CGlobDimOptions::SetAutoPosOrder(const CString& strText)
{
    arrayOptString.SetAtGrow(kOptStringAutoPosLocationOrder, strText);
    arrayAutoPosOrder.RemoveAll();

    UINT nFlags = 0;
    CToken fields(strText, L',');
    for (int iField = 0; fields.MoreTokens(); ++iField) {
        const CString strField = fields.GetNextToken();
        UINT nValue = 0;
        if (!ReadWholeNumber(strField, nValue)) {
            // An empty field (a doubled or trailing comma) is no mistake worth a word.
            if (!CString(strField).Trim().IsEmpty())
                acutPrintf(L"\nAutoPosLocationOrder \"%s\": field %d \"%s\" is not a whole number and is left out.",
                           strText, iField + 1, strField);
            continue;
        }
        if (iField == 0)
            nFlags = nValue;
        else
            arrayAutoPosOrder.Add(nValue);
    }
    arrayOptInt.SetAtGrow(kOptIntAutoPosIgnoreExt, nFlags & 1u);
    arrayOptInt.SetAtGrow(kOptIntAutoPosMirror, (nFlags >> 1) & 1u);
}

BOOL CGlobDimOptions::IsSectionHeight(int iMode) const
{
    return (iMode < 0 ? m_iMode : iMode) == kModeSectionHeight;
}

BOOL CGlobDimOptions::IsHeight(int iMode) const
{
    const int iWhich = iMode < 0 ? m_iMode : iMode;
    return iWhich == kModeSectionHeight || iWhich == kModePlanHeight;
}

BOOL CGlobDimOptions::IsPlanHeight(int iMode) const
{
    return (iMode < 0 ? m_iMode : iMode) == kModePlanHeight;
}

BOOL CGlobDimOptions::IsText(int iMode) const
{
    return (iMode < 0 ? m_iMode : iMode) == kModeText;
}

CString CGlobDimOptions::GetParamName(int iClass, int iIndex, int iMode)
{
    if (LPCWSTR pszKey = ParamKey(iClass, iIndex, iMode == 0 ? m_iMode : iMode))
        return CString(pszKey);
    CString strName;
    strName.Format(L"Option%d-%d", iClass, iIndex);
    // Loud on purpose: a missing name means a parameter slipped into a list
    // of keys to read or write.
    acutPrintf(L"\n>>>>> %s <<<<<", strName);
    return strName;
}

CString CGlobDimOptions::GetParamLabel(const CString& strKey) const
{
    CString strValue;
    if (!mapParams.Lookup(strKey, strValue))
        return strKey;
    const int iSemicolon = strValue.Find(L';');
    if (iSemicolon < 0)
        return strKey;
    const int iStart = StartsWithDigit(strValue) ? 1 : 0;
    return strValue.Mid(iStart, iSemicolon - iStart);
}

CString CGlobDimOptions::GetParamDescription(const CString& strKey) const
{
    CString strValue;
    if (!mapParams.Lookup(strKey, strValue))
        return CString();
    const int iSemicolon = strValue.Find(L';');
    if (iSemicolon >= 0)
        return strValue.Mid(iSemicolon + 1);
    return strValue.Mid(StartsWithDigit(strValue) ? 1 : 0);
}

BOOL CGlobDimOptions::IsInOptionsFile(const CString& strKey) const
{
    CString strValue;
    return mapParams.Lookup(strKey, strValue) && StartsWithDigit(strValue) && strValue[0] != L'0';
}

CString CGlobDimOptions::GetParamFile(const CString& strKey) const
{
    return IsInOptionsFile(strKey) ? m_strCurOptionsFile : m_strIniFile;
}

CMapStringToString* CGlobDimOptions::GetMap(int iMode, const CString& strName)
{
    const int iSet = SetOfMode(iMode == kModePlanHeight ? kModeSectionHeight : iMode);
    if (strName == L"Scale2Layer")
        return &mapScale2Layer[iSet];
    if (strName == L"TextHeight2Color")
        return &mapTextHeight2Color[iSet];
    return nullptr;
}
