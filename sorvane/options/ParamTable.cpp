// The key names and defaults of the parameter table, one row per named index.
#include "options/ParamTable.h"

namespace {

struct SParamRow {
    int iClass;  // 0, 1, 2 (also standing for 3), 5 or 6
    int iIndex;
    LPCWSTR pszKey;
    LPCWSTR pszDefault;
    // The height set's own name and default, where it names the index apart.
    LPCWSTR pszHeightKey = nullptr;
    LPCWSTR pszHeightDefault = L"";
};

const SParamRow kRows[] = {
    // Strings of a set.
    {kParamString, 0, L"Scale", L"1:100"},
    {kParamString, 1, L"TextStyle", L""},
    {kParamString, 2, L"Measure", L"m/cm"},
    {kParamString, 3, L"IniFile", L""},
    {kParamString, 4, L"UTextMarkLayer", L""},
    {kParamString, 5, L"Delimiter", L""},
    {kParamString, 6, L"DimDescription", L"", L"HK_Auto_Handle1"},
    {kParamString, 7, L"HK_Auto_Handle2", L""},
    // Doubles of a set.
    {kParamDouble, 0, L"ScaleVal", L""},
    {kParamDouble, 1, L"TextHeight", L"50"},
    {kParamDouble, 2, L"ExtLineLength", L"10"},
    {kParamDouble, 3, L"DimLinesDistance", L"10"},
    {kParamDouble, 4, L"TickSize", L"4", L"HDimSize", L"5"},
    {kParamDouble, 5, L"ExtendBeyondDimLine", L"2"},
    {kParamDouble, 6, L"ExtendBeyondTick", L"2", L"HDimDiameter", L"10"},
    {kParamDouble, 7, L"TextOffset", L"50"},
    {kParamDouble, 8, L"ExpTextHeight", L"80"},
    {kParamDouble, 9, L"AcadUnits", L"0.001"},
    {kParamDouble, 11, L"OffsetFromOrigin", L"5"},
    {kParamDouble, 12, L"UserTextTolerance", L""},
    {kParamDouble, 13, L"DimLineDist", L"0", L"HDimReducedSize"},
    // Integers of a set.
    {kParamInt, 0, L"ExtLine", L"1"},
    {kParamInt, 1, L"TextAlign", L""},
    {kParamInt, 2, L"RoundMM", L"1"},
    {kParamInt, 3, L"LastType", L""},
    {kParamInt, 4, L"Decimals", L"4"},
    {kParamInt, 5, L"Format", L""},
    {kParamInt, 6, L"TextPosition", L""},
    {kParamInt, 8, L"HDimNoModify", L""},
    {kParamInt, 9, L"MCmFrom10", L"", L"HIsReducedSize"},
    {kParamInt, 10, L"ArcDimMinPoint", L""},
    {kParamInt, 11, L"ArcDimMaxPoint", L"", L"HDimTextUnderline"},
    {kParamInt, 12, L"ArcDimAsCircle", L"", L"HPlusMinusHide"},
    {kParamInt, 13, L"AppVersion", L""},
    {kParamInt, 14, L"ArcDimCW", L"", L"HUserText"},
    {kParamInt, 15, L"ArcDimInputArcIsCircle", L""},
    {kParamInt, 16, L"TrimZero", L""},
    {kParamInt, 17, L"LayerWithoutScale", L""},
    {kParamInt, 18, L"ForbidLayer0", L""},
    {kParamInt, 19, L"DirectionExt", L"", L"HAutoValue1"},
    {kParamInt, 20, L"SumStatus", L"", L"HAutoValue2"},
    {kParamInt, 21, L"WipeOutStatus", L""},
    {kParamInt, 22, L"AltUnitsStatus", L"", L"TextAlignPlan"},
    {kParamInt, 23, L"HPDimTextUnderline", L""},
    // General strings.
    {kParamOptString, 0, L"ScalePaperSpace", L"1:1"},
    {kParamOptString, 1, L"AutoPosLocationOrder", L"0,14,2,13,15,3"},
    {kParamOptString, 2, L"AltMeasure", L""},
    {kParamOptString, 3, L"AltFormat", L""},
    {kParamOptString, 4, L"AltFormatList", L"[#],[ # ],<#>,< # >,=> #"},
    // General integers; 12 and 13 live inside AutoPosLocationOrder.
    {kParamOptInt, 0, L"DimByLine", L""},
    {kParamOptInt, 1, L"ExtNewPosition", L""},
    {kParamOptInt, 2, L"ShowInputPoints", L""},
    {kParamOptInt, 3, L"HDimAlign", L""},
    {kParamOptInt, 4, L"AcadDimAssociative", L""},
    {kParamOptInt, 5, L"ShowBaseHDAsXline", L""},
    {kParamOptInt, 6, L"IgnoreUserTextTolerance", L""},
    {kParamOptInt, 7, L"ShowSumOfDim", L""},
    {kParamOptInt, 8, L"SorvaneContextMenuAlways", L""},
    {kParamOptInt, 9, L"LeadersShow", L""},
    {kParamOptInt, 10, L"WipeOut", L""},
    {kParamOptInt, 11, L"AutoPosition", L""},
    {kParamOptInt, 14, L"AltUnits", L""},
    {kParamOptInt, 15, L"AltDecimals", L""},
};

const SParamRow* FindRow(int iClass, int iIndex)
{
    if (iClass == kParamIntAlt)
        iClass = kParamInt;
    for (const SParamRow& row : kRows) {
        if (row.iClass == iClass && row.iIndex == iIndex)
            return &row;
    }
    return nullptr;
}

// The second form belongs to section marks alone: plan marks (mode 4) share
// the height set but have always been stored under the first names.
bool UsesHeightForm(const SParamRow& row, int iMode)
{
    return iMode == kModeSectionHeight && row.pszHeightKey;
}

} // namespace

int SetOfMode(int iMode)
{
    switch (iMode) {
    case kModeSectionHeight:
    case kModePlanHeight:
        return kSetHeight;
    case kModeText:
        return kSetText;
    default:
        return kSetLinear;
    }
}

int ModeOfSet(int iSet)
{
    static const int kModes[kSetCount] = {kModeLinear, kModeSectionHeight, kModeText};
    return iSet >= 0 && iSet < kSetCount ? kModes[iSet] : kModeLinear;
}

CString SectionPrefix(int iMode)
{
    switch (SetOfMode(iMode)) {
    case kSetHeight:
        return CString(L"DH_");
    case kSetText:
        return CString(L"TXT_");
    default:
        return CString();
    }
}

LPCWSTR ParamKey(int iClass, int iIndex, int iMode)
{
    const SParamRow* pRow = FindRow(iClass, iIndex);
    if (!pRow)
        return nullptr;
    return UsesHeightForm(*pRow, iMode) ? pRow->pszHeightKey : pRow->pszKey;
}

LPCWSTR ParamDefault(int iClass, int iIndex, int iMode)
{
    const SParamRow* pRow = FindRow(iClass, iIndex);
    if (!pRow)
        return L"";
    return UsesHeightForm(*pRow, iMode) ? pRow->pszHeightDefault : pRow->pszDefault;
}
