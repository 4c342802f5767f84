// CFile's static file operations, CFileException, and CFileFind for
// searching folders. Paths follow host/win/WinPath.h.
#pragma once

#include "host/mfc/CException.h"
#include "host/mfc/CString.h"
#include "host/mfc/CTime.h"
#include "host/win/WinFile.h"

class CFileException : public CException {
public:
    enum {
        none, genericException, fileNotFound, badPath, tooManyOpenFiles, accessDenied, invalidFile,
        removeCurrentDir, directoryFull, badSeek, hardIO, sharingViolation, lockViolation, diskFull, endOfFile,
    };

    explicit CFileException(int cause = none, LONG lOsError = -1, LPCTSTR lpszArchiveName = nullptr);

    // The cause for a Windows error code (ERROR_FILE_NOT_FOUND -> fileNotFound ...).
    static int OsErrorToException(LONG lOsError);
    // "<what happened>: <file>".
    const wchar_t* What() const override;

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;

private:
    mutable CString m_strWhat;
};

// Throws a new CFileException (caught by pointer and deleted by the catcher).
[[noreturn]] void AfxThrowFileException(int cause, LONG lOsError = -1, LPCTSTR lpszFileName = nullptr);

struct CFileStatus {
    CTime m_ctime;
    CTime m_mtime;
    CTime m_atime;
    unsigned long long m_size = 0;
    BYTE m_attribute = 0;
    WCHAR m_szFullName[MAX_PATH] = {};
};

class CFile : public CObject {
public:
    // Deletes a file; throws CFileException* if it cannot.
    static void Remove(LPCTSTR lpszFileName);
    // Renames a file or folder (not over an existing one); throws CFileException*.
    static void Rename(LPCTSTR lpszOldName, LPCTSTR lpszNewName);
    // FALSE if the file does not exist. m_szFullName is the native full path.
    static BOOL GetStatus(LPCTSTR lpszFileName, CFileStatus& rStatus);
};

// Walks the entries that match a pattern ("*" and "?" in the last component,
// case-insensitive). As in MFC, FindNextFile must be called before the first
// entry can be read, and it returns FALSE when the entry it moved to is the
// last one:
//     CFileFind ff;
//     for (BOOL b = ff.FindFile(L"C:\\plans\\*.dwg"); b;) { b = ff.FindNextFile(); use(ff.GetFilePath()); }
class CFileFind : public CObject {
public:
    CFileFind() = default;
    ~CFileFind() override;
    CFileFind(const CFileFind&) = delete;
    CFileFind& operator=(const CFileFind&) = delete;

    // Null pattern: "*.*" in the current folder. FALSE if nothing matches.
    BOOL FindFile(LPCTSTR pstrName = nullptr, DWORD dwUnused = 0);
    BOOL FindNextFile();
    void Close();

    // The name as it is spelled on disk.
    CString GetFileName() const;
    // The folder of the pattern (made absolute, spelled as given) plus the name.
    CString GetFilePath() const;
    // The name without its extension.
    CString GetFileTitle() const;
    // The folder of the pattern with a final separator.
    CString GetRoot() const;
    unsigned long long GetLength() const;
    BOOL GetLastWriteTime(CTime& refTime) const;
    BOOL GetCreationTime(CTime& refTime) const;
    BOOL GetLastAccessTime(CTime& refTime) const;

    BOOL MatchesMask(DWORD dwMask) const;
    BOOL IsDirectory() const { return MatchesMask(FILE_ATTRIBUTE_DIRECTORY); }
    BOOL IsReadOnly() const { return MatchesMask(FILE_ATTRIBUTE_READONLY); }
    BOOL IsHidden() const { return MatchesMask(FILE_ATTRIBUTE_HIDDEN); }
    BOOL IsNormal() const { return MatchesMask(FILE_ATTRIBUTE_NORMAL); }
    BOOL IsArchived() const { return MatchesMask(FILE_ATTRIBUTE_ARCHIVE); }
    // "." or "..".
    BOOL IsDots() const;

private:
    HANDLE m_hFind = nullptr;
    WIN32_FIND_DATAW m_found{};   // the current entry
    WIN32_FIND_DATAW m_next{};    // the entry FindNextFile moves to
    bool m_bHasFound = false;
    bool m_bHasNext = false;
    CString m_strRoot;
};
