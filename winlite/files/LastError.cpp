#include "files/LastError.h"

#include <algorithm>
#include <cerrno>
#include <string_view>

namespace
{

thread_local DWORD t_dwLastError = ERROR_SUCCESS;

constexpr struct
{
    DWORD dwError;
    std::wstring_view strText;
} TEXTS[] = {
    {ERROR_SUCCESS, L"There was no error.\r\n"},
    {ERROR_FILE_NOT_FOUND, L"The file was not found.\r\n"},
    {ERROR_PATH_NOT_FOUND, L"The folder was not found.\r\n"},
    {ERROR_TOO_MANY_OPEN_FILES, L"Too many files are open.\r\n"},
    {ERROR_ACCESS_DENIED, L"The file may not be used in this way.\r\n"},
    {ERROR_INVALID_HANDLE, L"The handle is not open.\r\n"},
    {ERROR_NO_MORE_FILES, L"There are no more files.\r\n"},
    {ERROR_GEN_FAILURE, L"The system reports a failure.\r\n"},
    {ERROR_SHARING_VIOLATION, L"Another program is using the file.\r\n"},
    {ERROR_INVALID_PARAMETER, L"A parameter is wrong.\r\n"},
    {ERROR_DISK_FULL, L"The disk is full.\r\n"},
    {ERROR_INSUFFICIENT_BUFFER, L"The buffer is too small.\r\n"},
    {ERROR_NEGATIVE_SEEK, L"The position is before the beginning of the file.\r\n"},
    {ERROR_MR_MID_NOT_FOUND, L"There is no text for this error.\r\n"},
};

constexpr struct
{
    int iErrno;
    DWORD dwError;
} ERRNOS[] = {
    {ENOENT, ERROR_FILE_NOT_FOUND},      {ENOTDIR, ERROR_PATH_NOT_FOUND}, {ENAMETOOLONG, ERROR_PATH_NOT_FOUND},
    {EACCES, ERROR_ACCESS_DENIED},       {EPERM, ERROR_ACCESS_DENIED},    {EISDIR, ERROR_ACCESS_DENIED},
    {EROFS, ERROR_ACCESS_DENIED},        {EBADF, ERROR_ACCESS_DENIED},    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES}, {ENOSPC, ERROR_DISK_FULL},       {EDQUOT, ERROR_DISK_FULL},
};

DWORD Failed(DWORD dwError)
{
    ::SetLastError(dwError);
    return 0;
}

} // namespace

DWORD winlite::ErrorOfErrno(int iErrno)
{
    const auto it = std::ranges::find_if(ERRNOS, [=](const auto& entry) { return entry.iErrno == iErrno; });
    return it == std::end(ERRNOS) ? ERROR_GEN_FAILURE : it->dwError;
}

DWORD GetLastError() { return t_dwLastError; }

void SetLastError(DWORD dwError) { t_dwLastError = dwError; }

DWORD FormatMessage(DWORD dwFlags, const void*, DWORD dwMessageId, DWORD, LPWSTR pszBuffer, DWORD nSize, va_list*)
{
    if ((dwFlags & ~FORMAT_MESSAGE_IGNORE_INSERTS) != FORMAT_MESSAGE_FROM_SYSTEM || !pszBuffer)
        return Failed(ERROR_INVALID_PARAMETER);
    const auto it = std::ranges::find_if(TEXTS, [=](const auto& entry) { return entry.dwError == dwMessageId; });
    if (it == std::end(TEXTS))
        return Failed(ERROR_MR_MID_NOT_FOUND);
    if (it->strText.size() >= nSize)
        return Failed(ERROR_INSUFFICIENT_BUFFER);
    *std::ranges::copy(it->strText, pszBuffer).out = 0;
    return static_cast<DWORD>(it->strText.size());
}
