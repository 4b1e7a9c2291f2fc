#include "brushes/PenWeights.h"
#include "brushes/Sketcher.h"
#include "view/Log.h"
#include "view/RoundOutline.h"

namespace Pixtane::EmbeddedTool
{

int Sketcher::SetPen(SketchPen::emStyle eStyle, int iSize, int iHardness, int iStrength)
{
    if (m_bSketching)
    {
        QLWriteLog(QL_INFO, MODULE_NAME, L"Sketcher::SetPen", L"Can't call SetPen() during sketching.");
        return FALSE;
    }
    if (!IsPenComputable(eStyle, iSize, iHardness, iStrength))
    {
        QLWriteLog(QL_INFO, MODULE_NAME, L"Sketcher::SetPen",
                   L"Invalid pen parameters! eStyle = %d, iSize = %d, iHardness = %d", eStyle, iSize, iHardness);
        return FALSE;
    }
    m_Pen.eStyle = eStyle;
    m_Pen.iSize = iSize;
    m_Pen.iHardness = iHardness;
    m_Pen.iStrength = iStrength;
    BuildPen();
    MeasurePen();
    return TRUE;
}

void Sketcher::GetPen(SketchPen::emStyle& eStyle, int& iSize, int& iHardness, int& iStrength) const
{
    eStyle = m_Pen.eStyle;
    iSize = m_Pen.iSize;
    iHardness = m_Pen.iHardness;
    iStrength = m_Pen.iStrength;
}

void Sketcher::RestorePen(const std::vector<DWORD>& vSettings)
{
    m_Pen.eStyle = static_cast<SketchPen::emStyle>(vSettings[0]);
    m_Pen.iSize = static_cast<int>(vSettings[1]);
    m_Pen.iHardness = static_cast<int>(vSettings[2]);
    m_Pen.iStrength = static_cast<int>(vSettings[3]);
}

bool Sketcher::BuildPen()
{
    const PenValues pen = StoredPen();
    if (m_bSketching || !IsPenComputable(pen.iStyle, pen.iSize, pen.iHardness, pen.iStrength))
        return false;
    if (pen == m_BuiltPen)
        return true;
    MakePenWeights(pen.iSize, pen.iHardness, pen.iStrength, m_Pen.vMask, m_bmiPenMask);
    m_BuiltPen = m_Pen.vMask.empty() ? PenValues() : pen;
    const int iHalf = pen.iSize / 2;
    const int iRest = pen.iSize - iHalf - 1;
    m_Pen.ptCenter = CPoint(iHalf, iHalf);
    m_rcPen.SetRect(iHalf, iHalf, iRest, iRest);
    UpdateStampArea();
    return pen == m_BuiltPen;
}

void Sketcher::MeasurePen() { m_iPenScreenSize = RoundScreenSize(m_BuiltPen.iSize, pView ? pView->dbZoom() : 1.0); }

} // namespace Pixtane::EmbeddedTool
