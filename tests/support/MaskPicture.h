#pragma once

#include "platform/framework.h"

#include <ostream>
#include <string>
#include <vector>

/// A mask as a test types it: one text a row, '.' for 0, '#' for 255, '+' for any weight between.
struct CMaskPicture
{
    std::vector<std::string> vRows;

    static CMaskPicture Of(const std::vector<BYTE>& vMask, int iWidth)
    {
        CMaskPicture picture;
        for (std::size_t i = 0; i + iWidth <= vMask.size(); i += iWidth)
        {
            picture.vRows.emplace_back();
            for (int x = 0; x < iWidth; ++x)
                picture.vRows.back() += vMask[i + x] == 0 ? '.' : vMask[i + x] == 255 ? '#' : '+';
        }
        return picture;
    }

    /// The mask of a picture without '+'.
    std::vector<BYTE> Mask() const
    {
        std::vector<BYTE> vMask;
        for (const std::string& strRow : vRows)
        {
            for (const char c : strRow)
                vMask.push_back(c == '#' ? 255 : 0);
        }
        return vMask;
    }

    bool operator==(const CMaskPicture&) const = default;
};

inline void PrintTo(const CMaskPicture& picture, std::ostream* pStream)
{
    for (const std::string& strRow : picture.vRows)
        *pStream << "\n    " << strRow;
}

/// A region's rectangles as "l,t,r,b " each; "none" without a handle.
inline std::string RectsOf(const CRgn& rgn)
{
    if (!rgn.GetSafeHandle())
        return "none";
    std::vector<DWORD> vData(static_cast<std::size_t>(rgn.GetRegionData(nullptr, 0)) / sizeof(DWORD));
    auto* const pData = reinterpret_cast<RGNDATA*>(vData.data());
    rgn.GetRegionData(pData, static_cast<int>(vData.size() * sizeof(DWORD)));
    std::string strRects;
    const auto* pRect = reinterpret_cast<const RECT*>(pData->Buffer);
    for (DWORD i = 0; i < pData->rdh.nCount; ++i, ++pRect)
        strRects += std::to_string(pRect->left) + "," + std::to_string(pRect->top) + "," +
                    std::to_string(pRect->right) + "," + std::to_string(pRect->bottom) + " ";
    return strRects;
}
