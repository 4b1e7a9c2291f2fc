#include "selection/Outline.h"
#include "support/User.h"

#include <random>

namespace
{

bool IsPatternBlack(int x, int y, int iPhase) { return ((x + iPhase) % 8 < 4) == ((y + iPhase) % 8 < 4); }

class BorderTest : public CViewTest
{
protected:
    void SetUp() override
    {
        CViewTest::SetUp();
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    }

    /// The view area's pixels that show the outline, '#', and all those that show something else than without it, '!',
    /// as rows of window pixels.
    std::vector<std::string> Outline(int iPhase)
    {
        pView->Invalidate(FALSE);
        const winlite::Picture shown = Screen();
        pView->ShowSelection(FALSE);
        const winlite::Picture plain = Screen();
        pView->ShowSelection(TRUE);
        Pump();
        std::vector<std::string> vRows;
        CRect rcView;
        pView->GetClientRect(&rcView);
        for (int y = 0; y < rcView.bottom; ++y)
        {
            vRows.emplace_back();
            for (int x = 0; x < rcView.right; ++x)
            {
                const std::uint32_t uPixel = PixelOf(shown, x, y);
                const bool bPattern = uPixel == (IsPatternBlack(x, y, iPhase) ? 0 : 0xFFFFFF);
                vRows.back() += uPixel == PixelOf(plain, x, y) ? '.' : bPattern ? '#' : '!';
            }
        }
        return vRows;
    }

    /// The same of a picture of one rectangle's outline, and what is erased along the view's sides: all of a side but
    /// its last pixel.
    static std::vector<std::string> Frame(CSize szView, CRect rc, const std::string& strErased = "")
    {
        std::vector<std::string> vRows(static_cast<std::size_t>(szView.cy), std::string(szView.cx, '.'));
        for (int y = 0; y < szView.cy; ++y)
        {
            for (int x = 0; x < szView.cx; ++x)
            {
                const bool bEdge = x == rc.left || x == rc.right - 1 || y == rc.top || y == rc.bottom - 1;
                const bool bErased =
                    (strErased.find('l') != std::string::npos && x == 0 && y < szView.cy - 1) ||
                    (strErased.find('t') != std::string::npos && y == 0 && x < szView.cx - 1) ||
                    (strErased.find('r') != std::string::npos && x == szView.cx - 1 && y < szView.cy - 1) ||
                    (strErased.find('b') != std::string::npos && y == szView.cy - 1 && x < szView.cx - 1);
                if (rc.PtInRect(CPoint(x, y)) && bEdge && !bErased)
                    vRows[y][x] = '#';
            }
        }
        return vRows;
    }

    // Grey, which is no colour of the pattern.
    CTestBitmap bitmap = []
    {
        CTestBitmap grey(100, 80);
        std::ranges::fill(grey.vBits, BYTE{90});
        return grey;
    }();
};

TEST_F(BorderTest, TheOutlineCrawlsOnTimerTicksThatDraw)
{
    Select({20, 20, 60, 40});
    CUser user(*pView);
    const CRect rcFrame(120, 80, 160, 100);
    for (int iTick = 0; iTick < 6; ++iTick)
    {
        user.Wait(250);
        const std::uint32_t uPixel = PixelOf(Screen(), 120, 81);
        EXPECT_EQ(uPixel, IsPatternBlack(120, 81, iTick % 4) ? 0U : 0xFFFFFFU) << iTick;
    }
    EXPECT_EQ(Outline(2), Frame({300, 200}, rcFrame)) << "a paint shows the phase that comes next";
    CRgn rgnNone;
    pView->UpdateSelection(rgnNone, {});
    user.Wait(500);
    Select({20, 20, 60, 40});
    EXPECT_EQ(Outline(2), Frame({300, 200}, rcFrame)) << "without a selection the phase stands still";
    pHost->ShowWindow(SW_MINIMIZE);
    user.Wait(500);
    pHost->ShowWindow(SW_RESTORE);
    EXPECT_EQ(Outline(2), Frame({300, 200}, rcFrame)) << "and minimised";
}

TEST_F(BorderTest, WhereTheSelectionRunsOnThereIsNoBorder)
{
    pView->SetZoom(8);
    Select({0, 0, 100, 80});
    const CSize szView(300 - BAR, 200 - BAR);
    const struct
    {
        int x, y;
        const char* pszErased;
    } vCases[] = {{0, 0, "rb"}, {0, 640 - szView.cy, "rt"}, {100, 100, "lrtb"}, {800 - szView.cx, 0, "lb"}};
    for (const auto& c : vCases)
    {
        pView->SetDispPosition(c.x, c.y);
        EXPECT_EQ(Outline(0), Frame(szView, {0, 0, szView.cx, szView.cy}, c.pszErased)) << c.x << ", " << c.y;
    }
    pView->SetDispPosition(0, 0);
    Select({-50, 10, 20, 500});
    CRect rcBox;
    pView->rgnSelectScaled().GetRgnBox(&rcBox);
    EXPECT_EQ(rcBox, CRect(0, 80, 160, 640)) << "what lies outside the image is cut off";
}

TEST_F(BorderTest, AnImageThatShrankUnseenHasNoBorderBesideIt)
{
    pView->SetZoom(2);
    Select({5, 5, 95, 75});
    pHost->ShowWindow(SW_MINIMIZE);
    pView->SetZoom(0.5); // nothing is laid out now
    pHost->ShowWindow(SW_RESTORE);
    const std::vector<std::string> vRows = Outline(0);
    const Gdiplus::Point ptPos = pView->ptDispPos();
    const CRect rcImage(CPoint(-ptPos.X, -ptPos.Y), CSize(50, 40));
    for (int y = 0; y < static_cast<int>(vRows.size()); ++y)
    {
        for (int x = 0; x < static_cast<int>(vRows[y].size()); ++x)
            ASSERT_TRUE(vRows[y][x] == '.' || rcImage.PtInRect(CPoint(x, y))) << x << ", " << y;
    }
}

TEST_F(BorderTest, AnOutlineOfVeryManyRunsIsDrawnLikeOthers)
{
    constexpr int CX = 700, CY = 500;
    Open(CX, CY);
    CTestBitmap grey(CX, CY);
    std::ranges::fill(grey.vBits, BYTE{90});
    pView->SetBitmap(grey.info, grey.vBits.data());
    std::mt19937 random(5);
    std::vector<BYTE> vMask(CX * CY);
    std::vector<RECT> vPixels;
    for (int i = 0; i < CX * CY; ++i)
    {
        if (random() % 2)
        {
            vMask[static_cast<std::size_t>(i)] = 255;
            vPixels.push_back({i % CX, i / CX, i % CX + 1, i / CX + 1});
        }
    }
    CRgn rgn;
    Pixtane::CPixtane::CreateRgnFromMask(rgn, vMask, CX, CY);
    pView->UpdateSelection(rgn, vMask);
    rgn.DeleteObject();
    std::vector<std::string> vWanted(CY, std::string(CX, '.'));
    for (const RECT& rc : Pixtane::OutlineRuns(vPixels, CX, CY))
        std::fill(vWanted[rc.top].begin() + rc.left, vWanted[rc.top].begin() + rc.right, '#');
    EXPECT_EQ(Outline(0), vWanted);
    pView->ClearBitmap(FALSE);
}

} // namespace
