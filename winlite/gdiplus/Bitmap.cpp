#include "gdi/Dib.h"
#include "gdiplus/GdiPlus.h"

namespace Gdiplus
{

Bitmap::Bitmap(const BITMAPINFO* pInfo, void* pBits)
{
    if (const auto dib = pInfo ? winlite::Dib::From(pInfo->bmiHeader, pBits) : std::nullopt)
        m_pDib = std::make_unique<winlite::Dib>(*dib);
}

Bitmap::~Bitmap() = default;

UINT Bitmap::GetWidth() { return m_pDib ? static_cast<UINT>(m_pDib->Width()) : 0; }

UINT Bitmap::GetHeight() { return m_pDib ? static_cast<UINT>(m_pDib->Height()) : 0; }

Status Bitmap::GetLastStatus() const { return m_pDib ? Ok : InvalidParameter; }

const winlite::Dib* Bitmap::Pixels() const { return m_pDib.get(); }

} // namespace Gdiplus
