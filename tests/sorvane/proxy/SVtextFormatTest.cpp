// The value formatter: measures, rounding, raised digits, signs and the
// number parsers, as one table of cases each.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "proxy/DimText.h"
#include "tests/sorvane/options/OptionsFixture.h"

namespace {

class DimTextFormat : public OptionsFixture {};

struct SFormatCase {
    const wchar_t* pszMeasure;
    int iDecimals;
    int iRound;
    int bMCmFrom10;
    int bTrim;
    const wchar_t* pszDelimiter;
    int iType;
    double dMM;
    const wchar_t* pszExpected;
};

const SFormatCase kCases[] = {
    // "m/cm": metres with a raised millimetre, centimetres below 1 m.
    {L"m/cm", 3, 0, 0, 0, L"", 2, 1234.6, L"1.23^5"},
    {L"m/cm", 3, 0, 0, 0, L"", 2, 850.0, L"85"},
    {L"m/cm", 3, 0, 0, 0, L"", 2, 856.0, L"85^6"},
    {L"m/cm", 2, 0, 0, 0, L"", 2, 1234.6, L"1.23"},
    // MCmFrom10 moves the limit to 10 m.
    {L"m/cm", 3, 0, 0, 0, L"", 2, 9990.0, L"9.99"},
    {L"m/cm", 3, 0, 1, 0, L"", 2, 9990.0, L"999"},
    {L"m/cm", 3, 0, 1, 0, L"", 2, 10000.0, L"10.00"},
    // More than 3 decimals: two raised digits, a trailing 0 dropped.
    {L"m/cm", 4, 0, 0, 0, L"", 2, 1234.5, L"1.23^45"},
    {L"m/cm", 4, 0, 0, 0, L"", 2, 1235.0, L"1.23^5"},
    {L"m/cm", 4, 0, 0, 0, L"", 2, 1230.5, L"1.23^05"},
    // Height marks stay in metres.
    {L"m/cm", 3, 0, 0, 0, L"", 3, 856.0, L"0.85^6"},
    // The style bridge writes MTEXT and keeps the sign with the number.
    {L"m/cm", 3, 0, 0, 0, L"", 5, 1234.6, L"\\A1;1.23{\\H0.7x;\\S5^;}"},
    {L"m/cm", 3, 0, 0, 0, L"", 5, -1234.6, L"\\A1;-1.23{\\H0.7x;\\S5^;}"},
    {L"m/cm", 3, 0, 0, 0, L"", 2, -1234.6, L"-1.23^5"},
    // Rounding to 5 mm, with the carry at 7.5 mm.
    {L"mm", 0, 1, 0, 0, L"", 2, 1237.4, L"1235"},
    {L"mm", 0, 1, 0, 0, L"", 2, 1237.5, L"1240"},
    {L"m/cm", 3, 1, 0, 0, L"", 2, 856.0, L"85^5"},
    // Rounding to 2.5 mm.
    {L"mm", 1, 2, 0, 0, L"", 2, 1231.2, L"1230.0"},
    {L"mm", 1, 2, 0, 0, L"", 2, 1231.3, L"1232.5"},
    {L"mm", 1, 2, 0, 0, L"", 2, 1238.7, L"1237.5"},
    {L"mm", 1, 2, 0, 0, L"", 2, 1238.8, L"1240.0"},
    // Below a millimetre the tenths are one digit: only divided by 10.
    {L"mm", 2, 1, 0, 0, L"", 2, 0.7, L"0.07"},
    // Zero shows nothing.
    {L"m/cm", 3, 1, 0, 0, L"", 2, 0.0, L""},
    // Plain measures, trimming and the delimiter.
    {L"m", 2, 0, 0, 0, L"", 2, 1234.6, L"1.23"},
    {L"m", 3, 0, 0, 1, L"", 2, 1200.0, L"1.2"},
    {L"m", 2, 0, 0, 0, L",", 2, 1234.6, L"1,23"},
    {L"cm", 1, 0, 0, 0, L"", 2, 1234.6, L"123.5"},
    {L"Zoll", 2, 0, 0, 0, L"", 2, 254.0, L"10.00"},
    {L"ft", 2, 0, 0, 0, L"", 2, 3048.0, L"10.00"},
    // Feet and inches: engineering with decimals, architectural in fractions.
    {L"0'-0.000\"", 3, 0, 0, 0, L"", 2, 368.3, L"1'-2.500\""},
    {L"0'-0\"", 2, 0, 0, 0, L"", 2, 368.3, L"1'-2 1/2\""},
    {L"0'-0\"", 2, 0, 0, 0, L"", 2, -368.3, L"-1'-2 1/2\""},
};

TEST_F(DimTextFormat, DistanceToTextCases)
{
    for (const SFormatCase& c : kCases) {
        CStringArray arrayString;
        arrayString.SetSize(7);
        arrayString[2] = c.pszMeasure;
        arrayString[5] = c.pszDelimiter;
        CUIntArray arrayInt;
        arrayInt.SetSize(17);
        arrayInt[2] = c.iRound;
        arrayInt[4] = c.iDecimals;
        arrayInt[9] = c.bMCmFrom10;
        arrayInt[16] = c.bTrim;
        CDoubleArray arrayDouble;
        arrayDouble.SetSize(10);
        arrayDouble[9] = 0.001;
        CString strOut;
        DistanceToText(strOut, c.iType, c.dMM * 0.001, arrayString, arrayInt, arrayDouble);
        EXPECT_EQ(strOut, CString(c.pszExpected)) << CString(c.pszMeasure).str() << " " << c.dMM << " mm";
    }
}

TEST_F(DimTextFormat, AlternativeUnitsFromGlobalsAndChainIni)
{
    m_options.arrayOptString.SetSize(5);
    m_options.arrayOptString[2] = L"cm";
    m_options.arrayOptInt.SetSize(16);
    m_options.arrayOptInt[15] = 1;
    CStringArray arrayString;
    arrayString.SetSize(7);
    arrayString[2] = L"m/cm";
    CUIntArray arrayInt;
    arrayInt.SetSize(17);
    arrayInt[4] = 3;
    CDoubleArray arrayDouble;
    arrayDouble.SetSize(10);
    arrayDouble[9] = 0.001;
    CString strOut;
    EXPECT_EQ(DistanceToText(strOut, -2, 1.2346, arrayString, arrayInt, arrayDouble), CString(L"123.5"));

    const std::filesystem::path ini = m_dir / "chain.ini";
    std::ofstream(ini) << "[General Info]\nAltMeasure=mm\nAltDecimals=0\n";
    arrayString[3] = CString(ini.string().c_str());
    EXPECT_EQ(DistanceToText(strOut, -2, 1.2346, arrayString, arrayInt, arrayDouble), CString(L"1235"));
    // The chain's own values are not touched by the alternative units.
    EXPECT_EQ(DistanceToText(strOut, 2, 1.2346, arrayString, arrayInt, arrayDouble), CString(L"1.23^5"));
    pGlobDimOptions = nullptr;  // the module unloading
    EXPECT_EQ(DistanceToText(strOut, 2, 1.5, arrayString, arrayInt, arrayDouble), CString(L"...<1.500000>"));
}

TEST(DimTextNumbers, DoubleToTextAndParsers)
{
    CString strOut;
    EXPECT_EQ(DoubleToText(strOut, -0.004, 2, FALSE, nullptr), CString(L"0.00"));  // no negative zero
    EXPECT_EQ(DoubleToText(strOut, 1.25, 20, FALSE, nullptr), CString(L"1.25"));   // "%f", always trimmed
    EXPECT_EQ(DoubleToText(strOut, 120.0, 0, TRUE, nullptr), CString(L"120"));     // nothing to trim
    EXPECT_DOUBLE_EQ(ParseRaisedValue(L"1.25^5"), 1.255);
    EXPECT_DOUBLE_EQ(ParseRaisedValue(L"1,25^5"), 1.255);
    EXPECT_DOUBLE_EQ(ParseRaisedValue(L"85^6"), 85.6);
    EXPECT_DOUBLE_EQ(ValueTextToDouble(L"-12,75"), -12.75);
    EXPECT_DOUBLE_EQ(ValueTextToDouble(L",5"), 0.0);  // a leading comma is no decimal sign
}

} // namespace
