#include "Canvas.h"

#include <limits>

using winlite::Region;

using FillTest = HandleTest;

TEST_F(FillTest, ColoursAndPatternsFillExactlyTheClippedShape)
{
    constexpr int SIZE_OF_CANVAS = 16;
    constexpr int MOST = std::numeric_limits<int>::max();
    Dice dice;
    for (int iRound = 0; iRound < 600; ++iRound)
    {
        const COLORREF cr = dice.Pixels(1)[0]; // The fourth byte is none of a colour's.
        HBRUSH hBrush = CreateSolidBrush(cr);
        int cxTile = 1, cyTile = 1;
        Picture tile = {(cr & 0xFF) << 16 | (cr & 0xFF00) | (cr >> 16 & 0xFF)};
        if (iRound % 3 != 0)
        {
            cxTile = dice.Roll(1, 5);
            cyTile = dice.Roll(1, 5);
            tile = dice.Pixels(cxTile * cyTile);
            auto pBitmap = std::make_shared<winlite::BitmapObject>();
            pBitmap->pSurface = Canvas(cxTile, tile).pSurface;
            const auto hBitmap = winlite::OpenTyped<HBITMAP>(pBitmap);
            DeleteObject(std::exchange(hBrush, CreatePatternBrush(hBitmap)));
            DeleteObject(hBitmap);
        }
        const POINT ptWindow = {dice.Roll(-3, 3), dice.Roll(-3, 3)};
        const POINT ptOrigin = {dice.Roll(-20, 20), dice.Roll(-20, 20)};
        Canvas canvas(SIZE_OF_CANVAS, SIZE_OF_CANVAS, ptWindow);
        POINT ptOld = {7, 7};
        EXPECT_TRUE(SetBrushOrgEx(canvas.hDC, ptOrigin.x, ptOrigin.y, &ptOld));
        EXPECT_TRUE(ptOld.x == 0 && ptOld.y == 0);
        const Region rgnClip = dice.Region(SIZE_OF_CANVAS);
        const HRGN hClip = winlite::OpenRegion(rgnClip);
        const auto iComplexity =
            iRound % 2 ? SelectClipRgn(canvas.hDC, hClip) : reinterpret_cast<INT_PTR>(SelectObject(canvas.hDC, hClip));
        EXPECT_EQ(iComplexity, rgnClip.Complexity());
        const RECT rc = iRound % 7 ? dice.Rect(-5, 12, 20) : RECT{-MOST, -MOST, MOST, MOST};
        const Region rgnFilled = iRound % 2 ? Region(rc) : dice.Region(SIZE_OF_CANVAS);
        const HRGN hFilled = winlite::OpenRegion(rgnFilled);
        EXPECT_TRUE(iRound % 2 ? FillRect(canvas.hDC, &rc, hBrush) : FillRgn(canvas.hDC, hFilled, hBrush));
        EXPECT_TRUE(DeleteObject(hBrush) && DeleteObject(hClip) && DeleteObject(hFilled));
        const Region rgnDamage = Region::FromRects(canvas.vDamage);
        for (int i = 0; i < SIZE_OF_CANVAS * SIZE_OF_CANVAS; ++i)
        {
            const POINT ptSurface = {i % SIZE_OF_CANVAS, i / SIZE_OF_CANVAS};
            const POINT pt = {ptSurface.x - ptWindow.x, ptSurface.y - ptWindow.y};
            const bool bInside = rgnClip.Contains(pt) && rgnFilled.Contains(pt);
            // 100 tiles more make the remainder's operand positive.
            const int iColumn = (pt.x - ptOrigin.x + 100 * cxTile) % cxTile;
            const int iRow = (pt.y - ptOrigin.y + 100 * cyTile) % cyTile;
            const std::uint32_t uTile = tile[static_cast<std::size_t>(iRow * cxTile + iColumn)];
            ASSERT_EQ(canvas.Pixels()[static_cast<std::size_t>(i)], bInside ? uTile : 0u) << iRound << ": " << i;
            ASSERT_EQ(rgnDamage.Contains(ptSurface), bInside) << iRound << ": " << i;
            ASSERT_EQ(GetPixel(canvas.hDC, pt.x, pt.y) == CLR_INVALID, !rgnClip.Contains(pt));
        }
        EXPECT_EQ(SelectClipRgn(canvas.hDC, nullptr), SIMPLEREGION);
        ASSERT_NE(GetPixel(canvas.hDC, 9, 9), CLR_INVALID);
    }
}
