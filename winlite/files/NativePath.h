#pragma once

#include "base/Types.h"

#include <string>

namespace winlite
{

/// A path as the system takes it: UTF-8, with slashes for backslashes. Empty for NULL.
std::string NativePath(LPCWSTR pszPath);

/// The folder a native path is in, with its slash; empty for a bare name.
std::string FolderOf(const std::string& strPath);

/// What Windows says of a failure with this path: what is missing may be the file or already its folder.
DWORD ErrorOfPath(const std::string& strPath, int iErrno);

} // namespace winlite
