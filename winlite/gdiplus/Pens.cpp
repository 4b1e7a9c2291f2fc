#include "gdiplus/Pens.h"

#include <cmath>

namespace Gdiplus
{

Status SolidBrush::GetColor(Color* pColor) const
{
    if (!pColor)
        return InvalidParameter;
    *pColor = m_Color;
    return Ok;
}

Status SolidBrush::SetColor(const Color& color)
{
    m_Color = color;
    return Ok;
}

Pen::Pen(const Color& color, REAL fWidth) : m_Color(color), m_fWidth(fWidth)
{
    if (!std::isfinite(fWidth) || fWidth < 0)
        m_Status = InvalidParameter;
}

Status Pen::GetColor(Color* pColor) const
{
    if (!pColor)
        return InvalidParameter;
    *pColor = m_Color;
    return Ok;
}

Status Pen::SetColor(const Color& color)
{
    m_Color = color;
    return Ok;
}

} // namespace Gdiplus
