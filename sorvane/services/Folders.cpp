// Folder lookup and path helpers over the host's Win32 file functions.
#include "services/Folders.h"

#include "host/win/WinFile.h"
#include "host/win/WinFolders.h"
#include "host/win/WinPath.h"

namespace {

// Roaming application data, created if missing (CSIDL_APPDATA | CSIDL_FLAG_CREATE).
constexpr int kAppDataCreate = 32794;
// GetTempPathW is asked for no more than this many characters.
constexpr DWORD kTempPathLimit = 255;

bool EndsWithSeparator(const CString& path)
{
    return !path.IsEmpty() && svwin::IsPathSeparator(path[path.GetLength() - 1]);
}

} // namespace

BOOL FileExists(const wchar_t* path)
{
    if (!path || !*path)
        return FALSE;
    return GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES;
}

BOOL MakeDir(const wchar_t* path)
{
    if (!path || !*path)
        return FALSE;
    CString folder(path);
    while (folder.GetLength() > 1 && EndsWithSeparator(folder))
        folder = folder.Left(folder.GetLength() - 1);
    if (CreateDirectoryW(folder, nullptr))
        return TRUE;
    DWORD attributes = GetFileAttributesW(folder);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

CString GetFolderOf(const wchar_t* path)
{
    CString text(path);
    for (int i = text.GetLength() - 1; i >= 0; --i) {
        if (svwin::IsPathSeparator(text[i])) {
            CString folder = text.Left(i);
            if (folder.IsEmpty() || folder[folder.GetLength() - 1] != L'\\')
                folder += L'\\';
            return folder;
        }
    }
    return CString();
}

CString GetAppDataFolder()
{
    wchar_t buffer[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, kAppDataCreate, nullptr, SHGFP_TYPE_CURRENT, buffer)) || !buffer[0])
        return CString();
    CString folder(buffer);
    folder += L"\\halvorne";
    MakeDir(folder);
    folder += L'\\';
    return folder;
}

CString GetProductFolder()
{
    CString folder = GetAppDataFolder();
    if (folder.IsEmpty())
        return folder; // no user folder: files go to relative paths
    folder = folder.Left(folder.GetLength() - 1) + L"\\sorvane";
    MakeDir(folder);
    folder += L'\\';
    return folder;
}

CString GetTempFolder()
{
    wchar_t buffer[kTempPathLimit + 1] = {};
    DWORD length = GetTempPathW(kTempPathLimit, buffer);
    if (length == 0 || length > kTempPathLimit)
        return CString();
    CString folder(buffer);
    if (!EndsWithSeparator(folder))
        folder += L'\\';
    return folder;
}
