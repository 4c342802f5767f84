// Key names by class, index and mode, and which set the accessors reach in
// each mode.
#include <gtest/gtest.h>

#include "host/rx/acutPrintf.h"
#include "options/GlobDimOptions.h"

TEST(ModeRules, ParamNames)
{
    struct SRow {
        int iClass, iIndex, iMode, iCurrentMode;
        const wchar_t* name;
        bool bUnnamed;  // prints the warning line
    };
    const SRow rows[] = {
        {0, 0, 2, 2, L"Scale", false}, {0, 6, 2, 2, L"DimDescription", false},
        {0, 6, 3, 2, L"HK_Auto_Handle1", false}, {0, 6, 4, 2, L"DimDescription", false},
        {0, 7, 2, 2, L"HK_Auto_Handle2", false}, {0, 8, 2, 2, L"Option0-8", true},
        {1, 4, 4, 2, L"TickSize", false},  // plan marks keep the first form
        {1, 4, 3, 2, L"HDimSize", false}, {1, 4, 5, 2, L"TickSize", false},
        {1, 4, 0, 3, L"HDimSize", false},  // 0: the current mode
        {1, 4, 0, 4, L"TickSize", false}, {1, 6, 3, 2, L"HDimDiameter", false},
        {1, 13, 3, 2, L"HDimReducedSize", false}, {1, 13, 1, 2, L"DimLineDist", false},
        {1, 10, 2, 2, L"Option1-10", true}, {1, 0, 2, 2, L"ScaleVal", false},
        {2, 7, 3, 3, L"Option2-7", true}, {2, 9, 3, 2, L"HIsReducedSize", false},
        {3, 9, 3, 2, L"HIsReducedSize", false},  // class 3 is named like 2
        {3, 9, 2, 2, L"MCmFrom10", false}, {2, 22, 3, 2, L"TextAlignPlan", false},
        {2, 22, 4, 2, L"AltUnitsStatus", false}, {2, 20, 3, 2, L"HAutoValue2", false},
        {2, 23, 2, 2, L"HPDimTextUnderline", false}, {2, 24, 2, 2, L"Option2-24", true},
        {4, 0, 2, 2, L"Option4-0", true}, {5, 1, 3, 2, L"AutoPosLocationOrder", false},
        {5, 5, 2, 2, L"Option5-5", true}, {6, 4, 2, 2, L"AcadDimAssociative", false},
        {6, 10, 3, 2, L"WipeOut", false}, {6, 12, 2, 2, L"Option6-12", true},
        {6, 15, 2, 2, L"AltDecimals", false}, {-1, 0, 2, 2, L"Option-1-0", true},
    };
    CGlobDimOptions options;
    for (const SRow& row : rows) {
        SCOPED_TRACE(CString(row.name).ToUtf8());
        options.m_iMode = row.iCurrentMode;
        AcConsoleRecorder console;
        EXPECT_EQ(options.GetParamName(row.iClass, row.iIndex, row.iMode), CString(row.name));
        const std::wstring line = std::wstring(L"\n>>>>> ") + row.name + L" <<<<<";
        EXPECT_EQ(console.Text(), row.bUnnamed ? line : std::wstring());
    }
}

TEST(ModeRules, SettersAndGettersReachTheSetsOfTheMode)
{
    struct SRow {
        int iMode;
        bool linear, height, text;  // the sets a setter changes
    };
    const SRow rows[] = {
        {1, true, true, true},   {2, true, false, false}, {3, false, true, false},
        {4, false, true, false}, {5, false, false, true}, {0, true, false, false},
        {9, true, false, false}, {-2, true, false, false},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.iMode);
        CGlobDimOptions options;
        options.m_iMode = row.iMode;
        EXPECT_TRUE(options.SetDouble(2, 7.5));
        EXPECT_TRUE(options.SetInt(4, 3));
        EXPECT_TRUE(options.SetString(1, L"Arial"));
        const bool bChanged[] = {row.linear, row.height, row.text};
        CParamSet* sets[] = {&options.m_setLinear, &options.m_setHeight, &options.m_setText};
        for (int i = 0; i < kSetCount; ++i) {
            SCOPED_TRACE(i);
            EXPECT_EQ(sets[i]->arrayDouble[2], bChanged[i] ? 7.5 : 0.0);
            EXPECT_EQ(sets[i]->arrayInt[4], bChanged[i] ? 3u : 0u);
            EXPECT_EQ(sets[i]->arrayString[1], bChanged[i] ? CString(L"Arial") : CString());
        }
        // Reads come from the mode's own set (the linear one in mode 1).
        sets[SetOfMode(row.iMode)]->arrayDouble[3] = 42.0;
        EXPECT_EQ(options.GetDouble(3), 42.0);
    }
}

TEST(ModeRules, RefusedWritesChangeNothing)
{
    CGlobDimOptions options;
    options.m_iMode = kModeAll;
    options.m_bNoWrite = TRUE;
    EXPECT_FALSE(options.SetDouble(1, 5.0) || options.SetInt(1, 5) || options.SetString(1, L"x"));
    EXPECT_FALSE(options.SaveOption(kParamDouble, 1, 5.0));
    for (CParamSet* pSet : {&options.m_setLinear, &options.m_setHeight, &options.m_setText}) {
        EXPECT_EQ(pSet->arrayDouble[1], 0.0);
        EXPECT_EQ(pSet->arrayInt[1], 0u);
        EXPECT_TRUE(pSet->arrayString[1].IsEmpty());
    }

    options.m_bNoWrite = FALSE;
    EXPECT_FALSE(options.SetDouble(-1, 5.0) || options.SetInt(-1, 5) || options.SetString(-1, L"x"));
    EXPECT_FALSE(options.SaveOption(kParamString, 1, CString(L"<var>")));
    EXPECT_TRUE(options.SaveOption(kParamString, 1, CString(L"Arial")));

    // Past the end the arrays grow.
    EXPECT_TRUE(options.SetDouble(40, 1.5));
    EXPECT_EQ(options.m_setText.arrayDouble.GetSize(), 41);
    EXPECT_EQ(options.m_setText.arrayDouble[40], 1.5);
}

TEST(ModeRules, ReadsOutOfRange)
{
    CGlobDimOptions options;
    AcConsoleRecorder console;
    EXPECT_EQ(options.GetDouble(-1) + options.GetDouble(kSetDoubles), 0.0);
    EXPECT_EQ(options.GetInt(kSetInts) + options.GetOptInt(kOptInts), 0);
    EXPECT_TRUE(options.GetString(kSetStrings).IsEmpty() && options.GetOptString(-1).IsEmpty());
    EXPECT_EQ(console.Text(), L" !!!!GetDouble( -1 ) size=18  !!!!GetDouble( 18 ) size=18 ");
}

TEST(ModeRules, SaveTargets)
{
    struct SRow {
        int iMode, iClass, iIndex;
        const wchar_t* targets;  // "section/key" joined by "|"
    };
    const SRow rows[] = {
        {2, 1, 4, L"MainOptions/TickSize"},
        {3, 1, 4, L"DH_MainOptions/HDimSize"},
        {4, 1, 4, L"DH_MainOptions/TickSize"},
        {5, 0, 0, L"TXT_MainOptions/Scale"},
        {1, 1, 4,
         L"MainOptions/TickSize|DH_MainOptions/HDimSize|DH_MainOptions/TickSize|TXT_MainOptions/TickSize"},
        {1, 5, 0, L"General Info/ScalePaperSpace"},
        {3, 6, 10, L"General Info/WipeOut"},
        {7, 2, 0, L"MainOptions/ExtLine"},
    };
    CGlobDimOptions options;
    for (const SRow& row : rows) {
        SCOPED_TRACE(CString(row.targets).ToUtf8());
        options.m_iMode = row.iMode;
        CStringArray sections, keys;
        const int n = options.GetSaveTargets(row.iClass, row.iIndex, sections, keys);
        CString joined;
        for (int i = 0; i < n; ++i)
            joined += (i ? L"|" : L"") + sections[i] + L"/" + keys[i];
        EXPECT_EQ(joined, CString(row.targets));
    }
}
