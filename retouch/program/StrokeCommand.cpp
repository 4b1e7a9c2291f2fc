#include "program/StrokeCommand.h"

#include "document/Document.h"
#include "document/Message.h"
#include "headless/HeadlessDesktop.h"
#include "host/ViewHost.h"
#include "program/Hand.h"
#include "program/PaintTool.h"
#include "program/ToolBox.h"

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

CPoint InWindow(Pixtane::CPixtane& view, CPoint ptBitmap)
{
    view.FromBitmapToWnd(ptBitmap);
    return ptBitmap;
}

} // namespace

bool PaintStroke(ProgramParts& parts, const Points& vPoints, std::string& strError)
{
    const CPainter* const pPainter = parts.tools.Painter();
    if (!dynamic_cast<winlite::HeadlessDesktop*>(&winlite::TheDesktop()))
        strError = Message(QT_TRANSLATE_NOOP("Program", "strokes by command need a session without a display"));
    else if (!pPainter || !parts.document.Photo())
        strError = Message(QT_TRANSLATE_NOOP("Program", "no brush is chosen"));
    if (!strError.empty())
        return false;
    const CCloseLook look(parts.view, vPoints.front());
    CHand hand(parts.host);
    hand.PointTo(InWindow(parts.view, vPoints.front()));
    hand.Button(true);
    const bool bPaints = pPainter->IsPainting();
    for (const CPoint& pt : vPoints)
    {
        if (!bPaints)
            break;
        hand.PointTo(InWindow(parts.view, pt));
        hand.AwaitBrush();
    }
    hand.Button(false);
    if (!bPaints)
        strError = Message(QT_TRANSLATE_NOOP("Program", "the brush cannot paint there, or has no source"));
    return bPaints;
}
