#pragma once

#include "base/Types.h"

#include <cstdarg>

// The last error of a thread, which the functions of Files.h set when they fail, and its text.

constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_NO_MORE_FILES = 18;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_NEGATIVE_SEEK = 131;
constexpr DWORD ERROR_MR_MID_NOT_FOUND = 317;

constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x0200;
constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;

/// Why the latest failing function of this thread failed. Functions that succeed leave it as it is. Any thread.
DWORD GetLastError();
void SetLastError(DWORD dwError);

/// Writes the text of a system error, ended by a line break, and returns its length without the NUL; 0 when the error
/// has none here (ERROR_MR_MID_NOT_FOUND) or nSize characters are too few (ERROR_INSUFFICIENT_BUFFER). Any thread.
/// Different from Windows: the texts are English and winlite's own; only FORMAT_MESSAGE_FROM_SYSTEM with or without
/// FORMAT_MESSAGE_IGNORE_INSERTS, and the caller's buffer.
DWORD FormatMessage(DWORD dwFlags, const void* pSource, DWORD dwMessageId, DWORD dwLanguageId, LPWSTR pszBuffer,
                    DWORD nSize, va_list* pArguments);

namespace winlite
{

/// The Windows error for an errno; ERROR_GEN_FAILURE for those without a counterpart.
DWORD ErrorOfErrno(int iErrno);

} // namespace winlite
