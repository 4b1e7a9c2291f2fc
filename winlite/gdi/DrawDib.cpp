#include "gdi/DrawDib.h"

#include "gdi/Handles.h"
#include "gdi/StretchAxis.h"

using namespace winlite;

namespace
{

class DrawDibObject : public HandleObject
{
};

} // namespace

HDRAWDIB DrawDibOpen() { return OpenTyped<HDRAWDIB>(std::make_shared<DrawDibObject>()); }

BOOL DrawDibClose(HDRAWDIB hDrawDib) { return FindTyped<DrawDibObject>(hDrawDib) && CloseHandleEntry(hDrawDib); }

BOOL DrawDibDraw(HDRAWDIB hDrawDib, HDC hDC, int xDst, int yDst, int dxDst, int dyDst, const BITMAPINFOHEADER* pHeader,
                 const void* pBits, int xSrc, int ySrc, int dxSrc, int dySrc, UINT wFlags)
{
    const auto pDC = FindDC(hDC);
    const auto dib = pHeader ? Dib::From(*pHeader, pBits) : std::nullopt;
    if (!FindTyped<DrawDibObject>(hDrawDib) || !pDC || !dib || wFlags != 0)
        return FALSE;
    const auto SizeOr = [](int nSize, int nWhole) { return nSize == -1 ? nWhole : std::max(nSize, 0); };
    const RECT rcClip = pDC->Clip().Box();
    const AxisSpan destX = {std::int64_t{xDst} + pDC->Origin().x, SizeOr(dxDst, dib->Width())};
    const AxisSpan destY = {std::int64_t{yDst} + pDC->Origin().y, SizeOr(dyDst, dib->Height())};
    const StretchAxis axisX(destX, {xSrc, SizeOr(dxSrc, dib->Width())}, dib->Width(), rcClip.left, rcClip.right);
    const StretchAxis axisY(destY, {ySrc, SizeOr(dySrc, dib->Height())}, dib->Height(), rcClip.top, rcClip.bottom);
    if (axisX.IsEmpty() || axisY.IsEmpty())
        return TRUE;
    pDC->ReportDamage(DrawNearest(pDC->Target(), pDC->Clip(), *dib, axisX.Nearest(), axisY.Nearest()));
    return TRUE;
}
