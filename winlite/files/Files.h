#pragma once

#include "files/LastError.h"

// Finding files, with Windows' names and behaviour. Backslashes and slashes separate folders; there are no drives. Any
// thread. Different from Windows: only patterns disregard case, a path must be spelt as its folders and file are.

constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

constexpr int MAX_PATH = 260;

inline const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(~ULONG_PTR{0});

/// A file that was found. Different from Windows: no times and no short name.
struct WIN32_FIND_DATA
{
    DWORD dwFileAttributes;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    WCHAR cFileName[MAX_PATH]; ///< Without the folder.
};

/// Looks for the files of a folder whose names fit the path's last part (* and ?, without regard to case) and describes
/// the first; folders are found too, "." and ".." among them. INVALID_HANDLE_VALUE with ERROR_FILE_NOT_FOUND when there
/// is none, with ERROR_PATH_NOT_FOUND without the folder. Different from Windows: in the order of the names, and names
/// that are not UTF-8 are left out.
HANDLE FindFirstFile(LPCWSTR pszPath, WIN32_FIND_DATA* pData);

/// Describes the next file; FALSE with ERROR_NO_MORE_FILES after the last.
BOOL FindNextFile(HANDLE hFind, WIN32_FIND_DATA* pData);

/// Ends a search; FALSE with ERROR_INVALID_HANDLE for any other handle.
BOOL FindClose(HANDLE hFind);

/// What kind of file it is; INVALID_FILE_ATTRIBUTES when there is none.
DWORD GetFileAttributes(LPCWSTR pszPath);
