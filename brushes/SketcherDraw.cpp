#include "brushes/Sketcher.h"
#include "view/RoundOutline.h"

namespace Pixtane::EmbeddedTool
{

int Sketcher::OnPrePaint(CDC&, CRect&)
{
    TellWorker(); // A resize or a scroll bar may have moved the picture without telling.
    m_csBitmap.Lock();
    ++m_nPaints;
    return TRUE;
}

int Sketcher::OnPostPaint(CDC& dc, CRect&)
{
    // Given back even if drawing throws: a worker may wait for it.
    const struct Leaving
    {
        Sketcher& sketcher;
        ~Leaving()
        {
            if (sketcher.m_nPaints > 0)
            {
                --sketcher.m_nPaints;
                sketcher.m_csBitmap.Unlock();
            }
        }
    } leaving = {*this};
    DrawPenOutline(dc);
    return TRUE;
}

void Sketcher::LeavePaint()
{
    for (; m_nPaints > 0; --m_nPaints)
        m_csBitmap.Unlock();
}

void Sketcher::DrawPenOutline(CDC& dc)
{
    if (pView->IsWindowEnabled())
        DrawRoundOutline(dc, *pView, BitmapPoint(CursorInView()), m_BuiltPen.iSize, m_iPenScreenSize);
}

int Sketcher::OnSetCursor(CWnd*, UINT, UINT)
{
    constexpr int LARGEST_WITHOUT_CURSOR = 32;
    if (!IsHosted() || m_iPenScreenSize > LARGEST_WITHOUT_CURSOR)
        return FALSE;
    if (!m_bSketching && !IsCursorOverView())
        return FALSE;
    ::SetCursor(nullptr);
    return TRUE;
}

} // namespace Pixtane::EmbeddedTool
