#pragma once

#include "platform/framework.h"

#include <optional>

namespace Pixtane
{

/// How many bytes the rows of a bottom-up bitmap occupy, from its header's width, height and bit count; biSizeImage is
/// not asked. Nothing when a size is not positive, or when pixel count, row length or byte count does not fit 31 bits.
inline std::optional<int> DibByteCount(const BITMAPINFOHEADER& header)
{
    constexpr long long LIMIT = 0x7FFFFFFF;
    const long long llWidth = header.biWidth;
    const long long llHeight = header.biHeight;
    if (llWidth <= 0 || llHeight <= 0 || llWidth * llHeight > LIMIT)
        return std::nullopt;
    const long long llRow = (llWidth * header.biBitCount + 31) / 32 * 4;
    if (llRow > LIMIT || llRow * llHeight > LIMIT)
        return std::nullopt;
    return static_cast<int>(llRow * llHeight);
}

} // namespace Pixtane
