#include "program/EffectTool.h"

#include "pixels/Effects.h"

#include <cstring>

namespace
{

using Apply = void (*)(PixelView pixels, PixelRect region);

struct EffectRow
{
    GUID guid;
    Apply pApply;
};

constexpr unsigned long FAMILY = 0x6b1f0c52;

const EffectRow EFFECTS[EFFECT_COUNT] = {
    {{FAMILY, 0x9a31, 0x4d0e, {0x8c, 0x21, 0x5e, 0x7a, 0x10, 0x33, 0xd4, 0x01}}, &Blur},
    {{FAMILY, 0x9a31, 0x4d0e, {0x8c, 0x21, 0x5e, 0x7a, 0x10, 0x33, 0xd4, 0x02}}, &Sharpen},
    {{FAMILY, 0x9a31, 0x4d0e, {0x8c, 0x21, 0x5e, 0x7a, 0x10, 0x33, 0xd4, 0x03}}, &Mosaic},
    {{FAMILY, 0x9a31, 0x4d0e, {0x8c, 0x21, 0x5e, 0x7a, 0x10, 0x33, 0xd4, 0x04}}, &Saturate},
    {{FAMILY, 0x9a31, 0x4d0e, {0x8c, 0x21, 0x5e, 0x7a, 0x10, 0x33, 0xd4, 0x05}}, &Warm},
    {{FAMILY, 0x9a31, 0x4d0e, {0x8c, 0x21, 0x5e, 0x7a, 0x10, 0x33, 0xd4, 0x06}}, &Denoise},
};

/// The brush's callback; the context is the effect. Worker.
void ApplyEffect(std::vector<BYTE>& vBits, BITMAPINFO& bmi, Vorpix::tagPROCESS_REGION& region, void* pContext)
{
    const BITMAPINFOHEADER& header = bmi.bmiHeader;
    const std::ptrdiff_t nRow = std::ptrdiff_t{header.biWidth} * 4;
    const PixelView pixels = {vBits.data() + nRow * (header.biHeight - 1), header.biWidth, header.biHeight, -nRow};
    const CRect& rc = region.rcRegion;
    static_cast<const EffectRow*>(pContext)->pApply(pixels, {rc.left, rc.top, rc.right, rc.bottom});
}

} // namespace

void CEffectTool::ChooseEffect(int iEffect)
{
    m_iEffect = iEffect;
    EffectRow effect = EFFECTS[iEffect];
    SetEffect(effect.guid, const_cast<EffectRow*>(&EFFECTS[iEffect]), &ApplyEffect);
}

int CEffectTool::UnserializeToolSettings(const std::vector<BYTE>& vData)
{
    if (!EffectBrush::UnserializeToolSettings(vData))
        return FALSE;
    GUID guid = {};
    GetEffectGuid(guid);
    int iEffect = m_iEffect; // Stays when the settings name one that this program does not have.
    for (int i = 0; i < EFFECT_COUNT; ++i)
    {
        if (std::memcmp(&EFFECTS[i].guid, &guid, sizeof(GUID)) == 0)
            iEffect = i;
    }
    ChooseEffect(iEffect);
    return TRUE;
}
