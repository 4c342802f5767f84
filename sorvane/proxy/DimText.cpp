// The value formatter: numbers to text with decimals, trimming and delimiter,
// distances to text in the chain's measure with rounding and raised digits.
#include "proxy/DimText.h"

#include <cmath>
#include <cstdlib>
#include <numeric>

#include "host/win/WinCrt.h"
#include "host/win/WinIni.h"
#include "options/GlobDimOptions.h"
#include "options/ParamTable.h"
#include "resources/resource.h"

namespace {

constexpr int kStrMeasure = 2;
constexpr int kStrIniFile = 3;
constexpr int kStrDelimiter = 5;
constexpr int kIntRoundMM = 2;
constexpr int kIntDecimals = 4;
constexpr int kIntMCmFrom10 = 9;
constexpr int kIntTrimZero = 16;
constexpr int kDblAcadUnits = 9;
constexpr int kOptStringAltMeasure = 2;
constexpr int kOptIntAltDecimals = 15;

// Sets are sized by the option store; a short array reads as unset rather
// than failing in the middle of a drawing.
CString StringAt(const CStringArray& array, int i)
{
    return i < array.GetSize() ? array[i] : CString();
}
int IntAt(const CUIntArray& array, int i)
{
    return i < array.GetSize() ? static_cast<int>(array[i]) : 0;
}

// A unit name of the string table, or its German form without one.
CString UnitName(UINT nId, const wchar_t* pszFallback)
{
    CString strName;
    if (!strName.LoadString(nId) || strName.IsEmpty())
        strName = pszFallback;
    return strName;
}

CString Untrimmed(double dValue)
{
    CString str;
    return DoubleToText(str, dValue, 0, FALSE, nullptr);
}

// The tenths of a millimetre rounded to steps of 5 mm (iRound 1) or 2.5 mm
// (iRound 2), back in millimetres.
double RoundMillimetres(double dMM, int iRound)
{
    const CString strTenths = Untrimmed(dMM * 10.0);
    if (strTenths.GetLength() == 1)
        return dMM / 10.0;  // below a millimetre: kept as the chain always did
    const int t = std::wcstol(strTenths.Right(2), nullptr, 10);
    const wchar_t* pszSteps = L"00";
    bool bCarry = false;
    if (iRound == 2) {
        if (t < 13)
            pszSteps = L"00";
        else if (t < 38)
            pszSteps = L"25";
        else if (t < 63)
            pszSteps = L"50";
        else if (t <= 87)
            pszSteps = L"75";
        else
            bCarry = true;
    } else {
        if (t < 25)
            pszSteps = L"00";
        else if (t <= 74)
            pszSteps = L"50";
        else
            bCarry = true;
    }
    double dTenths = _wtof(strTenths.Left(strTenths.GetLength() - 2) + pszSteps);
    // The carry moves away from zero, also for the signed values of the style bridge.
    if (bCarry)
        dTenths += dTenths < 0.0 || strTenths[0] == L'-' ? -100.0 : 100.0;
    return dTenths / 10.0;
}

// Feet and inches of a length in inches: unit 3 "1'-2.500\"" with iDecimals
// decimals, unit 4 "1'-2 1/2\"" to 1/2^iDecimals of an inch.
CString FeetInches(double dInches, int iUnit, int iDecimals)
{
    CString strSign = dInches < 0.0 ? L"-" : L"";
    dInches = std::fabs(dInches);
    const int iPrec = iDecimals < 0 ? 0 : (iDecimals > 8 ? 8 : iDecimals);
    CString strOut;
    if (iUnit == 3) {
        long long nFeet = static_cast<long long>(std::floor(dInches / 12.0));
        double dRest = dInches - 12.0 * static_cast<double>(nFeet);
        CString strRest;
        strRest.Format(L"%.*f", iPrec, dRest);
        if (_wtof(strRest) >= 12.0) {
            ++nFeet;
            strRest.Format(L"%.*f", iPrec, 0.0);
        }
        strOut.Format(L"%s%lld'-%s\"", strSign, nFeet, strRest);
        return strOut;
    }
    const long long nDen = 1LL << iPrec;
    const long long nUnits = std::llround(dInches * static_cast<double>(nDen));
    const long long nFeet = nUnits / (12 * nDen);
    const long long nRem = nUnits % (12 * nDen);
    const long long nWhole = nRem / nDen;
    long long nNum = nRem % nDen;
    if (nNum == 0) {
        strOut.Format(L"%s%lld'-%lld\"", strSign, nFeet, nWhole);
    } else {
        const long long nGcd = std::gcd(nNum, nDen);
        strOut.Format(L"%s%lld'-%lld %lld/%lld\"", strSign, nFeet, nWhole, nNum / nGcd, nDen / nGcd);
    }
    return strOut;
}

// Step "m/cm": metres with a raised millimetre digit, or centimetres below
// the limit. Returns the finished text.
CString MetresWithRaisedDigit(double dMM, int iType, int iDecimals, const CStringArray& arrayString,
                              const CUIntArray& arrayInt)
{
    const int iAbsType = std::abs(iType);
    int r = 0;
    if (iDecimals == 3) {
        const CString c = Untrimmed(dMM);
        r = c.IsEmpty() ? 0 : c[c.GetLength() - 1] - L'0';
    } else if (iDecimals > 3) {
        const CString c = Untrimmed(dMM * 10.0);
        r = std::abs(static_cast<int>(std::wcstol(c.Right(2), nullptr, 10)));
    }
    if (r < 0 || r > 99)
        r = 0;
    const double dLimit = IntAt(arrayInt, kIntMCmFrom10) ? 10.0 : 1.0;
    CString strMain;
    CString str;
    // The limit compares magnitudes: a signed value of the style bridge keeps
    // the form its absolute value would get.
    if (iAbsType != kDistHeight && std::fabs(dMM) / 1000.0 < dLimit) {
        const double dCM = dMM / 10.0;
        if (r == 0)
            return DoubleToText(str, dCM, 0, FALSE, nullptr);
        strMain.Format(L"%d", static_cast<int>(dCM));
    } else {
        if (r != 0)
            dMM = std::trunc(dMM / 10.0) * 10.0;
        DoubleToText(strMain, dMM / 1000.0, 2, IntAt(arrayInt, kIntTrimZero),
                     StringAt(arrayString, kStrDelimiter));
        if (r == 0)
            return strMain;
    }
    CString strRaised;
    if (iDecimals == 3) {
        strRaised.Format(L"%d", r);
    } else {
        strRaised.Format(L"%s%d", r < 10 ? L"0" : L"", r);
        if (strRaised.GetLength() > 1 && strRaised[1] == L'0')
            strRaised.Delete(1);
    }
    if (iAbsType == kDistStyle)
        str.Format(L"\\A1;%s{\\H0.7x;\\S%s^;}", strMain, strRaised);
    else
        str.Format(L"%s^%s", strMain, strRaised);
    return str;
}

} // namespace

CString& DoubleToText(CString& strOut, double dValue, int iDecimals, int bTrim, const wchar_t* pszDelimiter)
{
    if (iDecimals >= 0 && iDecimals <= 14) {
        strOut.Format(L"%.*f", iDecimals, dValue);
    } else {
        strOut.Format(L"%f", dValue);
        bTrim = TRUE;
    }
    if (bTrim && strOut.FindOneOf(L".,") >= 0) {
        while (!strOut.IsEmpty() && strOut[strOut.GetLength() - 1] == L'0')
            strOut.Truncate(strOut.GetLength() - 1);
        if (!strOut.IsEmpty() && strOut[strOut.GetLength() - 1] == L'.')
            strOut.Truncate(strOut.GetLength() - 1);
    }
    if (dValue < 0.0 && !bTrim && strOut.GetLength() > 1 && strOut[0] == L'-' &&
        ValueTextToDouble(strOut.Mid(1)) == 0.0)
        strOut = strOut.Mid(1);
    if (pszDelimiter && *pszDelimiter) {
        const CString strDelimiter(pszDelimiter);
        if (strDelimiter != L",")
            strOut.Replace(L",", pszDelimiter);
        if (strDelimiter != L".")
            strOut.Replace(L".", pszDelimiter);
    }
    return strOut;
}

CString& DistanceToText(CString& strOut, int iType, double dValue, const CStringArray& arrayString,
                        const CUIntArray& arrayInt, CDoubleArray& arrayDouble)
{
    if (!pGlobDimOptions) {
        strOut.Format(L"...<%f>", dValue);
        return strOut;
    }
    strOut.Empty();
    if (dValue == 0.0)
        return strOut;
    const int iAbsType = std::abs(iType);
    const bool bNegative = iAbsType != kDistStyle && dValue < 0.0;
    if (bNegative)
        dValue = -dValue;
    if (arrayDouble.GetSize() <= kDblAcadUnits)
        arrayDouble.SetSize(kDblAcadUnits + 1);
    if (arrayDouble[kDblAcadUnits] == 0.0)
        arrayDouble[kDblAcadUnits] = 0.001;
    double dMM = dValue / arrayDouble[kDblAcadUnits];

    CString strMeasure = StringAt(arrayString, kStrMeasure);
    int iDecimals = IntAt(arrayInt, kIntDecimals);
    if (iType < 0) {
        strMeasure = pGlobDimOptions->GetOptString(kOptStringAltMeasure);
        iDecimals = pGlobDimOptions->GetOptInt(kOptIntAltDecimals);
        const CString strIni = StringAt(arrayString, kStrIniFile);
        strMeasure = ReadChainIniEntry(strIni, ParamKey(kParamOptString, kOptStringAltMeasure, kModeLinear),
                                       strMeasure);
        CString strDecimals;
        strDecimals.Format(L"%d", iDecimals);
        iDecimals = _wtoi(ReadChainIniEntry(strIni, ParamKey(kParamOptInt, kOptIntAltDecimals, kModeLinear),
                                            strDecimals));
    }

    const int iRound = IntAt(arrayInt, kIntRoundMM);
    if (iRound != 0)
        dMM = RoundMillimetres(dMM, iRound);

    const int bTrim = IntAt(arrayInt, kIntTrimZero);
    const CString strDelimiter = StringAt(arrayString, kStrDelimiter);
    if (strMeasure == L"m/cm") {
        strOut = MetresWithRaisedDigit(dMM, iType, iDecimals, arrayString, arrayInt);
    } else if (strMeasure == L"m") {
        DoubleToText(strOut, dMM / 1000.0, iDecimals, bTrim, strDelimiter);
    } else if (strMeasure == L"cm") {
        DoubleToText(strOut, dMM / 10.0, iDecimals, bTrim, strDelimiter);
    } else if (strMeasure == UnitName(IDS_UNIT_INCH, L"Zoll")) {
        DoubleToText(strOut, dMM / 25.4, iDecimals, bTrim, strDelimiter);
    } else if (strMeasure.Find(UnitName(IDS_FEET_INCH_MARK, L"0'-")) >= 0) {
        strOut = FeetInches(dMM / 25.4, strMeasure == L"0'-0.000\"" ? 3 : 4, iDecimals);
    } else if (strMeasure == UnitName(IDS_UNIT_FT, L"ft")) {
        DoubleToText(strOut, dMM / 304.8, iDecimals, bTrim, strDelimiter);
    } else {
        DoubleToText(strOut, dMM, iDecimals, bTrim, strDelimiter);
    }
    if (bNegative) {
        CString strSigned;
        strSigned.Format(L"-%s", strOut);
        strOut = strSigned;
    }
    return strOut;
}

double ValueTextToDouble(const CString& strText)
{
    CString str = strText;
    const int iComma = str.Find(L',');
    if (iComma > 0)
        str.SetAt(iComma, L'.');
    double dValue = _wtof(str);
    const int iPoint = str.Find(L'.');
    if (dValue == 0.0 && !str.IsEmpty() && iPoint > 0) {
        str.SetAt(iPoint, L',');
        dValue = _wtof(str);
    }
    return dValue;
}

double ParseRaisedValue(const CString& strText)
{
    CString str = strText;
    const int iMark = str.Find(kRaisedMark);
    if (iMark >= 0) {
        if (str.FindOneOf(L".,") >= 0)
            str.Delete(iMark);
        else
            str.SetAt(iMark, L'.');
    }
    return ValueTextToDouble(str);
}

CString ReadChainIniEntry(const CString& strIniFile, const wchar_t* pszKey, const CString& strDefault)
{
    if (strIniFile.IsEmpty() || !pszKey)
        return strDefault;
    wchar_t szValue[512] = {};
    GetPrivateProfileStringW(L"General Info", pszKey, strDefault, szValue, 512, strIniFile);
    return CString(szValue);
}
