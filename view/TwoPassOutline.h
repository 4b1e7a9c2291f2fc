#pragma once

#include "platform/framework.h"

namespace Pixtane
{

/// Lines of one pixel that show on any ground: black, with dashes over them that invert. While it lives, the device
/// context has no brush selected; afterwards it has its pen, brush and mix mode back.
class CTwoPassOutline
{
public:
    /// With dashes of that style of pen.
    explicit CTwoPassOutline(CDC& dc, int iDashes = PS_DASHDOT)
        : m_dc(dc), m_penSolid(PS_SOLID, 1, RGB(0, 0, 0)), m_penDashes(iDashes, 1, RGB(0, 0, 0)),
          m_pOldPen(dc.SelectObject(&m_penSolid)), m_pOldBrush(dc.SelectStockObject(NULL_BRUSH))
    {
    }
    ~CTwoPassOutline()
    {
        m_dc.SelectObject(m_pOldPen);
        m_dc.SelectObject(static_cast<CBrush*>(m_pOldBrush));
    }
    CTwoPassOutline(const CTwoPassOutline&) = delete;
    CTwoPassOutline& operator=(const CTwoPassOutline&) = delete;

    /// Calls draw twice: in the mix mode there is, then with inverting dashes.
    template<class F>
    void Draw(F draw)
    {
        m_dc.SelectObject(&m_penSolid);
        draw();
        m_dc.SelectObject(&m_penDashes);
        DrawInverting(draw);
        m_dc.SelectObject(&m_penSolid);
    }

    /// Calls draw once, with a pen that inverts: the solid one unless in the second pass of Draw.
    template<class F>
    void DrawInverting(F draw)
    {
        const int iOldMode = m_dc.SetROP2(R2_NOTXORPEN);
        draw();
        m_dc.SetROP2(iOldMode);
    }

private:
    CDC& m_dc;
    CPen m_penSolid;
    CPen m_penDashes;
    CPen* m_pOldPen;
    CGdiObject* m_pOldBrush;
};

} // namespace Pixtane
