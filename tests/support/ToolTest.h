#pragma once

#include "support/LogRecorder.h"
#include "support/MaskPicture.h"
#include "support/User.h"

#include <optional>

/// A view that shows a numbered bitmap, a tool, which is loaded unless it refuses, and a user.
template<class Tool>
class CToolTest : public CViewTest
{
protected:
    CToolTest() : CToolTest(400, 300) {}

    /// The bitmap's size, and what the tool is made with.
    template<class... T>
    CToolTest(int cx, int cy, T&... arguments) : bitmap(CTestBitmap::Numbered(cx, cy)), tool(arguments...)
    {
    }

    void SetUp() override
    {
        CViewTest::SetUp();
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        pView->LoadEmbeddedTool(tool);
        user = std::make_unique<CUser>(*pView);
        TakeLog();
    }
    void TearDown() override
    {
        pHost->answer = {};
        pView->UnloadEmbeddedTool();
        user.reset();
        CViewTest::TearDown();
    }

    /// The window point in the middle of a bitmap pixel.
    CPoint At(int x, int y)
    {
        CPoint pt(x, y);
        pView->FromBitmapToWnd(pt);
        return pt;
    }
    CMaskPicture Mask() { return CMaskPicture::Of(pView->vSelectMask(), pView->iBmpWidth()); }

    /// The box of the selection's region.
    CRect Box()
    {
        CRect rc;
        pView->rgnSelect().GetRgnBox(&rc);
        return rc;
    }

    CLogRecorder records;
    /// Restores settings; what is logged, which is nothing when they are taken.
    std::string Restore(const std::vector<BYTE>& vBlob)
    {
        records.vRecords.clear();
        const bool bTaken = tool.UnserializeToolSettings(vBlob) != 0;
        EXPECT_EQ(bTaken, records.vRecords.empty());
        if (bTaken)
            return {};
        const QLRecord& last = records.vRecords.back();
        return winlite::ToUtf8(last.strFunction.GetString()) + ": " + winlite::ToUtf8(last.strText.GetString());
    }
    static HCURSOR OwnCursor(UINT uId)
    {
        const LPCWSTR pszId = MAKEINTRESOURCE(uId);
        return ::LoadCursor(AfxFindResourceHandle(pszId, RT_GROUP_CURSOR), pszId);
    }

    /// Checks that the window shows what the rule says of a pixel, and as before where it says nothing.
    void ExpectDrawn(const winlite::Picture& before, std::function<std::optional<std::uint32_t>(CPoint)> rule)
    {
        const winlite::Picture now = Screen();
        for (CPoint pt(0, 0); pt.y < now.cy; pt = pt.x + 1 < now.cx ? CPoint(pt.x + 1, pt.y) : CPoint(0, pt.y + 1))
            ASSERT_EQ(PixelOf(now, pt.x, pt.y), rule(pt).value_or(PixelOf(before, pt.x, pt.y))) << pt.x << ", " << pt.y;
    }

    /// Likewise of a frame: what the colours become within rcFrame up to iWidth pixels from its border.
    void ExpectFrame(const winlite::Picture& before, CRect rcFrame, int iWidth, std::uint32_t (*becomes)(std::uint32_t))
    {
        CRect rcInside = rcFrame;
        rcInside.InflateRect(-iWidth, -iWidth);
        ExpectDrawn(before,
                    [&](CPoint pt)
                    {
                        const bool bFrame = rcFrame.PtInRect(pt) && !rcInside.PtInRect(pt);
                        return bFrame ? std::optional(becomes(PixelOf(before, pt.x, pt.y))) : std::nullopt;
                    });
    }

    /// Another window takes the mouse and lets it go; a press then is no double click.
    void LoseMouse()
    {
        ::SetCapture(pHost->m_hWnd);
        ::ReleaseCapture();
        user->Wait(600);
    }

    CTestBitmap bitmap;
    Tool tool;
    std::unique_ptr<CUser> user;
};
