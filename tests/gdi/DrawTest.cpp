#include "Canvas.h"

#include <functional>

using winlite::Region;

namespace
{

constexpr COLORREF PEN = RGB(0xC0, 0, 0);
constexpr COLORREF BRUSH = RGB(0, 0xC0, 0);
constexpr COLORREF BACKGROUND = RGB(0, 0, 0xC0);

/// A canvas with a pen and a brush of its own.
class Easel : public Canvas
{
public:
    explicit Easel(int cx, int cy, int iPenStyle = PS_SOLID, int iWidth = 1, POINT ptOrigin = {})
        : Canvas(cx, cy, ptOrigin), m_hPen(CreatePen(iPenStyle, iWidth, PEN)), m_hBrush(CreateSolidBrush(BRUSH))
    {
        SelectObject(hDC, m_hPen);
        SelectObject(hDC, GetStockObject(NULL_BRUSH));
        SetBkColor(hDC, BACKGROUND);
    }
    ~Easel() { EXPECT_TRUE(DeleteObject(m_hPen) && DeleteObject(m_hBrush)); }

    void UseBrush() { SelectObject(hDC, m_hBrush); }

private:
    HPEN m_hPen;
    HBRUSH m_hBrush;
};

/// A figure by chance, drawn anywhere around a canvas of 24 x 24, or far beyond it.
std::function<void(HDC)> FigureByChance(Dice& dice)
{
    const int iReach = dice.Roll(0, 3) == 0 ? 300'000'000 : 40;
    const auto Point = [&dice, iReach] { return POINT{dice.Roll(-iReach, iReach), dice.Roll(-iReach, iReach)}; };
    const POINT pt[] = {Point(), Point(), Point()};
    const int iFigure = dice.Roll(0, 3);
    return [=](HDC hDC)
    {
        EXPECT_TRUE(MoveToEx(hDC, pt[0].x, pt[0].y, nullptr));
        EXPECT_TRUE(iFigure != 0 || (LineTo(hDC, pt[1].x, pt[1].y) && LineTo(hDC, pt[2].x, pt[2].y)));
        EXPECT_TRUE(iFigure != 1 || Polyline(hDC, pt, 3));
        EXPECT_TRUE(iFigure != 2 || Rectangle(hDC, pt[0].x, pt[0].y, pt[1].x, pt[1].y));
        EXPECT_TRUE(iFigure != 3 || Ellipse(hDC, pt[0].x, pt[0].y, pt[1].x, pt[1].y));
    };
}

using DrawTest = HandleTest;

} // namespace

TEST_F(DrawTest, LinesTakeTheNearestPixelsAndLeaveTheLastOut)
{
    for (int dx = -6; dx <= 6; ++dx)
        for (int dy = -6; dy <= 6; ++dy)
        {
            const int nSteps = std::max(std::abs(dx), std::abs(dy));
            Picture expected(13 * 13);
            for (int i = 0; i < nSteps; ++i)
            {
                // Halves go left and up; 100 more keep the dividend positive.
                const auto At = [&](int d) { return (2 * i * d + 201 * nSteps - 1) / (2 * nSteps) - 94; };
                expected[static_cast<std::size_t>(13 * At(dy) + At(dx))] = 0xC00000;
            }
            Easel easel(13, 13);
            POINT ptOld = {7, 7};
            MoveToEx(easel.hDC, 6, 6, &ptOld);
            EXPECT_TRUE(ptOld.x == 0 && ptOld.y == 0);
            LineTo(easel.hDC, 6 + dx, 6 + dy);
            EXPECT_EQ(easel.Pixels(), expected) << dx << ',' << dy;
            MoveToEx(easel.hDC, 0, 0, &ptOld);
            EXPECT_TRUE(ptOld.x == 6 + dx && ptOld.y == 6 + dy);
        }
}

TEST_F(DrawTest, RasterOperationsCombineAllBits)
{
    constexpr std::uint32_t D = 0xA5123456;
    constexpr std::uint32_t P = 0x00C00000;
    const std::uint32_t vResults[] = {0,     ~(D | P), D & ~P, ~P,     P & ~D, ~D,     D ^ P, ~(D & P),
                                      D & P, ~(D ^ P), D,      D | ~P, P,      P | ~D, D | P, ~0u};
    Easel easel(2, 1);
    EXPECT_EQ(GetROP2(easel.hDC), R2_COPYPEN);
    EXPECT_EQ(SetROP2(easel.hDC, 0) + SetROP2(easel.hDC, 17), 0);
    for (int iRop2 = R2_BLACK; iRop2 <= R2_WHITE; ++iRop2)
    {
        SetROP2(easel.hDC, iRop2);
        EXPECT_EQ(GetROP2(easel.hDC), iRop2);
        easel.pSurface->Fill({0, 0, 2, 1}, D);
        MoveToEx(easel.hDC, 0, 0, nullptr);
        LineTo(easel.hDC, 1, 0);
        EXPECT_EQ(easel.Pixels(), Picture({vResults[iRop2 - 1], D})) << iRop2;
    }
}

TEST_F(DrawTest, DashesRunOnUntilTheNextMove)
{
    const struct
    {
        int iStyle, iBkMode, iWidth;
        const char* pszRow;
    } vCases[] = {
        {PS_DASH, OPAQUE, 1, "##################oooooo##..##################oo"},
        {PS_DOT, TRANSPARENT, 0, "###...###...###...###...##..###...###...###...##"},
        {PS_DASHDOT, OPAQUE, 1, "#########oooooo###oooooo##..#########oooooo###oo"},
        {PS_DASHDOTDOT, OPAQUE, 1, "#########ooo###ooo###ooo##..#########ooo###ooo##"},
        {PS_NULL, OPAQUE, 1, "................................................"},
    };
    for (const auto& test : vCases)
    {
        Easel easel(48, 1, test.iStyle, test.iWidth);
        EXPECT_EQ(SetBkMode(easel.hDC, test.iBkMode), OPAQUE);
        for (int x : {0, 5, 20, 26})
            LineTo(easel.hDC, x, 0);
        MoveToEx(easel.hDC, 28, 0, nullptr);
        LineTo(easel.hDC, 48, 0);
        EXPECT_EQ(TextOf(easel), Rows{test.pszRow}) << test.iStyle;
    }
    EXPECT_EQ(CreatePen(6, 1, 0), nullptr);
}

TEST_F(DrawTest, RectanglesAreOutlinedOnceAndFilledWithin)
{
    Dice dice;
    for (int iRound = 0; iRound < 600; ++iRound)
    {
        const int iWidth = dice.Roll(0, 3); // 0: no pen
        const RECT rc = dice.Rect(-3, 10, 10);
        Easel easel(12, 12, iWidth ? PS_SOLID : PS_NULL, iWidth);
        easel.UseBrush();
        SetROP2(easel.hDC, R2_XORPEN); // XOR on black shows what is drawn twice.
        EXPECT_TRUE(iRound % 2 ? Rectangle(easel.hDC, rc.left, rc.bottom, rc.right, rc.top)
                               : Rectangle(easel.hDC, rc.right, rc.top, rc.left, rc.bottom));
        const int nBefore = iWidth ? iWidth / 2 : 0;
        const int nAfter = iWidth ? (iWidth - 1) / 2 : -1;
        const bool bDrawn = (rc.right - rc.left) * (rc.bottom - rc.top) > 1;
        const Region rgnOuter(RECT{rc.left - nBefore, rc.top - nBefore, rc.right + nAfter, rc.bottom + nAfter});
        const Region rgnInner(
            RECT{rc.left + nAfter + 1, rc.top + nAfter + 1, rc.right - nBefore - 1, rc.bottom - nBefore - 1});
        Picture expected(12 * 12);
        for (int i = 0; bDrawn && i < 12 * 12; ++i)
            expected[static_cast<std::size_t>(i)] = rgnInner.Contains({i % 12, i / 12})   ? 0x00C000
                                                    : rgnOuter.Contains({i % 12, i / 12}) ? 0xC00000
                                                                                          : 0;
        ASSERT_EQ(easel.Pixels(), expected) << iRound << ": " << iWidth << ", " << testing::PrintToString(rc);
    }
    Easel easel(10, 10, PS_DASH);
    Rectangle(easel.hDC, 0, 0, 10, 10);
    EXPECT_EQ(TextOf(easel).front(), "##########");
    EXPECT_EQ(TextOf(easel).back(), "oooooo####");
    EXPECT_EQ(TextOf(easel)[5], "#........#");
    EXPECT_EQ(easel.vDamage.size(), 4u);
}

TEST_F(DrawTest, EllipsesAreMidpointEllipses)
{
    const struct
    {
        RECT rc;
        Rows vRows;
    } vCases[] = {
        {{0, 0, 1, 1}, {"."}},
        {{0, 0, 2, 2}, {"##", "##"}},
        {{4, 4, 0, 0}, {".##.", "#++#", "#++#", ".##."}},
        {{0, 0, 9, 6}, {"..#####..", ".#+++++#.", "#+++++++#", "#+++++++#", ".#+++++#.", "..#####.."}},
        {{0, 0, 9, 9},
         {"...###...", "..#+++#..", ".#+++++#.", "#+++++++#", "#+++++++#", "#+++++++#", ".#+++++#.", "..#+++#..",
          "...###..."}},
        {{0, 0, 12, 2}, {"############", "############"}},
        {{1, 0, 2, 3}, {".#.", ".#.", ".#."}},
    };
    for (const auto& test : vCases)
    {
        Easel easel(static_cast<int>(test.vRows[0].size()), static_cast<int>(test.vRows.size()));
        easel.UseBrush();
        SetROP2(easel.hDC, R2_XORPEN);
        EXPECT_TRUE(Ellipse(easel.hDC, test.rc.left, test.rc.top, test.rc.right, test.rc.bottom));
        EXPECT_EQ(TextOf(easel), test.vRows);
    }
    Easel easel(12, 12, PS_DOT);
    Ellipse(easel.hDC, 0, 0, 12, 12); // Dashes begin at the right, just above the middle, and turn up.
    EXPECT_EQ(TextOf(easel),
              (Rows{"....o###....", "..oo....oo..", ".#........o.", ".#........#.", "#..........#", "o..........#",
                    "o..........#", "o..........#", ".#........o.", ".#........o.", "..#o....#o..", "....oo##...."}));
}

TEST_F(DrawTest, ClippingChangesNeitherPixelsNorDashesAndAllWrittenIsDamage)
{
    Dice dice;
    for (int iRound = 0; iRound < 600; ++iRound)
    {
        const int iStyle = dice.Roll(PS_SOLID, PS_NULL);
        const int iWidth = dice.Roll(1, 3);
        const POINT ptOrigin = {dice.Roll(-3, 3), dice.Roll(-3, 3)};
        Easel easel(24, 24, iStyle, iWidth, ptOrigin);
        Easel easelWhole(24, 24, iStyle, iWidth, ptOrigin);
        const Region rgnClip = dice.Region(20);
        easel.pDC->SetClip(rgnClip);
        const auto figure = FigureByChance(dice);
        for (Easel* pEasel : {&easel, &easelWhole})
        {
            SetROP2(pEasel->hDC, R2_XORPEN);
            pEasel->UseBrush();
            figure(pEasel->hDC);
        }
        const Region rgnDamage = Region::FromRects(easel.vDamage);
        Picture expected = easelWhole.Pixels();
        for (int i = 0; i < 24 * 24; ++i)
        {
            const POINT pt = {i % 24, i / 24};
            auto& uPixel = expected[static_cast<std::size_t>(i)];
            uPixel = rgnClip.Contains({pt.x - ptOrigin.x, pt.y - ptOrigin.y}) ? uPixel : 0;
            ASSERT_TRUE(uPixel == 0 || rgnDamage.Contains(pt)) << iRound << ": " << i;
        }
        ASSERT_EQ(easel.Pixels(), expected) << iRound;
        figure(easel.hDC);
        ASSERT_EQ(easel.Pixels(), Picture(24 * 24)) << iRound << ": twice must restore";
    }
}
