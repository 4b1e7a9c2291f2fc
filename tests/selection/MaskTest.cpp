#include "support/LogRecorder.h"
#include "support/MaskPicture.h"
#include "support/TestView.h"

#include <algorithm>
#include <random>

using Pixtane::CPixtane;

namespace
{

/// Operations on masks and regions alone, and what they log.
class MaskTest : public testing::Test
{
protected:
    CLogRecorder records;
    std::mt19937 random{7};
    int Below(int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); }
};

TEST_F(MaskTest, BytesThatAreNotZeroBecomeTheRegionAndBack)
{
    for (int i = 0; i < 300; ++i)
    {
        const int cx = 1 + Below(200);
        const int cy = 1 + Below(6);
        const int iDensity = 1 + Below(100);
        std::vector<BYTE> vMask(static_cast<std::size_t>(cx) * cy);
        for (BYTE& byte : vMask)
            byte = static_cast<BYTE>(Below(100) < iDensity ? 1 + Below(255) : 0);
        const CPoint ptFirst(Below(cx), Below(cy));
        vMask[static_cast<std::size_t>(ptFirst.y * cx + ptFirst.x)] = 255;
        CRgn rgn;
        ASSERT_TRUE(CPixtane::CreateRgnFromMask(rgn, vMask, cx, cy));
        std::vector<BYTE> vBack(i % 2 ? vMask.size() : 3, BYTE{77});
        ASSERT_TRUE(CPixtane::CreateSelectMask(rgn, vBack, cx, cy, 0));
        std::ranges::for_each(vMask, [](BYTE& byte) { byte = byte ? 255 : 0; });
        ASSERT_EQ(vBack, vMask) << cx << " x " << cy;
        vMask.pop_back();
        ASSERT_FALSE(CPixtane::CreateRgnFromMask(rgn, vMask, cx, cy)) << "not this size";
        ASSERT_TRUE(rgn.PtInRegion(ptFirst)) << "the region stays";
        std::ranges::fill(vMask, BYTE{0});
        vMask.push_back(0);
        ASSERT_FALSE(CPixtane::CreateRgnFromMask(rgn, vMask, cx, cy) || rgn.GetSafeHandle()) << "nothing";
    }
}

TEST_F(MaskTest, MasksOfRegionsIgnoreWhatIsOutsideAndSayWhatIsWrong)
{
    CRgn rgnNone, rgnEmpty, rgnLarge;
    rgnEmpty.CreateRectRgn(2, 2, 2, 9);
    rgnLarge.CreateRectRgn(-100, 1, 2, 900000);
    const struct
    {
        CRgn& rgn;
        int cx, cy, iFeather, iResult;
        CMaskPicture picture;
        const char* pszLog;
    } vCases[] = {
        {rgnLarge, 3, 3, 0, 1, {{"...", "##.", "##."}}, "3 FeatherRadius = 0, Time cost: 0ms\n|"},
        {rgnNone, 2, 1, 0, 1, {{".."}}, "3 No select region.|"},
        {rgnEmpty, 2, 1, 5, 0, {{".."}}, "1 Empty Region.|"},
        {rgnLarge, 0, 3, 0, 0, {}, "3 Invalid Mask Size.|"},
        {rgnLarge, 65536, 65536, 0, 0, {}, "3 Invalid Mask Size.|"},
        {rgnLarge, -1, -1, 0, 0, {}, "3 Invalid Mask Size.|"},
    };
    for (const auto& c : vCases)
    {
        std::vector<BYTE> vMask;
        EXPECT_EQ(CPixtane::CreateSelectMask(c.rgn, vMask, c.cx, c.cy, c.iFeather), c.iResult);
        EXPECT_EQ(CMaskPicture::Of(vMask, std::max(c.cx, 1)), c.picture);
        EXPECT_EQ(records.Take(), c.pszLog);
    }
    std::vector<BYTE> vMask;
    CPixtane::CreateSelectMask(rgnLarge, vMask, 9, 20, 2);
    EXPECT_EQ(CMaskPicture::Of(vMask, 9).vRows[10], "++++.....");
}

TEST_F(MaskTest, ShiftsMatchThePlainRule)
{
    for (int i = 0; i < 300; ++i)
    {
        const int cx = 1 + Below(9), cy = 1 + Below(9);
        const int dx = Below(2 * cx + 5) - cx - 2, dy = Below(2 * cy + 5) - cy - 2;
        std::vector<BYTE> vMask(static_cast<std::size_t>(cx) * cy);
        for (BYTE& byte : vMask)
            byte = static_cast<BYTE>(1 + Below(255));
        std::vector<BYTE> vWanted(vMask.size());
        for (int y = 0; y < cy; ++y)
        {
            for (int x = 0; x < cx; ++x)
            {
                if (x - dx >= 0 && x - dx < cx && y - dy >= 0 && y - dy < cy)
                    vWanted[static_cast<std::size_t>(y * cx + x)] =
                        vMask[static_cast<std::size_t>((y - dy) * cx + x - dx)];
            }
        }
        ASSERT_EQ(CPixtane::OffsetSelectMask(vMask, cx, cy, dx, dy), 1);
        ASSERT_EQ(vMask, vWanted) << dx << ", " << dy;
        ASSERT_EQ(CPixtane::OffsetSelectMask(vMask, cx + 1, cy, dx, dy), 0);
        ASSERT_EQ(CPixtane::OffsetSelectMask(vMask, cx, cy, -0x7FFFFFFF - 1, 0), 1);
    }
}

/// The selection as the view keeps it.
class SelectionTest : public CViewTest
{
protected:
    void SetUp() override
    {
        CViewTest::SetUp();
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    }
    void TearDown() override
    {
        rgn.DeleteObject();
        CViewTest::TearDown();
    }

    CTestBitmap bitmap = CTestBitmap::Numbered(6, 4);
    CMaskPicture picture = {{"......", ".##...", ".##..#", "......"}};
    CRgn rgn;
    std::vector<BYTE> vMask = picture.Mask();
};

TEST_F(SelectionTest, WhatIsSelectedComesBackAndGoes)
{
    CRgn rgnBack;
    std::vector<BYTE> vBack;
    EXPECT_FALSE(pView->GetSelectRegion(rgnBack));
    EXPECT_TRUE(pView->GetSelectMask(vBack));
    EXPECT_EQ(vBack, std::vector<BYTE>(24));
    CPixtane::CreateRgnFromMask(rgn, vMask, 6, 4);
    EXPECT_TRUE(pView->UpdateSelection(rgn, vMask));
    EXPECT_TRUE(pView->GetSelectRegion(rgnBack));
    EXPECT_EQ(RectsOf(rgnBack), "1,1,3,2 1,2,3,3 5,2,6,3 ");
    EXPECT_TRUE(pView->GetSelectMask(vBack));
    EXPECT_EQ(vBack, vMask);
    EXPECT_FALSE(pView->UpdateSelection(rgn, {1, 2, 3})) << "of another size";
    EXPECT_TRUE(pView->GetSelectRegion(rgnBack));
    pView->SetZoom(2);
    EXPECT_EQ(RectsOf(pView->rgnSelectScaled()), "2,2,6,4 2,4,6,6 10,4,12,6 ");
    CRgn rgnWindow;
    pView->FromBitmapToWnd(rgn, rgnWindow);
    EXPECT_EQ(RectsOf(rgnWindow).substr(0, 4), std::to_string(2 - pView->ptDispPos().X) + ",");
    CRgn rgnNone;
    EXPECT_TRUE(pView->UpdateSelection(rgnNone, {1, 2, 3}));
    EXPECT_FALSE(pView->GetSelectRegion(rgnBack));
    EXPECT_EQ(rgnBack.GetSafeHandle(), nullptr);
    EXPECT_EQ(pView->vSelectMask(), std::vector<BYTE>(24));
    pView->UpdateSelection(rgn, vMask);
    pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    EXPECT_FALSE(pView->GetSelectRegion(rgnBack)) << "a new bitmap has no selection";
    pView->ClearBitmap(TRUE);
    EXPECT_FALSE(pView->UpdateSelection(rgn, vMask));
    EXPECT_FALSE(pView->GetSelectMask(vBack));
}

TEST_F(SelectionTest, FeatheringMakesTheRegionAsLargeAsTheMask)
{
    CPixtane::CreateRgnFromMask(rgn, vMask, 6, 4);
    pView->UpdateSelection(rgn, vMask);
    pView->FeatherSelection(0);
    EXPECT_EQ(pView->vSelectMask(), vMask);
    pView->FeatherSelection(2);
    std::vector<BYTE> vBack;
    pView->GetSelectMask(vBack);
    CRgn rgnBack;
    CPixtane::CreateRgnFromMask(rgnBack, vBack, 6, 4);
    EXPECT_NE(vBack, vMask);
    EXPECT_TRUE(rgnBack.EqualRgn(&pView->rgnSelect()));
}

} // namespace
