// The profile functions against the platform's behaviour: one table of file
// before, call, result and file after; then encodings, paths and the cache.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "host/win/WinIni.h"
#include "tests/host/win/TempFolder.h"

namespace {

const std::string kNoFile = "\x01<no file>";
const std::string kSame = "\x01<unchanged>";

using Call = std::function<std::wstring(const wchar_t* file)>;

// Shows a returned buffer: "count:text", with the 0s of a list as "|".
std::wstring Show(DWORD ret, const wchar_t* buf, bool bList)
{
    std::wstring out = std::to_wstring(ret) + L":";
    if (!bList) return out + buf;
    for (int i = 0;; ++i) {
        out += buf[i] ? buf[i] : L'|';
        if (!buf[i] && !buf[i + 1]) return out + L"|";
    }
}

Call Get(const wchar_t* s, const wchar_t* k, const wchar_t* def = L"", DWORD n = 512)
{
    return [=](const wchar_t* file) {
        wchar_t buf[600];
        std::fill(std::begin(buf), std::end(buf), L'#');
        const DWORD r = GetPrivateProfileStringW(s, k, def, buf, n, file);
        return Show(r, buf, !s || !k);
    };
}

Call GetInt(const wchar_t* s, const wchar_t* k, int def = -99)
{
    return [=](const wchar_t* file) { return std::to_wstring(static_cast<int>(GetPrivateProfileIntW(s, k, def, file))); };
}

Call GetSection(const wchar_t* s, DWORD n = 512)
{
    return [=](const wchar_t* file) {
        wchar_t buf[600];
        return Show(GetPrivateProfileSectionW(s, buf, n, file), buf, true);
    };
}

Call Put(const wchar_t* s, const wchar_t* k, const wchar_t* v)
{
    return [=](const wchar_t* file) { return std::to_wstring(WritePrivateProfileStringW(s, k, v, file)); };
}

Call PutSection(const wchar_t* s, const wchar_t* list)
{
    return [=](const wchar_t* file) { return std::to_wstring(WritePrivateProfileSectionW(s, list, file)); };
}

struct Row {
    const char* name;
    std::string before;
    Call call;
    std::wstring expect;
    std::string after = kSame;
};

const std::vector<Row>& Rows()
{
    static const std::vector<Row> rows = {
        // --- reading values ---
        {"plain value", "[S]\nk=v\n", Get(L"S", L"k"), L"1:v"},
        {"names ignore case", "[Sect]\nKey=v\n", Get(L"sECT", L"kEY"), L"1:v"},
        {"blanks trimmed", "  [ S ]  \n\t k  =  v w \t\n", Get(L"S", L"k"), L"3:v w"},
        {"double quotes removed", "[S]\nk = \" a b \"\n", Get(L"S", L"k"), L"5: a b "},
        {"single quotes removed", "[S]\nk='x'\n", Get(L"S", L"k"), L"1:x"},
        {"unpaired quotes kept", "[S]\nk=\"x'\n", Get(L"S", L"k"), L"3:\"x'"},
        {"lone quote kept", "[S]\nk=\"\n", Get(L"S", L"k"), L"1:\""},
        {"value cut to buffer", "[S]\nk=abcdef\n", Get(L"S", L"k", L"", 4), L"3:abc"},
        {"value with =", "[S]\nk=a=b\n", Get(L"S", L"k"), L"3:a=b"},
        {"empty value is not the default", "[S]\nk=\n", Get(L"S", L"k", L"d"), L"0:"},
        {"missing key gives default", "[S]\nk=v\n", Get(L"S", L"x", L" def \t "), L"4: def"},
        {"missing section gives default", "[S]\nk=v\n", Get(L"T", L"k", L"d"), L"1:d"},
        {"missing file gives default", kNoFile, Get(L"S", L"k", L"d"), L"1:d", kNoFile},
        {"null default is empty", "[S]\n", Get(L"S", L"k", nullptr), L"0:"},
        {"default cut to buffer", kNoFile, Get(L"S", L"k", L"default", 3), L"2:de", kNoFile},
        {"comment is no entry", "[S]\n;k=x\n", Get(L"S", L";k", L"d"), L"1:d"},
        {"line without = skipped", "[S]\nk\nk=2\n", Get(L"S", L"k"), L"1:2"},
        {"entry before sections unseen", "k=1\n[S]\n", Get(L"S", L"k", L"d"), L"1:d"},
        {"first duplicate key wins", "[S]\nk=1\nk=2\n", Get(L"S", L"k"), L"1:1"},
        {"first duplicate section wins", "[S]\nk=1\n[s]\nk=2\n", Get(L"S", L"k"), L"1:1"},
        {"CRLF file", "[S]\r\nk=v\r\n", Get(L"S", L"k"), L"1:v"},
        {"no final line break", "[S]\nk=v", Get(L"S", L"k"), L"1:v"},
        // --- lists ---
        {"section names", "[A]\nx=1\n[b]\n[a]\n", Get(nullptr, L"k"), L"4:A|b||"},
        {"section names cut", "[Alpha]\n[Beta]\n", Get(nullptr, nullptr, L"", 8), L"6:Alpha||"},
        {"section names of missing file", kNoFile, Get(nullptr, nullptr), L"0:||", kNoFile},
        {"key names", "[S]\na=1\n;c=3\nB=2\nnokey\na=4\n[T]\nd=5\n", Get(L"s", nullptr), L"4:a|B||"},
        {"key names of missing section", "[S]\na=1\n", Get(L"T", nullptr), L"0:||"},
        {"section entries", "[S]\n a = 1 \n; c\nb=\"q\"\nx\n[T]\nc=3\n", GetSection(L"S"), L"10:a=1|b=\"q\"||"},
        {"section entries cut", "[S]\na=1\nb=2\n", GetSection(L"S", 6), L"4:a=1||"},
        // --- integers ---
        {"int", "[S]\nk=42\n", GetInt(L"S", L"k"), L"42"},
        {"int sign and tail", "[S]\nk= -7x\n", GetInt(L"S", L"k"), L"-7"},
        {"int stops at point", "[S]\nk=12.9\n", GetInt(L"S", L"k"), L"12"},
        {"int hex", "[S]\nk=0x1F\n", GetInt(L"S", L"k"), L"31"},
        {"int quoted", "[S]\nk=\"5\"\n", GetInt(L"S", L"k"), L"5"},
        {"int text gives default", "[S]\nk=abc\n", GetInt(L"S", L"k"), L"-99"},
        {"int empty gives default", "[S]\nk=\n", GetInt(L"S", L"k"), L"-99"},
        {"int missing gives default", kNoFile, GetInt(L"S", L"k"), L"-99", kNoFile},
        // --- writing ---
        {"write creates file", kNoFile, Put(L"S", L"k", L"v"), L"1", "[S]\nk=v\n"},
        {"new key at end of its section", "[S]\na=1\n\n[T]\nb=2\n", Put(L"S", L"k", L"v"), L"1",
         "[S]\na=1\nk=v\n\n[T]\nb=2\n"},
        {"new key after trailing comment", "[S]\na=1\n; note\n", Put(L"S", L"k", L"v"), L"1", "[S]\na=1\n; note\nk=v\n"},
        {"value replaced in place", "; top\n[S]\n a = 1 \n;c\n\nb=2\n", Put(L"s", L"A", L"9"), L"1",
         "; top\n[S]\na=9\n;c\n\nb=2\n"},
        {"same value leaves line alone", "[S]\n a = 1\n", Put(L"S", L"a", L"1"), L"1"},
        {"file spelling of key kept", "[S]\nKey=1\n", Put(L"S", L"KEY", L"2"), L"1", "[S]\nKey=2\n"},
        {"new section at end", "[S]\na=1", Put(L"T", L"k", L"v"), L"1", "[S]\na=1\n[T]\nk=v\n"},
        {"CRLF kept", "[S]\r\na=1\r\n", Put(L"S", L"b", L"2"), L"1", "[S]\r\na=1\r\nb=2\r\n"},
        {"value written as given", "[S]\n", Put(L"S", L"k", L" \"x\" "), L"1", "[S]\nk= \"x\" \n"},
        {"line break in value flattened", "[S]\n", Put(L"S", L"k", L"a\nb"), L"1", "[S]\nk=a b\n"},
        {"null value deletes key", "[S]\na=1\nb=2\na=3\n", Put(L"S", L"A", nullptr), L"1", "[S]\nb=2\n"},
        {"null key deletes section", "[S]\na=1\n;c\n[T]\nb=2\n[s]\nc=3\n", Put(L"S", nullptr, nullptr), L"1",
         "[T]\nb=2\n"},
        {"delete in missing file creates nothing", kNoFile, Put(L"S", L"k", nullptr), L"1", kNoFile},
        {"null section is only a flush", "[S]\n", Put(nullptr, nullptr, nullptr), L"1"},
        {"null section with key fails", "[S]\n", Put(nullptr, L"k", L"v"), L"0"},
        {"non-ASCII written as UTF-8", kNoFile, Put(L"Ü", L"k", L"äß"), L"1", "[\xC3\x9C]\nk=\xC3\xA4\xC3\x9F\n"},
        {"1252 file rewritten as UTF-8", "[S]\nk=\xE4\n", Put(L"S", L"x", L"1"), L"1", "[S]\nk=\xC3\xA4\nx=1\n"},
        {"BOM not written back", "\xEF\xBB\xBF[S]\nk=1\n", Put(L"S", L"k", L"2"), L"1", "[S]\nk=2\n"},
        {"section replaced", "[S]\na=1\n;c\n\n[T]\n", PutSection(L"s", L"x=1\0y=2\0"), L"1", "[S]\nx=1\ny=2\n\n[T]\n"},
        {"section added", "[T]\n", PutSection(L"S", L"x=1\0"), L"1", "[T]\n[S]\nx=1\n"},
        {"section emptied", "[S]\na=1\n[T]\n", PutSection(L"S", L"\0"), L"1", "[S]\n[T]\n"},
        {"null section list deletes", "[S]\na=1\n[T]\n", PutSection(L"S", nullptr), L"1", "[T]\n"},
    };
    return rows;
}

TEST(WinIni, BehavesAsTheTableSays)
{
    TempFolder tmp;
    ASSERT_FALSE(tmp.Path().empty());
    int i = 0;
    for (const Row& row : Rows()) {
        SCOPED_TRACE(row.name);
        const std::string rel = "row" + std::to_string(i++) + ".ini";
        if (row.before != kNoFile) tmp.Write(rel, row.before);
        const std::wstring file = tmp.Wide(rel);
        EXPECT_EQ(row.call(file.c_str()), row.expect);
        const std::string after = row.after == kSame ? row.before : row.after;
        const auto actual = tmp.Read(rel);
        if (after == kNoFile) EXPECT_FALSE(actual.has_value());
        else EXPECT_EQ(actual.value_or(kNoFile), after);
    }
}

TEST(WinIni, ReadsWindows1252AndUtf8)
{
    TempFolder tmp;
    tmp.Write("ansi.ini", "[S]\nk=\xE4\xDF\x80\n");
    tmp.Write("utf8.ini", "[S]\nk=\xC3\xA4\xC3\x9F\xE2\x82\xAC\n");
    tmp.Write("utf16.ini", std::string("\xFF\xFE[\0S\0]\0\n\0k\0=\0\xE4\0", 16));
    for (const char* name : {"ansi.ini", "utf8.ini", "utf16.ini"}) {
        SCOPED_TRACE(name);
        wchar_t buf[16];
        GetPrivateProfileStringW(L"S", L"k", L"", buf, 16, tmp.Wide(name).c_str());
        EXPECT_EQ(std::wstring(buf), std::string(name) == "utf16.ini" ? L"ä" : L"äß€");
    }
}

TEST(WinIni, AcceptsBothSeparatorsDrivesAndAnyCase)
{
    TempFolder tmp;
    tmp.Write("Sub/DimParam.ini", "[S]\nk=v\n");
    const std::wstring forward = std::wstring(tmp.Path().begin(), tmp.Path().end()) + L"/sub/dimparam.ini";
    for (const std::wstring& path : {tmp.Wide("Sub\\DimParam.ini"), tmp.Wide("SUB\\dimPARAM.INI"), forward,
                                     L"C:" + tmp.Wide("sub\\DimParam.ini")}) {
        wchar_t buf[8];
        EXPECT_EQ(GetPrivateProfileStringW(L"S", L"k", L"", buf, 8, path.c_str()), 1u);
        EXPECT_EQ(std::wstring(buf), L"v");
    }
    // A write through another spelling changes the existing file.
    EXPECT_TRUE(WritePrivateProfileStringW(L"S", L"k", L"w", tmp.Wide("sub\\DIMPARAM.ini").c_str()));
    EXPECT_EQ(tmp.Read("Sub/DimParam.ini").value_or(""), "[S]\nk=w\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(tmp.Native("Sub")), {}), 1);
}

TEST(WinIni, WriteCreatesFoldersAndLeavesNoTemporaryFiles)
{
    TempFolder tmp;
    const std::wstring file = tmp.Wide("a\\b\\new.ini");
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(WritePrivateProfileStringW(L"S", (L"k" + std::to_wstring(i)).c_str(), L"v", file.c_str()));
    EXPECT_EQ(tmp.Read("a/b/new.ini").value_or(""), "[S]\nk0=v\nk1=v\nk2=v\nk3=v\nk4=v\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(tmp.Native("a/b")), {}), 1);
}

TEST(WinIni, WriteFailureIsReported)
{
    TempFolder tmp;
    tmp.Write("file", "x");
    // A folder path that runs through a plain file cannot be created.
    SetLastError(0);
    EXPECT_FALSE(WritePrivateProfileStringW(L"S", L"k", L"v", tmp.Wide("file\\x.ini").c_str()));
    EXPECT_NE(GetLastError(), 0u);
    EXPECT_FALSE(WritePrivateProfileStringW(L"S", L"k", L"v", nullptr));
}

TEST(WinIni, SeesChangesMadeBehindItsBack)
{
    TempFolder tmp;
    const std::wstring file = tmp.Wide("c.ini");
    wchar_t buf[8];
    tmp.Write("c.ini", "[S]\nk=1\n");
    GetPrivateProfileStringW(L"S", L"k", L"", buf, 8, file.c_str());
    EXPECT_EQ(std::wstring(buf), L"1");
    // Same size, same inode, within the file time's resolution.
    tmp.Write("c.ini", "[S]\nk=2\n");
    GetPrivateProfileStringW(L"S", L"k", L"", buf, 8, file.c_str());
    EXPECT_EQ(std::wstring(buf), L"2");
    WritePrivateProfileStringW(L"S", L"k", L"3", file.c_str());
    EXPECT_EQ(GetPrivateProfileIntW(L"S", L"k", 0, file.c_str()), 3u);
    std::filesystem::remove(tmp.Native("c.ini"));
    GetPrivateProfileStringW(L"S", L"k", L"gone", buf, 8, file.c_str());
    EXPECT_EQ(std::wstring(buf), L"gone");
}

TEST(WinIni, ZeroSizedBufferIsLeftAlone)
{
    wchar_t buf[2] = {L'#', L'#'};
    EXPECT_EQ(GetPrivateProfileStringW(L"S", L"k", L"d", buf, 0, L"/nonexistent.ini"), 0u);
    EXPECT_EQ(buf[0], L'#');
    EXPECT_EQ(GetPrivateProfileStringW(L"S", L"k", L"d", buf, 1, L"/nonexistent.ini"), 0u);
    EXPECT_EQ(buf[0], 0);
}

} // namespace
