// Loading the option store: DimParam.ini choosing each key's file, the list of
// options files, and the defaults an options file gets on its first load.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "OptionsFixture.h"
#include "app/App.h"
#include "host/win/WinIni.h"
#include "host/win/WinText.h"
#include "options/IniCache.h"
#include "options/IniLists.h"

namespace {

// The lists every options file written by the system holds, one row each.
const char kLists[] = "[Scale2Layer]\nItem_0=1:50=DIM_1_50=7\n[DH_Scale2Layer]\nItem_0=1:50=DIM_1_50=7\n"
                      "[TXT_Scale2Layer]\nItem_0=1:50=DIM_1_50=7\n";

class LoadOptionsTest : public OptionsFixture {
protected:
    void SetUp() override
    {
        OptionsFixture::SetUp();
        Forget();
        m_strIni = GetIniFile();
        SaveIniBuffer(1, TRUE);  // the file, not what creating it cached, is what counts
    }
    void TearDown() override
    {
        strLanguageFile.Empty();
        Forget();
        OptionsFixture::TearDown();
    }
    static void Forget()
    {
        SaveIni();
        SaveIniBuffer(1, TRUE);
        SaveIniBuffer(2, TRUE);
        SetIniFileName(nullptr);
        svwin::ClearProfileCache();
    }
    CString Path(const char* pszName) const { return CString((m_dir / pszName).wstring().c_str()); }
    void WriteFile(const char* pszName, const std::string& strText) const
    {
        std::filesystem::create_directories((m_dir / pszName).parent_path());
        std::ofstream(m_dir / pszName, std::ios::binary) << strText;
    }
    static CString OnDisk(const CString& strFile, const wchar_t* pszSection, const wchar_t* pszKey)
    {
        wchar_t buffer[512] = {};
        GetPrivateProfileStringW(pszSection, pszKey, L"", buffer, 512, strFile);
        return CString(buffer);
    }
    static void Put(const CString& strFile, const wchar_t* pszSection, const wchar_t* pszKey, const wchar_t* pszValue)
    {
        WritePrivateProfileStringW(pszSection, pszKey, pszValue, strFile);
    }
    // The DimParam.ini of the language folder: TextHeight and Measure are kept per
    // project, Decimals is personal.
    void WriteParamDescriptions()
    {
        WriteFile("lang/DimParam.ini", "[Parameters_DBL]\nItem_0=TextHeight=1Texth\xc3\xb6he;H\xc3\xb6he der Zahlen\n"
                                       "[Parameters_INT]\nItem_0=Decimals=0Nachkommastellen;Stellen\n"
                                       "[Parameters_STR]\nItem_0=Measure=1Einheiten;Einheit der Werte\n"
                                       "[Parameters_General]\nItem_0=ShowSumOfDim=Summe zeigen\n");
        strLanguageFile = Path("lang/sorvane049.lng");
    }

    CString m_strIni;
};

TEST_F(LoadOptionsTest, DimParamDecidesWhichFileHoldsAKey)
{
    struct SRow {
        bool bDimParam;
        double dTextHeight;
        int iDecimals;
        const wchar_t* pszMeasure;
    };
    // The options file says 35 / 2 / cm, Sorvane.ini says 70 / 3 / mm.
    const SRow rows[] = {{false, 70.0, 3, L"mm"}, {true, 35.0, 3, L"cm"}};
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.bDimParam ? "with DimParam.ini" : "without DimParam.ini");
        const CString strOptions = Path("project.ini");
        WriteFile("project.ini", std::string("[MainOptions]\nTextHeight=35\nDecimals=2\nMeasure=cm\nScale=1:50\n") + kLists);
        Put(m_strIni, L"General Info", L"CurOptionsFile", strOptions);
        Put(m_strIni, L"MainOptions", L"TextHeight", L"70");
        Put(m_strIni, L"MainOptions", L"Decimals", L"3");
        Put(m_strIni, L"MainOptions", L"Measure", L"mm");
        if (row.bDimParam)
            WriteParamDescriptions();
        else
            strLanguageFile = Path("nolang/sorvane049.lng");  // a folder without DimParam.ini
        Forget();

        CGlobDimOptions options;
        pGlobDimOptions = &options;
        ASSERT_TRUE(options.LoadOptions());
        EXPECT_EQ(options.m_strCurOptionsFile, strOptions);
        EXPECT_DOUBLE_EQ(options.GetDouble(1), row.dTextHeight);
        EXPECT_EQ(options.GetInt(4), row.iDecimals);
        EXPECT_EQ(options.GetString(2), CString(row.pszMeasure));
        EXPECT_EQ(options.GetParamFile(L"TextHeight"), row.bDimParam ? strOptions : m_strIni);
        EXPECT_EQ(options.GetParamFile(L"ShowSumOfDim"), m_strIni);  // no flag digit: personal
        EXPECT_EQ(options.GetParamLabel(L"TextHeight"), CString(row.bDimParam ? L"Texthöhe" : L"TextHeight"));
        EXPECT_EQ(options.mapParams.GetCount(), row.bDimParam ? 4 : 0);

        // Saving follows the same choice.
        options.SetDouble(1, 42.0);
        ASSERT_TRUE(options.SaveOptions());
        Forget();
        EXPECT_EQ(OnDisk(strOptions, L"MainOptions", L"TextHeight"), CString(row.bDimParam ? L"42" : L"35"));
        EXPECT_EQ(OnDisk(m_strIni, L"MainOptions", L"TextHeight"), CString(row.bDimParam ? L"70" : L"42"));
        pGlobDimOptions = &m_options;
    }
}

TEST_F(LoadOptionsTest, OptionsFilesListGainsTheFileInUse)
{
    struct SRow {
        const char* name;
        const char* pszCurrent;      // file named by CurOptionsFile; null for the main file
        bool bExists;                // whether that file is there
        const char* pszListedAlready;  // a second list item before loading, or null
        int nExpected;               // items afterwards
        const char* pszLast;         // the last item afterwards; null for the main file
    };
    const SRow rows[] = {
        {"main file", nullptr, true, nullptr, 1, nullptr},
        {"new options file", "a.ini", true, nullptr, 2, "a.ini"},
        {"already listed", "b.ini", true, "b.ini", 2, "b.ini"},
        {"listed before another", "c.ini", true, "d.ini", 3, "c.ini"},
        {"vanished file", "gone.ini", false, nullptr, 1, nullptr},
    };
    for (const SRow& row : rows) {
        SCOPED_TRACE(row.name);
        CStringArray arrayBefore;
        arrayBefore.Add(m_strIni);
        if (row.pszListedAlready)
            arrayBefore.Add(Path(row.pszListedAlready));
        SaveSectionNow(arrayBefore, L"OptionsFiles", m_strIni);
        const CString strCurrent = row.pszCurrent ? Path(row.pszCurrent) : m_strIni;
        if (row.pszCurrent && row.bExists)
            WriteFile(row.pszCurrent, std::string("[MainOptions]\nMeasure=m\n") + kLists);
        Put(m_strIni, L"General Info", L"CurOptionsFile", strCurrent);
        Forget();

        CGlobDimOptions options;
        pGlobDimOptions = &options;
        ASSERT_TRUE(options.LoadOptions());
        Forget();
        EXPECT_EQ(OnDisk(m_strIni, L"OptionsFiles", L"Item_0"), m_strIni);
        CString strKey;
        strKey.Format(L"Item_%d", row.nExpected);
        EXPECT_EQ(OnDisk(m_strIni, L"OptionsFiles", strKey), CString(L""));
        strKey.Format(L"Item_%d", row.nExpected - 1);
        EXPECT_EQ(OnDisk(m_strIni, L"OptionsFiles", strKey), row.pszLast ? Path(row.pszLast) : m_strIni);
        pGlobDimOptions = &m_options;
    }
}

TEST_F(LoadOptionsTest, FirstLoadWritesEachSetsDefaultsIntoTheOptionsFile)
{
    struct SRow {
        const wchar_t* pszSection;
        const wchar_t* pszKey;
        const wchar_t* pszFresh;   // in an options file without sets afterwards
        const wchar_t* pszMarked;  // in a file whose sets were written before
    };
    const SRow rows[] = {
        {L"MainOptions", L"TickSize", L"4", L""},
        {L"MainOptions", L"Scale", L"1:100", L"1:50"},
        {L"DH_MainOptions", L"HDimSize", L"5", L"7"},
        {L"DH_MainOptions", L"TickSize", L"", L""},
        {L"TXT_MainOptions", L"TextHeight", L"50", L"30"},
        {L"TXT_MainOptions", L"ExtLine", L"", L""},
        {L"Scale2Layer", L"Item_0", L"<Unbekannt>=DIM_1_X=7", L"1:50=DIM_1_50=7"},
        {L"DH_TextHeight2Color", L"Item_4", L"50=4", L""},
    };
    // Both files have their lists, so only the sets' own check can write the defaults.
    WriteFile("fresh.ini", kLists);
    WriteFile("marked.ini", std::string("[MainOptions]\nScale=1:50\n[DH_MainOptions]\nHDimSize=7\n"
                                        "[TXT_MainOptions]\nTextHeight=30\n") +
                                kLists);
    for (const bool bFresh : {true, false}) {
        SCOPED_TRACE(bFresh ? "fresh" : "marked");
        const CString strFile = Path(bFresh ? "fresh.ini" : "marked.ini");
        Put(m_strIni, L"General Info", L"CurOptionsFile", strFile);
        Forget();
        CGlobDimOptions options;
        pGlobDimOptions = &options;
        ASSERT_TRUE(options.LoadOptions());
        Forget();
        for (const SRow& row : rows)
            EXPECT_EQ(OnDisk(strFile, row.pszSection, row.pszKey), CString(bFresh ? row.pszFresh : row.pszMarked))
                << CString(row.pszSection).ToUtf8() << " " << CString(row.pszKey).ToUtf8();
        pGlobDimOptions = &m_options;
    }
}

} // namespace
