#include "bench/BenchView.h"

#include <cmath>
#include <cstring>
#include <functional>
#include <memory>

CBenchBitmap::CBenchBitmap(int nMegapixels, int iBitsPixel)
    : CBenchBitmap(static_cast<int>(std::sqrt(nMegapixels * 1e6 * 1.5)),
                   static_cast<int>(std::sqrt(nMegapixels * 1e6 / 1.5)), iBitsPixel)
{
}

CBenchBitmap::CBenchBitmap(int cx, int cy, int iBitsPixel)
    : vBits(static_cast<std::size_t>((cx * iBitsPixel + 31) / 32 * 4) * cy)
{
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), cx, cy, 1, static_cast<WORD>(iBitsPixel), BI_RGB, 0, 0, 0, 0, 0};
    std::uint32_t uState = 1;
    for (BYTE& byte : vBits)
    {
        uState = uState * 1664525 + 1013904223;
        byte = static_cast<BYTE>(uState >> 24);
    }
}

CBenchView::CBenchView(int cx, int cy, CBenchBitmap& bitmap, double dbZoom) : m_bitmap(bitmap)
{
    const CRect rc(0, 0, cx, cy);
    host.CreateEx(0, AfxRegisterWndClass(0), L"bench", WS_VISIBLE | WS_CLIPCHILDREN, rc, nullptr, 0);
    view.Create(rc, &host, 1, RGB(58, 60, 64));
    view.ShowWindow(SW_SHOW);
    AfxGetThread()->m_pMainWnd = &host;
    view.SetBitmap(bitmap.info, bitmap.vBits.data());
    view.SetZoom(dbZoom);
    Paint();
}

CBenchView::~CBenchView()
{
    view.DestroyWindow();
    host.DestroyWindow();
    AfxGetThread()->m_pMainWnd = nullptr;
}

void CBenchView::Paint()
{
    view.Invalidate(FALSE);
    view.UpdateWindow();
}

void CBenchView::PaintFresh()
{
    view.UpdateBitmap(m_bitmap.info, m_bitmap.vBits.data(), TRUE);
    view.UpdateWindow();
}

std::function<void()> CopyOf4K()
{
    const auto pSource = std::make_shared<std::vector<std::uint32_t>>(3840 * 2160, 1);
    const auto pDest = std::make_shared<std::vector<std::uint32_t>>(3840 * 2160, 2);
    return [=] { std::memcpy(pDest->data(), pSource->data(), pSource->size() * sizeof(std::uint32_t)); };
}
