// The last-error slot, one per thread as on the original platform.
#include "host/win/WinError.h"

#include <cerrno>

namespace {
thread_local DWORD t_dwLastError = ERROR_SUCCESS;
}

DWORD GetLastError()
{
    return t_dwLastError;
}

void SetLastError(DWORD dwErrCode)
{
    t_dwLastError = dwErrCode;
}

namespace svwin {

DWORD ErrorFromErrno(int err)
{
    switch (err) {
    case 0: return ERROR_SUCCESS;
    case ENOENT: return ERROR_FILE_NOT_FOUND;
    case ENOTDIR: return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EISDIR: return ERROR_ACCESS_DENIED;
    case EROFS: return ERROR_WRITE_PROTECT;
    case EEXIST: return ERROR_ALREADY_EXISTS;
    case ENOTEMPTY: return ERROR_DIR_NOT_EMPTY;
    case EXDEV: return ERROR_NOT_SAME_DEVICE;
    case ENOSPC:
    case EDQUOT: return ERROR_DISK_FULL;
    case EMFILE:
    case ENFILE: return ERROR_TOO_MANY_OPEN_FILES;
    case ENOMEM: return ERROR_NOT_ENOUGH_MEMORY;
    case EINVAL: return ERROR_INVALID_PARAMETER;
    case ENAMETOOLONG: return ERROR_FILENAME_EXCED_RANGE;
    case EBUSY:
    case ETXTBSY: return ERROR_SHARING_VIOLATION;
    default: return ERROR_GEN_FAILURE;
    }
}

BOOL FailFromErrno()
{
    SetLastError(ErrorFromErrno(errno));
    return FALSE;
}

} // namespace svwin
