// Paths, folders, files and the C runtime's file functions over the native
// file system, with the error codes the module checks.
#include <gtest/gtest.h>

#include <unistd.h>

#include <climits>
#include <cwchar>
#include <filesystem>
#include <string>
#include <vector>

#include "host/win/WinCrtFile.h"
#include "host/win/WinFile.h"
#include "host/win/WinFolders.h"
#include "host/win/WinModule.h"
#include "host/win/WinPath.h"
#include "tests/host/win/TempFolder.h"

namespace {

std::wstring W(const std::string& s)
{
    return std::wstring(s.begin(), s.end());
}

TEST(WinPath, ConvertsSeparatorsAndDrives)
{
    const struct {
        const wchar_t* in;
        const char* out;
    } rows[] = {
        {L"C:\\tmp\\a.ini", "/tmp/a.ini"}, {L"d:/x/y", "/x/y"},      {L"a\\b/c", "a/b/c"},
        {L"C:", ""},                       {L"\\\\server\\s", "//server/s"}, {L"C:rel", "rel"},
    };
    for (const auto& r : rows) EXPECT_EQ(svwin::NativePathLiteral(r.in), r.out) << r.out;
    EXPECT_EQ(svwin::NativePath(static_cast<const wchar_t*>(nullptr)), "");
}

TEST(WinPath, ResolvesCaseOfExistingComponents)
{
    TempFolder tmp;
    tmp.Write("Halvorne/Sorvane/DimParam.ini", "x");
    const std::string base = tmp.Path();
    EXPECT_EQ(svwin::NativePath(tmp.Wide("halvorne\\SORVANE\\dimparam.INI")), base + "/Halvorne/Sorvane/DimParam.ini");
    // Components that do not exist stay as given, after the resolved ones.
    EXPECT_EQ(svwin::NativePath(tmp.Wide("HALVORNE\\New\\File.ini")), base + "/Halvorne/New/File.ini");
    // The exact spelling wins over a case-insensitive one.
    tmp.Write("Halvorne/dimparam.ini", "y");
    tmp.Write("Halvorne/DIMPARAM.ini", "z");
    EXPECT_EQ(svwin::NativePath(tmp.Wide("Halvorne\\dimparam.ini")), base + "/Halvorne/dimparam.ini");
    EXPECT_EQ(svwin::NativePath(tmp.Wide("Halvorne\\DimParam.INI")), base + "/Halvorne/DIMPARAM.ini");
}

TEST(WinPath, ShellHelpers)
{
    EXPECT_STREQ(PathFindFileNameW(L"C:\\a\\b.ini"), L"b.ini");
    EXPECT_STREQ(PathFindFileNameW(L"/a/dir/"), L"dir/");
    EXPECT_STREQ(PathFindExtensionW(L"a.b\\c.INI"), L".INI");
    EXPECT_STREQ(PathFindExtensionW(L"a.b\\c"), L"");
    const struct {
        const wchar_t* file;
        const wchar_t* patterns;
        BOOL match;
    } rows[] = {
        {L"Plan.DWG", L"*.dwg", TRUE},   {L"plan.dwg", L"*.dxf;*.dwg", TRUE}, {L"plan", L"*.*", TRUE},
        {L"plan", L"plan.*", TRUE},      {L"a1.txt", L"a?.txt", TRUE},        {L"a12.txt", L"a?.txt", FALSE},
        {L"x.dwg.bak", L"*.dwg", FALSE}, {L"C:\\p\\Ab.ini", L"a*B.INI", TRUE}, {L"abc", L"*b*c*", TRUE},
    };
    for (const auto& r : rows) EXPECT_EQ(PathMatchSpecW(r.file, r.patterns), r.match) << r.file << " " << r.patterns;
}

TEST(WinFile, AttributesAndErrors)
{
    TempFolder tmp;
    tmp.Write("dir/file.txt", "abc");
    EXPECT_EQ(GetFileAttributesW(tmp.Wide("DIR").c_str()) & FILE_ATTRIBUTE_DIRECTORY, DWORD(FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_EQ(GetFileAttributesW(tmp.Wide("dir\\FILE.txt").c_str()), DWORD(FILE_ATTRIBUTE_NORMAL));
    EXPECT_TRUE(PathFileExistsW(tmp.Wide("dir\\file.txt").c_str()));

    EXPECT_EQ(GetFileAttributesW(tmp.Wide("dir\\none.txt").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(PathFileExistsW(tmp.Wide("nodir\\none.txt").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_PATH_NOT_FOUND));
}

TEST(WinFile, CopyMoveDelete)
{
    TempFolder tmp;
    tmp.Write("a.txt", "one");
    tmp.Write("b.txt", "two");
    const std::wstring a = tmp.Wide("a.txt"), b = tmp.Wide("b.txt"), c = tmp.Wide("c.txt");

    EXPECT_FALSE(CopyFileW(a.c_str(), b.c_str(), TRUE));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_EXISTS));
    EXPECT_TRUE(CopyFileW(a.c_str(), b.c_str(), FALSE));
    EXPECT_EQ(tmp.Read("b.txt").value_or(""), "one");
    EXPECT_FALSE(CopyFileW(tmp.Wide("x.txt").c_str(), c.c_str(), FALSE));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));

    EXPECT_FALSE(MoveFileW(a.c_str(), b.c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ALREADY_EXISTS));
    EXPECT_TRUE(MoveFileW(a.c_str(), c.c_str()));
    EXPECT_FALSE(tmp.Read("a.txt").has_value());
    // A change of case only is a rename, not a clash.
    EXPECT_TRUE(MoveFileW(c.c_str(), tmp.Wide("C.TXT").c_str()));
    EXPECT_EQ(tmp.Read("C.TXT").value_or(""), "one");

    EXPECT_TRUE(DeleteFileW(tmp.Wide("c.txt").c_str()));
    EXPECT_FALSE(DeleteFileW(tmp.Wide("c.txt").c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));
}

TEST(WinFile, Folders)
{
    TempFolder tmp;
    const std::wstring d = tmp.Wide("New");
    EXPECT_TRUE(CreateDirectoryW(d.c_str(), nullptr));
    EXPECT_FALSE(CreateDirectoryW(tmp.Wide("NEW").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ALREADY_EXISTS));
    EXPECT_FALSE(CreateDirectoryW(tmp.Wide("a\\b").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_PATH_NOT_FOUND));
    EXPECT_FALSE(DeleteFileW(d.c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_ACCESS_DENIED));
    tmp.Write("New/f", "");
    EXPECT_FALSE(RemoveDirectoryW(d.c_str()));
    EXPECT_EQ(GetLastError(), DWORD(ERROR_DIR_NOT_EMPTY));
    EXPECT_EQ(_wremove(tmp.Wide("new\\F").c_str()), 0);
    EXPECT_TRUE(RemoveDirectoryW(d.c_str()));
    EXPECT_EQ(_wmkdir(d.c_str()), 0);
    EXPECT_EQ(_waccess(d.c_str(), 0), 0);
    EXPECT_EQ(_wrmdir(d.c_str()), 0);
    EXPECT_EQ(_waccess(d.c_str(), 0), -1);
}

TEST(WinCrtFile, TextStreamsAreUtf8)
{
    TempFolder tmp;
    const std::wstring log = tmp.Wide("Sorvane.log");
    for (const wchar_t* line : {L"<12:00:00> Maßkette\n", L"<12:00:01> €\n"}) {
        FILE* f = _wfopen(log.c_str(), L"a");
        ASSERT_NE(f, nullptr);
        EXPECT_GE(std::fputws(line, f), 0);
        std::fclose(f);
    }
    EXPECT_EQ(tmp.Read("Sorvane.log").value_or(""), "<12:00:00> Ma\xC3\x9Fkette\n<12:00:01> \xE2\x82\xAC\n");

    FILE* f = _wfopen(tmp.Wide("sorvane.LOG").c_str(), L"rt");
    ASSERT_NE(f, nullptr);
    wchar_t buf[64];
    ASSERT_NE(std::fgetws(buf, 64, f), nullptr);
    EXPECT_STREQ(buf, L"<12:00:00> Maßkette\n");
    std::fclose(f);

    f = _wfopen(log.c_str(), L"rb");
    ASSERT_NE(f, nullptr);
    EXPECT_EQ(std::fgetc(f), '<');
    std::fclose(f);

    EXPECT_EQ(_wfopen(tmp.Wide("x").c_str(), L"q"), nullptr);
    EXPECT_EQ(_wfopen(tmp.Wide("none\\x").c_str(), L"r"), nullptr);
}

TEST(WinCrtFile, RenameRefusesExistingTarget)
{
    TempFolder tmp;
    tmp.Write("a", "1");
    tmp.Write("b", "2");
    EXPECT_EQ(_wrename(tmp.Wide("a").c_str(), tmp.Wide("B").c_str()), -1);
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(_wrename(tmp.Wide("a").c_str(), tmp.Wide("c").c_str()), 0);
    EXPECT_EQ(tmp.Read("c").value_or(""), "1");
    EXPECT_EQ(_wremove(tmp.Wide("c").c_str()), 0);
    EXPECT_EQ(_wremove(tmp.Wide("c").c_str()), -1);
}

TEST(WinFile, FindFilesByWildcard)
{
    TempFolder tmp;
    for (const char* name : {"b.INI", "A.ini", "c.txt", "ab.txt", "sub/x"}) tmp.Write(name, "");
    auto find = [&](const std::string& pattern) {
        std::vector<std::wstring> names;
        WIN32_FIND_DATAW fd;
        HANDLE h = FindFirstFileW((tmp.Wide() + L"\\" + W(pattern)).c_str(), &fd);
        if (h == INVALID_HANDLE_VALUE) return names;
        do names.push_back(fd.cFileName + std::wstring(fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY ? L"/" : L""));
        while (FindNextFileW(h, &fd));
        EXPECT_EQ(GetLastError(), DWORD(ERROR_NO_MORE_FILES));
        FindClose(h);
        return names;
    };
    EXPECT_EQ(find("*.ini"), (std::vector<std::wstring>{L"A.ini", L"b.INI"}));
    EXPECT_EQ(find("?.TXT"), (std::vector<std::wstring>{L"c.txt"}));
    EXPECT_EQ(find("*"), (std::vector<std::wstring>{L"./", L"../", L"A.ini", L"ab.txt", L"b.INI", L"c.txt", L"sub/"}));
    EXPECT_EQ(find("a.INI"), (std::vector<std::wstring>{L"A.ini"}));
    EXPECT_EQ(find("*.dwg"), std::vector<std::wstring>{});
    EXPECT_EQ(GetLastError(), DWORD(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(find("none\\*"), std::vector<std::wstring>{});
    EXPECT_EQ(GetLastError(), DWORD(ERROR_PATH_NOT_FOUND));
}

std::wstring FolderPath(int csidl, HRESULT* pHr)
{
    wchar_t buf[MAX_PATH];
    *pHr = SHGetFolderPathW(nullptr, csidl, nullptr, 0, buf);
    return SUCCEEDED(*pHr) ? buf : L"";
}

TEST(WinFolders, AppDataFollowsXdgAndHome)
{
    TempFolder tmp;
    HRESULT hr;
    {
        ScopedEnv xdg("XDG_CONFIG_HOME", tmp.Native("cfg").c_str());
        EXPECT_EQ(FolderPath(CSIDL_APPDATA, &hr), L"");
        EXPECT_EQ(hr, E_FAIL);
        EXPECT_EQ(FolderPath(32794, &hr), W(tmp.Native("cfg")));   // CSIDL_APPDATA | CSIDL_FLAG_CREATE
        EXPECT_EQ(hr, S_OK);
        EXPECT_TRUE(std::filesystem::is_directory(tmp.Native("cfg")));
    }
    {
        ScopedEnv xdg("XDG_CONFIG_HOME", "relative/ignored");
        ScopedEnv home("HOME", tmp.Path().c_str());
        EXPECT_EQ(FolderPath(CSIDL_APPDATA | CSIDL_FLAG_CREATE, &hr), W(tmp.Native(".config")));
        EXPECT_EQ(FolderPath(CSIDL_PERSONAL, &hr), W(tmp.Path()));
    }
    EXPECT_EQ(FolderPath(0x0024, &hr), L"");   // a folder id the host does not know
    EXPECT_TRUE(FAILED(hr));
}

TEST(WinFolders, TempPathEndsInSeparator)
{
    wchar_t buf[MAX_PATH];
    {
        ScopedEnv env("TMPDIR", "/var/tmp/x");
        EXPECT_EQ(GetTempPathW(MAX_PATH, buf), 11u);
        EXPECT_STREQ(buf, L"/var/tmp/x/");
        buf[0] = L'#';
        EXPECT_EQ(GetTempPathW(5, buf), 12u);   // too small: the size needed
        EXPECT_EQ(buf[0], L'#');
    }
    ScopedEnv env("TMPDIR", nullptr);
    EXPECT_EQ(GetTempPathW(MAX_PATH, buf), 5u);
    EXPECT_STREQ(buf, L"/tmp/");
}

TEST(WinModule, NamesTheExecutableAndLibraries)
{
    wchar_t buf[PATH_MAX];
    char exe[PATH_MAX];
    const ssize_t n = ::readlink("/proc/self/exe", exe, sizeof exe - 1);
    ASSERT_GT(n, 0);
    EXPECT_EQ(GetModuleFileNameW(nullptr, buf, PATH_MAX), static_cast<DWORD>(n));
    EXPECT_EQ(std::wstring(buf), W(std::string(exe, static_cast<std::size_t>(n))));
    EXPECT_EQ(GetModuleFileNameW(GetModuleHandleW(nullptr), buf, PATH_MAX), static_cast<DWORD>(n));

    // An address inside the host library names the library.
    auto addr = reinterpret_cast<HMODULE>(reinterpret_cast<void*>(&GetModuleFileNameW));
    ASSERT_GT(GetModuleFileNameW(addr, buf, PATH_MAX), 0u);
    const std::wstring lib = buf;
    EXPECT_TRUE(lib.ends_with(L"/libsvhost_win.so")) << lib.c_str();
    HMODULE h = GetModuleHandleW(L"LIBSVHOST_WIN");
    ASSERT_NE(h, nullptr);
    ASSERT_GT(GetModuleFileNameW(h, buf, PATH_MAX), 0u);
    EXPECT_EQ(std::wstring(buf), lib);

    EXPECT_EQ(GetModuleFileNameW(h, buf, 4), 4u);   // cut short
    EXPECT_EQ(std::wcslen(buf), 3u);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INSUFFICIENT_BUFFER));
    EXPECT_EQ(GetModuleHandleW(L"nosuch.dll"), nullptr);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_MOD_NOT_FOUND));
}

} // namespace
