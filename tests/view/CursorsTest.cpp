#include "gdi/Handles.h"
#include "support/TestView.h"
#include "user/Cursor.h"

#include <algorithm>

namespace
{

/// A cursor of the library by its number; null when it does not load.
std::shared_ptr<winlite::CursorObject> Cursor(UINT uId)
{
    const LPCWSTR pszId = MAKEINTRESOURCE(uId);
    return winlite::FindTyped<winlite::CursorObject>(
        ::LoadCursor(AfxFindResourceHandle(pszId, RT_GROUP_CURSOR), pszId));
}

/// The pixels at the right edge of an arrow cursor, where its mark is.
std::vector<std::uint32_t> MarkOf(UINT uId)
{
    constexpr int MARK_LEFT = 24;
    const auto pCursor = Cursor(uId);
    std::vector<std::uint32_t> vMark;
    for (int i = 0; pCursor && i < pCursor->cx * pCursor->cy; ++i)
    {
        if (i % pCursor->cx >= MARK_LEFT)
            vMark.push_back(pCursor->vPixels[i]);
    }
    return vMark;
}

} // namespace

TEST(CursorsTest, EachIsThereWithItsHotSpot)
{
    const struct
    {
        UINT uFirst, uLast;
        CPoint ptHotSpot;
    } vCases[] = {
        {3004, 3004, {9, 22}}, {3006, 3006, {15, 15}}, {3031, 3032, {12, 12}}, {3033, 3033, {0, 15}},
        {3005, 3005, {7, 7}},  {3007, 3014, {0, 0}},   {3015, 3018, {3, 3}},   {3019, 3027, {0, 0}},
        {3028, 3029, {8, 6}},  {3030, 3030, {0, 0}},   {3034, 3034, {7, 3}},   {3035, 3035, {3, 7}},
        {3036, 3037, {7, 7}},
    };
    std::vector<std::vector<std::uint32_t>> vPictures;
    for (const auto& [uFirst, uLast, ptHotSpot] : vCases)
    {
        for (UINT uId = uFirst; uId <= uLast; ++uId)
        {
            SCOPED_TRACE(uId);
            const auto pCursor = Cursor(uId);
            ASSERT_TRUE(pCursor);
            EXPECT_EQ(CPoint(pCursor->ptHotSpot), ptHotSpot);
            EXPECT_EQ(CSize(pCursor->cx, pCursor->cy), CSize(32, 32));
            EXPECT_EQ(std::ranges::count(vPictures, pCursor->vPixels), 0) << "like an earlier one";
            vPictures.push_back(pCursor->vPixels);
        }
    }
}

TEST(CursorsTest, TheMarkTellsTheRule)
{
    constexpr UINT ADD = 3027, SUBTRACT = 3026, INTERSECT = 3025;
    const auto isInk = [](std::uint32_t uPixel) { return uPixel >> 24 > 200 && (uPixel & 0xFF) < 64; };
    EXPECT_LT(std::ranges::count_if(MarkOf(SUBTRACT), isInk), std::ranges::count_if(MarkOf(ADD), isInk))
        << "a plus has the minus and more";
    // Of three shapes, each from the plain cursor on; the wand's marks are elsewhere.
    for (const UINT uNew : {3011u, 3019u, 3007u})
    {
        EXPECT_EQ(MarkOf(uNew + 3), MarkOf(ADD)) << uNew;
        EXPECT_EQ(MarkOf(uNew + 2), MarkOf(SUBTRACT)) << uNew;
        EXPECT_EQ(MarkOf(uNew + 1), MarkOf(INTERSECT)) << uNew;
    }
}
