// Win32 file and folder functions, and directory search, over POSIX calls.
#include "host/win/WinFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>
#include <vector>

#include "host/win/WinPath.h"
#include "host/win/WinText.h"

namespace {

std::string ParentOf(const std::string& native)
{
    std::string p = native;
    while (p.size() > 1 && p.back() == '/') p.pop_back();
    const std::size_t slash = p.find_last_of('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : p.substr(0, slash);
}

// Sets the last error for errno `err` on `native`: a missing file whose
// folder is missing too is ERROR_PATH_NOT_FOUND, as on the original platform.
BOOL Fail(const std::string& native, int err)
{
    DWORD code = svwin::ErrorFromErrno(err);
    if (err == ENOENT) {
        struct stat st;
        if (::stat(ParentOf(native).c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) code = ERROR_PATH_NOT_FOUND;
    }
    SetLastError(code);
    return FALSE;
}

DWORD AttributesOf(const struct stat& st, const std::string& name)
{
    DWORD attr = 0;
    if (S_ISDIR(st.st_mode)) attr |= FILE_ATTRIBUTE_DIRECTORY;
    if (!(st.st_mode & S_IWUSR)) attr |= FILE_ATTRIBUTE_READONLY;
    if (name.size() > 1 && name[0] == '.' && name != "..") attr |= FILE_ATTRIBUTE_HIDDEN;
    return attr ? attr : FILE_ATTRIBUTE_NORMAL;
}

std::string BaseName(const std::string& native)
{
    std::string p = native;
    while (p.size() > 1 && p.back() == '/') p.pop_back();
    const std::size_t slash = p.find_last_of('/');
    return slash == std::string::npos ? p : p.substr(slash + 1);
}

BOOL CopyContents(const std::string& src, const std::string& dst, bool bFailIfExists)
{
    const int in = ::open(src.c_str(), O_RDONLY | O_CLOEXEC);
    if (in < 0) return Fail(src, errno);
    struct stat st;
    if (::fstat(in, &st) != 0 || S_ISDIR(st.st_mode)) {
        ::close(in);
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    const int flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | (bFailIfExists ? O_EXCL : 0);
    const int out = ::open(dst.c_str(), flags, st.st_mode & 0777);
    if (out < 0) {
        const int err = errno;
        ::close(in);
        if (err == EEXIST) {
            SetLastError(ERROR_FILE_EXISTS);
            return FALSE;
        }
        return Fail(dst, err);
    }
    char buf[65536];
    bool bOk = true;
    for (;;) {
        ssize_t n = ::read(in, buf, sizeof buf);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            bOk = n == 0;
            break;
        }
        for (ssize_t done = 0; done < n && bOk;) {
            const ssize_t w = ::write(out, buf + done, static_cast<std::size_t>(n - done));
            if (w < 0 && errno == EINTR) continue;
            if (w < 0) bOk = false;
            else done += w;
        }
        if (!bOk) break;
    }
    const int err = errno;
    if (bOk) {
        const struct timespec times[2] = {st.st_atim, st.st_mtim};
        ::futimens(out, times);
        ::fchmod(out, st.st_mode & 07777);
    }
    if (::close(out) != 0) bOk = false;
    ::close(in);
    if (!bOk) return Fail(dst, err ? err : EIO);
    return TRUE;
}

// A search in progress: the matches, collected at FindFirstFileW.
struct FindState {
    std::string folder;
    std::vector<std::string> names;
    std::size_t next = 0;
};

bool Fill(const FindState& s, const std::string& name, LPWIN32_FIND_DATAW pData)
{
    struct stat st;
    const std::string full = s.folder.empty() ? name : (s.folder.back() == '/' ? s.folder + name : s.folder + '/' + name);
    if (::stat(full.c_str(), &st) != 0 && ::lstat(full.c_str(), &st) != 0) return false;
    const std::wstring wide = svwin::WidePath(name);
    if (wide.size() >= MAX_PATH) return false;
    *pData = WIN32_FIND_DATAW{};
    pData->dwFileAttributes = AttributesOf(st, name);
    pData->ftCreationTime = svwin::FileTimeFromUnix(st.st_ctim.tv_sec, st.st_ctim.tv_nsec);
    pData->ftLastAccessTime = svwin::FileTimeFromUnix(st.st_atim.tv_sec, st.st_atim.tv_nsec);
    pData->ftLastWriteTime = svwin::FileTimeFromUnix(st.st_mtim.tv_sec, st.st_mtim.tv_nsec);
    const auto size = S_ISDIR(st.st_mode) ? 0ULL : static_cast<unsigned long long>(st.st_size);
    pData->nFileSizeHigh = static_cast<DWORD>(size >> 32);
    pData->nFileSizeLow = static_cast<DWORD>(size);
    std::copy(wide.begin(), wide.end(), pData->cFileName);
    return true;
}

// Hands out the next entry that can still be described; FALSE at the end.
BOOL NextEntry(FindState& s, LPWIN32_FIND_DATAW pData)
{
    while (s.next < s.names.size())
        if (Fill(s, s.names[s.next++], pData)) return TRUE;
    SetLastError(ERROR_NO_MORE_FILES);
    return FALSE;
}

} // namespace

DWORD GetFileAttributesW(LPCWSTR lpFileName)
{
    if (!lpFileName || !*lpFileName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_FILE_ATTRIBUTES;
    }
    const std::string native = svwin::NativePath(lpFileName);
    struct stat st;
    if (::stat(native.c_str(), &st) != 0) {
        Fail(native, errno);
        return INVALID_FILE_ATTRIBUTES;
    }
    return AttributesOf(st, BaseName(native));
}

BOOL PathFileExistsW(LPCWSTR pszPath)
{
    return GetFileAttributesW(pszPath) != INVALID_FILE_ATTRIBUTES;
}

BOOL CopyFileW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName, BOOL bFailIfExists)
{
    if (!lpExistingFileName || !lpNewFileName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::string src = svwin::NativePath(lpExistingFileName);
    const std::string dst = svwin::NativePath(lpNewFileName);
    struct stat a, b;
    if (::stat(src.c_str(), &a) == 0 && ::stat(dst.c_str(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino) {
        // Copying a file onto itself would truncate it first.
        SetLastError(bFailIfExists ? ERROR_FILE_EXISTS : ERROR_SHARING_VIOLATION);
        return FALSE;
    }
    return CopyContents(src, dst, bFailIfExists != FALSE);
}

BOOL MoveFileExW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName, DWORD dwFlags)
{
    if (!lpExistingFileName || !lpNewFileName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::string src = svwin::NativePath(lpExistingFileName);
    std::string dst = svwin::NativePath(lpNewFileName);
    struct stat s, d;
    if (::lstat(src.c_str(), &s) != 0) return Fail(src, errno);
    if (::lstat(dst.c_str(), &d) == 0) {
        if (s.st_dev == d.st_dev && s.st_ino == d.st_ino) {
            // Only the case of the name changes: take the new spelling literally.
            dst = svwin::NativePathNewName(lpNewFileName);
        } else if (!(dwFlags & MOVEFILE_REPLACE_EXISTING) || S_ISDIR(d.st_mode)) {
            SetLastError(ERROR_ALREADY_EXISTS);
            return FALSE;
        }
    }
    if (::rename(src.c_str(), dst.c_str()) == 0) return TRUE;
    if (errno != EXDEV) return Fail(dst, errno);
    if (S_ISDIR(s.st_mode) || !(dwFlags & MOVEFILE_COPY_ALLOWED)) {
        SetLastError(ERROR_NOT_SAME_DEVICE);
        return FALSE;
    }
    if (!CopyContents(src, dst, false)) return FALSE;
    if (::unlink(src.c_str()) != 0) return Fail(src, errno);
    return TRUE;
}

BOOL MoveFileW(LPCWSTR lpExistingFileName, LPCWSTR lpNewFileName)
{
    return MoveFileExW(lpExistingFileName, lpNewFileName, MOVEFILE_COPY_ALLOWED);
}

BOOL DeleteFileW(LPCWSTR lpFileName)
{
    if (!lpFileName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::string native = svwin::NativePath(lpFileName);
    struct stat st;
    if (::lstat(native.c_str(), &st) != 0) return Fail(native, errno);
    if (S_ISDIR(st.st_mode)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return FALSE;
    }
    if (::unlink(native.c_str()) != 0) return Fail(native, errno);
    return TRUE;
}

BOOL CreateDirectoryW(LPCWSTR lpPathName, LPSECURITY_ATTRIBUTES)
{
    if (!lpPathName || !*lpPathName) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return FALSE;
    }
    const std::string native = svwin::NativePath(lpPathName);
    if (::mkdir(native.c_str(), 0777) != 0) {
        if (errno == ENOENT) {
            SetLastError(ERROR_PATH_NOT_FOUND);
            return FALSE;
        }
        return Fail(native, errno);
    }
    return TRUE;
}

BOOL RemoveDirectoryW(LPCWSTR lpPathName)
{
    if (!lpPathName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::string native = svwin::NativePath(lpPathName);
    if (::rmdir(native.c_str()) != 0) {
        if (errno == ENOTDIR) {
            SetLastError(ERROR_DIRECTORY);
            return FALSE;
        }
        if (errno == EEXIST) errno = ENOTEMPTY;
        return Fail(native, errno);
    }
    return TRUE;
}

HANDLE FindFirstFileW(LPCWSTR lpFileName, LPWIN32_FIND_DATAW lpFindFileData)
{
    if (!lpFileName || !lpFindFileData) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    const std::wstring_view path = lpFileName;
    const std::wstring_view pattern = PathFindFileNameW(lpFileName);
    const std::wstring_view folderPart = path.substr(0, path.size() - pattern.size());

    auto state = std::make_unique<FindState>();
    state->folder = folderPart.empty() ? std::string(1, '.') : svwin::NativePath(folderPart);
    if (state->folder.empty()) state->folder.push_back('.');
    DIR* dir = ::opendir(state->folder.c_str());
    if (!dir) {
        SetLastError(errno == ENOENT || errno == ENOTDIR ? ERROR_PATH_NOT_FOUND : svwin::ErrorFromErrno(errno));
        return INVALID_HANDLE_VALUE;
    }
    const std::wstring patterns(pattern);
    while (const dirent* e = ::readdir(dir)) {
        const std::string name = e->d_name;
        if (PathMatchSpecW(svwin::WidePath(name).c_str(), patterns.c_str())) state->names.push_back(name);
    }
    ::closedir(dir);
    std::sort(state->names.begin(), state->names.end(), [](const std::string& a, const std::string& b) {
        const bool da = a == "." || a == "..";
        const bool db = b == "." || b == "..";
        if (da != db) return da;
        const int c = svwin::CompareNoCase(svwin::WidePath(a), svwin::WidePath(b));
        return c != 0 ? c < 0 : a < b;
    });
    if (!NextEntry(*state, lpFindFileData)) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    return state.release();
}

BOOL FindNextFileW(HANDLE hFindFile, LPWIN32_FIND_DATAW lpFindFileData)
{
    if (!hFindFile || hFindFile == INVALID_HANDLE_VALUE || !lpFindFileData) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    return NextEntry(*static_cast<FindState*>(hFindFile), lpFindFileData);
}

BOOL FindClose(HANDLE hFindFile)
{
    if (!hFindFile || hFindFile == INVALID_HANDLE_VALUE) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    delete static_cast<FindState*>(hFindFile);
    return TRUE;
}
