#pragma once

#include "gdi/DashPattern.h"
#include "gdi/DeviceContext.h"
#include "gdi/LinePath.h"
#include "gdi/Rop2.h"

#include <vector>

namespace winlite
{

/// One figure drawn with a device context's pen, raster operation and background, within its clip region; positions are
/// the surface's. Dashes run on from path to path. A pen wider than 1 marks a square around each pixel, reaching one
/// pixel further up and left when the width is even, and the figure's squares are drawn as one by Finish.
class Stroke
{
public:
    /// Dashes start nDashPosition pixels into their pattern.
    explicit Stroke(const DeviceContext& dc, std::uint64_t nDashPosition = 0);

    void Draw(const PixelPath& path);

    /// Draws a line; a wide pen's also when nothing is left of it without its end.
    void Line(POINT ptFrom, POINT ptTo, LineEnd end = LineEnd::Excluded);

    /// Draws what is left to draw and reports the damage. Nothing may be drawn afterwards.
    void Finish();

    std::uint64_t DashPosition() const { return m_nDashPosition; }

    /// How far the pen reaches to the left of and above a path, and to the right of and below it.
    int ReachBefore() const { return m_pPen->iWidth / 2; }
    int ReachAfter() const { return (m_pPen->iWidth - 1) / 2; }

    bool IsNull() const { return m_pPen->iStyle == PS_NULL; }

private:
    bool IsWide() const { return m_pPen->iWidth > 1; }
    void DrawThin(const PixelPath& path);
    void DrawSteps(const PixelPath& path, const Steps& steps) const;
    void Widen(const PixelPath& path);
    void AddSquare(const RECT& rc);
    void NoteDamage(const RECT& rc);

    const DeviceContext& m_dc;
    std::shared_ptr<const PenObject> m_pPen;
    DashPattern m_Dashes;
    Rop2 m_rop2Dash;
    Rop2 m_rop2Gap;
    std::uint64_t m_nDashPosition;
    std::vector<RECT> m_vSquares; ///< What a wide pen covers.
    std::vector<RECT> m_vDamage;
};

} // namespace winlite
