#pragma once

#include "brushes/Sketcher.h"

namespace Pixtane::EmbeddedTool
{

/// A brush that paints an effect of the host's. The parent is asked before each stroke (PVN_EFFECTBRUSH_BEGIN: a reply
/// that is not 0 cancels it) and hears of its end. A stroke keeps the effect that it began with.
class AFX_EXT_CLASS EffectBrush : public Sketcher
{
public:
    /// Changes the pixels of vBits (described by bmi) in place within region.rcRegion, if it likes weighted by
    /// region.vRegionMask, a byte for each bitmap pixel, here all 255. Sizes must stay. It is called on a worker, once
    /// for each batch of points, with pixels as they were before the stroke, and must not touch the view. One that
    /// throws leaves the batch as it was; one that changes the size of vBits ends the drawing of that stroke.
    using EffectCallback = void (*)(std::vector<BYTE>& vBits, BITMAPINFO& bmi, Vorpix::tagPROCESS_REGION& region,
                                    void* pContext);

    EffectBrush();

    /// The effect of the strokes to come, and what identifies it in the settings. NULL paints nothing.
    void SetEffect(GUID& guid, void* pContext, EffectCallback pfnEffect);
    void GetEffectGuid(GUID& guid) { guid = m_guidEffect; }

    const wchar_t* GetToolName() override { return szToolName; }
    void SerializeToolSettings(std::vector<BYTE>& vData) const override;
    int UnserializeToolSettings(const std::vector<BYTE>& vData) override;
    void Reset() override {}
    int OnTimer(UINT_PTR nIDEvent) override;
    int OnLButtonDown(UINT nFlags, CPoint point) override;
    int OnLButtonUp(UINT nFlags, CPoint point) override;
    int OnLButtonDblClk(UINT, CPoint) override { return FALSE; }
    int OnMouseWheel(UINT, short, CPoint) override { return FALSE; }
    int OnKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyDown(UINT, UINT, UINT) override { return FALSE; }
    int OnSysKeyUp(UINT, UINT, UINT) override { return FALSE; }
    int OnCaptureChanged(CWnd* pWnd) override;
    int ProcessLineSegment(std::list<CPoint>& points, CRect& rcDirty) override;

protected:
    void StartSketching(CPoint pt);
    void EndSketching();

    GUID m_guidEffect = {};
    EffectCallback m_pfnEffect = nullptr;
    void* m_pEffectContext = nullptr;

private:
    void EndStroke();

    EffectCallback m_pfnStroke = nullptr; ///< The effect of the stroke that runs.
    void* m_pStrokeContext = nullptr;
    Vorpix::tagPROCESS_REGION m_HostRegion = {}; ///< What the callback is given; the worker's.
};

} // namespace Pixtane::EmbeddedTool
