#include "base/Utf8.h"

#include <bit>

namespace winlite
{

namespace
{

bool IsCharacter(char32_t uCode) { return uCode > 0 && uCode <= 0x10FFFF && (uCode < 0xD800 || uCode > 0xDFFF); }

void Append(std::string& strUtf8, char32_t uCode)
{
    const auto add = [&strUtf8](char32_t uByte) { strUtf8 += static_cast<char>(uByte); };
    const auto addRest = [&](int nShift) { add(0x80 | (uCode >> nShift & 0x3F)); };
    if (uCode < 0x80)
        return add(uCode);
    if (uCode < 0x800)
    {
        add(0xC0 | uCode >> 6);
        return addRest(0);
    }
    if (uCode < 0x10000)
        add(0xE0 | uCode >> 12);
    else
    {
        add(0xF0 | uCode >> 18);
        addRest(12);
    }
    addRest(6);
    addRest(0);
}

} // namespace

std::string ToUtf8(std::wstring_view strText)
{
    std::string strUtf8;
    for (const wchar_t ch : strText)
    {
        const auto uCode = static_cast<char32_t>(ch);
        Append(strUtf8, IsCharacter(uCode) ? uCode : 0xFFFD);
    }
    return strUtf8;
}

std::optional<std::wstring> FromUtf8(std::string_view strUtf8)
{
    std::wstring strText;
    while (!strUtf8.empty())
    {
        const auto uFirst = static_cast<unsigned char>(strUtf8[0]);
        const int nOnes = std::countl_one(uFirst);
        const std::size_t nBytes = nOnes == 0 ? 1 : static_cast<std::size_t>(nOnes);
        if (nBytes > strUtf8.size())
            return std::nullopt;
        char32_t uCode = nOnes == 0 ? uFirst : uFirst & (0x7F >> nOnes);
        for (std::size_t i = 1; i < nBytes; ++i)
            uCode = uCode << 6 | (static_cast<unsigned char>(strUtf8[i]) & 0x3F);
        // Written again it must be the same bytes, or it was not well-formed.
        strText += static_cast<wchar_t>(uCode);
        if (ToUtf8(std::wstring_view(strText).substr(strText.size() - 1)) != strUtf8.substr(0, nBytes))
            return std::nullopt;
        strUtf8.remove_prefix(nBytes);
    }
    return strText;
}

} // namespace winlite
