#include "view/ToolSettings.h"

#include "view/Log.h"

#include <algorithm>

namespace Pixtane
{

namespace
{

constexpr std::size_t WORD_SIZE = sizeof(DWORD);

DWORD WordAt(const std::vector<BYTE>& vData, std::size_t iWord)
{
    const BYTE* p = &vData[iWord * WORD_SIZE];
    return p[0] | static_cast<DWORD>(p[1]) << 8 | static_cast<DWORD>(p[2]) << 16 | static_cast<DWORD>(p[3]) << 24;
}

void AppendWord(std::vector<BYTE>& vData, DWORD dwWord)
{
    for (std::size_t i = 0; i < WORD_SIZE; ++i)
        vData.push_back(static_cast<BYTE>(dwWord >> 8 * i));
}

} // namespace

void WriteToolSettings(std::vector<BYTE>& vData, UINT uVersion, std::initializer_list<DWORD> vSettings)
{
    vData.clear();
    AppendWord(vData, uVersion);
    for (const DWORD dwSetting : vSettings)
        AppendWord(vData, dwSetting);
}

std::optional<ToolSettingsBlob> ReadToolSettings(const std::vector<BYTE>& vData, UINT uNewestVersion,
                                                 std::span<const ToolSettingsLayout> vLayouts,
                                                 const wchar_t* pszFunction)
{
    // Only the low byte of the version word tells the version.
    if (vData.size() <= WORD_SIZE || vData[0] > uNewestVersion)
    {
        QLWriteLog(QL_ERROR, MODULE_NAME, pszFunction, L"Invalid parameter data size or version.");
        return std::nullopt;
    }
    ToolSettingsBlob blob;
    blob.uVersion = vData[0];
    const auto itLayout = std::ranges::find(vLayouts, blob.uVersion, &ToolSettingsLayout::uVersion);
    if (itLayout == vLayouts.end())
        return blob;
    if (vData.size() != (1 + itLayout->nSettings) * WORD_SIZE)
    {
        QLWriteLog(QL_ERROR, MODULE_NAME, pszFunction, L"Invalid parameter data size for version %d.", blob.uVersion);
        return std::nullopt;
    }
    for (std::size_t i = 1; i <= itLayout->nSettings; ++i)
        blob.vSettings.push_back(WordAt(vData, i));
    return blob;
}

} // namespace Pixtane
