// The INI layer against real files: first-use content, the two caches, lists,
// and the option store loading and saving through them.
#include <gtest/gtest.h>

#include "OptionsFixture.h"
#include "host/win/WinIni.h"
#include "host/win/WinMessageBox.h"
#include "options/IniCache.h"
#include "options/IniDefaults.h"
#include "options/IniLists.h"
#include "options/Maps.h"

namespace {

class IniFixture : public OptionsFixture {
protected:
    void SetUp() override
    {
        OptionsFixture::SetUp();
        Forget();
    }
    void TearDown() override
    {
        Forget();
        OptionsFixture::TearDown();
    }
    static void Forget()
    {
        SaveIniBuffer(2, TRUE);
        SetIniFileName(nullptr);
        svwin::ClearProfileCache();
    }
    CString File(const wchar_t* pszName) const { return CString(m_dir.wstring().c_str()) + L"/" + pszName; }
    static CString OnDisk(const CString& strFile, const wchar_t* pszSection, const wchar_t* pszKey)
    {
        wchar_t buffer[512] = {};
        GetPrivateProfileStringW(pszSection, pszKey, L"", buffer, 512, strFile);
        return CString(buffer);
    }
};

TEST_F(IniFixture, FirstUseWritesGeneralEntriesAndDefaultsOfAllModes)
{
    const CString strIni = GetIniFile();
    ASSERT_TRUE(strIni.Find(m_dir.wstring().c_str()) >= 0 || strIni.Find(L"Sorvane.ini") >= 0);
    struct Row { const wchar_t* section; const wchar_t* key; const wchar_t* value; };
    const Row rows[] = {
        {L"General Info", L"OptionsActivePage", L"0"}, {L"General Info", L"DefaultSection", L"Decimal"},
        {L"General Info", L"TextMoveStep", L"5"},      {L"MainOptions", L"TickSize", L"4"},
        {L"DH_MainOptions", L"HDimSize", L"5"},        {L"DH_MainOptions", L"TickSize", L""},
        {L"TXT_MainOptions", L"ExtLine", L""},         {L"TXT_MainOptions", L"Measure", L"m/cm"},
        {L"Scale2Layer", L"Item_7", L"1:1000=DIM_1_1000=7"}, {L"Scale2Layer", L"Item_8", L""},
        {L"TextHeight2Color", L"Item_3", L"35=3"},     {L"DH_ExtLineLength", L"Item_6", L"10"},
        {L"TXT_ExtLineLength", L"Item_0", L""},        {L"TXT_Scale2Layer", L"Item_1", L"1:2=DIM_1_2=7"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(OnDisk(strIni, row.section, row.key), CString(row.value)) << row.section << " " << row.key;
    EXPECT_EQ(OnDisk(strIni, L"General Info", L"CurOptionsFile"), strIni);
    EXPECT_EQ(OnDisk(strIni, L"OptionsFiles", L"Item_0"), strIni);
}

TEST_F(IniFixture, SwitchingFilesFlushesAndEmptiesCacheTwo)
{
    const CString strA = File(L"a.ini"), strB = File(L"b.ini");
    WritePrivateProfileStringW(L"S", L"K", L"old", strA);
    WritePrivateProfileStringW(L"S", L"K", L"b", strB);
    EXPECT_EQ(ReadIni(strA, L"S", L"K"), CString(L"old"));
    WriteIni(strA, L"S", L"N", L"new");
    EXPECT_EQ(OnDisk(strA, L"S", L"N"), CString(L""));  // still only cached
    EXPECT_EQ(ReadIni(strB, L"S", L"K"), CString(L"b"));
    EXPECT_EQ(OnDisk(strA, L"S", L"N"), CString(L"new"));
    // A clean cache writes nothing back, so an edit made meanwhile survives.
    EXPECT_EQ(ReadIni(strA, L"S", L"K"), CString(L"old"));
    WritePrivateProfileStringW(L"S", L"K", L"edited", strA);
    EXPECT_EQ(ReadIni(strA, L"S", L"K"), CString(L"old"));  // served from the cache
    EXPECT_EQ(ReadIni(strB, L"S", L"K"), CString(L"b"));
    EXPECT_EQ(ReadIni(strA, L"S", L"K"), CString(L"edited"));  // emptied, so read afresh
}

TEST_F(IniFixture, DirtyOnlyOnChangeAndVanishedFilesStayGone)
{
    const CString strA = File(L"a.ini");
    WritePrivateProfileStringW(L"S", L"K", L"v", strA);
    ReadIni(strA, L"S", L"K");
    WriteIni(strA, L"S", L"K", L"v");
    EXPECT_FALSE(IsIniCacheDirty(2));
    WriteIni(strA, L"S", L"K", L"w");
    EXPECT_TRUE(IsIniCacheDirty(2));
    std::filesystem::remove(m_dir / "a.ini");
    SaveIni();
    EXPECT_FALSE(IsIniCacheDirty(2));
    EXPECT_FALSE(std::filesystem::exists(m_dir / "a.ini"));
}

TEST_F(IniFixture, ListsReadBackAtTheirWrittenLength)
{
    const CString strA = File(L"list.ini");
    WritePrivateProfileStringW(L"X", L"Y", L"1", strA);
    struct Case { std::vector<const wchar_t*> items; int expected; const wchar_t* last; };
    const Case cases[] = {{{L"a", L"b", L"c", L"d", L"e"}, 5, L"e"}, {{L"a", L"b", L"a", L"c"}, 3, L"c"}, {{}, 0, L""}};
    for (const Case& c : cases) {
        CStringArray array;
        for (auto* p : c.items)
            array.Add(p);
        SaveSection(array, L"L", strA);
        SaveIni();
        Forget();
        CStringArray back;
        EXPECT_EQ(LoadSection(back, L"L", strA), c.expected);
        EXPECT_EQ(OnDisk(strA, L"L", L"LastItem"), CString(c.last));
    }
    EXPECT_EQ(OnDisk(strA, L"L", L"Item_1"), CString(L""));
}

TEST_F(IniFixture, SplitItemTrimsAndRejoins)
{
    struct Case { const wchar_t* item; const wchar_t* key; const wchar_t* value; BOOL ok; };
    const Case cases[] = {{L" 1:100 = DIM_1_100 = 7 ", L"1:100", L"DIM_1_100=7", TRUE}, {L"TrueType=7", L"TrueType", L"7", TRUE},
                          {L"alone", L"alone", L"", FALSE},                       {L"k=", L"k", L"", FALSE}};
    for (const Case& c : cases) {
        CString strKey, strValue;
        EXPECT_EQ(SplitItem(c.item, strKey, strValue), c.ok) << c.item;
        EXPECT_EQ(strKey, CString(c.key));
        EXPECT_EQ(strValue, CString(c.value));
    }
}

TEST_F(IniFixture, OptionsFileNeedsMeasureOrDecimals)
{
    struct Case { const wchar_t* file; const wchar_t* key; BOOL ok; };
    const Case cases[] = {{L"o1.ini", L"Measure", TRUE}, {L"o2.ini", L"Decimals", TRUE}, {L"o3.ini", L"Scale", FALSE}};
    for (const Case& c : cases) {
        const CString strFile = File(c.file);
        WritePrivateProfileStringW(L"MainOptions", c.key, L"1", strFile);
        MessageBoxClearHistory();
        EXPECT_EQ(CheckOptionsFile(strFile), c.ok) << c.key;
        EXPECT_EQ(MessageBoxHistory().size(), c.ok ? 0u : 1u);
    }
    m_options.m_strCurOptionsFile = File(L"o1.ini");
    EXPECT_EQ(GetFileForSection(L"Convert"), File(L"o1.ini"));
    EXPECT_EQ(GetFileForSection(L"LastStatus"), GetIniFile());
}

TEST_F(IniFixture, SaveOptionsThenLoadOptionsRoundTrips)
{
    const CString strIni = GetIniFile();
    WritePrivateProfileStringW(L"MainOptions", L"Delimiter", L"#", strIni);
    WritePrivateProfileStringW(L"MainOptions", L"AcadUnits", L"0", strIni);
    WritePrivateProfileStringW(L"MainOptions", L"TextOffset", L"1,5", strIni);
    SaveIniBuffer(1, TRUE);  // forget the defaults cached at creation
    ASSERT_TRUE(m_options.LoadOptions());
    EXPECT_EQ(m_options.GetString(5), CString(L""));
    EXPECT_DOUBLE_EQ(m_options.GetDouble(9), 0.001);
    EXPECT_DOUBLE_EQ(m_options.GetDouble(7), 1.5);
    EXPECT_DOUBLE_EQ(m_options.GetDouble(1), 50.0);

    m_options.SetDouble(1, 42.5);
    m_options.SetString(0, L"1:50");
    m_options.SetString(5, L";");
    ASSERT_TRUE(m_options.SaveOptions());
    SaveIni();
    Forget();
    CGlobDimOptions fresh;
    pGlobDimOptions = &fresh;
    ASSERT_TRUE(fresh.LoadOptions());
    EXPECT_DOUBLE_EQ(fresh.GetDouble(1), 42.5);
    EXPECT_EQ(fresh.GetString(0), CString(L"1:50"));
    EXPECT_DOUBLE_EQ(fresh.GetDouble(0), 0.02);
    EXPECT_EQ(fresh.GetString(5), CString(L";"));
    pGlobDimOptions = &m_options;
}

TEST_F(IniFixture, MapsFromTheDefaultLists)
{
    m_options.m_strCurOptionsFile = GetIniFile();
    LoadMaps();
    m_options.m_iMode = kModeLinear;
    EXPECT_EQ(GetLayerOfScale(kModeLinear, L"1:50"), CString(L"DIM_1_50"));
    EXPECT_EQ(GetLayerOfScale(kModeLinear, L"1:20"), CString(L"DIM_1_X"));
    EXPECT_EQ(GetLayerOfScale(kModePlanHeight, L"1:100"), CString(L"DIM_1_100"));
    EXPECT_TRUE(IsSorvaneLayer(L"dim_1_100"));
    EXPECT_FALSE(IsSorvaneLayer(L"0"));
    EXPECT_EQ(GetLayerColor(L"dim_1_100"), 7);
    struct Case { double height; int color; };
    for (const Case& c : {Case{35, 3}, Case{36, 0}, Case{0, 7}, Case{100, 6}})
        EXPECT_EQ(GetColorOfTextHeight(c.height), c.color) << c.height;
}

TEST_F(IniFixture, LayerColourFallsBackToLayer2DefaultColor)
{
    const CString strOpt = File(L"opt.ini");
    m_options.m_strCurOptionsFile = strOpt;
    CStringArray rows, colours;
    rows.Add(L"1:100=DIM_1_100=3");
    rows.Add(L"1:20=DIM_20");
    colours.Add(L"DIM_20=5");
    SaveSectionNow(rows, L"Scale2Layer", strOpt);
    SaveSectionNow(colours, L"Layer2DefaultColor", strOpt);
    LoadMap(kModeLinear, L"Scale2Layer");
    m_options.m_iMode = kModeLinear;
    EXPECT_EQ(GetLayerColor(L"DIM_1_100"), 3);
    EXPECT_EQ(GetLayerColor(L"DIM_20"), 5);
    EXPECT_EQ(GetLayerColor(L"Other"), 7);
    EXPECT_EQ(GetLayerOfScale(kModeLinear, L"1:20"), CString(L"DIM_20"));
    EXPECT_EQ(GetLayerOfScale(kModeLinear, L"1:30"), CString(L""));
}

} // namespace
