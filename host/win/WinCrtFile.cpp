// The CRT's wide file functions over stdio and POSIX calls.
#include "host/win/WinCrtFile.h"

#include <locale.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cwchar>
#include <string>

#include "host/win/WinError.h"
#include "host/win/WinPath.h"

namespace {

int FailWith(int err)
{
    errno = err;
    SetLastError(svwin::ErrorFromErrno(err));
    return -1;
}

// The stdio mode for a CRT mode; empty if the mode is not valid.
std::string StdioMode(const wchar_t* mode)
{
    std::string base;
    bool bBinary = false;
    bool bPlus = false;
    for (const wchar_t* p = mode; *p && *p != L','; ++p) {
        switch (*p) {
        case L'r': case L'w': case L'a':
            if (!base.empty()) return {};
            base = static_cast<char>(*p);
            break;
        case L'+': bPlus = true; break;
        case L'b': bBinary = true; break;
        case L't': case L'c': case L'n': case L'S': case L'R': case L'T': case L'D': case L'N': case L'x': case L' ':
            break;
        default:
            return {};
        }
    }
    if (base.empty()) return {};
    return base + (bPlus ? "+" : "") + (bBinary ? "b" : "") + "e";
}

// A UTF-8 character type, made once; null if the system has none.
locale_t Utf8Locale()
{
    static const locale_t s_locale = [] {
        for (const char* name : {"C.UTF-8", "C.utf8", "en_US.UTF-8"})
            if (locale_t loc = ::newlocale(LC_CTYPE_MASK, name, static_cast<locale_t>(nullptr))) return loc;
        return static_cast<locale_t>(nullptr);
    }();
    return s_locale;
}

// Opens a text stream that converts between wide text and UTF-8. A wide
// stream takes its conversion from the thread's locale when it is oriented,
// so it is oriented under a UTF-8 locale. (The ",ccs=" mode of the C library
// does the same but costs a little memory per stream that is never freed.)
FILE* OpenUtf8Text(const std::string& native, const std::string& mode)
{
    const locale_t utf8 = Utf8Locale();
    if (!utf8) return std::fopen(native.c_str(), (mode + ",ccs=UTF-8").c_str());
    FILE* f = std::fopen(native.c_str(), mode.c_str());
    if (f) {
        const locale_t old = ::uselocale(utf8);
        std::fwide(f, 1);
        ::uselocale(old);
    }
    return f;
}

} // namespace

FILE* _wfopen(const wchar_t* filename, const wchar_t* mode)
{
    if (!filename || !mode) {
        FailWith(EINVAL);
        return nullptr;
    }
    const std::string m = StdioMode(mode);
    if (m.empty()) {
        FailWith(EINVAL);
        return nullptr;
    }
    const std::string native = svwin::NativePath(filename);
    const bool bBinary = m.find('b') != std::string::npos;
    FILE* f = bBinary ? std::fopen(native.c_str(), m.c_str()) : OpenUtf8Text(native, m);
    if (!f) FailWith(errno);
    return f;
}

errno_t _wfopen_s(FILE** pFile, const wchar_t* filename, const wchar_t* mode)
{
    if (!pFile) return EINVAL;
    *pFile = _wfopen(filename, mode);
    return *pFile ? 0 : errno;
}

int _wremove(const wchar_t* path)
{
    if (!path) return FailWith(EINVAL);
    const std::string native = svwin::NativePath(path);
    struct stat st;
    if (::lstat(native.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) return FailWith(EACCES);
    return ::unlink(native.c_str()) == 0 ? 0 : FailWith(errno);
}

int _wunlink(const wchar_t* path)
{
    return _wremove(path);
}

int _wrename(const wchar_t* oldname, const wchar_t* newname)
{
    if (!oldname || !newname) return FailWith(EINVAL);
    const std::string src = svwin::NativePath(oldname);
    std::string dst = svwin::NativePath(newname);
    struct stat s, d;
    if (::lstat(src.c_str(), &s) != 0) return FailWith(errno);
    if (::lstat(dst.c_str(), &d) == 0) {
        if (s.st_dev != d.st_dev || s.st_ino != d.st_ino) return FailWith(EACCES);
        dst = svwin::NativePathNewName(newname);   // a change of case only
    }
    return ::rename(src.c_str(), dst.c_str()) == 0 ? 0 : FailWith(errno);
}

int _wmkdir(const wchar_t* dirname)
{
    if (!dirname) return FailWith(EINVAL);
    return ::mkdir(svwin::NativePath(dirname).c_str(), 0777) == 0 ? 0 : FailWith(errno);
}

int _wrmdir(const wchar_t* dirname)
{
    if (!dirname) return FailWith(EINVAL);
    return ::rmdir(svwin::NativePath(dirname).c_str()) == 0 ? 0 : FailWith(errno);
}

int _waccess(const wchar_t* path, int mode)
{
    if (!path || (mode & ~6)) return FailWith(EINVAL);
    int how = F_OK;
    if (mode & 2) how |= W_OK;
    if (mode & 4) how |= R_OK;
    return ::access(svwin::NativePath(path).c_str(), how) == 0 ? 0 : FailWith(errno);
}
