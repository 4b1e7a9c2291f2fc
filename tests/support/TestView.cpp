#include "support/TestView.h"

#include "base/HandleTable.h"

#include <cstdio>
#include <cstring>

namespace
{

/// The picture a screen of 8 bits a channel shows of a five-bit channel.
std::uint32_t Widened(std::uint32_t uFiveBits) { return uFiveBits << 3 | uFiveBits >> 2; }

} // namespace

CTestBitmap::CTestBitmap(int cx, int cy, int iBitsPixel)
{
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = cx;
    info.bmiHeader.biHeight = cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(iBitsPixel);
    vBits.resize(static_cast<std::size_t>((cx * iBitsPixel + 31) / 32 * 4) * cy);
}

CTestBitmap CTestBitmap::Numbered(int cx, int cy, int iBitsPixel)
{
    CTestBitmap bitmap(cx, cy, iBitsPixel);
    for (int y = 0; y < cy; ++y)
    {
        for (int x = 0; x < cx; ++x)
            bitmap.Set(x, y,
                       static_cast<std::uint32_t>(x * 37 % 256 << 16 | y * 53 % 256 << 8 | (x * 8 + y * 24) % 256));
    }
    return bitmap;
}

BYTE* CTestBitmap::Pixel(int x, int y)
{
    const BITMAPINFOHEADER& header = info.bmiHeader;
    const std::size_t nRow = static_cast<std::size_t>((header.biWidth * header.biBitCount + 31) / 32 * 4);
    return &vBits[nRow * (header.biHeight - 1 - y) + static_cast<std::size_t>(x * header.biBitCount / 8)];
}

void CTestBitmap::Set(int x, int y, std::uint32_t uRgb)
{
    if (info.bmiHeader.biBitCount != 16)
    {
        std::memcpy(Pixel(x, y), &uRgb, info.bmiHeader.biBitCount / 8);
        return;
    }
    const auto uPacked =
        static_cast<std::uint16_t>((uRgb >> 19 & 31) << 10 | (uRgb >> 11 & 31) << 5 | (uRgb >> 3 & 31));
    std::memcpy(Pixel(x, y), &uPacked, 2);
}

std::uint32_t CTestBitmap::At(int x, int y) const
{
    std::uint32_t uValue = 0;
    std::memcpy(&uValue, const_cast<CTestBitmap*>(this)->Pixel(x, y), info.bmiHeader.biBitCount / 8);
    if (info.bmiHeader.biBitCount != 16)
        return uValue & 0xFFFFFF;
    return Widened(uValue >> 10 & 31) << 16 | Widened(uValue >> 5 & 31) << 8 | Widened(uValue & 31);
}

BOOL CTestHost::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* plResult)
{
    const NMHDR* pNotify = reinterpret_cast<const NMHDR*>(lParam);
    EXPECT_EQ(wParam, reinterpret_cast<WPARAM>(pNotify->hwndFrom));
    EXPECT_EQ(::GetParent(pNotify->hwndFrom), m_hWnd);
    EXPECT_EQ(pNotify->idFrom, static_cast<UINT_PTR>(::GetDlgCtrlID(pNotify->hwndFrom)));
    char szText[16];
    std::snprintf(szText, sizeof(szText), "N%x ", pNotify->code);
    if (pLog)
        *pLog += szText;
    *plResult = answer ? answer(pNotify->code) : 0;
    return TRUE;
}

LRESULT CTestHost::WindowProc(UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_MOUSEWHEEL && pLog)
        *pLog += "parent-wheel ";
    return CWnd::WindowProc(uMessage, wParam, lParam);
}

void CViewTest::SetUp()
{
    m_nHandles = winlite::OpenHandleCount();
    Open(300, 200);
}

void CViewTest::TearDown()
{
    Close();
    EXPECT_EQ(winlite::OpenHandleCount(), m_nHandles);
}

void CViewTest::Open(int cx, int cy)
{
    Close();
    pHost = std::make_unique<CTestHost>();
    ASSERT_TRUE(
        pHost->CreateEx(0, AfxRegisterWndClass(0), L"host", WS_VISIBLE, CRect(10, 20, 10 + cx, 20 + cy), nullptr, 0));
    AfxGetThread()->m_pMainWnd = pHost.get();
    pView = std::make_unique<CTestView>();
    ASSERT_TRUE(pView->Create(CRect(0, 0, cx, cy), pHost.get(), VIEW_ID, BACKGROUND));
    pView->ShowWindow(SW_SHOW);
    Pump();
    pHost->pLog = &strLog;
}

void CViewTest::Close()
{
    if (pView)
        pView->DestroyWindow();
    pView.reset();
    pHost.reset();
    AfxGetThread()->m_pMainWnd = nullptr;
}

void CViewTest::Pump() { static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()).DispatchPending(); }

CTestBitmap& CViewTest::Show(int cx, int cy, int iBitsPixel)
{
    CTestBitmap bitmap = CTestBitmap::Numbered(cx, cy, iBitsPixel);
    EXPECT_TRUE(pView->SetBitmap(bitmap.info, bitmap.vBits.data()));
    return m_Shown = std::move(bitmap);
}

winlite::Picture CViewTest::Screen()
{
    Pump();
    return winlite::WindowPicture(pHost->m_hWnd);
}

std::uint32_t CViewTest::PixelOf(const winlite::Picture& picture, int x, int y)
{
    return picture.vPixels.at(static_cast<std::size_t>(y) * picture.cx + x) & 0xFFFFFF;
}
