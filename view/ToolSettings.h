#pragma once

#include "platform/framework.h"

#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

namespace Pixtane
{

// A tool's settings travel as 32-bit little-endian words: the version first, then the settings. Each version of a tool
// has one fixed length.

/// Makes vData exactly those words.
void WriteToolSettings(std::vector<BYTE>& vData, UINT uVersion, std::initializer_list<DWORD> vSettings);

/// How many settings a version of a tool has, the version word not counted.
struct ToolSettingsLayout
{
    UINT uVersion;
    std::size_t nSettings;
};

/// The settings of a blob, checked against the versions that the tool knows.
struct ToolSettingsBlob
{
    UINT uVersion = 0;
    std::vector<DWORD> vSettings; ///< Empty for a version that the tool has no layout for.
};

/// Reads a blob; nothing, with a log record in the name of the operation pszFunction, when it is too short, newer than
/// uNewestVersion, or of another length than its version has. A version of no layout is taken, without settings.
std::optional<ToolSettingsBlob> ReadToolSettings(const std::vector<BYTE>& vData, UINT uNewestVersion,
                                                 std::span<const ToolSettingsLayout> vLayouts,
                                                 const wchar_t* pszFunction);

} // namespace Pixtane
