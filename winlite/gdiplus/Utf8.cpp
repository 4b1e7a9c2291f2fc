#include "gdiplus/Utf8.h"

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

} // namespace winlite
