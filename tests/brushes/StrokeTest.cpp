#include "support/InvertBrush.h"
#include "support/ShortMemory.h"
#include "support/ToolTest.h"
#include "user/Workers.h"

#include <cmath>
#include <random>
#include <sstream>

using Pixtane::EmbeddedTool::Sketcher;

namespace
{

constexpr auto COMPUTED = Sketcher::SketchPen::COMPUTED;

class StrokeTest : public CToolTest<CInvertBrush>
{
protected:
    StrokeTest() : CToolTest(120, 90) {}

    void SetUp() override
    {
        CToolTest::SetUp();
        ASSERT_TRUE(tool.SetPen(COMPUTED, 5, 100, 100));
    }

    static winlite::HeadlessDesktop& Desktop() { return static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()); }

    /// Moves the held pointer and waits until the brush has surely taken the place up.
    void MoveTo(CPoint ptBitmap)
    {
        user->Move(At(ptBitmap.x, ptBitmap.y));
        ASSERT_TRUE(Desktop().WaitUntilWorkersAskedForPointer(2));
    }
    void Stroke(const std::vector<CPoint>& vPoints)
    {
        user->Press(At(vPoints.front().x, vPoints.front().y));
        for (auto it = vPoints.begin() + 1; it != vPoints.end(); ++it)
            MoveTo(*it);
        user->Release(At(vPoints.back().x, vPoints.back().y));
    }

    /// The coverage that the plain rule gives: stamps at a fifth of the pen's size along the joined path.
    std::vector<int> PlainCoverage(const std::vector<CPoint>& vPoints, int iSize, int iHardness, int iStrength)
    {
        const int cx = bitmap.info.bmiHeader.biWidth, cy = bitmap.info.bmiHeader.biHeight;
        std::vector<int> vPen, vCoverage(static_cast<std::size_t>(cx) * cy);
        BITMAPINFO infoPen = {};
        Vorpix::CreateMask(vPen, infoPen, Vorpix::MASK_DISC, iSize, static_cast<float>(iHardness) / 100);
        for (int& w : vPen)
            w = static_cast<int>(std::floor(static_cast<float>(w) * (static_cast<float>(iStrength) / 100) + 0.5));
        const int iMost = *std::ranges::max_element(vPen);
        const int iHalf = iSize / 2;
        std::optional<CPoint> ptLast;
        const auto stamp = [&](CPoint pt)
        {
            const CRect rcArea(-iHalf, -iHalf, cx + iSize - iHalf - 1, cy + iSize - iHalf - 1);
            if (!rcArea.PtInRect(pt) ||
                (ptLast && std::hypot(pt.x - ptLast->x, pt.y - ptLast->y) < static_cast<float>(iSize) / 5))
                return;
            ptLast = pt;
            for (int i = 0; i < iSize * iSize; ++i)
            {
                const int x = pt.x - iHalf + i % iSize, y = pt.y - iHalf + i / iSize;
                if (x < 0 || y < 0 || x >= cx || y >= cy)
                    continue;
                int& c = vCoverage[static_cast<std::size_t>(y * cx + x)];
                if (c < iMost)
                    c += static_cast<int>(std::lround(1.0 * (iMost - c) * vPen[static_cast<std::size_t>(i)] / iMost));
            }
        };
        stamp(vPoints.front());
        for (std::size_t i = 1; i < vPoints.size(); ++i)
        {
            std::list<CPoint> path;
            tool.CalcLinePoints(vPoints[i - 1], vPoints[i], path);
            std::ranges::for_each(path, stamp);
        }
        return vCoverage;
    }

    /// Checks the result that a host would fetch: each pixel inverted as far as the coverage goes, to a level.
    void ExpectResult(const std::vector<int>& vCoverage)
    {
        BITMAPINFO info = {};
        const BYTE* pResult = tool.GetBitmap(info);
        ASSERT_TRUE(pResult);
        const int cx = info.bmiHeader.biWidth, cy = info.bmiHeader.biHeight;
        int nWrong = 0;
        for (int i = 0; i < cx * cy; ++i)
        {
            const std::size_t iPixel = static_cast<std::size_t>(cy - 1 - i / cx) * cx + i % cx;
            const std::size_t iByte = iPixel * 4 + i % 3; // All channels go the same way.
            const double dPart = static_cast<double>(vCoverage[static_cast<std::size_t>(i)]) / Vorpix::FULL_WEIGHT;
            const double dBefore = bitmap.vBits[iByte];
            nWrong += std::abs(dBefore + (255 - 2 * dBefore) * dPart - pResult[iByte]) > 1.0 && nWrong < 5 &&
                      (ADD_FAILURE() << i % cx << ", " << i / cx, true);
        }
    }
};

TEST_F(StrokeTest, StrokesFollowThePointerAtEveryZoom)
{
    const std::vector<CPoint> vInside = {{20, 30}, {40, 33}, {44, 60}, {30, 41}};
    const struct
    {
        double dbZoom;
        CPoint ptScroll;
        int iSize, iHardness, iStrength;
        std::vector<CPoint> vPoints; ///< In and out of the image, at whose edge the stroke is cut.
    } CASES[] = {{1, {0, 0}, 5, 100, 100, vInside},
                 {0.25, {0, 0}, 9, 100, 100, vInside},
                 {2.5, {30, 41}, 1, 100, 100, vInside},
                 {8, {150, 230}, 4, 30, 100, vInside},
                 {2.5, {10, 20}, 21, 1, 50, vInside},
                 {1, {0, 0}, 5, 100, 100, {{5, 5}}},
                 {1, {0, 0}, 5, 100, 100, {{-30, 10}, {20, 12}}},
                 {1, {0, 0}, 5, 100, 100, {{110, 80}, {140, 85}, {100, 89}}},
                 {1, {0, 0}, 5, 100, 100, {{-20, -20}, {-40, -3}}},
                 {1, {0, 0}, 5, 100, 100, {{119, 0}, {119, 0}}}};
    for (const auto& c : CASES)
    {
        pView->SetZoom(c.dbZoom);
        pView->SetDispPosition(c.ptScroll.x, c.ptScroll.y);
        ASSERT_TRUE(tool.SetPen(COMPUTED, c.iSize, c.iHardness, c.iStrength));
        TakeLog();
        std::vector<CPoint> vSeen; // At a small zoom the pointer is not on every pixel.
        for (CPoint pt : c.vPoints)
        {
            pt = At(pt.x, pt.y);
            pView->FromWndToBitmap(pt);
            vSeen.push_back(pt);
        }
        Stroke(vSeen);
        EXPECT_EQ(Told(), "DODGE_BEGIN DODGE_END ");
        ExpectResult(PlainCoverage(vSeen, c.iSize, c.iHardness, c.iStrength));
    }
}

TEST_F(StrokeTest, PixelsDoNotDependOnHowPointsWereBatched)
{
    std::mt19937 random(7);
    const auto roll = [&random](int iMost) { return static_cast<int>(random() % static_cast<unsigned>(iMost)); };
    tool.SetPen(COMPUTED, 13, 20, 60);
    std::vector<CPoint> vPoints;
    for (int i = 0; i < 60; ++i)
        vPoints.emplace_back(roll(160) - 20, roll(120) - 15);
    const std::vector<int> vPlain = PlainCoverage(vPoints, 13, 20, 60);
    for (int iRound = 0; iRound < 20; ++iRound)
    {
        std::fill(tool.m_vCoverage.begin(), tool.m_vCoverage.end(), 0);
        tool.m_ptLastStamp = POINT{0x7FFFFFFF, 0x7FFFFFFF};
        std::list<CPoint> batch(1, vPoints.front());
        if (iRound % 2)
            tool.ProcessSpecifiedPoint(batch.front());
        for (std::size_t i = 1; i < vPoints.size(); ++i)
        {
            batch.push_back(vPoints[i]);
            if (roll(1 + iRound) == 0 || i + 1 == vPoints.size())
                tool.ProcessSketching(batch);
        }
        ASSERT_EQ(batch.size(), 1U) << "it begins the next batch";
        for (std::size_t i = 0; i < vPlain.size(); ++i)
            ASSERT_NEAR(tool.m_vCoverage[i], vPlain[i], 30) << iRound << ": " << i;
    }
}

TEST_F(StrokeTest, StrokesThatCannotBeAreRefusedAtThePress)
{
    const auto isRefused = [this]
    {
        user->Press(At(20, 30));
        const bool bCaptured = ::GetCapture() == pView->m_hWnd;
        user->Release(At(20, 30));
        user->Wait(600); // no double click
        return Told().empty() && !bCaptured;
    };
    std::vector<BYTE> vSettings;
    tool.SerializeToolSettings(vSettings);
    std::vector<BYTE> vWild = vSettings;
    vWild[9] = 0xFF;
    EXPECT_TRUE(tool.UnserializeToolSettings(vWild));
    EXPECT_TRUE(isRefused()) << "no weights can be made of these";
    EXPECT_TRUE(tool.UnserializeToolSettings(vSettings));
    EXPECT_FALSE(isRefused());
    BITMAPINFO info = bitmap.info;
    for (const DWORD dwSize : {DWORD{0}, info.bmiHeader.biSizeImage - 4})
    {
        records.Take();
        info.bmiHeader.biSizeImage = dwSize;
        pView->SetBitmap(info, bitmap.vBits.data());
        EXPECT_TRUE(isRefused()) << dwSize;
        EXPECT_EQ(records.Take(), "1 Failed to update bitmap.|");
        EXPECT_FALSE(tool.UpdateBitmap());
    }
    pView->ClearBitmap(TRUE);
    EXPECT_FALSE(tool.UpdateBitmap());
    pView->UnloadEmbeddedTool();
    pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    records.Take();
    winlite::Workers::Limit(1);
    pView->LoadEmbeddedTool(tool);
    winlite::Workers::Limit(64);
    EXPECT_NE(records.Take().find("1 Failed to start MouseTracking-thread.|"), std::string::npos);
    EXPECT_TRUE(isRefused()) << "one worker is missing";
    pView->LoadEmbeddedTool(tool);
    CTestBitmap larger = CTestBitmap::Numbered(300, 200, 24);
    pView->SetBitmap(larger.info, larger.vBits.data());
    for (const std::size_t nLarge : {larger.vBits.size(), larger.vBits.size() + 1}) // The pixels, the coverage.
    {
        LetMemoryRunOut(Shortage::Framework, nLarge);
        EXPECT_TRUE(isRefused()) << nLarge;
        EXPECT_TRUE(HasMemoryRunOut());
    }
    EXPECT_FALSE(isRefused());
}

TEST_F(StrokeTest, ImagesOfEveryShapeAreDrawnOn)
{
    for (const auto& [cx, cy, iBits] : {std::tuple(1, 1, 32), {1, 20000, 24}, {20000, 1, 32}, {7, 5, 24}})
    {
        CTestBitmap& shown = Show(cx, cy, iBits);
        pView->SetZoom(1);
        pView->LoadEmbeddedTool(tool);
        TakeLog();
        Stroke({{0, 0}, {cx / 2, cy / 2}, {cx + 100, cy - 1}});
        EXPECT_EQ(Told(), "DODGE_BEGIN DODGE_END ");
        BITMAPINFO info = {};
        const BYTE* pResult = tool.GetBitmap(info);
        ASSERT_TRUE(pResult) << cx;
        EXPECT_FALSE(std::equal(shown.vBits.begin(), shown.vBits.end(), pResult)) << cx;
        pView->UnloadEmbeddedTool();
    }
}

TEST_F(StrokeTest, WhateverTheHostCallsInAStrokeItGoesOnOrEnds)
{
    CTestBitmap other = CTestBitmap::Numbered(50, 40);
    std::vector<BYTE> vData;
    BITMAPINFO info = {};
    CRect rc(0, 0, 0, 0);
    const std::pair<const char*, std::function<void()>> vCalls[] = {
        {"EnterPreviewMode", [&] { EXPECT_FALSE(pView->EnterPreviewMode()); }},
        {"ExitPreviewMode", [&] { pView->ExitPreviewMode(), pView->EnterPreviewMode(); }},
        {"ShowCoverImage", [&] { pView->ShowCoverImage(FALSE, FALSE), pView->ShowCoverImage(TRUE, TRUE); }},
        {"GetCurDisplayImage", [&] { EXPECT_TRUE(pView->GetCurDisplayImage(&rc, vData, info)); }},
        {"GetPixelRGBValue", [&] { pView->GetPixelRGBValue(CPoint(30, 30), FALSE); }},
        {"UpdateBitmap", [&] { pView->UpdateBitmap(bitmap.info, bitmap.vBits.data(), TRUE); }},
        {"SetBitmap", [&] { pView->SetBitmap(other.info, other.vBits.data()); }},
        {"ClearBitmap", [&] { pView->ClearBitmap(FALSE); }},
        {"zoom and position", [&] { pView->SetZoom(2), pView->SetDispPosition(7, 8), pView->SetZoom(1); }},
        {"resizing", [&] { pView->MoveWindow(0, 0, 100, 90), pView->MoveWindow(0, 0, 300, 200); }},
        {"SetPen", [&] { EXPECT_FALSE(tool.SetPen(COMPUTED, 99, 1, 1)); }},
        {"settings",
         [&]
         {
             tool.SerializeToolSettings(vData);
             EXPECT_TRUE(tool.UnserializeToolSettings(vData));
         }},
        {"GetBitmap", [&] { EXPECT_FALSE(tool.GetBitmap(info)); }},
        {"the tool's UpdateBitmap", [&] { EXPECT_FALSE(tool.UpdateBitmap()); }},
        {"Reset", [&] { pView->ResetEmbeddedTool(); }},
        {"LoadEmbeddedTool", [&] { pView->LoadEmbeddedTool(tool); }},
        {"UnloadEmbeddedTool", [&] { pView->UnloadEmbeddedTool(); }},
        {"DestroyWindow", [&] { pView->DestroyWindow(); }},
    };
    for (const auto& [pszCall, call] : vCalls)
    {
        for (const UINT uInside : {Pixtane::PVN_DODGE_BEGIN, Pixtane::PVN_DODGE_END, UINT{0}})
        {
            SCOPED_TRACE(pszCall + std::string(" inside ") + std::to_string(uInside));
            const bool bRuns = uInside != Pixtane::PVN_DODGE_END;
            const std::string strCall = pszCall;
            const bool bOnlyRefusedWhileItRuns = strCall == "EnterPreviewMode" || strCall == "SetPen" ||
                                                 strCall == "GetBitmap" || strCall == "the tool's UpdateBitmap";
            pHost->answer = [&](UINT uCode)
            {
                if (uCode == uInside && (bRuns || !bOnlyRefusedWhileItRuns))
                    call();
                return 0;
            };
            user->Press(At(20, 30));
            if (tool.m_bSketching)
                MoveTo({40, 40});
            if (uInside == 0)
                call();
            if (tool.m_bSketching && pView->m_hWnd)
                MoveTo({50, 20});
            user->Release(At(50, 20));
            if (pView->m_hWnd)
                user->Wait(600);
            EXPECT_FALSE(tool.m_bSketching && pView->m_hWnd);
            TearDown();
            EXPECT_FALSE(tool.m_bSketching);
            SetUp();
        }
    }
}

TEST_F(StrokeTest, RandomStrokesEndInEveryWay)
{
    std::mt19937 random(static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed()));
    const auto roll = [&random](int iMost) { return static_cast<int>(random() % static_cast<unsigned>(iMost)); };
    const auto point = [&] { return CPoint(roll(340) - 20, roll(240) - 20); };
    int nBegun = 0;
    CInvertBrush other;
    for (int i = 0; i < 200; ++i)
    {
        tool.SetPen(COMPUTED, 1 + roll(30), 1 + roll(100), 1 + roll(100));
        user->Press(point());
        const bool bBegun = tool.m_bSketching;
        nBegun += bBegun;
        for (int n = roll(6); n > 0; --n)
        {
            user->Move(point());
            if (roll(3) == 0)
                pView->SetZoom(1 + roll(3));
            if (roll(4) == 0)
                pView->SetDispPosition(roll(60), roll(60));
            if (roll(5) == 0)
                Desktop().WaitUntilWorkersAskedForPointer(1);
        }
        const int iWay = roll(9);
        BITMAPINFO info = {};
        switch (iWay)
        {
        case 0:
            pView->LoadEmbeddedTool(other);
            pView->LoadEmbeddedTool(tool);
            break;
        case 1:
            pView->UnloadEmbeddedTool();
            ASSERT_FALSE(tool.GetBitmap(info)) << i;
            pView->LoadEmbeddedTool(tool);
            break;
        case 2:
            pView->ClearBitmap(FALSE);
            user->Wait(260);
            pView->SetBitmap(bitmap.info, bitmap.vBits.data());
            break;
        case 3:
            ::SetCapture(pHost->m_hWnd), ::ReleaseCapture();
            break;
        case 4:
            ::SendMessage(pView->m_hWnd, WM_MOUSEMOVE, 0, MAKELPARAM(50, 50)); // without the button
            break;
        case 5:
            ::ReleaseCapture();
            break;
        default:
            break;
        }
        user->Release(point());
        user->Wait(520); // no double click
        ASSERT_FALSE(tool.m_bSketching) << i;
        ASSERT_TRUE(!bBegun || iWay < 3 || tool.GetBitmap(info)) << i;
        std::istringstream told(Told());
        std::string strWord;
        bool bRuns = false;
        for (; told >> strWord; bRuns = !bRuns)
            ASSERT_EQ(strWord, bRuns ? "DODGE_END" : "DODGE_BEGIN") << i;
        ASSERT_FALSE(bRuns) << i;
    }
    EXPECT_GT(nBegun, 100);
}

} // namespace
