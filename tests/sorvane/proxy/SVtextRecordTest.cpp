// The chain's text records: user values, prefix and postfix, the sum, the
// label, alternative units and the split at the raised digit.
#include <gtest/gtest.h>

#include "proxy/DimText.h"
#include "tests/sorvane/proxy/SVbasicFixture.h"

namespace {

class ChainText : public ChainFixture {
protected:
    void SetUp() override
    {
        ChainFixture::SetUp();
        // Three extensions one drawing unit (1 m) apart along x.
        LayOut(m_chain, 3);
        m_chain.m_vectorDim = AcGeVector3d::kXAxis;
        m_chain.arrayString[2] = L"m/cm";
        m_chain.arrayString[6] = L"";
        m_chain.arrayInt[2] = 0;   // no rounding
        m_chain.arrayInt[4] = 3;   // one raised millimetre
        m_chain.arrayInt[16] = 0;
        m_chain.arrayInt[SVdim::kIntAltUnitsStatus] = 2;
        m_chain.arrayDouble[9] = 0.001;
    }

    // The display texts of segment iExt and the result, as one line.
    CString Shown(int iExt, const CAppendTextObject* pAppend = nullptr)
    {
        CStringArray texts;
        const int iRaised = m_chain.GetDisplayTexts(iExt, texts, pAppend);
        CString strLine;
        strLine.Format(L"%d", iRaised);
        for (INT_PTR i = 0; i < texts.GetSize(); ++i)
            strLine += L"|" + texts[i];
        return strLine;
    }

    SVdim m_chain;
};

TEST_F(ChainText, RecordFieldsAndPosition)
{
    ASSERT_EQ(m_chain.SetDimTextDim(1, L"1.23^5"), 1);
    EXPECT_EQ(m_chain.m_dimTexts[1], CString(L"1.23^5#0"));
    m_chain.SetDimTextPos(1, -8);
    EXPECT_EQ(m_chain.GetDimTextPos(1, 0), -8);
    EXPECT_EQ(m_chain.GetDimTextPos(1, 1), 8);

    m_chain.SetDimTextPostfix(1, L"NH");
    EXPECT_EQ(m_chain.m_dimTexts[1], CString(L"1.23^5#-8@@@NH"));
    m_chain.SetDimTextDim(1, L"1.24");  // keeps the position and the fields
    m_chain.SetDimTextPos(1, 14);
    EXPECT_EQ(m_chain.m_dimTexts[1], CString(L"1.24#14@@@NH"));
    m_chain.SetDimTextPostfix(1, nullptr);
    EXPECT_EQ(m_chain.m_dimTexts[1], CString(L"1.24#14"));

    m_chain.SetDimTextDim(0, L"");  // index 0 writes 1; empty stores "0"
    EXPECT_EQ(m_chain.m_dimTexts[1], CString(L"0#14"));
}

TEST_F(ChainText, UserValuesPrefixAndPostfix)
{
    ASSERT_GT(m_chain.GetDistance(1), 0.0);
    m_chain.RefreshDimText(1);
    EXPECT_EQ(m_chain.m_dimTexts[1], CString(L"1.00#0"));
    struct SCase {
        const wchar_t* pszUser;
        const wchar_t* pszPrefix;
        const wchar_t* pszPostfix;
        const wchar_t* pszShown;
    };
    const SCase cases[] = {
        {L"", L"", L"", L"0|1.00"},
        {L"x", L"", L"", L"0|x"},                    // text stands as typed
        {L"1.2346", L"", L"", L"1|1.23|5"},          // a number takes the chain's format
        {L"3^7", L"", L"", L"1|3|7"},                // a caret splits as typed
        {L"3^", L"", L"", L"0|3^"},                  // nothing behind the caret
        {L"1.2346", L"ca.", L"", L"1|ca. 1.23|5"},   // the prefix joins the main part
        {L"x", L"ca.", L"NH", L"0|ca. x NH"},
        {L"1.2346", L"", L"NH", L"1|1.23|5| NH"},
    };
    for (const SCase& c : cases) {
        m_chain.SetDimTextUser(1, c.pszUser);
        m_chain.SetDimTextPrefix(1, c.pszPrefix);
        m_chain.SetDimTextPostfix(1, c.pszPostfix);
        EXPECT_EQ(Shown(1), CString(c.pszShown)) << CString(c.pszUser).str();
    }
    // A user number off the measure by more than the tolerance (0 here).
    m_chain.SetDimTextUser(1, L"1.0");
    EXPECT_FALSE(m_chain.IsUserTextOff(1));
    m_chain.SetDimTextUser(1, L"1.5");
    EXPECT_TRUE(m_chain.IsUserTextOff(1));
    // Clearing the user value measures again and keeps the position.
    m_chain.SetDimTextDim(1, L"old");
    m_chain.SetDimTextPos(1, 3);
    m_chain.SetDimTextUser(1, nullptr);
    EXPECT_EQ(m_chain.m_dimTexts[1], CString(L"1.00#3@@@NH"));
}

TEST_F(ChainText, SumMissingRecordsAndLabel)
{
    m_chain.RefreshDimText(1);
    m_chain.RefreshDimText(2);
    m_chain.SetDimTextUser(1, L"x");  // user values stay out of the sum
    EXPECT_EQ(m_chain.GetDimValueText(3), CString(L"2.00"));
    EXPECT_EQ(m_chain.GetDimValueText(-1), CString(L"000"));
    EXPECT_EQ(m_chain.GetDimValueText(5), CString(L"???"));

    m_chain.m_dimTexts.SetSize(1);  // a short record array grows to count - 1
    EXPECT_EQ(m_chain.GetDimValueText(2), CString(L"???"));
    EXPECT_EQ(m_chain.m_dimTexts.GetSize(), 2);

    // Where the sum stands: 6 with a label at the last end, else by the last text.
    EXPECT_EQ(m_chain.GetDimTextPos(3, 0), 5);
    m_chain.SetDimTextDim(2, L"1.00");
    m_chain.SetDimTextPos(2, 14);
    m_chain.m_dimTexts.SetSize(3);
    EXPECT_EQ(m_chain.GetDimTextPos(3, 0), 4);
    m_chain.arrayString[6] = L"2Achse A";
    EXPECT_EQ(m_chain.GetDimTextPos(3, 0), 6);
    EXPECT_EQ(m_chain.GetChainLabelCode(), 2);
    EXPECT_EQ(Shown(-100), CString(L"0|Achse A"));
}

TEST_F(ChainText, AlternativeUnitsTemplate)
{
    m_chain.RefreshDimText(1);
    m_chain.arrayInt[SVdim::kIntAltUnitsStatus] = 1;
    m_options.arrayOptString[2] = L"cm";
    m_options.arrayOptInt[15] = 0;
    const wchar_t* const cases[][2] = {
        {L"[#]", L"0|1.00 [100]"}, {L"< 9 >", L"0|1.00 < 100 >"},
        {L"alt", L"0|1.00 alt100"}, {L"%#%", L"0|1.00  100%"}};
    for (const auto& c : cases) {
        m_options.arrayOptString[3] = c[0];
        EXPECT_EQ(Shown(1), CString(c[1])) << CString(c[0]).str();
    }
    m_options.arrayOptString[3] = L"[#]";
    m_chain.SetDimTextUser(1, L"1.2346");
    m_chain.SetDimTextPostfix(1, L"NH");
    EXPECT_EQ(Shown(1), CString(L"1|1.23|5| [100] NH"));
}

} // namespace
