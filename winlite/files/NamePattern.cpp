#include "files/NamePattern.h"

#include <locale.h>
#include <wctype.h>

namespace winlite
{

std::wstring Uppercase(std::wstring_view strText)
{
    static const locale_t loc = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
    std::wstring strUpper(strText);
    for (wchar_t& ch : strUpper)
        ch = static_cast<wchar_t>(loc ? towupper_l(static_cast<wint_t>(ch), loc) : towupper(static_cast<wint_t>(ch)));
    return strUpper;
}

bool FitsPattern(std::wstring_view strName, std::wstring_view strPattern)
{
    if (strPattern == L"*.*")
        return true;
    // Where the latest * stands and up to where it reaches: a mismatch later on lets it reach one further.
    std::size_t iName = 0, iPattern = 0, iStar = strPattern.npos, iReach = 0;
    while (iName < strName.size() || iPattern < strPattern.size())
    {
        const wchar_t chWanted = iPattern < strPattern.size() ? strPattern[iPattern] : 0;
        const wchar_t chHere = iName < strName.size() ? strName[iName] : 0;
        if (chWanted == L'*')
        {
            iStar = iPattern++;
            iReach = iName;
        }
        else if (chWanted == L'?' && (chHere == 0 || chHere == L'.'))
            ++iPattern;
        else if (chHere && (chWanted == L'?' || chWanted == chHere))
            ++iName, ++iPattern;
        else if (iStar != strPattern.npos && iReach < strName.size())
        {
            iPattern = iStar + 1;
            iName = ++iReach;
        }
        else
            return false;
    }
    return true;
}

} // namespace winlite
