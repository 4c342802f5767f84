// CFile's static operations, CFileException and CFileFind over the host's
// Win32 file functions.
#include "host/mfc/CFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <climits>

#include "host/win/WinCrt.h"
#include "host/win/WinPath.h"
#include "host/win/wsprintf.h"

CFileException::CFileException(int cause, LONG lOsError, LPCTSTR lpszArchiveName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszArchiveName)
{
}

int CFileException::OsErrorToException(LONG lOsError)
{
    switch (lOsError) {
    case ERROR_SUCCESS: return none;
    case ERROR_FILE_NOT_FOUND: return fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE: return badPath;
    case ERROR_TOO_MANY_OPEN_FILES: return tooManyOpenFiles;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return accessDenied;
    case ERROR_INVALID_HANDLE: return invalidFile;
    case ERROR_SHARING_VIOLATION: return sharingViolation;
    case ERROR_DISK_FULL: return diskFull;
    default: return genericException;
    }
}

const wchar_t* CFileException::What() const
{
    static const wchar_t* const kCauses[] = {
        L"No error", L"File error", L"File not found", L"Invalid path", L"Too many open files",
        L"Access denied", L"Invalid file", L"Cannot remove the current folder", L"Folder full",
        L"Seek error", L"Hardware I/O error", L"Sharing violation", L"Lock violation", L"Disk full",
        L"End of file",
    };
    const wchar_t* cause = m_cause >= none && m_cause <= endOfFile ? kCauses[m_cause] : kCauses[genericException];
    m_strWhat = m_strFileName.IsEmpty() ? CString(cause) : CString(cause) + L": " + m_strFileName;
    return m_strWhat;
}

void AfxThrowFileException(int cause, LONG lOsError, LPCTSTR lpszFileName)
{
    throw new CFileException(cause, lOsError, lpszFileName);
}

namespace {

[[noreturn]] void ThrowLastError(LPCTSTR lpszFileName)
{
    const auto err = static_cast<LONG>(GetLastError());
    AfxThrowFileException(CFileException::OsErrorToException(err), err, lpszFileName);
}

} // namespace

void CFile::Remove(LPCTSTR lpszFileName)
{
    if (!DeleteFileW(lpszFileName)) ThrowLastError(lpszFileName);
}

void CFile::Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName)
{
    if (!MoveFileExW(lpszOldName, lpszNewName, 0)) ThrowLastError(lpszOldName);
}

BOOL CFile::GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus)
{
    if (!lpszFileName) return FALSE;
    std::string native = svwin::NativePath(lpszFileName);
    struct stat st;
    if (::stat(native.c_str(), &st) != 0) return FALSE;
    if (!native.empty() && native[0] != '/') {
        char cwd[PATH_MAX];
        if (::getcwd(cwd, sizeof cwd)) native = std::string(cwd) + "/" + native;
    }
    rStatus = CFileStatus{};
    rStatus.m_ctime = CTime(st.st_ctim.tv_sec);
    rStatus.m_mtime = CTime(st.st_mtim.tv_sec);
    rStatus.m_atime = CTime(st.st_atim.tv_sec);
    rStatus.m_size = S_ISDIR(st.st_mode) ? 0 : static_cast<unsigned long long>(st.st_size);
    rStatus.m_attribute = static_cast<BYTE>(GetFileAttributesW(lpszFileName));
    const std::wstring wide = svwin::WidePath(native);
    wcsncpy_s(rStatus.m_szFullName, MAX_PATH, wide.c_str(), _TRUNCATE);
    return TRUE;
}

CFileFind::~CFileFind()
{
    Close();
}

void CFileFind::Close()
{
    if (m_hFind && m_hFind != INVALID_HANDLE_VALUE) ::FindClose(m_hFind);
    m_hFind = nullptr;
    m_bHasFound = m_bHasNext = false;
    m_strRoot.Empty();
}

BOOL CFileFind::FindFile(LPCTSTR pstrName, DWORD)
{
    Close();
    const CString strPattern = pstrName ? pstrName : L"*.*";
    m_hFind = ::FindFirstFileW(strPattern, &m_next);
    if (m_hFind == INVALID_HANDLE_VALUE) {
        m_hFind = nullptr;
        return FALSE;
    }
    m_bHasNext = true;

    // The root: the pattern's folder as given, made absolute.
    const int iName = static_cast<int>(PathFindFileNameW(strPattern) - static_cast<LPCTSTR>(strPattern));
    m_strRoot = strPattern.Left(iName);
    if (m_strRoot.GetLength() >= 2 && m_strRoot[1] == L':') m_strRoot = m_strRoot.Mid(2);
    if (m_strRoot.IsEmpty() || !svwin::IsPathSeparator(m_strRoot[0])) {
        char cwd[PATH_MAX];
        if (::getcwd(cwd, sizeof cwd)) {
            CString strCwd = CString::FromUtf8(cwd);
            if (!svwin::IsPathSeparator(strCwd[strCwd.GetLength() - 1])) strCwd += L'/';
            m_strRoot = strCwd + m_strRoot;
        }
    }
    if (!m_strRoot.IsEmpty() && !svwin::IsPathSeparator(m_strRoot[m_strRoot.GetLength() - 1]))
        m_strRoot += m_strRoot.Find(L'\\') >= 0 ? L'\\' : L'/';
    return TRUE;
}

BOOL CFileFind::FindNextFile()
{
    if (!m_hFind || !m_bHasNext) return FALSE;
    m_found = m_next;
    m_bHasFound = true;
    m_bHasNext = ::FindNextFileW(m_hFind, &m_next) != FALSE;
    return m_bHasNext;
}

CString CFileFind::GetFileName() const
{
    return m_bHasFound ? CString(m_found.cFileName) : CString();
}

CString CFileFind::GetFilePath() const
{
    return m_bHasFound ? m_strRoot + m_found.cFileName : CString();
}

CString CFileFind::GetFileTitle() const
{
    if (!m_bHasFound) return CString();
    const LPCWSTR name = m_found.cFileName;
    return CString(name, static_cast<int>(PathFindExtensionW(name) - name));
}

CString CFileFind::GetRoot() const
{
    return m_strRoot;
}

unsigned long long CFileFind::GetLength() const
{
    return m_bHasFound ? (static_cast<unsigned long long>(m_found.nFileSizeHigh) << 32) | m_found.nFileSizeLow : 0;
}

BOOL CFileFind::GetLastWriteTime(CTime& refTime) const
{
    if (!m_bHasFound) return FALSE;
    refTime = CTime(m_found.ftLastWriteTime);
    return TRUE;
}

BOOL CFileFind::GetCreationTime(CTime& refTime) const
{
    if (!m_bHasFound) return FALSE;
    refTime = CTime(m_found.ftCreationTime);
    return TRUE;
}

BOOL CFileFind::GetLastAccessTime(CTime& refTime) const
{
    if (!m_bHasFound) return FALSE;
    refTime = CTime(m_found.ftLastAccessTime);
    return TRUE;
}

BOOL CFileFind::MatchesMask(DWORD dwMask) const
{
    return m_bHasFound && (m_found.dwFileAttributes & dwMask) != 0;
}

BOOL CFileFind::IsDots() const
{
    if (!m_bHasFound) return FALSE;
    const std::wstring_view name = m_found.cFileName;
    return name == L"." || name == L"..";
}
