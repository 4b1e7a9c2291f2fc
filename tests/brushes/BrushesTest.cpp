#include "brushes/CloneStamp.h"
#include "brushes/DodgeBurn.h"
#include "brushes/EffectBrush.h"
#include "hostlibs/Quillog.h"
#include "support/ToolTest.h"
#include "view/Notifications.h"

#include <cstring>
#include <stdexcept>

using namespace Pixtane::EmbeddedTool;

namespace
{

/// Strokes of the three brushes with a hard pen of 3 pixels, on a picture whose pixels all differ.
template<class Brush>
class CBrushTest : public CToolTest<Brush>
{
protected:
    CBrushTest() : CToolTest<Brush>(60, 40) {}

    void SetUp() override
    {
        CToolTest<Brush>::SetUp();
        this->tool.SetPen(Sketcher::SketchPen::COMPUTED, 1, 100, 100);
        QLSetSink([this](const QLRecord& record) { nErrors += record.level == QL_ERROR; });
    }
    void TearDown() override
    {
        CToolTest<Brush>::TearDown();
        QLSetSink({});
    }

    static winlite::HeadlessDesktop& Desktop() { return static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()); }

    void Begin(CPoint pt) { this->user->Press(this->At(pt.x, pt.y)); }
    void MoveTo(CPoint pt)
    {
        this->user->Move(this->At(pt.x, pt.y));
        EXPECT_TRUE(Desktop().WaitUntilWorkersAskedForPointer(2));
    }
    void End(CPoint pt)
    {
        this->user->Release(this->At(pt.x, pt.y));
        this->user->Wait(600); // no double click
    }
    void Stroke(CPoint ptFrom, CPoint ptTo)
    {
        Begin(ptFrom);
        MoveTo(ptTo);
        End(ptTo);
    }

    /// A pixel of the result, as the host would fetch it; 0x00RRGGBB.
    std::uint32_t Result(int x, int y)
    {
        BITMAPINFO info = {};
        const BYTE* pResult = this->tool.GetBitmap(info);
        if (!pResult)
            return 0xFFFFFFFF;
        const auto iPixel = static_cast<std::size_t>(info.bmiHeader.biHeight - 1 - y) * info.bmiHeader.biWidth + x;
        const BYTE* p = pResult + iPixel * 4;
        return p[0] | p[1] << 8 | p[2] << 16;
    }

    /// Each pixel of the result: by the rule on the stroke's line, unchanged elsewhere.
    void ExpectOnLine(int y, int xFrom, int xTo, const std::function<std::uint32_t(int x, int y)>& rule)
    {
        for (int i = 0; i < 60 * 40; ++i)
        {
            const int x = i % 60;
            const bool bLine = i / 60 == y && x >= xFrom && x <= xTo;
            ASSERT_EQ(Result(x, i / 60), bLine ? rule(x, y) : this->bitmap.At(x, i / 60)) << x << ", " << i / 60;
        }
    }

    /// Settings of every length, and of each version, are taken or refused without harm.
    void CheckSettings(const std::vector<std::size_t>& vLengths)
    {
        std::vector<BYTE> vBlob;
        this->tool.SerializeToolSettings(vBlob);
        EXPECT_EQ(vBlob[0], vLengths.size());
        EXPECT_EQ(vBlob.size(), vLengths.back());
        for (std::size_t iVersion = 0; iVersion <= vLengths.size() + 1; ++iVersion)
        {
            for (std::size_t n = 0; n < 44; ++n)
            {
                std::vector<BYTE> vCut = vBlob;
                vCut.resize(n);
                if (n > 0)
                    vCut[0] = static_cast<BYTE>(iVersion);
                const bool bKnown = iVersion <= vLengths.size() && n > 4;
                EXPECT_EQ(this->tool.UnserializeToolSettings(vCut) != 0,
                          bKnown && (iVersion == 0 || n == vLengths[iVersion - 1]))
                    << iVersion << ", " << n;
            }
        }
        std::vector<BYTE> vAgain;
        this->tool.SerializeToolSettings(vAgain);
        EXPECT_EQ(vAgain, vBlob);
    }

    int nErrors = 0;
};

// ---- clone stamp

class CPickingStamp : public CloneStamp
{
public:
    using CloneStamp::m_iState;
};

class CloneStampTest : public CBrushTest<CPickingStamp>
{
protected:
    void Pick(CPoint pt)
    {
        user->Move(At(pt.x, pt.y));
        user->KeyDown(VK_MENU);
        user->Wait(210);
        EXPECT_EQ(tool.m_iState, 1);
        user->Click(At(pt.x, pt.y));
        user->KeyUp(VK_MENU);
        user->Wait(600);
        EXPECT_EQ(tool.m_iState, 0);
    }

    /// Where the stroke's pixels must come from.
    std::function<std::uint32_t(int, int)> From(int dx, int dy)
    {
        return [this, dx, dy](int x, int y) { return bitmap.At(x + dx, y + dy); };
    }
};

TEST_F(CloneStampTest, StrokesCopyFromTheSourceAlignedOrNot)
{
    Begin({5, 5});
    End({5, 5});
    EXPECT_EQ(Told(), "CLONESTAMP_NOSOURCE ") << "no source yet";
    EXPECT_EQ(Result(5, 5), bitmap.At(5, 5));
    Pick({10, 10});
    EXPECT_EQ(Told(), "CLONESTAMP_SOURCE ");
    Stroke({30, 10}, {35, 10});
    EXPECT_EQ(Told(), "CLONESTAMP_BEGIN CLONESTAMP_END ");
    ExpectOnLine(10, 30, 35, From(-20, 0));
    Stroke({32, 15}, {36, 15});
    ExpectOnLine(15, 32, 36, From(-20, 0));
    tool.SetAligned(FALSE);
    for (int i = 0; i < 2; ++i)
    {
        Stroke({40 + i, 20}, {44, 20});
        ExpectOnLine(20, 40 + i, 44, From(-30 - i, -10));
    }
    // A stroke whose source leaves the image on the way copies what there is.
    Stroke({20, 12}, {5, 12});
    ExpectOnLine(12, 10, 20, From(-10, -2));
    Told();
    Pick({70, 45});
    Begin({20, 20});
    End({20, 20});
    EXPECT_EQ(Told(), "CLONESTAMP_SOURCE CLONESTAMP_NOSOURCE ") << "a pick outside takes the source away";
}

TEST_F(CloneStampTest, AStrokeKeepsItsSourceWhateverHappensMeanwhile)
{
    Pick({10, 10});
    const std::function<void()> vActs[] = {
        [&] { tool.SetAligned(FALSE); },
        [&] { tool.Reset(); },
        [&]
        {
            user->KeyDown(VK_MENU);
            user->Wait(210);
            EXPECT_EQ(tool.m_iState, 2);
            user->KeyUp(VK_MENU);
        },
    };
    for (const auto& act : vActs)
    {
        tool.SetAligned(TRUE);
        tool.Reset();
        Pick({10, 10});
        Begin({30, 10});
        act();
        MoveTo({34, 10});
        End({34, 10});
        ExpectOnLine(10, 30, 34, From(-20, 0));
    }
}

TEST_F(CloneStampTest, CrossesShowTheSource)
{
    Pick({10, 10});
    const winlite::Picture before = Screen();
    Begin({30, 10});
    MoveTo({34, 20});
    const winlite::Picture during = Screen();
    const CPoint ptFixed = At(10, 10), ptMoving = At(14, 20);
    for (const CPoint pt : {ptFixed, ptMoving})
    {
        for (const int d : {-3, 3})
        {
            EXPECT_EQ(PixelOf(during, pt.x + d, pt.y), ~PixelOf(before, pt.x + d, pt.y) & 0xFFFFFF);
            EXPECT_EQ(PixelOf(during, pt.x, pt.y + d), ~PixelOf(before, pt.x, pt.y + d) & 0xFFFFFF);
        }
        EXPECT_EQ(PixelOf(during, pt.x + 4, pt.y), PixelOf(before, pt.x + 4, pt.y));
    }
    End({34, 20});
}

TEST_F(CloneStampTest, SettingsOfBothVersions)
{
    tool.SetAligned(FALSE);
    CheckSettings({20, 24});
}

// ---- dodge and burn

using DodgeBurnTest = CBrushTest<DodgeBurn>;

TEST_F(DodgeBurnTest, AStrokeChangesTheValueOnce)
{
    for (const int bDodge : {TRUE, FALSE})
    {
        tool.bDodge() = bDodge;
        Begin({10, 5});
        for (int i = 0; i < 3; ++i)
        {
            MoveTo({15, 5});
            MoveTo({10, 5});
        }
        End({10, 5});
        EXPECT_EQ(Told(), bDodge ? "DODGE_BEGIN DODGE_END " : "BURN_BEGIN BURN_END ");
        ExpectOnLine(
            5, 10, 15,
            [&](int x, int y)
            {
                Vorpix::tagPROCESS_REGION region = {CRect(x, y, x + 1, y + 1), std::vector<BYTE>(60 * 40, 255)};
                CTestBitmap copy = bitmap;
                Vorpix::AdjustHSV(copy.vBits, copy.info, region, 0, 0, bDodge ? 0.1f : -0.1f, nullptr, true);
                return copy.At(x, y);
            });
    }
}

TEST_F(DodgeBurnTest, SettingsOfItsVersion)
{
    tool.bDodge() = 0;
    CheckSettings({24});
}

// ---- effect brush

class EffectBrushTest : public CBrushTest<EffectBrush>
{
protected:
    /// Sets every pixel of the region to white, then does what the test wants of the host.
    static void Whiten(std::vector<BYTE>& vBits, BITMAPINFO& bmi, Vorpix::tagPROCESS_REGION& region, void* pContext)
    {
        std::ranges::fill(vBits, BYTE{255});
        bmi = {};
        region.rcRegion = {};
        (*static_cast<std::function<void(std::vector<BYTE>&)>*>(pContext))(vBits);
    }

    std::function<void(std::vector<BYTE>&)> afterwards = [](std::vector<BYTE>&) {};
    GUID guid = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
};

TEST_F(EffectBrushTest, TheHostsEffectShowsUnderTheStroke)
{
    const auto white = [](int, int) { return 0xFFFFFFU; };
    Stroke({10, 5}, {15, 5});
    EXPECT_EQ(Told(), "EFFECTBRUSH_BEGIN EFFECTBRUSH_END ");
    ExpectOnLine(5, 0, -1, white); // without an effect nothing changes
    tool.SetEffect(guid, &afterwards, &Whiten);
    Begin({10, 5});
    GUID other = {};
    tool.SetEffect(other, nullptr, nullptr); // counts from the next stroke
    MoveTo({15, 5});
    End({15, 5});
    ExpectOnLine(5, 10, 15, white);
    tool.SetEffect(guid, &afterwards, &Whiten);
    afterwards = [](std::vector<BYTE>&) { throw std::runtime_error("effect"); };
    nErrors = 0;
    Stroke({10, 5}, {15, 5});
    ExpectOnLine(5, 0, -1, white);
    EXPECT_GT(nErrors, 0);
    afterwards = [](std::vector<BYTE>& vBits) { vBits.resize(3); };
    nErrors = 0;
    Told();
    Stroke({10, 5}, {15, 5});
    ExpectOnLine(5, 0, -1, white);
    EXPECT_EQ(nErrors, 1) << "the rest of the stroke draws nothing";
    EXPECT_EQ(Told(), "EFFECTBRUSH_BEGIN EFFECTBRUSH_END ");
}

TEST_F(EffectBrushTest, TheHostMayRefuseOrTakeEverythingAwayWhenAsked)
{
    tool.SetEffect(guid, &afterwards, &Whiten);
    CTestBitmap smaller = CTestBitmap::Numbered(20, 10);
    const std::pair<std::function<void()>, const char*> vAnswers[] = {
        {nullptr, "EFFECTBRUSH_BEGIN "},
        {[&] { ::ReleaseCapture(); }, "EFFECTBRUSH_BEGIN "},
        {[&] { pView->ClearBitmap(FALSE); }, "EFFECTBRUSH_BEGIN "},
        {[&] { pView->SetBitmap(smaller.info, smaller.vBits.data()); }, "EFFECTBRUSH_BEGIN EFFECTBRUSH_END "},
        {[&] { pView->UnloadEmbeddedTool(); }, "EFFECTBRUSH_BEGIN "},
    };
    for (const auto& [act, pszTold] : vAnswers)
    {
        pHost->answer = [&](UINT uCode)
        {
            if (uCode == Pixtane::PVN_EFFECTBRUSH_BEGIN && act)
                act();
            return LRESULT{uCode == Pixtane::PVN_EFFECTBRUSH_BEGIN && !act};
        };
        Begin({5, 5});
        End({5, 5});
        EXPECT_EQ(Told(), pszTold) << &act - &vAnswers[0].first;
        EXPECT_TRUE(!pView->pBmpData() || ::GetCapture() == nullptr);
        pHost->answer = {};
        ::ReleaseCapture();
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        pView->LoadEmbeddedTool(tool);
        Told();
    }
}

TEST_F(EffectBrushTest, SettingsKeepTheEffectsIdentity)
{
    tool.SetEffect(guid, &afterwards, &Whiten);
    CheckSettings({36});
    std::vector<BYTE> vBlob;
    tool.SerializeToolSettings(vBlob);
    EffectBrush fresh;
    EXPECT_TRUE(fresh.UnserializeToolSettings(vBlob));
    GUID restored = {};
    fresh.GetEffectGuid(restored);
    EXPECT_EQ(std::memcmp(&restored, &guid, sizeof(guid)), 0);
}

} // namespace
