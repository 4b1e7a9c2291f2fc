#include "program/StrokeCommand.h"

#include "document/Document.h"
#include "headless/HeadlessDesktop.h"
#include "host/ViewHost.h"
#include "program/Message.h"
#include "program/PaintTool.h"
#include "program/ToolBox.h"
#include "user/Input.h"

namespace
{

/// The view at one to one with a place of the bitmap in its middle; it is put back at the end.
class CCloseLook
{
public:
    CCloseLook(Pixtane::CPixtane& view, CPoint ptBitmap)
        : m_view(view), m_dbZoom(view.dbZoom()), m_ptDispPos(view.ptDispPos())
    {
        CRect rcView;
        view.GetClientRect(&rcView);
        view.SetZoom(1);
        view.SetDispPosition(ptBitmap.x - rcView.Width() / 2, ptBitmap.y - rcView.Height() / 2);
    }
    ~CCloseLook()
    {
        m_view.SetZoom(m_dbZoom);
        m_view.SetDispPosition(m_ptDispPos.X, m_ptDispPos.Y);
    }
    CCloseLook(const CCloseLook&) = delete;
    CCloseLook& operator=(const CCloseLook&) = delete;

private:
    Pixtane::CPixtane& m_view;
    double m_dbZoom;
    Gdiplus::Point m_ptDispPos;
};

/// A hand without a display.
class CHand
{
public:
    CHand(ProgramParts& parts, winlite::HeadlessDesktop& desktop) : m_parts(parts), m_desktop(desktop) {}

    void PointTo(CPoint ptBitmap)
    {
        m_ptScreen = ptBitmap;
        m_parts.view.FromBitmapToWnd(m_ptScreen);
        m_parts.view.ClientToScreen(&m_ptScreen);
        winlite::QueuePointerMove(m_parts.host.m_hWnd, m_ptScreen);
        m_desktop.DispatchPending();
    }
    void Button(bool bDown)
    {
        winlite::QueueButton(m_parts.host.m_hWnd, winlite::MouseButton::Left, bDown, m_ptScreen);
        m_desktop.DispatchPending();
    }
    /// Until the brush's worker has seen where the pointer is: one question may be under way already.
    void AwaitBrush() { m_desktop.WaitUntilWorkersAskedForPointer(2); }

private:
    ProgramParts& m_parts;
    winlite::HeadlessDesktop& m_desktop;
    CPoint m_ptScreen{0, 0};
};

} // namespace

bool PaintStroke(ProgramParts& parts, const Points& vPoints, std::string& strError)
{
    auto* const pDesktop = dynamic_cast<winlite::HeadlessDesktop*>(&winlite::TheDesktop());
    const CPainter* const pPainter = parts.tools.Painter();
    if (!pDesktop)
        strError = Message(QT_TRANSLATE_NOOP("Program", "strokes by command need a session without a display"));
    else if (!pPainter || !parts.document.Photo())
        strError = Message(QT_TRANSLATE_NOOP("Program", "no brush is chosen"));
    if (!strError.empty())
        return false;
    const CCloseLook look(parts.view, vPoints.front());
    CHand hand(parts, *pDesktop);
    hand.PointTo(vPoints.front());
    hand.Button(true);
    const bool bPaints = pPainter->IsPainting();
    for (const CPoint& pt : vPoints)
    {
        if (!bPaints)
            break;
        hand.PointTo(pt);
        hand.AwaitBrush();
    }
    hand.Button(false);
    if (!bPaints)
        strError = Message(QT_TRANSLATE_NOOP("Program", "the brush cannot paint there, or has no source"));
    return bPaints;
}
