// A store loaded where no option file holds any key carries the defaults of
// the parameter table, set by set.
#include <gtest/gtest.h>

#include <vector>

#include "OptionsFixture.h"
#include "host/mfc/CWaitCursor.h"

namespace {

// Expected doubles of each set after a load without files.
struct SExpectedSet {
    const char* name;
    int iSet;
    double doubles[kSetDoubles];
};
const SExpectedSet kSets[] = {
    {"linear", kSetLinear, {0.01, 50, 10, 10, 4, 2, 2, 50, 80, 0.001, 0, 5, 0, 0, 0, 0, 0, 0}},
    // Height: size 5 and diameter 10 under the height keys.
    {"height", kSetHeight, {0.01, 50, 10, 10, 5, 2, 10, 50, 80, 0.001, 0, 5, 0, 0, 0, 0, 0, 0}},
    // Text: doubles 4, 6, 12 and 13 are never loaded for texts.
    {"text", kSetText, {0.01, 50, 10, 10, 0, 2, 0, 50, 80, 0.001, 0, 5, 0, 0, 0, 0, 0, 0}},
};
// The integers are alike in all sets: ExtLine 1, RoundMM 1, Decimals 4, and
// AltUnitsStatus 9 because only 7 and 9 are legal.
const UINT kInts[kSetInts] = {1, 0, 1, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9, 0, 0, 0, 0};

CParamSet& SetByIndex(CGlobDimOptions& options, int iSet)
{
    return iSet == kSetLinear ? options.m_setLinear : iSet == kSetHeight ? options.m_setHeight : options.m_setText;
}

class DefaultsTest : public OptionsFixture {
protected:
    void SetUp() override
    {
        OptionsFixture::SetUp();
        // Dirt that a load must clear.
        m_options.m_bNoWrite = TRUE;
        m_options.m_iMode = kModeText;
        m_options.m_iRunningCommand = 3;
        m_options.m_setHeight.arrayDouble.SetAtGrow(30, 7.0);
        ASSERT_TRUE(m_options.LoadOptions());
    }
};

} // namespace

TEST_F(DefaultsTest, EverySetHoldsTheTableDefaults)
{
    for (const SExpectedSet& expected : kSets) {
        SCOPED_TRACE(expected.name);
        const CParamSet& set = SetByIndex(m_options, expected.iSet);
        ASSERT_EQ(set.arrayDouble.GetSize(), kSetDoubles);
        ASSERT_EQ(set.arrayInt.GetSize(), kSetInts);
        ASSERT_EQ(set.arrayString.GetSize(), kSetStrings);
        for (int i = 0; i < kSetDoubles; ++i)
            EXPECT_DOUBLE_EQ(set.arrayDouble[i], expected.doubles[i]) << "double " << i;
        for (int i = 0; i < kSetInts; ++i)
            EXPECT_EQ(set.arrayInt[i], kInts[i]) << "integer " << i;
        for (int i = 0; i < kSetStrings; ++i) {
            CString strExpected = i == 0 ? CString(L"1:100") : i == 2 ? CString(L"m/cm") : CString();
            if (i == 3)
                strExpected = m_options.m_strCurOptionsFile;
            EXPECT_EQ(set.arrayString[i], strExpected) << "string " << i;
        }
    }
}

TEST_F(DefaultsTest, GeneralOptionsAndState)
{
    const CString strings[kOptStrings] = {L"1:1", L"0,14,2,13,15,3", L"", L"", L"[#],[ # ],<#>,< # >,=> #"};
    ASSERT_EQ(m_options.arrayOptString.GetSize(), kOptStrings);
    for (int i = 0; i < kOptStrings; ++i)
        EXPECT_EQ(m_options.arrayOptString[i], strings[i]) << "general string " << i;
    ASSERT_EQ(m_options.arrayOptInt.GetSize(), kOptInts);
    for (int i = 0; i < kOptInts; ++i)
        EXPECT_EQ(m_options.arrayOptInt[i], 0u) << "general integer " << i;
    EXPECT_EQ(std::vector<UINT>(m_options.arrayAutoPosOrder.begin(), m_options.arrayAutoPosOrder.end()),
              (std::vector<UINT>{14, 2, 13, 15, 3}));

    EXPECT_EQ(m_options.m_iMode, kModeLinear);
    EXPECT_FALSE(m_options.m_bNoWrite);
    EXPECT_EQ(m_options.m_iRunningCommand, 0);
    EXPECT_FALSE(m_options.m_bDebugMsg);
    EXPECT_FALSE(m_options.m_bNoEditableParams);
    // No file names another options file, so the main INI file serves.
    EXPECT_TRUE(m_options.m_strIniFile.Right(12) == L"/Sorvane.ini" ||
                m_options.m_strIniFile.Right(12) == L"\\Sorvane.ini")
        << m_options.m_strIniFile.ToUtf8();
    EXPECT_EQ(m_options.m_strCurOptionsFile, m_options.m_strIniFile);
}

TEST_F(DefaultsTest, SavingForcesAltUnitsAndRestoresTheMode)
{
    for (int iMode : {kModeAll, kModeLinear, kModePlanHeight, kModeText, 7}) {
        SCOPED_TRACE(iMode);
        for (CParamSet* pSet : {&m_options.m_setLinear, &m_options.m_setHeight, &m_options.m_setText})
            pSet->arrayInt[22] = 0;
        m_options.m_setLinear.arrayInt[22] = 7;  // the other legal value stays
        m_options.m_iMode = iMode;
        const CWaitCursor::Counts before = CWaitCursor::GetCounts();
        EXPECT_TRUE(m_options.SaveOptions());
        EXPECT_EQ(CWaitCursor::GetCounts().begins, before.begins + 1);
        EXPECT_EQ(m_options.m_iMode, iMode);
        const bool bAll = iMode == kModeAll || iMode == 7;
        EXPECT_EQ(m_options.m_setLinear.arrayInt[22], 7u);
        EXPECT_EQ(m_options.m_setHeight.arrayInt[22], bAll || iMode == kModePlanHeight ? 9u : 0u);
        EXPECT_EQ(m_options.m_setText.arrayInt[22], bAll || iMode == kModeText ? 9u : 0u);
    }
}

