// The language library: which file is chosen, that texts come from it, that
// a broken file is named with its line, and that the resource handle is
// always given back.
#include "AppFixture.h"

#include <fstream>

#include "app/Language.h"
#include "app/Panel.h"
#include "host/res/ResModule.h"

namespace {

using apptest::AppTest;

class LanguageTest : public AppTest {
protected:
    void WriteLanguage(const char* code, const std::string& script)
    {
        const std::filesystem::path folder = m_dir / "halvorne" / "sorvane";
        std::filesystem::create_directories(folder);
        std::ofstream(folder / (std::string("sorvane") + code + ".lng"), std::ios::binary) << script;
    }
};

constexpr UINT kIdsSelectChains = 32804;
const wchar_t kOwnText[] = L"Maßketten zum Aktualisieren wählen...";

TEST_F(LanguageTest, TextsComeFromTheChosenLanguageFile)
{
    WriteLanguage("EN", "STRINGTABLE\nBEGIN\n    32804 \"Select chains to update...\"\nEND\n");
    WriteIni(L"LastStatus", L"Language", L"EN");
    Load();
    EXPECT_NE(hLanguageResource, nullptr);
    EXPECT_NE(std::wstring(strLanguageFile).find(L"sorvaneEN.lng"), std::wstring::npos);
    EXPECT_STREQ(GetResString(kIdsSelectChains), L"Select chains to update...");

    // Another language takes effect when the panel is opened next.
    WriteIni(L"LastStatus", L"Language", L"");
    ASSERT_EQ(StartApp(0), 1);
    EXPECT_EQ(hLanguageResource, nullptr);
    EXPECT_NE(std::wstring(strLanguageFile).find(L"sorvane.lng"), std::wstring::npos);
    EXPECT_STREQ(GetResString(kIdsSelectChains), kOwnText);
    EXPECT_STREQ(GetResString(1), L"");
}

TEST_F(LanguageTest, ABrokenFileIsNamedWithItsLine)
{
    WriteLanguage("XX", "STRINGTABLE\nBEGIN\n    32804 \"open\nEND\n");
    WriteIni(L"LastStatus", L"Language", L"XX");
    AcConsoleRecorder console;
    Load();
    EXPECT_EQ(hLanguageResource, nullptr);
    EXPECT_NE(console.Text().find(L"\nSprachdatei nicht lesbar: "), std::wstring::npos) << console.Text();
    EXPECT_NE(console.Text().find(L"sorvaneXX.lng(3)"), std::wstring::npos) << console.Text();
    EXPECT_STREQ(GetResString(kIdsSelectChains), kOwnText);
}

TEST_F(LanguageTest, TheOverrideGivesTheHandleBack)
{
    Load();
    const HINSTANCE before = AfxGetResourceHandle();
    {
        CTemporaryResourceOverride resources;
        { CTemporaryResourceOverride nested; }
        EXPECT_EQ(AfxGetResourceHandle(), hDllInstance);
    }
    EXPECT_EQ(AfxGetResourceHandle(), before);
}

} // namespace
