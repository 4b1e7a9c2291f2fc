#include "program/Tour.h"

#include "document/PngFile.h"
#include "headless/HeadlessDesktop.h"
#include "program/CommandText.h"
#include "user/Input.h"
#include "user/Window.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

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

/// What the view shows: its file's name, what is done first, and what is written.
struct CTour::ViewStop
{
    const char* pszName;
    void (*pArrange)(CTour& tour);
    bool (CTour::*pWrite)(const std::string& strPath, std::string& strError);
};

const CTour::ViewStop CTour::s_vViewStops[] = {
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

namespace
{

/// What is done with a selection, at the end.
constexpr TourStop SELECTION_STOPS[] = {
    {"feathered-and-tinted",
     "tool rectangle; feather 0; press 250 250; move 750 750; release; feather-selection 30; tint"},
    {"adjusted-where-selected", "no-tint; brightness-contrast 40 30; hide-outline"},
    {"undone", "show-outline; undo; undo"},
    {"outline-close", "one-to-one; zoom-in; zoom-in"},
};

/// A photo from beginning to end, as the sample asks for it.
constexpr TourStop SESSION[] = {
    {"session-photo", "select-none; revert; fit; tool straighten"},
    {"session-horizon", "horizon crop; press 20 579; move 500 562; move 860 547"},
    {"session-straightened", "release; apply-straighten"},
    {"session-cropped",
     "tool rectangle; rule new; feather 0; press 25 15; move 998 985; release; crop-to-selection; select-none"},
    {"session-spots", "tool spot; spot-size 36; click 90 174; click 405 104; click 584 214; click 485 324; "
                      "click 906 92; click 282 839"},
    {"session-red-eyes-framed", "tool red-eye; red-eye-amount 90; press 140 670; move 300 765"},
    {"session-red-eyes", "release; tool hand"},
    {"session-face-selected", "tool ellipse; feather 40; press 123 560; move 318 935; release"},
    {"session-face-dodged", "tool dodge-burn; range dodge; strength 25; hardness 1; brush-size 300; "
                            "press 185 640; move 185 840; move 250 860; move 260 650; release"},
    {"session-window-cloned-away", "select-none; tool clone; brush-size 205; hardness 95; strength 100; "
                                   "pick-source; click 951 892; press 951 676; move 951 581; release; "
                                   "pick-source; click 951 878; press 951 541; move 951 424; release"},
    {"session-background-blurred", "tool effect; effect blur; brush-size 110; press 370 510; move 600 500; "
                                   "move 860 500; move 600 540; move 370 540; release"},
    {"session-done", "tool hand"},
};

} // namespace

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
    for (const ViewStop& stop : s_vViewStops)
    {
        stop.pArrange(*this);
        DispatchPending();
        if (!WriteStop(stop.pszName, stop.pWrite, strError))
            return false;
    }
    for (const Tool& tool : Tools())
    {
        // A tool that needs a selection says itself when to begin.
        if (!tool.vTour.empty() && !tool.pBegin && !Do(std::string("tool ") + tool.pszWord, strError))
            return false;
        if (!std::ranges::all_of(tool.vTour, [&](const TourStop& stop) { return Play(stop, strError); }))
            return false;
    }
    const auto play = [&](const TourStop& stop) { return Play(stop, strError); };
    return std::ranges::all_of(SELECTION_STOPS, play) && std::ranges::all_of(SESSION, play);
}

bool CTour::Play(const TourStop& stop, std::string& strError)
{
    const auto vSteps = SplitCommands(stop.pszScript, strError);
    return vSteps && std::ranges::all_of(*vSteps, [&](const std::string& str) { return Do(str, strError); }) &&
           WriteStop(stop.pszName, &CTour::WriteWindow, strError);
}

bool CTour::WriteStop(const char* pszName, bool (CTour::*pWrite)(const std::string&, std::string&),
                      std::string& strError)
{
    char szNumber[16];
    std::snprintf(szNumber, sizeof(szNumber), "%02d-", ++m_nWritten);
    return (this->*pWrite)(m_strFolder + "/" + szNumber + pszName + ".png", strError);
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

// ---- a person

bool CTour::Do(const std::string& strStep, std::string& strError)
{
    const bool bDone = UseHand(strStep) || m_retoucher.Execute(strStep, strError);
    DispatchPending();
    return bDone;
}

bool CTour::UseHand(const std::string& strStep)
{
    std::istringstream step(strStep);
    std::string strWord;
    double dX = 0;
    double dY = 0;
    step >> strWord;
    if (strWord == "release")
    {
        m_hand.Button(false);
        return true;
    }
    if ((strWord != "press" && strWord != "move" && strWord != "click") || !(step >> dX >> dY))
        return false;
    constexpr double WHOLE = 1000;
    CRect rcView;
    View().GetClientRect(&rcView);
    m_hand.PointTo(
        CPoint(static_cast<int>(rcView.Width() * dX / WHOLE), static_cast<int>(rcView.Height() * dY / WHOLE)));
    if (strWord != "move")
        m_hand.Button(true);
    if (strWord == "click")
        m_hand.Button(false);
    if (m_retoucher.IsPainting())
        m_hand.AwaitBrush();
    return true;
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
