#include "selection/RegionSelector.h"
#include "support/ToolTest.h"

#include <algorithm>
#include <cstdlib>
#include <random>

using Pixtane::EmbeddedTool::RegionSelector;

namespace
{

/// The selector with what only derived tools may call.
class COpenSelector : public RegionSelector
{
public:
    using RegionSelector::CreateMagicWandMask;
};

class ColourSelectionTest : public CToolTest<COpenSelector>
{
protected:
    ColourSelectionTest() : CToolTest(1, 1) {}
    /// The number of errors that were logged; forgets them.
    std::ptrdiff_t Errors()
    {
        return std::ranges::count(std::exchange(records.vRecords, {}), QL_ERROR, &QLRecord::level);
    }

    void Show(CTestBitmap shown)
    {
        pView->ClearBitmap(FALSE);
        bitmap = std::move(shown);
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        strLog.clear();
    }

    /// The largest difference of a channel between two pixels' colours.
    static int Distance(std::uint32_t u1, std::uint32_t u2)
    {
        int iMost = 0;
        for (const int iShift : {0, 8, 16})
            iMost =
                std::max(iMost, std::abs(static_cast<int>(u1 >> iShift & 255) - static_cast<int>(u2 >> iShift & 255)));
        return iMost;
    }
};

TEST_F(ColourSelectionTest, TheWandMatchesAFillPixelByPixel)
{
    std::mt19937 random(9);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int i = 0; i < 400; ++i)
    {
        // Most are narrow; some go on over several words of 64 pixels, with long runs.
        const bool bWide = i % 8 == 0;
        const int cx = bWide ? 60 + below(150) : 1 + below(9), cy = 1 + below(9);
        const int iRare = bWide ? 20 + below(60) : 1;
        CTestBitmap rolled(cx, cy, i % 2 ? 24 : 32);
        for (int y = 0; y < cy; ++y)
        {
            for (int x = 0; x < cx; ++x)
                rolled.Set(x, y,
                           below(iRare)
                               ? 0
                               : static_cast<std::uint32_t>(below(3) * 0x400000 + below(2) * 0x3000 + below(2) * 0xFF));
        }
        Show(std::move(rolled));
        const CPoint ptSeed(below(cx), below(cy));
        const int iTolerance = std::vector{0, 1, 47, 48, 64, 128, 254, 255}[static_cast<std::size_t>(below(8))];
        std::vector<BYTE> vWanted(static_cast<std::size_t>(cx) * cy);
        std::vector<CPoint> vPending = {ptSeed};
        CRect rcWanted(ptSeed.x, ptSeed.y, ptSeed.x, ptSeed.y);
        while (!vPending.empty())
        {
            const CPoint pt = vPending.back();
            vPending.pop_back();
            if (!CRect(0, 0, cx, cy).PtInRect(pt) || vWanted[static_cast<std::size_t>(pt.y * cx + pt.x)] ||
                Distance(bitmap.At(pt.x, pt.y), bitmap.At(ptSeed.x, ptSeed.y)) > iTolerance)
                continue;
            vWanted[static_cast<std::size_t>(pt.y * cx + pt.x)] = 255;
            rcWanted = CRect(std::min(rcWanted.left, pt.x), std::min(rcWanted.top, pt.y),
                             std::max(rcWanted.right, pt.x + 1), std::max(rcWanted.bottom, pt.y + 1));
            for (const CPoint ptStep : {CPoint(0, -1), CPoint(1, 0), CPoint(0, 1), CPoint(-1, 0)})
                vPending.push_back(pt + ptStep);
        }
        std::vector<BYTE> vMask(7);
        CRect rcBounds;
        ASSERT_TRUE(tool.CreateMagicWandMask(vMask, At(ptSeed.x, ptSeed.y), static_cast<BYTE>(iTolerance), &rcBounds));
        ASSERT_EQ(vMask, vWanted) << cx << " x " << cy << " tolerance " << iTolerance;
        ASSERT_EQ(rcBounds, rcWanted);
    }
    std::vector<BYTE> vMask(7);
    EXPECT_FALSE(tool.CreateMagicWandMask(vMask, {0, 0}, 255, nullptr)) << "beside the picture";
    EXPECT_EQ(vMask.size(), 7U);
    for (const int iBits : {16, 64})
    {
        Show(CTestBitmap(5, 5, iBits));
        EXPECT_FALSE(tool.CreateMagicWandMask(vMask, At(2, 2), 255, nullptr));
    }
}

TEST_F(ColourSelectionTest, AClickOfTheWandIsAShapeLikeAnyOther)
{
    CTestBitmap grades(60, 30);
    for (int y = 0; y < 30; ++y)
    {
        for (int x = 0; x < 60; ++x)
            grades.Set(x, y, static_cast<std::uint32_t>(x) * 0x010101);
    }
    Show(std::move(grades));
    tool.SetSelectMode(RegionSelector::SM_MAGICWAND);
    tool.SetTorlerance(10);
    user->Click(At(30, 15));
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "20,0,41,30 ") << "compared with the pixel that was clicked";
    EXPECT_NE(TakeLog().find("SELECT_NEW"), std::string::npos);
    tool.SetSelectOverlapMode(RegionSelector::OM_ADD);
    tool.SetFeatherRadius(2);
    user->Click(At(55, 5));
    EXPECT_EQ(Box(), CRect(20, 0, 60, 30));
    EXPECT_EQ(Mask().vRows[5].substr(42, 5), ".++++") << "with a soft edge";
    EXPECT_NE(TakeLog().find("SELECT_ADD"), std::string::npos);
    Show(CTestBitmap::Numbered(60, 30));
    tool.SelectAll();
    const std::vector<BYTE> vBefore(60 * 30, 255);
    tool.SetSelectOverlapMode(RegionSelector::OM_SUBTRACT);
    tool.SetTorlerance(0);
    tool.SetFeatherRadius(200);
    Errors();
    user->Wait(600); // no double click
    user->Click(At(10, 10));
    EXPECT_EQ(Errors(), 1) << "so soft that nothing is left of one pixel";
    EXPECT_EQ(pView->vSelectMask(), vBefore);
    user->Click({2, 2}); // beside the picture
    EXPECT_EQ(pView->vSelectMask(), vBefore);
}

TEST_F(ColourSelectionTest, ColourRangesAllAndInverse)
{
    CTestBitmap stripes(6, 2);
    for (int x = 0; x < 6; ++x)
    {
        for (int y = 0; y < 2; ++y)
            stripes.Set(x, y, x % 2 ? 0x102030 : 0xA0B0C0);
    }
    Show(std::move(stripes));
    tool.SelectColorRange(RGB(0x10, 0x20, 0x30), 0);
    EXPECT_EQ(Mask(), (CMaskPicture{{".#.#.#", ".#.#.#"}}));
    tool.InverseSelect();
    EXPECT_EQ(Mask(), (CMaskPicture{{"#.#.#.", "#.#.#."}}));
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "0,0,1,2 2,0,3,2 4,0,5,2 ");
    tool.InverseSelect();
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "1,0,2,2 3,0,4,2 5,0,6,2 ");
    CRgn rgn;
    rgn.CreateRectRgn(0, 0, 4, 1);
    std::vector<BYTE> vHalf = CMaskPicture{{"####..", "......"}}.Mask();
    vHalf[1] = 100;
    pView->UpdateSelection(rgn, vHalf);
    rgn.DeleteObject();
    TakeLog();
    tool.SelectColorRange(RGB(0x10, 0x20, 0x30), 5);
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "1,0,2,1 3,0,4,1 ") << "within the selection";
    EXPECT_EQ(pView->vSelectMask()[1], 100);
    EXPECT_EQ(Errors(), 0);
    tool.InverseSelect();
    EXPECT_EQ(Mask(), (CMaskPicture{{"#+#.##", "######"}}));
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "0,0,1,1 2,0,3,1 4,0,6,1 0,1,6,2 ") << "what is partly selected is not in";
    tool.InverseSelect();
    EXPECT_EQ(pView->vSelectMask()[1], 100);
    TakeLog();
    tool.SelectColorRange(RGB(255, 0, 0), 5);
    EXPECT_EQ(Errors(), 1);
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "none");
    tool.SelectColorRange(RGB(255, 0, 0), -1);
    EXPECT_EQ(Errors(), 1);
    EXPECT_EQ(Told(), "") << "nobody is told";
    tool.InverseSelect();
    EXPECT_NE(TakeLog().find("SELECTION_INVERTED"), std::string::npos);
    EXPECT_EQ(Mask(), (CMaskPicture{{"######", "######"}}));
    tool.InverseSelect();
    EXPECT_NE(pView->rgnSelect().GetSafeHandle(), nullptr);
    tool.SelectColorRange(RGB(0x10, 0x20, 0x30), 0);
    EXPECT_EQ(Mask(), (CMaskPicture{{".#.#.#", ".#.#.#"}})) << "an empty selection is none";
    pView->ClearSelection();
    pView->vSelectMask_Cur()[3] = 9;
    tool.SelectAll();
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "0,0,6,2 ");
    EXPECT_EQ(pView->vSelectMask_Cur(), std::vector<BYTE>(12));
    pView->UnloadEmbeddedTool();
    tool.SelectAll();
    tool.InverseSelect();
    tool.SelectColorRange(0, 0);
    pView->LoadEmbeddedTool(tool);
    pView->ClearBitmap(TRUE);
    tool.InverseSelect();
    tool.SelectColorRange(0, 0);
    EXPECT_EQ(RectsOf(pView->rgnSelect()), "none");
}

TEST_F(ColourSelectionTest, AViewWithoutMasksSelectsRegionsByColour)
{
    Show(CTestBitmap(60, 30));
    for (int x = 20; x < 40; ++x)
        bitmap.Set(x, 7, 0x808080);
    pView->UnloadEmbeddedTool();
    CTestView view(TRUE);
    ASSERT_TRUE(view.Create(CRect(0, 0, 300, 200), pHost.get(), VIEW_ID + 5, BACKGROUND));
    view.SetBitmap(bitmap.info, bitmap.vBits.data());
    view.LoadEmbeddedTool(tool);
    tool.SelectColorRange(RGB(0x80, 0x80, 0x80), 3);
    EXPECT_EQ(RectsOf(view.rgnSelect()), "20,7,40,8 ");
    CRgn rgn;
    rgn.CreateRectRgn(0, 0, 30, 30);
    view.UpdateSelection(rgn, {});
    tool.SelectColorRange(RGB(0x80, 0x80, 0x80), 3);
    EXPECT_EQ(RectsOf(view.rgnSelect()), "20,7,30,8 ");
    tool.SetSelectMode(RegionSelector::SM_MAGICWAND);
    tool.SetSelectOverlapMode(RegionSelector::OM_ADD);
    CPoint pt(35, 7);
    view.FromBitmapToWnd(pt);
    tool.OnLButtonDown(0, pt);
    tool.OnLButtonUp(0, pt);
    EXPECT_EQ(RectsOf(view.rgnSelect()), "20,7,40,8 ");
    tool.SelectColorRange(RGB(1, 255, 1), 3);
    EXPECT_EQ(RectsOf(view.rgnSelect()), "none");
    EXPECT_EQ(Errors(), 1);
    std::vector<BYTE> vMask;
    EXPECT_FALSE(view.GetSelectMask(vMask));
    view.UpdateSelection(rgn, {});
    view.FeatherSelection(3);
    EXPECT_EQ(RectsOf(view.rgnSelect()), "0,0,30,30 ");
    view.UnloadEmbeddedTool();
    view.DestroyWindow();
}

} // namespace
