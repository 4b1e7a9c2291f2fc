#pragma once

#include "headless/HeadlessDesktop.h"
#include "user/Window.h"
#include "view/Pixtane.h"

#include <functional>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <utility>

/// A bitmap that a host would own: bottom-up, any depth, set and read from the top row.
class CTestBitmap
{
public:
    CTestBitmap(int cx, int cy, int iBitsPixel = 32);

    /// Every pixel different from its neighbours, so that a pixel taken from the wrong place shows.
    static CTestBitmap Numbered(int cx, int cy, int iBitsPixel = 32);

    void Set(int x, int y, std::uint32_t uRgb); ///< 0x00RRGGBB
    std::uint32_t At(int x, int y) const;       ///< as the screen shows it
    BITMAPINFO info = {};
    std::vector<BYTE> vBits;

private:
    BYTE* Pixel(int x, int y);
};

/// The view with the protected part that a derived class of a host could reach.
class CTestView : public Pixtane::CPixtane
{
public:
    using CPixtane::CPixtane;
    using CPixtane::m_bCacheDirty;
    using CPixtane::m_bHScrollShown;
    using CPixtane::m_bVScrollShown;
    using CPixtane::m_ptMouse;
    using CPixtane::m_sbHorz;
    using CPixtane::m_sbVert;

    int nPaints = 0;

protected:
    void OnPaint() override
    {
        ++nPaints;
        CPixtane::OnPaint();
    }
};

/// The host's window: logs the view's notifications, and answers them.
class CTestHost : public CWnd
{
public:
    std::string* pLog = nullptr;
    std::function<LRESULT(UINT uCode)> answer; ///< Called inside each notification.

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* plResult) override;
    LRESULT WindowProc(UINT uMessage, WPARAM wParam, LPARAM lParam) override;
};

/// A shown host window with a shown view in it, cx by cy client pixels, at the window's origin. Checks in the end that
/// no handle is left open.
class CViewTest : public testing::Test
{
protected:
    static constexpr DWORD BACKGROUND = RGB(40, 50, 60);
    static constexpr std::uint32_t BACKGROUND_PIXEL = 0x28323C;
    static constexpr int BAR = 17;
    static constexpr UINT VIEW_ID = 77;

    void SetUp() override;
    void TearDown() override;

    /// Makes the host window and view anew with that size.
    void Open(int cx, int cy);
    void Close();
    void Pump();

    /// Attaches a numbered bitmap, which stays until the next.
    CTestBitmap& Show(int cx, int cy, int iBitsPixel = 32);

    /// Selects a rectangle of the bitmap, with full weight.
    void Select(const CRect& rc);

    /// The host window's picture after all pending paints; pixels 0x00RRGGBB.
    winlite::Picture Screen();
    static std::uint32_t PixelOf(const winlite::Picture& picture, int x, int y);

    std::unique_ptr<CTestView> pView;
    std::unique_ptr<CTestHost> pHost;

    /// What tools and host were told, in order: a tool's calls as it logs them, notifications by their names without
    /// PVN_. Taken and emptied by TakeLog.
    std::string strLog;
    std::string TakeLog() { return std::exchange(strLog, {}); }

    /// The log's notifications of tools alone, which have an underscore in their names; empties it.
    std::string Told();

    /// Runs the code inside the first notification of that code that comes.
    void InsideFirst(UINT uCode, std::function<void()> act);

private:
    CTestBitmap m_Shown{0, 0};
    std::size_t m_nHandles = 0;
};

inline void PrintTo(const CRect& rc, std::ostream* pStream)
{
    *pStream << "{" << rc.left << ", " << rc.top << ", " << rc.right << ", " << rc.bottom << "}";
}
inline void PrintTo(const CPoint& pt, std::ostream* pStream) { *pStream << "{" << pt.x << ", " << pt.y << "}"; }
namespace Gdiplus
{
inline void PrintTo(const Point& pt, std::ostream* pStream) { *pStream << "{" << pt.X << ", " << pt.Y << "}"; }
inline void PrintTo(const RectF& rc, std::ostream* pStream)
{
    *pStream << "{" << rc.X << ", " << rc.Y << ", " << rc.Width << ", " << rc.Height << "}";
}
} // namespace Gdiplus
