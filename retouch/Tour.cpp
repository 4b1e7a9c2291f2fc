#include "retouch/Tour.h"

#include "headless/HeadlessDesktop.h"
#include "retouch/PngFile.h"
#include "user/Window.h"

#include <algorithm>
#include <cstdio>

namespace
{

constexpr SIZE WINDOW_SIZE = {1100, 740};
constexpr DWORD BACKGROUND = RGB(58, 60, 64);

using Picture = winlite::Picture;

void DispatchPending() { static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()).DispatchPending(); }

Picture CropOf(const Picture& picture, const CRect& rc)
{
    Picture crop = {rc.Width(), rc.Height(), {}};
    for (int y = rc.top; y < rc.bottom; ++y)
    {
        const auto itRow = picture.vPixels.begin() + static_cast<std::ptrdiff_t>(y) * picture.cx;
        crop.vPixels.insert(crop.vPixels.end(), itRow + rc.left, itRow + rc.right);
    }
    return crop;
}

Picture EnlargedBy(const Picture& picture, int iFactor)
{
    Picture large = {picture.cx * iFactor, picture.cy * iFactor, {}};
    for (int y = 0; y < large.cy; ++y)
    {
        for (int x = 0; x < large.cx; ++x)
            large.vPixels.push_back(picture.vPixels[static_cast<std::size_t>(y / iFactor) * picture.cx + x / iFactor]);
    }
    return large;
}

bool Write(const std::string& strPath, const Picture& picture, std::string& strError)
{
    return WritePng(strPath, picture.cx, picture.cy, picture.vPixels.data(), strError);
}

/// The 32-bit pixels of a photo or cover, one after the other.
template<class F>
void ForEachPixel(BYTE* pPixels, std::size_t nBytes, F change)
{
    for (BYTE* pPixel = pPixels; pPixel < pPixels + nBytes; pPixel += 4)
        change(pPixel);
}

void Invert(BYTE* pPixel)
{
    for (int i = 0; i < 3; ++i)
        pPixel[i] = static_cast<BYTE>(255 - pPixel[i]);
}

void MakeGrey(BYTE* pPixel)
{
    const auto grey = static_cast<BYTE>((pPixel[0] * 29 + pPixel[1] * 150 + pPixel[2] * 77) / 256);
    std::fill_n(pPixel, 3, grey);
}

} // namespace

/// One stop: its file's name, what is done first, and what is written.
struct CTour::Stop
{
    const char* pszName;
    void (*pArrange)(CTour& tour);
    bool (CTour::*pWrite)(const std::string& strPath, std::string& strError);
};

const CTour::Stop CTour::s_vStops[] = {
    {"whole-image", [](CTour& tour) { tour.ShowWhole(); }, &CTour::WriteWindow},
    {"fit", [](CTour& tour) { tour.ShowFitted(); }, &CTour::WriteWindow},
    {"zoom-1", [](CTour& tour) { tour.ShowCentreAt(1); }, &CTour::WriteWindow},
    {"zoom-2.5", [](CTour& tour) { tour.ShowCentreAt(2.5); }, &CTour::WriteWindow},
    {"zoom-8", [](CTour& tour) { tour.ShowCentreAt(8); }, &CTour::WriteWindow},
    {"scroll-bars-and-corner", [](CTour&) {}, &CTour::WriteCorner},
    {"preview-frozen-while-pixels-change", [](CTour& tour) { tour.FreezePreview(); }, &CTour::WriteWindow},
    {"preview-left", [](CTour& tour) { tour.LeavePreview(); }, &CTour::WriteWindow},
    {"cover-image", [](CTour& tour) { tour.ShowCover(); }, &CTour::WriteWindow},
    {"read-back", [](CTour& tour) { tour.LeaveCover(); }, &CTour::WriteReadBack},
};

CTour::CTour(CPhoto& photo, std::string strFolder) : m_photo(photo), m_strFolder(std::move(strFolder)) {}

CTour::~CTour()
{
    m_view.DestroyWindow();
    AfxGetThread()->m_pMainWnd = nullptr;
}

bool CTour::Play(std::string& strError)
{
    if (!OpenWindow(strError))
        return false;
    int iStop = 0;
    for (const Stop& stop : s_vStops)
    {
        stop.pArrange(*this);
        DispatchPending();
        char szNumber[16];
        std::snprintf(szNumber, sizeof(szNumber), "%02d-", ++iStop);
        if (!(this->*stop.pWrite)(m_strFolder + "/" + szNumber + stop.pszName + ".png", strError))
            return false;
    }
    return true;
}

bool CTour::OpenWindow(std::string& strError)
{
    constexpr UINT VIEW_ID = 1;
    const CRect rcClient(0, 0, WINDOW_SIZE.cx, WINDOW_SIZE.cy);
    if (!m_wndHost.CreateEx(0, AfxRegisterWndClass(0), L"retouch", WS_VISIBLE, rcClient, nullptr, 0) ||
        !m_view.Create(rcClient, &m_wndHost, VIEW_ID, BACKGROUND))
    {
        strError = "the window could not be made";
        return false;
    }
    m_view.ShowWindow(SW_SHOW);
    AfxGetThread()->m_pMainWnd = &m_wndHost;
    if (m_view.SetBitmap(m_photo.Info(), m_photo.Pixels()))
        return true;
    strError = "the view refused the photo";
    return false;
}

void CTour::ShowWhole()
{
    // Small enough to leave a margin all around.
    constexpr double SHARE = 0.6;
    m_view.SetZoom(FitZoom() * SHARE);
}

void CTour::ShowFitted() { m_view.SetZoom(FitZoom()); }

double CTour::FitZoom()
{
    return std::min(static_cast<double>(WINDOW_SIZE.cx) / m_view.iBmpWidth(),
                    static_cast<double>(WINDOW_SIZE.cy) / m_view.iBmpHeight());
}

void CTour::ShowCentreAt(double dbZoom)
{
    m_view.SetZoom(dbZoom);
    CRect rcView;
    m_view.GetClientRect(&rcView);
    const Gdiplus::SizeF szZoomed = m_view.ZoomedSize();
    m_view.SetDispPosition((static_cast<int>(szZoomed.Width) - rcView.Width()) / 2,
                           (static_cast<int>(szZoomed.Height) - rcView.Height()) / 2);
}

void CTour::FreezePreview()
{
    ShowCentreAt(1);
    DispatchPending();
    m_view.EnterPreviewMode();
    ForEachPixel(m_photo.Pixels(), m_photo.ByteCount(), Invert);
    m_view.UpdateBitmap(m_photo.Info(), m_photo.Pixels(), TRUE);
}

void CTour::LeavePreview() { m_view.ExitPreviewMode(); }

void CTour::ShowCover()
{
    // The photo gets its colours back; its cover is without any, and follows the zoom.
    ForEachPixel(m_photo.Pixels(), m_photo.ByteCount(), Invert);
    m_view.UpdateBitmap(m_photo.Info(), m_photo.Pixels(), TRUE);
    std::vector<BYTE>& vCover = m_view.vCoverBmpData();
    vCover.assign(m_photo.Pixels(), m_photo.Pixels() + m_photo.ByteCount());
    ForEachPixel(vCover.data(), vCover.size(), MakeGrey);
    m_view.CoverBmpInfo() = m_photo.Info();
    m_view.ShowCoverImage(TRUE, TRUE);
    ShowCentreAt(2.5);
}

void CTour::LeaveCover()
{
    m_view.ShowCoverImage(FALSE, FALSE);
    ShowFitted();
}

bool CTour::WriteWindow(const std::string& strPath, std::string& strError)
{
    return Write(strPath, winlite::WindowPicture(m_wndHost.m_hWnd), strError);
}

bool CTour::WriteCorner(const std::string& strPath, std::string& strError)
{
    constexpr int SIDE = 150;
    constexpr int FACTOR = 4;
    const CRect rcCorner(WINDOW_SIZE.cx - SIDE, WINDOW_SIZE.cy - SIDE, WINDOW_SIZE.cx, WINDOW_SIZE.cy);
    return Write(strPath, EnlargedBy(CropOf(winlite::WindowPicture(m_wndHost.m_hWnd), rcCorner), FACTOR), strError);
}

bool CTour::WriteReadBack(const std::string& strPath, std::string& strError)
{
    CRect rcShown;
    std::vector<BYTE> vData;
    BITMAPINFO info;
    if (!m_view.GetCurDisplayImage(&rcShown, vData, info))
    {
        strError = "the displayed image could not be read back";
        return false;
    }
    Picture picture = {rcShown.Width(), rcShown.Height(), {}};
    for (int y = picture.cy - 1; y >= 0; --y)
    {
        const auto* pRow =
            reinterpret_cast<const std::uint32_t*>(vData.data()) + static_cast<std::size_t>(y) * picture.cx;
        picture.vPixels.insert(picture.vPixels.end(), pRow, pRow + picture.cx);
    }
    return Write(strPath, picture, strError);
}
