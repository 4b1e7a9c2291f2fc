#include "Canvas.h"

#include <limits>

using BitmapTest = HandleTest;

TEST_F(BitmapTest, CompatibleBitmapsFollowTheirDeviceContext)
{
    Canvas screen(4, 4);
    const HDC hMemory = CreateCompatibleDC(nullptr);
    const HBITMAP hStock = winlite::StockBitmap();
    const int MOST = std::numeric_limits<int>::max();
    const struct
    {
        HDC hDC;
        int cx, cy, iBits, nRowBytes;
    } vCases[] = {{screen.hDC, 5, 3, 32, 20}, {hMemory, 17, 3, 1, 4}};
    for (const auto& test : vCases)
    {
        const HBITMAP hBitmap = CreateCompatibleBitmap(test.hDC, test.cx, test.cy);
        BITMAP bitmap = {};
        EXPECT_EQ(GetObject(hBitmap, sizeof bitmap, &bitmap), static_cast<int>(sizeof bitmap));
        EXPECT_EQ(bitmap.bmBitsPixel, test.iBits);
        EXPECT_EQ(bitmap.bmWidthBytes, test.nRowBytes);
        EXPECT_TRUE(bitmap.bmWidth == test.cx && bitmap.bmHeight == test.cy && bitmap.bmPlanes == 1 && !bitmap.bmBits);
        EXPECT_EQ(GetBitmapBits(hBitmap, 0, nullptr), test.iBits == 32 ? 60 : 0);
        EXPECT_TRUE(DeleteObject(hBitmap));
        EXPECT_EQ(CreateCompatibleBitmap(test.hDC, 0, 9), hStock);
        EXPECT_EQ(CreateCompatibleBitmap(test.hDC, -1, 9), nullptr);
        EXPECT_EQ(CreateCompatibleBitmap(test.hDC, MOST, MOST), nullptr);
    }
    EXPECT_EQ(CreateCompatibleBitmap(nullptr, 5, 5), nullptr);
    EXPECT_EQ(GetObject(hStock, 0, nullptr), static_cast<int>(sizeof(BITMAP)));
    EXPECT_EQ(GetObject(GetStockObject(WHITE_BRUSH), 100, nullptr), 0);
    EXPECT_TRUE(DeleteDC(hMemory));
}

TEST_F(BitmapTest, BitsAreReadFromTheTop)
{
    Canvas screen(4, 4);
    const HDC hMemory = CreateCompatibleDC(screen.hDC);
    const HBITMAP hBitmap = CreateCompatibleBitmap(screen.hDC, 2, 2);
    const HGDIOBJ hOld = SelectObject(hMemory, hBitmap);
    const RECT rc = {1, 0, 2, 1};
    FillRect(hMemory, &rc, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    Picture picture(4, 0x77777777);
    EXPECT_EQ(GetBitmapBits(hBitmap, 7, picture.data()), 7);
    EXPECT_EQ(picture, (Picture{0, 0x77FFFFFF, 0x77777777, 0x77777777}));
    for (const LONG nBytes : {-1, 99})
    {
        EXPECT_EQ(GetBitmapBits(hBitmap, nBytes, picture.data()), 16);
        EXPECT_EQ(picture, (Picture{0, 0xFFFFFF, 0, 0}));
    }
    EXPECT_EQ(SelectObject(hMemory, hOld), hBitmap);
    EXPECT_TRUE(DeleteDC(hMemory) && DeleteObject(hBitmap));
    EXPECT_EQ(GetBitmapBits(hBitmap, 0, nullptr), 0);
}

TEST_F(BitmapTest, ABitmapIsSelectedOnce)
{
    Canvas screen(4, 4);
    const HDC hFirst = CreateCompatibleDC(screen.hDC);
    const HDC hSecond = CreateCompatibleDC(screen.hDC);
    const HBITMAP hBitmap = CreateCompatibleBitmap(screen.hDC, 2, 2);
    const HBITMAP hStock = winlite::StockBitmap();
    EXPECT_EQ(SelectObject(screen.hDC, hBitmap), nullptr);
    EXPECT_EQ(SelectObject(hFirst, hBitmap), hStock);
    EXPECT_EQ(SelectObject(hFirst, hBitmap), hBitmap);
    EXPECT_EQ(SelectObject(hSecond, hBitmap), nullptr);
    EXPECT_EQ(SelectObject(hSecond, hStock), hStock) << "any number may hold it";
    EXPECT_FALSE(DeleteObject(hBitmap));
    EXPECT_EQ(GetPixel(hFirst, 1, 1), 0u);
    EXPECT_EQ(GetPixel(hSecond, 1, 1), CLR_INVALID);
    EXPECT_FALSE(DeleteDC(screen.hDC));
    EXPECT_TRUE(DeleteDC(hFirst));
    EXPECT_EQ(SelectObject(hSecond, hBitmap), hStock) << "deleting its device context set it free";
    EXPECT_TRUE(DeleteDC(hSecond) && DeleteObject(hBitmap));
    EXPECT_FALSE(DeleteObject(hBitmap) || DeleteDC(hSecond));
    EXPECT_EQ(CreateCompatibleDC(hSecond), nullptr);
}

TEST_F(BitmapTest, SelectedBrushesOutliveTheirHandlesAndStockObjectsStay)
{
    const HDC hDC = CreateCompatibleDC(nullptr);
    const HBRUSH hBrush = CreateSolidBrush(RGB(1, 2, 3));
    const HGDIOBJ hWhite = GetStockObject(WHITE_BRUSH);
    EXPECT_EQ(SelectObject(hDC, hBrush), hWhite);
    const std::weak_ptr<winlite::BrushObject> pBrush = winlite::FindBrush(hBrush);
    EXPECT_TRUE(DeleteObject(hBrush));
    EXPECT_FALSE(pBrush.expired());
    EXPECT_EQ(SelectObject(hDC, hWhite), hBrush);
    EXPECT_TRUE(pBrush.expired());
    EXPECT_TRUE(DeleteObject(hWhite));
    EXPECT_EQ(SelectObject(hDC, hWhite), hWhite);
    EXPECT_EQ(SelectObject(hDC, GetStockObject(NULL_PEN)), GetStockObject(BLACK_PEN));
    EXPECT_EQ(GetStockObject(99), nullptr);
    EXPECT_EQ(CreatePatternBrush(nullptr), nullptr);
    EXPECT_TRUE(DeleteDC(hDC));
}
