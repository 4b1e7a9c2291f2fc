#include "program/Navigator.h"

#include "pixels/Thumbnail.h"
#include "program/VisiblePart.h"
#include "view/Notifications.h"

#include <algorithm>
#include <utility>

CNavigator::CNavigator(CViewHost& small, CViewHost& large, CRetoucher& retoucher)
    : m_small(small), m_large(large), m_retoucher(retoucher)
{
    m_small.SetName("navigator");
    m_small.SetPressesOnly([] { return true; }); // The second of two fast presses moves the frame, too.
    m_small.View().LoadEmbeddedTool(m_frame);
    // The last window made is the program's main window, which the small one is not to be.
    AfxGetThread()->m_pMainWnd = &m_large;
    m_vSubscriptions = {m_large.Listen(
                            [this](UINT uCode, CPoint) -> LRESULT
                            {
                                if (uCode == Pixtane::PVN_DISPLAYCHANGED)
                                    ShowFrame();
                                return 0;
                            }),
                        m_small.Listen(
                            [this](UINT uCode, CPoint) -> LRESULT
                            {
                                if (uCode == Pixtane::PVN_MOVABLERECT_MOVED)
                                    MoveLarge();
                                else if (uCode == Pixtane::PVN_DISPLAYCHANGED)
                                    ShowFrame();
                                return 0;
                            })};
    m_retoucher.SetFollower([this] { Follow(); });
}

CNavigator::~CNavigator()
{
    m_retoucher.SetFollower({});
    m_vSubscriptions.clear();
    m_small.View().UnloadEmbeddedTool();
    m_small.View().ClearBitmap(FALSE);
}

void CNavigator::Follow()
{
    // Nothing at all otherwise: paints are recorded.
    if (m_large.View().pBmpData() && !IsCurrent())
        ShowFrame();
}

bool CNavigator::IsCurrent() const
{
    return m_picture && m_shown == m_retoucher.Pixels() &&
           CSize(m_picture->Width(), m_picture->Height()) == FittedSize();
}

CSize CNavigator::FittedSize() const
{
    CRect rc;
    m_small.GetClientRect(&rc);
    const CSize szPhoto = PhotoSize();
    const double dScale = std::min({1.0 * rc.Width() / szPhoto.cx, 1.0 * rc.Height() / szPhoto.cy, 1.0});
    return {std::max(1, static_cast<int>(szPhoto.cx * dScale)), std::max(1, static_cast<int>(szPhoto.cy * dScale))};
}

void CNavigator::ShowPhoto()
{
    CPhoto* const pPhoto = m_retoucher.Photo();
    if (!pPhoto || CSize(pPhoto->Width(), pPhoto->Height()) != PhotoSize())
        return; // The view has yet to get it.
    m_shown = m_retoucher.Pixels();
    const CSize sz = FittedSize();
    CPhoto picture(sz.cx, sz.cy);
    Reduce(pPhoto->View(), picture.View());
    const std::optional<CPhoto> old = std::exchange(m_picture, std::move(picture)); // The view shows it until then.
    m_small.View().SetBitmap(m_picture->Info(), m_picture->Pixels());
    m_small.View().SetZoom(1);
}

void CNavigator::ShowFrame()
{
    if (m_large.View().pBmpData() && !IsCurrent())
        ShowPhoto();
    else if (m_small.View().dbZoom() != 1)
        m_small.View().SetZoom(1); // A gesture has changed it.
    const VisiblePart part = VisiblePartOf(m_large.View());
    if (!m_picture || part.rcWindow.IsRectEmpty())
        return;
    const auto reduced = [](int iPixel, int nSmall, int nPixels)
    { return static_cast<int>(1LL * iPixel * nSmall / nPixels); };
    const CSize szPhoto = PhotoSize();
    m_frame.SetRectangle({reduced(part.vColumns.front(), m_picture->Width(), szPhoto.cx),
                          reduced(part.vRows.front(), m_picture->Height(), szPhoto.cy),
                          reduced(part.vColumns.back(), m_picture->Width(), szPhoto.cx),
                          reduced(part.vRows.back(), m_picture->Height(), szPhoto.cy)});
}

void CNavigator::MoveLarge()
{
    if (!m_picture)
        return;
    Pixtane::CPixtane& view = m_large.View();
    CRect rcView;
    view.GetClientRect(&rcView);
    const CPoint ptCentre = m_frame.GetViewCenter();
    const Gdiplus::SizeF szZoomed = view.ZoomedSize();
    const auto position = [](int iSmall, int nSmall, float fZoomed, int nView)
    { return static_cast<int>((iSmall + 0.5) * fZoomed / nSmall - nView / 2.0); };
    view.SetDispPosition(position(ptCentre.x, m_picture->Width(), szZoomed.Width, rcView.Width()),
                         position(ptCentre.y, m_picture->Height(), szZoomed.Height, rcView.Height()));
    // The keys stay with the large view.
    view.SetFocus();
}
