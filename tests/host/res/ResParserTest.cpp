// The resource-script parser: each construct on a snippet, and malformed input
// giving the file, the line and what was expected.
#include "host/res/ResModule.h"
#include "host/res/ResParser.h"
#include "host/win/wsprintf.h"

#include <gtest/gtest.h>

#include <map>

using svres::ParseResourceScript;
using svres::ResError;
using svres::ResName;
using svres::ResScript;

namespace {

ResScript Parse(const std::wstring& text, const svres::IncludeResolver& resolver = {})
{
    return ParseResourceScript(text, L"test.rc", resolver);
}

// The menu as the menu functions see it, one line per item.
std::vector<std::wstring> MenuLines(const ResScript& script, UINT id)
{
    const svres::ResMenu* menu = script.FindMenu(ResName::Number(id));
    if (!menu)
        return {L"<no menu>"};
    HMENU h = svres::BuildMenu(*menu);
    std::vector<std::wstring> lines = svwin::DescribeMenu(h);
    DestroyMenu(h);
    return lines;
}

struct StringCase {
    const char* what;
    const wchar_t* script;
    UINT id;
    const wchar_t* text;
};

const StringCase kStringCases[] = {
    {"comma form", L"STRINGTABLE\nBEGIN\n 7043, \"\\nMaßketten wählen...\"\nEND", 7043, L"\nMaßketten wählen..."},
    {"blank form and braces", L"STRINGTABLE { 5 \"a\" }", 5, L"a"},
    {"options before the block", L"STRINGTABLE DISCARDABLE LANGUAGE 7, 1\nBEGIN 1 \"x\" END", 1, L"x"},
    {"doubled quote", L"STRINGTABLE BEGIN 1 \"Layer \"\"0\"\" ist verboten.\" END", 1, L"Layer \"0\" ist verboten."},
    {"C escapes", L"STRINGTABLE BEGIN 1 \"a\\tb\\\\c\\\"d\\x41\\x00e9\\101\" END", 1, L"a\tb\\c\"dA\u00e9A"},
    {"trailing blanks kept", L"STRINGTABLE BEGIN 1 \"HK vertikal ausrichten \" END", 1, L"HK vertikal ausrichten "},
    {"adjacent literals join", L"STRINGTABLE BEGIN 1 \"ab\" L\"cd\" END", 1, L"abcd"},
    {"id from a define", L"#define IDS_X 32927\nSTRINGTABLE BEGIN IDS_X \"Befehl %s\" END", 32927, L"Befehl %s"},
    {"id from an expression", L"#define BASE 7000\nSTRINGTABLE BEGIN (BASE + 0x2B) \"x\" END", 7043, L"x"},
    {"line and block comments", L"// top\nSTRINGTABLE /* a\n b */ BEGIN\n 1 \"x // not a comment /* either */\" // c\nEND", 1,
     L"x // not a comment /* either */"},
    {"keywords in any case", L"stringtable begin 1 \"x\" end", 1, L"x"},
    {"#if and #ifdef", L"#define A 1\n#if A && !defined(B)\nSTRINGTABLE BEGIN 1 \"yes\" END\n#else\nSTRINGTABLE BEGIN 1 \"no\" END\n#endif\n"
                       L"#ifdef B\n#error never\n#endif", 1, L"yes"},
    {"#elif", L"#if 0\n#elif 2 > 1\nSTRINGTABLE BEGIN 1 \"elif\" END\n#endif", 1, L"elif"},
    {"#undef", L"#define X 1\n#undef X\n#ifndef X\nSTRINGTABLE BEGIN 1 \"gone\" END\n#endif", 1, L"gone"},
    {"continued define", L"#define X \\\n  12\nSTRINGTABLE BEGIN X \"x\" END", 12, L"x"},
    {"pragma and language", L"#pragma code_page(65001)\nLANGUAGE LANG_GERMAN, SUBLANG_GERMAN\nSTRINGTABLE BEGIN 1 \"x\" END", 1, L"x"},
    {"platform headers skipped", L"#include <windows.h>\n#include \"afxres.h\"\nSTRINGTABLE BEGIN IDOK \"ok\" END", 1, L"ok"},
    {"other resources read past",
     L"1 ICON \"a.ico\"\n2 BITMAP DISCARDABLE \"b.bmp\"\nVS_VERSION_INFO VERSIONINFO FILEVERSION 1,0,0,1\nBEGIN BLOCK \"x\" BEGIN END END\n"
     L"1 TEXTINCLUDE BEGIN \"resource.h\\0\" END\nSTRINGTABLE BEGIN 9 \"after\" END", 9, L"after"},
};

TEST(ResParser, StringConstructs)
{
    for (const StringCase& c : kStringCases) {
        SCOPED_TRACE(c.what);
        try {
            const ResScript s = Parse(c.script);
            const std::wstring* text = s.FindString(c.id);
            ASSERT_NE(text, nullptr);
            EXPECT_EQ(*text, c.text);
        } catch (const ResError& e) {
            ADD_FAILURE() << e.what();
        }
    }
}

struct MenuCase {
    const char* what;
    const wchar_t* script;
    std::vector<std::wstring> lines;
};

const MenuCase kMenuCases[] = {
    {"items, options and separators",
     L"130 MENU DISCARDABLE\nBEGIN\n POPUP \"Maßkette\"\n BEGIN\n  MENUITEM \"Maßzahl ändern\", 32802\n"
     L"  MENUITEM \"An\", 1, CHECKED\n  MENUITEM \"Grau\", 2, GRAYED, CHECKED\n  MENUITEM \"Inaktiv\" 3 INACTIVE\n"
     L"  MENUITEM SEPARATOR\n  POPUP \"Symbol\"\n  BEGIN\n   MENUITEM \"Punkt\", 32856\n  END\n END\nEND",
     {L"> Maßkette", L"  [ ] 32802 Maßzahl ändern", L"  [x] 1 An", L"  [x] 2 Grau (grayed)", L"  [ ] 3 Inaktiv (grayed)",
      L"  ----", L"  > Symbol", L"    [ ] 32856 Punkt"}},
    {"MENUEX with types and states",
     L"#define ID_A 10\n130 MENUEX\nBEGIN\n POPUP \"P\", 0, 0, 0\n BEGIN\n  MENUITEM \"A\", ID_A, MFT_STRING, MFS_CHECKED\n"
     L"  MENUITEM \"\", 0, MFT_SEPARATOR\n  MENUITEM \"B\", 11, 0, MFS_GRAYED\n  MENUITEM SEPARATOR\n  MENUITEM \"C\", 12\n END\nEND",
     {L"> P", L"  [x] 10 A", L"  ----", L"  [ ] 11 B (grayed)", L"  ----", L"  [ ] 12 C"}},
    {"braces and an empty popup", L"130 MENU { POPUP \"P\" { } }", {L"> P"}},
};

TEST(ResParser, Menus)
{
    for (const MenuCase& c : kMenuCases) {
        SCOPED_TRACE(c.what);
        try {
            EXPECT_EQ(MenuLines(Parse(c.script), 130), c.lines);
        } catch (const ResError& e) {
            ADD_FAILURE() << e.what();
        }
    }
}

TEST(ResParser, NamespacesAreSeparate)
{
    const ResScript s = Parse(L"STRINGTABLE BEGIN 130 \"string\" 32825 \"prompt\" END\n"
                              L"130 MENU BEGIN POPUP \"m\" BEGIN MENUITEM \"Bezugsebene fixiert\", 32825 END END\n"
                              L"130 DIALOGEX 0, 0, 10, 10 BEGIN END");
    EXPECT_EQ(*s.FindString(130), L"string");
    EXPECT_EQ(*s.FindString(32825), L"prompt");
    ASSERT_NE(s.FindMenu(ResName::Number(130)), nullptr);
    EXPECT_EQ(s.FindMenu(ResName::Number(130))->items[0].items[0].text, L"Bezugsebene fixiert");
    EXPECT_NE(s.FindDialog(ResName::Number(130)), nullptr);
}

TEST(ResParser, NamedResourcesIgnoreCase)
{
    const ResScript s = Parse(L"IDR_Popup MENU BEGIN END\n\"Dlg\" DIALOG 0,0,1,1 BEGIN END");
    EXPECT_NE(s.FindMenu(ResName::Text(L"idr_popup")), nullptr);
    EXPECT_NE(s.FindDialog(ResName::Text(L"DLG")), nullptr);
}

TEST(ResParser, DialogTemplate)
{
    const ResScript s = Parse(
        L"#define IDD_X 5046\n#define IDC_EDIT 1143\n"
        L"IDD_X DIALOGEX 0, 0, 200, 120\n"
        L"STYLE DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION\nEXSTYLE WS_EX_TOOLWINDOW\n"
        L"CAPTION \"HK Edit\"\nFONT 8, \"MS Shell Dlg\", 400, 0, 0x1\n"
        L"BEGIN\n"
        L"  LTEXT \"Vortext\", IDC_STATIC, 7, 7, 40, 8\n"
        L"  EDITTEXT IDC_EDIT, 50, 5, 100, 14, ES_AUTOHSCROLL | NOT WS_VISIBLE\n"
        L"  DEFPUSHBUTTON \"OK\", IDOK, 143, 99, 50, 14\n"
        L"  CONTROL \"Bezugsebene fixiert\", 1115, \"Button\", BS_AUTOCHECKBOX |\n     WS_TABSTOP, 7, 30, 80, 10, WS_EX_STATICEDGE\n"
        L"  ICON 130, 1116, 160, 5\n"
        L"  COMBOBOX 1021, 7, 50, 100, 80, CBS_DROPDOWN | WS_VSCROLL\n"
        L"END");
    const auto d = s.FindDialog(ResName::Number(5046));
    ASSERT_NE(d, nullptr);
    EXPECT_TRUE(d->bEx);
    EXPECT_EQ(d->cx, 200);
    EXPECT_EQ(d->caption, L"HK Edit");
    EXPECT_EQ(d->fontFace, L"MS Shell Dlg");
    EXPECT_EQ(d->fontSize, 8);
    EXPECT_EQ(d->style, L"DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION");
    EXPECT_EQ(d->exStyle, L"WS_EX_TOOLWINDOW");
    ASSERT_EQ(d->controls.size(), 6u);
    EXPECT_EQ(d->controls[0].kind, L"LTEXT");
    EXPECT_EQ(d->controls[0].id, -1);
    EXPECT_EQ(d->controls[1].id, 1143);
    EXPECT_EQ(d->controls[1].style, L"ES_AUTOHSCROLL | NOT WS_VISIBLE");
    EXPECT_EQ(d->controls[2].id, 1);
    const svres::ResControl& c = d->controls[3];
    EXPECT_EQ(c.className, L"Button");
    EXPECT_EQ(c.style, L"BS_AUTOCHECKBOX | WS_TABSTOP");
    EXPECT_EQ(c.exStyle, L"WS_EX_STATICEDGE");
    EXPECT_EQ(c.x, 7);
    EXPECT_EQ(c.cy, 10);
    EXPECT_EQ(d->controls[4].text, L"130");
    EXPECT_EQ(d->controls[4].cx, 0);
    EXPECT_EQ(d->controls[5].cy, 80);
}

TEST(ResParser, IncludeThroughResolver)
{
    int calls = 0;
    auto resolver = [&calls](const std::wstring& name, const std::wstring& from, std::wstring& text, std::wstring& resolved) {
        ++calls;
        EXPECT_EQ(from, L"test.rc");
        if (name != L"resource.h")
            return false;
        text = L"#define IDS_A 7053\n#define IDR_M 131\n";
        resolved = L"res/resource.h";
        return true;
    };
    const ResScript s = Parse(L"#include \"resource.h\"\nSTRINGTABLE BEGIN IDS_A \"Links\" END", resolver);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(*s.FindString(7053), L"Links");
    EXPECT_EQ(s.defines.at(L"IDR_M"), 131);
}

struct BadCase {
    const wchar_t* script;
    int line;
    const wchar_t* message;  // a part of the message
};

const BadCase kBadCases[] = {
    {L"STRINGTABLE\nBEGIN\n 1 \"open", 3, L"string not closed"},
    {L"STRINGTABLE\nBEGIN\n 1 \"a\"\n", 4, L"expected END of the STRINGTABLE that begins at line 1"},
    {L"STRINGTABLE\nBEGIN\n 1\nEND", 4, L"expected the text of string 1"},
    {L"STRINGTABLE BEGIN\n 1 \"a\"\n 1 \"b\"\nEND", 3, L"string 1 is defined twice (first at line 2)"},
    {L"STRINGTABLE BEGIN\n 70000 \"a\"\nEND", 2, L"out of range"},
    {L"STRINGTABLE BEGIN\n IDS_NOPE \"a\"\nEND", 2, L"undefined symbol IDS_NOPE"},
    {L"STRINGTABLE BEGIN\n 1 \"bad \\q\"\nEND", 2, L"unknown escape \\q"},
    {L"\n\n/* never closed", 3, L"comment not closed"},
    {L"130 MENU\nBEGIN\n POPUP \"P\"\n BEGIN\n  MENUITEM \"x\"\n END\nEND", 6, L"id of the menu item \"x\""},
    {L"130 MENU\nBEGIN\n  MENUITEM \"x\", 1, BOLD\nEND", 3, L"expected a menu option"},
    {L"130 MENU\nBEGIN\n  ITEM \"x\", 1\nEND", 3, L"expected MENUITEM, POPUP or END in the menu 130"},
    {L"130 MENU BEGIN END\n130 MENU BEGIN END", 2, L"menu 130 is defined twice"},
    {L"130 MENUU BEGIN END", 1, L"expected a resource type"},
    {L"1 DIALOGEX 0, 0, 10\nBEGIN END", 2, L"expected \",\" before the height"},
    {L"1 DIALOG 0,0,1,1\nBEGIN\n BUTTON \"x\", 1, 0, 0, 1, 1\nEND", 3, L"expected a control"},
    {L"1 DIALOG 0,0,1,1\nBEGIN\n LTEXT \"x\", 1, 0, 0, 1, 1,\nEND", 4, L"the control's style"},
    {L"#if 1\nSTRINGTABLE BEGIN END", 1, L"#if without #endif"},
    {L"#endif", 1, L"#endif without #if"},
    {L"\n#define F(x) x", 2, L"parameters are not supported"},
    {L"#include \"missing.h\"", 1, L"cannot open include file \"missing.h\""},
    {L"#frobnicate", 1, L"unknown directive #frobnicate"},
    {L"STRINGTABLE BEGIN 1 / 0 \"x\" END", 1, L"division by zero"},
    {L"STRINGTABLE BEGIN 0x \"x\" END", 1, L"hexadecimal digits"},
    {L"STRINGTABLE BEGIN 12ab \"x\" END", 1, L"bad number \"12ab\""},
    {L"STRINGTABLE BEGIN 1 \"x\" END @", 1, L"unexpected character '@'"},
    {L"END", 1, L"expected a resource name"},
    {L"STRINGTABLE BEGIN 1\n\"x\"", 2, L"expected END of the STRINGTABLE"},
};

TEST(ResParser, MalformedInputNamesFileAndLine)
{
    for (const BadCase& c : kBadCases) {
        SCOPED_TRACE(testing::Message() << "script: " << svwin::WideToUtf8(c.script));
        try {
            Parse(c.script);
            ADD_FAILURE() << "no error";
        } catch (const ResError& e) {
            EXPECT_EQ(e.File(), L"test.rc");
            EXPECT_EQ(e.Line(), c.line) << e.what();
            EXPECT_NE(e.Message().find(c.message), std::wstring::npos) << e.what();
        }
    }
}

TEST(ResParser, HostileNestingIsAnErrorNotACrash)
{
    std::wstring parens = L"STRINGTABLE BEGIN " + std::wstring(100000, L'(') + L"1 \"x\" END";
    std::wstring popups = L"1 MENU BEGIN ";
    for (int i = 0; i < 100000; ++i)
        popups += L"POPUP \"p\" BEGIN ";
    for (const std::wstring& script : {parens, popups}) {
        try {
            Parse(script);
            ADD_FAILURE() << "no error";
        } catch (const ResError& e) {
            EXPECT_NE(e.Message().find(L"nested too deeply"), std::wstring::npos) << e.what();
        }
    }
}

TEST(ResParser, ErrorInIncludedFileNamesThatFile)
{
    auto resolver = [](const std::wstring&, const std::wstring&, std::wstring& text, std::wstring& resolved) {
        text = L"#define A 1\n#define B (A +\n";
        resolved = L"inc/ids.h";
        return true;
    };
    try {
        Parse(L"#include \"ids.h\"\nSTRINGTABLE BEGIN B \"x\" END", resolver);
        ADD_FAILURE() << "no error";
    } catch (const ResError& e) {
        // The symbol is used in test.rc; the broken value comes from the header.
        EXPECT_EQ(e.Line(), 2) << e.what();
    }
    auto cyclic = [](const std::wstring&, const std::wstring&, std::wstring& text, std::wstring& resolved) {
        text = L"#include \"self.h\"\n";
        resolved = L"self.h";
        return true;
    };
    try {
        Parse(L"#include \"self.h\"", cyclic);
        ADD_FAILURE() << "no error";
    } catch (const ResError& e) {
        EXPECT_EQ(e.File(), L"self.h");
        EXPECT_NE(e.Message().find(L"nested too deeply"), std::wstring::npos);
    }
}

} // namespace
