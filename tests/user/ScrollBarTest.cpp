#include "Recorder.h"
#include "user/ScrollBarLayout.h"

#include <climits>

using winlite::ScrollBarLayout;
using winlite::ScrollBarPart;
using winlite::ScrollInfo;

namespace
{

SCROLLINFO Info(int nMin, int nMax, UINT nPage, int nPos, UINT uMask = SIF_ALL)
{
    return {sizeof(SCROLLINFO), uMask, nMin, nMax, nPage, nPos, 0};
}

ScrollInfo Values(int nMin, int nMax, UINT nPage, int nPos)
{
    ScrollInfo info;
    info.Set(Info(nMin, nMax, nPage, nPos));
    return info;
}

class ScrollBarTest : public UserTest
{
protected:
    HWND MakeBar(DWORD dwStyle, const RECT& rc)
    {
        return ::CreateWindowEx(0, L"SCROLLBAR", nullptr, dwStyle | WS_CHILD | WS_VISIBLE, rc.left, rc.top, rc.right,
                                rc.bottom, hTop, nullptr, nullptr, nullptr);
    }
    void SetUp() override
    {
        UserTest::SetUp();
        ::MoveWindow(hTop, 0, 0, 120, 120, TRUE);
        desktop.DispatchPending();
    }
};

} // namespace

TEST(ScrollInfoTest, ValuesAreLimitedToEachOther)
{
    const struct
    {
        SCROLLINFO set;
        SCROLLINFO stored;
    } vCases[] = {
        {Info(0, 0, 1, 1), Info(0, 0, 1, 0)},
        {Info(5, 10, 0, 0), Info(5, 10, 0, 5)},
        {Info(5, 10, 0xFFFFFFFF, 0), Info(5, 10, 6, 5)},
        {Info(5, 10, 0, INT_MAX), Info(5, 10, 0, 10)},
        {Info(5, 10, 3, 11), Info(5, 10, 3, 8)},
        {Info(7, 5, 0, 0), Info(7, 7, 0, 7)},
        {Info(5, 10, 1, 10), Info(5, 10, 1, 10)},
        {Info(0, 100, 300, 50), Info(0, 100, 101, 0)},
        {Info(INT_MIN, INT_MAX, 0xFFFFFFFF, INT_MAX), Info(INT_MIN, INT_MAX, 0xFFFFFFFF, INT_MIN + 1)},
    };
    for (const auto& test : vCases)
    {
        ScrollInfo info;
        EXPECT_EQ(info.Set(test.set), test.stored.nPos);
        SCROLLINFO read = Info(77, 77, 77, 77);
        info.Get(read);
        EXPECT_EQ(std::tie(read.nMin, read.nMax, read.nPage, read.nPos, read.nTrackPos),
                  std::tie(test.stored.nMin, test.stored.nMax, test.stored.nPage, test.stored.nPos, test.stored.nPos))
            << test.set.nMin << ".." << test.set.nMax << ", " << test.set.nPage << ", " << test.set.nPos;
    }
}

TEST(ScrollInfoTest, OnlyWhatTheMaskNamesIsSetOrRead)
{
    ScrollInfo info = Values(0, 100, 11, 40);
    EXPECT_EQ(info.Set(Info(7, 7, 7, 60, SIF_POS)), 60);
    EXPECT_EQ(info.Set(Info(7, 7, 61, 7, SIF_PAGE)), 40);
    EXPECT_EQ(info.Set(Info(0, 70, 7, 7, SIF_RANGE | SIF_TRACKPOS)), 10);
    SCROLLINFO read = Info(-3, -3, 3, -3, SIF_PAGE);
    info.Get(read);
    EXPECT_EQ(std::tuple(read.nMin, read.nMax, read.nPage, read.nPos), std::tuple(-3, -3, 61u, -3));
    info.SetTrackPosition(5);
    read.fMask = SIF_ALL;
    info.Get(read);
    EXPECT_EQ(std::tuple(read.nPos, read.nTrackPos), std::tuple(10, 5));
}

TEST(ScrollBarLayoutTest, TheThumbShowsPageAndPosition)
{
    const struct
    {
        const char* pszWhat;
        SIZE szBar;
        ScrollInfo info;
        RECT rcArrowMore;
        RECT rcThumb; ///< Empty: none.
    } vCases[] = {
        {"a quarter at the end", {134, 17}, Values(0, 99, 25, 75), {117, 0, 134, 17}, {92, 0, 117, 17}},
        {"twice the thickness", {268, 34}, Values(0, 99, 25, 75), {234, 0, 268, 34}, {184, 0, 234, 34}},
        {"without a page", {134, 17}, Values(0, 10, 0, 5), {117, 0, 134, 17}, {59, 0, 76, 17}},
        {"a tiny page", {134, 17}, Values(0, 100000, 1, 0), {117, 0, 134, 17}, {17, 0, 25, 17}},
        {"the whole range", {134, 17}, Values(0, 99, 100, 0), {117, 0, 134, 17}, {}},
        {"no room for a thumb", {41, 17}, Values(0, 99, 25, 0), {24, 0, 41, 17}, {}},
        {"arrows that share the bar", {21, 17}, Values(0, 99, 25, 0), {11, 0, 21, 17}, {}},
        {"nothing", {0, 0}, Values(0, 99, 25, 0), {}, {}},
        {"all numbers", {134, 17}, Values(INT_MIN, INT_MAX, 1u << 31, 9), {117, 0, 134, 17}, {67, 0, 117, 17}},
    };
    const auto turned = [](const RECT& rc) { return RECT{rc.top, rc.left, rc.bottom, rc.right}; };
    for (const auto& test : vCases)
    {
        SCOPED_TRACE(test.pszWhat);
        const ScrollBarLayout horizontal(test.szBar, false, test.info);
        EXPECT_EQ(horizontal.ArrowMore(), test.rcArrowMore);
        EXPECT_EQ(horizontal.Thumb().value_or(RECT{}), test.rcThumb);
        const ScrollBarLayout vertical({test.szBar.cy, test.szBar.cx}, true, test.info);
        EXPECT_EQ(vertical.ArrowMore(), turned(test.rcArrowMore));
        EXPECT_EQ(vertical.Thumb().value_or(RECT{}), turned(test.rcThumb));
    }
}

TEST_F(ScrollBarTest, AlignedBarsTakeTheStandardThicknessAlongTheirEdge)
{
    {
        const winlite::HeadlessDesktop desktopLarge({1920, 1080}, 1.5);
        EXPECT_EQ(::GetSystemMetrics(SM_CXVSCROLL), 26);
    }
    winlite::SetDesktop(&desktop);
    EXPECT_EQ(::GetSystemMetrics(SM_CYHSCROLL), 17);
    const struct
    {
        DWORD dwStyle;
        RECT rcGiven; ///< Left, top, width, height.
        RECT rcBar;
    } vCases[] = {
        {SBS_HORZ | SBS_BOTTOMALIGN, {10, 20, 90, 60}, {10, 63, 100, 80}},
        {SBS_VERT | SBS_RIGHTALIGN, {10, 20, 90, 60}, {83, 20, 100, 80}},
        {SBS_HORZ, {10, 20, 90, 60}, {10, 20, 100, 80}},
    };
    for (const auto& test : vCases)
    {
        const HWND hBar = MakeBar(test.dwStyle, test.rcGiven);
        RECT rcBar;
        ::GetWindowRect(hBar, &rcBar);
        EXPECT_EQ(rcBar, test.rcBar);
        ::DestroyWindow(hBar);
    }
}

TEST_F(ScrollBarTest, OnlyAVisibleChangeRepaints)
{
    const HWND hBar = MakeBar(SBS_HORZ, {0, 0, 100, 17});
    const struct
    {
        const char* pszWhat;
        SCROLLINFO info;
        BOOL bRedraw;
        bool bRepaints;
    } vSteps[] = {
        {"room to scroll", Info(0, 1000, 500, 0), TRUE, true},
        {"less than a pixel", Info(0, 1000, 500, 1), TRUE, false},
        {"a move without redrawing", Info(0, 1000, 500, 300), FALSE, false},
        {"the same, now drawn", Info(0, 1000, 500, 300), TRUE, true},
        {"no room", Info(0, 1000, 1001, 0), TRUE, true},
        {"disabled", Info(0, 1000, 1001, 0, SIF_ALL | SIF_DISABLENOSCROLL), TRUE, true},
        {"still disabled", Info(0, 1000, 2000, 0, SIF_ALL), TRUE, false},
    };
    for (const auto& step : vSteps)
    {
        desktop.DispatchPending();
        EXPECT_EQ(::SetScrollInfo(hBar, SB_CTL, &step.info, step.bRedraw), step.info.nPos);
        EXPECT_EQ(::GetUpdateRect(hBar, nullptr, FALSE), step.bRepaints) << step.pszWhat;
    }
    SCROLLINFO read = Info(0, 0, 0, 0);
    EXPECT_TRUE(::GetScrollInfo(hBar, SB_CTL, &read));
    EXPECT_EQ(read.nPage, 1001u);
    EXPECT_EQ(::SetScrollInfo(hBar, 0, &read, TRUE), 0);
    EXPECT_FALSE(::GetScrollInfo(hBar, 0, &read));
}

TEST_F(ScrollBarTest, ThePictureShowsThumbAndCentredArrows)
{
    for (const int nThickness : {17, 34})
    {
        const HWND hBar = MakeBar(SBS_VERT, {0, 0, nThickness, 120});
        const SCROLLINFO info = Info(0, 99, 50, 0);
        ::SetScrollInfo(hBar, SB_CTL, &info, TRUE);
        desktop.DispatchPending();
        const winlite::Picture picture = winlite::WindowPicture(hTop);
        const auto pixelAt = [&](int x, int y) { return picture.vPixels[static_cast<std::size_t>(y * 120 + x)]; };
        const std::uint32_t uTrack = pixelAt(0, 0);
        const int xMiddle = nThickness / 2;
        EXPECT_NE(pixelAt(xMiddle, nThickness), uTrack);
        EXPECT_EQ(pixelAt(xMiddle, nThickness), pixelAt(xMiddle, 59));
        EXPECT_EQ(pixelAt(xMiddle, 60), uTrack) << "the thumb ends in the middle";

        int nArrow = 0;
        for (int i = 0; i < nThickness * nThickness; ++i)
        {
            const int x = i % nThickness;
            const int y = i / nThickness;
            nArrow += pixelAt(x, y) != uTrack;
            EXPECT_EQ(pixelAt(x, y), pixelAt(nThickness - 1 - x, y)) << x << ", " << y;
            EXPECT_EQ(pixelAt(x, y), pixelAt(x, 119 - y)) << x << ", " << y;
        }
        EXPECT_EQ(nArrow, nThickness == 17 ? 25 : 110);
        ::DestroyWindow(hBar);
    }
}
