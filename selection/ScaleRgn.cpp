#include "selection/ScaleRgn.h"

#include "selection/RegionRects.h"
#include "view/OutOfMemory.h"
#include "view/Rounding.h"

namespace Pixtane
{

namespace
{

float Scaled(LONG iEdge, float fFactor) { return static_cast<float>(iEdge) * fFactor; }

/// One axis of the region: edges run from iLow to iHigh.
struct ScaledAxis
{
    LONG iBoxLow;
    LONG iBoxHigh;
    float fFactor;
    int iRoundMode;

    /// What the scaled box begins with after its whole pixels.
    float Fraction() const
    {
        const float fLow = Scaled(iBoxLow, fFactor);
        return fLow - static_cast<float>(FloorLike(fLow));
    }

    LONG Low(LONG iEdge, float fFraction) const
    {
        const bool bUp = iRoundMode == SCALE_KEEPS_BOX ? iEdge == iBoxLow : !(fFraction > 0);
        const float fEdge = Scaled(iEdge, fFactor);
        return bUp ? CeilingLike(fEdge) : FloorLike(fEdge);
    }

    LONG High(LONG iEdge, float fFraction) const
    {
        const float fEdge = Scaled(iEdge, fFactor);
        if (iRoundMode == SCALE_KEEPS_BOX)
            return iEdge == iBoxHigh ? FloorLike(fEdge) : CeilingLike(fEdge);
        return CeilingLike(fEdge - fFraction);
    }
};

void ScaleRects(CRegionRects& rects, const RECT& rcBox, float sx, float sy, int iRoundMode)
{
    const ScaledAxis axisX = {rcBox.left, rcBox.right, sx, iRoundMode};
    const ScaledAxis axisY = {rcBox.top, rcBox.bottom, sy, iRoundMode};
    const float fFractionX = axisX.Fraction();
    const float fFractionY = axisY.Fraction();
    for (RECT& rc : rects.Rects())
        rc = {axisX.Low(rc.left, fFractionX), axisY.Low(rc.top, fFractionY), axisX.High(rc.right, fFractionX),
              axisY.High(rc.bottom, fFractionY)};
}

} // namespace

int ScaleRgn(const CRgn& rgnSrc, CRgn& rgnDst, float sx, float sy, int iRoundMode)
try
{
    if (!rgnSrc.GetSafeHandle() || !(sx > 0) || !(sy > 0))
        return 0;
    rgnDst.DeleteObject();
    CRect rcBox(0, 0, 0, 0);
    rgnSrc.GetRgnBox(&rcBox);
    auto rects = CRegionRects::Read(rgnSrc);
    if (!rects)
        return 0;
    ScaleRects(*rects, rcBox, sx, sy, iRoundMode);
    return rects->CreateRegion(rgnDst);
}
catch (...)
{
    RethrowUnlessOutOfMemory();
    return 0;
}

} // namespace Pixtane
