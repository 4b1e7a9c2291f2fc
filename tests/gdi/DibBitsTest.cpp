#include "Canvas.h"

#include <algorithm>
#include <cstring>

using DibBitsTest = HandleTest;

TEST_F(DibBitsTest, LinesComeAndGoInEitherOrderAndDepth)
{
    Dice dice;
    const Canvas canvas(3, dice.Pixels(3 * 4));
    auto pBitmap = std::make_shared<winlite::BitmapObject>();
    pBitmap->pSurface = canvas.pSurface;
    const auto hBitmap = winlite::OpenTyped<HBITMAP>(pBitmap);
    const Picture picture = canvas.Pixels();
    for (const int iBits : {24, 32})
        for (const int iHeight : {4, -4})
            for (UINT iStart = 0; iStart <= 4; ++iStart)
            {
                BITMAPINFO info = {
                    {sizeof(BITMAPINFOHEADER), 3, iHeight, 1, static_cast<WORD>(iBits), BI_RGB, 0, 0, 0, 0, 0}, {}};
                const int nLines = std::min(2, 4 - static_cast<int>(iStart));
                std::vector<BYTE> vBytes(2 * 12, 0xEE);
                ASSERT_EQ(GetDIBits(canvas.hDC, hBitmap, iStart, 2, vBytes.data(), &info, DIB_RGB_COLORS), nLines);
                for (int i = 0; i < 3 * nLines; ++i)
                {
                    const int iLine = static_cast<int>(iStart) + i / 3;
                    const int y = iHeight > 0 ? 3 - iLine : iLine;
                    std::uint32_t uPixel = 0;
                    std::memcpy(&uPixel, &vBytes[static_cast<std::size_t>(i / 3 * 12 + i % 3 * iBits / 8)], iBits / 8);
                    const std::uint32_t uMask = iBits == 24 ? 0xFFFFFF : ~0u;
                    ASSERT_EQ(uPixel, picture[static_cast<std::size_t>(3 * y + i % 3)] & uMask) << iHeight << ' ' << i;
                }
                // What was read, written into a cleared bitmap, makes the same lines.
                canvas.pSurface->Fill({0, 0, 3, 4}, 0x123456);
                ASSERT_EQ(SetDIBits(canvas.hDC, hBitmap, iStart, 2, vBytes.data(), &info, DIB_RGB_COLORS), nLines);
                std::vector<BYTE> vAgain(2 * 12, 0xEE);
                GetDIBits(canvas.hDC, hBitmap, iStart, 2, vAgain.data(), &info, DIB_RGB_COLORS);
                EXPECT_EQ(vAgain, vBytes);
                const Picture written = canvas.Pixels();
                EXPECT_EQ(std::ranges::count(written, 0x123456u), 3 * (4 - nLines));
                std::ranges::copy(picture, canvas.pSurface->PixelsForUpdate());
            }
    BITMAPINFO info = {};
    EXPECT_EQ(GetDIBits(canvas.hDC, hBitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS), 0);
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    EXPECT_EQ(GetDIBits(canvas.hDC, hBitmap, 0, 0, nullptr, &info, DIB_RGB_COLORS), 4);
    EXPECT_TRUE(info.bmiHeader.biWidth == 3 && info.bmiHeader.biHeight == 4 && info.bmiHeader.biBitCount == 32);
    DeleteObject(hBitmap);
}
