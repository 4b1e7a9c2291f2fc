#include "program/Tour.h"

#include "document/PngFile.h"
#include "headless/HeadlessDesktop.h"
#include "user/Input.h"
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
    {"rectangle-being-drawn",
     [](CTour& tour)
     {
         tour.Do("tool rectangle");
         tour.Draw({{0.7, 0.7}, {0.35, 0.3}});
     },
     &CTour::WriteWindow},
    {"rectangle", [](CTour& tour) { tour.Button(false); }, &CTour::WriteWindow},
    {"ellipse-being-added",
     [](CTour& tour)
     {
         tour.Do("tool ellipse");
         tour.Do("rule add");
         tour.Draw({{0.55, 0.2}, {0.85, 0.55}});
     },
     &CTour::WriteWindow},
    {"ellipse-added", [](CTour& tour) { tour.Button(false); }, &CTour::WriteWindow},
    {"lasso-being-subtracted",
     [](CTour& tour)
     {
         tour.Do("tool lasso");
         tour.Do("rule subtract");
         tour.Draw({{0.4, 0.4}, {0.45, 0.35}, {0.5, 0.37}, {0.53, 0.45}, {0.5, 0.55}, {0.43, 0.53}});
     },
     &CTour::WriteWindow},
    {"lasso-subtracted", [](CTour& tour) { tour.Button(false); }, &CTour::WriteWindow},
    {"polygon-being-intersected",
     [](CTour& tour)
     {
         tour.Do("tool polygon");
         tour.Do("rule intersect");
         for (const Place place : {Place{0.3, 0.25}, Place{0.9, 0.3}, Place{0.6, 0.9}})
             tour.Drag(place, place);
         tour.PointTo({0.45, 0.75});
     },
     &CTour::WriteWindow},
    {"polygon-intersected",
     [](CTour& tour) {
         tour.Drag({0.3, 0.25}, {0.3, 0.25});
     },
     &CTour::WriteWindow},
    {"feathered-and-tinted",
     [](CTour& tour)
     {
         tour.Do("feather-selection 30");
         tour.Do("tint");
     },
     &CTour::WriteWindow},
    {"adjusted-where-selected",
     [](CTour& tour)
     {
         tour.Do("no-tint");
         tour.Do("brightness-contrast 40 30");
         tour.Do("hide-outline");
     },
     &CTour::WriteWindow},
    {"undone",
     [](CTour& tour)
     {
         tour.Do("show-outline");
         tour.Do("undo");
         tour.Do("undo");
     },
     &CTour::WriteWindow},
    {"outline-at-zoom-8", [](CTour& tour) { tour.ShowCentreAt(8); }, &CTour::WriteWindow},
    {"wand",
     [](CTour& tour)
     {
         tour.ShowFitted();
         tour.Do("select-none");
         tour.Do("tool wand");
         tour.Do("rule new");
         tour.Do("tolerance 20");
         tour.Drag({0.45, 0.15}, {0.45, 0.15});
     },
     &CTour::WriteWindow},
    {"wand-with-more-tolerance", [](CTour& tour) { tour.Do("tolerance 45"); }, &CTour::WriteWindow},
    {"wand-inverted", [](CTour& tour) { tour.Do("invert"); }, &CTour::WriteWindow},
    {"colour-range-tinted",
     [](CTour& tour)
     {
         tour.Do("select-none");
         tour.Do("tolerance 30");
         tour.Do("pick-colour");
         tour.Drag({0.5, 0.6}, {0.5, 0.6});
         tour.Do("tint");
     },
     &CTour::WriteWindow},
    {"feathered-selection-to-transform",
     [](CTour& tour)
     {
         tour.Do("no-tint");
         tour.Do("select-none");
         tour.Do("tool ellipse");
         tour.Do("feather 20");
         tour.Drag({0.3, 0.3}, {0.5, 0.6});
         tour.Do("tool transform");
     },
     &CTour::WriteWindow},
    {"transform-being-dragged",
     [](CTour& tour) {
         tour.Draw({{0.4, 0.45}, {0.6, 0.5}});
     },
     &CTour::WriteWindow},
    {"transform-moved", [](CTour& tour) { tour.Button(false); }, &CTour::WriteWindow},
    {"transform-by-numbers-tinted",
     [](CTour& tour)
     {
         const int cx = tour.View().iBmpWidth();
         const int cy = tour.View().iBmpHeight();
         tour.Do("transform-to " + std::to_string(cx / 4) + " " + std::to_string(cy / 3) + " " +
                 std::to_string(cx / 2) + " " + std::to_string(cy / 4));
         tour.Do("tint");
     },
     &CTour::WriteWindow},
    {"transform-applied",
     [](CTour& tour)
     {
         tour.Do("no-tint");
         tour.Do("apply-transform");
     },
     &CTour::WriteWindow},
};

CTour::CTour(CPhoto photo, std::string strFolder) : m_strFolder(std::move(strFolder))
{
    m_host.MoveWindow(0, 0, WINDOW_SIZE.cx, WINDOW_SIZE.cy);
    m_host.ShowWindow(SW_SHOW);
    winlite::QueueActivation(m_host.m_hWnd, true);
    m_retoucher.ShowPhoto(std::move(photo));
    DispatchPending();
}

bool CTour::Play(std::string& strError)
{
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

void CTour::ShowWhole()
{
    // Small enough to leave a margin all around.
    constexpr double SHARE = 0.6;
    View().SetZoom(FitZoom() * SHARE);
}

void CTour::ShowFitted() { View().SetZoom(FitZoom()); }

double CTour::FitZoom()
{
    return std::min(static_cast<double>(WINDOW_SIZE.cx) / View().iBmpWidth(),
                    static_cast<double>(WINDOW_SIZE.cy) / View().iBmpHeight());
}

void CTour::ShowCentreAt(double dbZoom)
{
    View().SetZoom(dbZoom);
    CRect rcView;
    View().GetClientRect(&rcView);
    const Gdiplus::SizeF szZoomed = View().ZoomedSize();
    View().SetDispPosition((static_cast<int>(szZoomed.Width) - rcView.Width()) / 2,
                           (static_cast<int>(szZoomed.Height) - rcView.Height()) / 2);
}

void CTour::FreezePreview()
{
    ShowCentreAt(1);
    DispatchPending();
    View().EnterPreviewMode();
    ForEachPixel(m_retoucher.Photo()->Pixels(), m_retoucher.Photo()->ByteCount(), Invert);
    View().UpdateBitmap(m_retoucher.Photo()->Info(), m_retoucher.Photo()->Pixels(), TRUE);
}

void CTour::LeavePreview() { View().ExitPreviewMode(); }

void CTour::ShowCover()
{
    // The photo gets its colours back; its cover is without any, and follows the zoom.
    ForEachPixel(m_retoucher.Photo()->Pixels(), m_retoucher.Photo()->ByteCount(), Invert);
    View().UpdateBitmap(m_retoucher.Photo()->Info(), m_retoucher.Photo()->Pixels(), TRUE);
    std::vector<BYTE>& vCover = View().vCoverBmpData();
    vCover.assign(m_retoucher.Photo()->Pixels(), m_retoucher.Photo()->Pixels() + m_retoucher.Photo()->ByteCount());
    ForEachPixel(vCover.data(), vCover.size(), MakeGrey);
    View().CoverBmpInfo() = m_retoucher.Photo()->Info();
    View().ShowCoverImage(TRUE, TRUE);
    ShowCentreAt(2.5);
}

void CTour::LeaveCover()
{
    View().ShowCoverImage(FALSE, FALSE);
    ShowFitted();
}

// ---- a person's hand

void CTour::Do(const std::string& strCommand)
{
    std::string strError;
    m_retoucher.Execute(strCommand, strError);
    DispatchPending();
}

void CTour::PointTo(Place place)
{
    CRect rcView;
    View().GetClientRect(&rcView);
    CPoint pt(static_cast<int>(rcView.Width() * place.dX), static_cast<int>(rcView.Height() * place.dY));
    View().ClientToScreen(&pt);
    m_ptPointer = pt;
    winlite::QueuePointerMove(m_host.m_hWnd, m_ptPointer);
    DispatchPending();
}

void CTour::Button(bool bDown)
{
    winlite::QueueButton(m_host.m_hWnd, winlite::MouseButton::Left, bDown, m_ptPointer);
    DispatchPending();
}

void CTour::Draw(const std::vector<Place>& vPlaces)
{
    PointTo(vPlaces.front());
    Button(true);
    for (const Place& place : vPlaces)
        PointTo(place);
}

void CTour::Drag(Place from, Place to)
{
    Draw({from, to});
    Button(false);
}

// ---- pictures

bool CTour::WriteWindow(const std::string& strPath, std::string& strError)
{
    return Write(strPath, winlite::WindowPicture(m_host.m_hWnd), strError);
}

bool CTour::WriteCorner(const std::string& strPath, std::string& strError)
{
    constexpr int SIDE = 150;
    constexpr int FACTOR = 4;
    const CRect rcCorner(WINDOW_SIZE.cx - SIDE, WINDOW_SIZE.cy - SIDE, WINDOW_SIZE.cx, WINDOW_SIZE.cy);
    return Write(strPath, EnlargedBy(CropOf(winlite::WindowPicture(m_host.m_hWnd), rcCorner), FACTOR), strError);
}

bool CTour::WriteReadBack(const std::string& strPath, std::string& strError)
{
    CRect rcShown;
    std::vector<BYTE> vData;
    BITMAPINFO info;
    if (!View().GetCurDisplayImage(&rcShown, vData, info))
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
