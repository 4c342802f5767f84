// Resource modules: strings, menus and dialog templates through their handles,
// the current resource handle with CString::LoadString, and language files
// loaded with LoadLibraryW.
#include "host/res/ResLibrary.h"
#include "host/res/ResModule.h"

#include "host/mfc/CString.h"
#include "host/win/wsprintf.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

const wchar_t kScript[] = LR"(
#define IDR_CHAIN 130
STRINGTABLE
BEGIN
    130     "Text 130"
    7053    "Links"
    32825   "\n\n   Abschnitt entfernen/zurück:"
    9       ""
END
IDR_CHAIN MENU
BEGIN
    POPUP "Maßkette"
    BEGIN
        MENUITEM "Bezugsebene fixiert", 32825, CHECKED
    END
END
Named MENU { POPUP "N" { MENUITEM "x", 1 } }
129 DIALOGEX 0, 0, 100, 50
CAPTION "Sorvane"
BEGIN
END
)";

// Makes a module and makes it current for the test; both undone afterwards.
class ResModuleTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_before = AfxGetResourceHandle();
        m_h = svres::LoadResourceModule(kScript, L"base.rc");
        ASSERT_NE(m_h, nullptr) << svwin::WideToUtf8(svres::LastResourceError());
        AfxSetResourceHandle(m_h);
    }
    void TearDown() override
    {
        AfxSetResourceHandle(m_before);
        svres::FreeResourceModule(m_h);
        std::error_code ec;
        if (!m_folder.empty())
            std::filesystem::remove_all(m_folder, ec);
    }

    std::wstring WriteFile(const std::string& name, const std::string& bytes)
    {
        if (m_folder.empty()) {
            std::string pattern = (std::filesystem::temp_directory_path() / "svres-XXXXXX").string();
            if (::mkdtemp(pattern.data()))
                m_folder = pattern;
        }
        std::ofstream(m_folder + "/" + name, std::ios::binary) << bytes;
        return svwin::Utf8ToWide(m_folder + "/" + name);
    }

    HINSTANCE m_before = nullptr;
    HINSTANCE m_h = nullptr;
    std::string m_folder;
};

TEST_F(ResModuleTest, LoadStringBufferRules)
{
    struct Case {
        HINSTANCE h;
        UINT id;
        int cch;
        int result;
        const wchar_t* text;
    };
    const Case cases[] = {
        {m_h, 7053, 64, 5, L"Links"},
        {m_h, 7053, 4, 3, L"Lin"},       // truncated, terminated
        {m_h, 7053, 1, 0, L""},
        {nullptr, 7053, 64, 5, L"Links"},  // null: the current handle
        {m_h, 7054, 64, 0, L""},         // absent
        {m_h, 9, 64, 0, L""},            // empty counts as absent
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.id);
        wchar_t buf[64] = L"junk";
        EXPECT_EQ(LoadStringW(c.h, c.id, buf, c.cch), c.result);
        EXPECT_STREQ(buf, c.text);
    }
    LPCWSTR p = nullptr;
    EXPECT_EQ(LoadStringW(m_h, 32825, reinterpret_cast<LPWSTR>(&p), 0), 32);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(std::wstring(p, 32), L"\n\n   Abschnitt entfernen/zurück:");
}

TEST_F(ResModuleTest, CStringLoadStringReadsTheCurrentHandle)
{
    CString s;
    EXPECT_TRUE(s.LoadString(130));
    EXPECT_EQ(s, L"Text 130");
    EXPECT_FALSE(s.LoadString(131));
    EXPECT_EQ(s, L"Text 130");  // unchanged on failure
    AfxSetResourceHandle(nullptr);
    EXPECT_FALSE(s.LoadString(130));
}

TEST_F(ResModuleTest, LoadMenuByNumberAndName)
{
    HMENU h = LoadMenuW(m_h, MAKEINTRESOURCEW(130));
    ASSERT_NE(h, nullptr);
    HMENU popup = GetSubMenu(h, 0);
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(GetMenuItemID(popup, 0), 32825u);
    EXPECT_EQ(GetMenuState(popup, 32825, MF_BYCOMMAND) & MF_CHECKED, static_cast<UINT>(MF_CHECKED));
    wchar_t text[64];
    GetMenuStringW(popup, 32825, text, 64, MF_BYCOMMAND);
    EXPECT_STREQ(text, L"Bezugsebene fixiert");
    DestroyMenu(h);

    for (LPCWSTR name : {L"named", L"NAMED"}) {
        HMENU n = LoadMenuW(m_h, name);
        EXPECT_NE(n, nullptr);
        DestroyMenu(n);
    }
    HMENU byHash = LoadMenuW(nullptr, L"#130");
    EXPECT_NE(byHash, nullptr);
    DestroyMenu(byHash);
    EXPECT_EQ(LoadMenuW(m_h, MAKEINTRESOURCEW(131)), nullptr);
}

TEST_F(ResModuleTest, DialogTemplateLookup)
{
    const auto d = svres::FindDialogTemplate(m_h, MAKEINTRESOURCEW(129));
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->caption, L"Sorvane");
    EXPECT_EQ(svres::FindDialogTemplate(m_h, MAKEINTRESOURCEW(130)), nullptr);  // 130 is a menu
}

TEST_F(ResModuleTest, FreedHandleAnswersNothing)
{
    HINSTANCE h = svres::LoadResourceModule(L"STRINGTABLE BEGIN 1 \"x\" END", L"tmp.rc");
    ASSERT_NE(h, nullptr);
    EXPECT_TRUE(svres::FreeResourceModule(h));
    EXPECT_FALSE(svres::FreeResourceModule(h));
    wchar_t buf[8];
    EXPECT_EQ(LoadStringW(h, 1, buf, 8), 0);
    HINSTANCE next = svres::LoadResourceModule(L"STRINGTABLE BEGIN 1 \"y\" END", L"tmp.rc");
    EXPECT_NE(next, h);  // never reused
    svres::FreeResourceModule(next);
}

TEST_F(ResModuleTest, BadScriptGivesNullAndTheReason)
{
    EXPECT_EQ(svres::LoadResourceModule(L"STRINGTABLE\nBEGIN\n 1\nEND", L"bad.rc"), nullptr);
    EXPECT_EQ(svres::LastResourceError(), L"bad.rc(4): expected the text of string 1, found \"END\"");
}

TEST_F(ResModuleTest, LanguageFileOverridesStrings)
{
    // Written as the original platform would: Windows-1252, not UTF-8.
    const std::wstring path = WriteFile("sorvaneENG.lng", "STRINGTABLE\r\nBEGIN\r\n  7053 \"Left \xE4\"\r\nEND\r\n");
    HMODULE lang = LoadLibraryW(path.c_str());
    ASSERT_NE(lang, nullptr) << svwin::WideToUtf8(svres::LastResourceError());

    AfxSetResourceHandle(lang);
    CString s;
    EXPECT_TRUE(s.LoadString(7053));
    EXPECT_EQ(s, L"Left \u00e4");
    EXPECT_FALSE(s.LoadString(130));  // the language file stands alone

    // The same file again, spelled in another case, is the same module with a
    // second reference.
    std::wstring upper = path;
    upper.replace(upper.size() - 3, 3, L"LNG");
    EXPECT_EQ(LoadLibraryW(upper.c_str()), lang);
    EXPECT_TRUE(FreeLibrary(lang));
    EXPECT_TRUE(s.LoadString(7053));
    EXPECT_TRUE(FreeLibrary(lang));
    EXPECT_FALSE(s.LoadString(7053));  // gone: the stale handle reads nothing
    EXPECT_FALSE(FreeLibrary(lang));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));

    AfxSetResourceHandle(m_h);
    EXPECT_TRUE(s.LoadString(7053));
    EXPECT_EQ(s, L"Links");
}

TEST_F(ResModuleTest, LanguageFileFailures)
{
    const std::wstring bad = WriteFile("sorvaneXX.lng", "STRINGTABLE\nBEGIN\n  1 \"x\"\n  2\nEND\n");
    EXPECT_EQ(LoadLibraryW(bad.c_str()), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_BAD_FORMAT));
    EXPECT_EQ(svres::LastResourceError(), bad + L"(5): expected the text of string 2, found \"END\"");

    const std::wstring missing = bad.substr(0, bad.size() - 6) + L"YY.lng";
    EXPECT_EQ(LoadLibraryW(missing.c_str()), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    EXPECT_NE(svres::LastResourceError().find(L"cannot read"), std::wstring::npos);

    EXPECT_EQ(LoadLibraryW(L"/nonexistent/libnothing.so"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
}

TEST_F(ResModuleTest, LanguageFileIncludesBesideIt)
{
    WriteFile("ids.h", "#define IDS_LEFT 7053\n");
    const std::wstring path = WriteFile("sorvaneDE.lng", "#include \"ids.h\"\nSTRINGTABLE { IDS_LEFT \"Links!\" }\n");
    HMODULE lang = LoadLibraryW(path.c_str());
    ASSERT_NE(lang, nullptr) << svwin::WideToUtf8(svres::LastResourceError());
    wchar_t buf[16];
    EXPECT_EQ(LoadStringW(lang, 7053, buf, 16), 6);
    EXPECT_TRUE(FreeLibrary(lang));
}

} // namespace
