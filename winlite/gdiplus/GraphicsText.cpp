#include "base/Utf8.h"
#include "gdiplus/ClipScope.h"
#include "gdiplus/Coordinates.h"
#include "gdiplus/GdiPlus.h"
#include "gdiplus/Startup.h"
#include "gdiplus/TextEngine.h"

#include <algorithm>

namespace Gdiplus
{

namespace
{

// Windows adds this part of the em before and after the text.
constexpr REAL MARGINS_PER_EM = 1.0F / 6.0F;

/// How far text of that size begins before the point it is aligned to.
REAL Offset(REAL fSize, StringAlignment alignment) { return fSize * static_cast<REAL>(alignment) / 2; }

/// Text laid out in lines.
struct TextBlock
{
    std::vector<std::shared_ptr<const winlite::TextLine>> vLines;
    REAL fMargin = 0;
    REAL fLineHeight = 0;

    REAL WidthOf(const winlite::TextLine& line) const { return static_cast<REAL>(line.nAdvance) + 2 * fMargin; }
    REAL Height() const { return fLineHeight * static_cast<REAL>(vLines.size()); }
    REAL Width() const
    {
        REAL fWidth = 0;
        for (const auto& pLine : vLines)
            fWidth = std::max(fWidth, WidthOf(*pLine));
        return fWidth;
    }
};

std::wstring_view WithoutTrailingBlanks(std::wstring_view strLine)
{
    const std::size_t iLast = strLine.find_last_not_of(L" \t\r");
    return strLine.substr(0, iLast + 1); // npos + 1 is 0
}

std::wstring_view Given(const WCHAR* pszText, INT nLength)
{
    return nLength < 0 ? std::wstring_view(pszText) : std::wstring_view(pszText, static_cast<std::size_t>(nLength));
}

TextBlock Layout(std::wstring_view strText, const winlite::FontFace& face, const StringFormat& format)
{
    const bool bKeepBlanks = (format.GetFormatFlags() & StringFormatFlagsMeasureTrailingSpaces) != 0;
    winlite::TextEngine& engine = winlite::TextEngine::Get();
    TextBlock block{{}, face.fEmSize * MARGINS_PER_EM, static_cast<REAL>(engine.LineHeight(face))};
    while (!strText.empty() || !block.vLines.empty())
    {
        const std::size_t iEnd = std::min(strText.find(L'\n'), strText.size());
        const std::wstring_view strLine = strText.substr(0, iEnd);
        block.vLines.push_back(
            engine.Line(face, winlite::ToUtf8(bKeepBlanks ? strLine : WithoutTrailingBlanks(strLine))));
        if (iEnd == strText.size())
            break;
        strText.remove_prefix(iEnd + 1);
    }
    return block;
}

Status Draw(const winlite::DeviceContext& dc, const TextBlock& block, const PointF& ptOrigin,
            const StringFormat& format, const Color& color)
{
    REAL y = ptOrigin.Y - Offset(block.Height(), format.GetLineAlignment());
    for (const auto& pLine : block.vLines)
    {
        const REAL x = ptOrigin.X - Offset(block.WidthOf(*pLine), format.GetAlignment()) + block.fMargin;
        if (pLine->bTooLarge || !AreInRange({x, y}))
            return ValueOverflow;
        winlite::PaintMask(dc, pLine->mask, dc.ToSurface(POINT{RoundedToPixel(x), RoundedToPixel(y)}), color);
        y += block.fLineHeight;
    }
    return Ok;
}

} // namespace

/// Whether text can be laid out from these.
Status Graphics::CheckText(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                           const StringFormat& format) const
{
    if (!IsStarted())
        return GdiplusNotInitialized;
    const bool bTextGiven = pszText && nLength >= -1;
    if (!m_pDC || !bTextGiven || !pFont || !pFont->IsAvailable() || !AreFinite({ptOrigin.X, ptOrigin.Y}))
        return InvalidParameter;
    return format.GetLastStatus();
}

Status Graphics::DrawString(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                            const StringFormat* pFormat, const Brush* pBrush)
{
    const StringFormat formatPlain;
    const StringFormat& format = pFormat ? *pFormat : formatPlain;
    m_Status = CheckText(pszText, nLength, pFont, ptOrigin, format);
    if (m_Status == Ok && !pBrush)
        m_Status = InvalidParameter;
    if (m_Status != Ok)
        return m_Status;
    const winlite::ClipScope scope(*m_pDC, m_pClip.get());
    const TextBlock block = Layout(Given(pszText, nLength), pFont->m_Face, format);
    return m_Status = Draw(*m_pDC, block, ptOrigin, format, pBrush->Paint());
}

Status Graphics::DrawString(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                            const Brush* pBrush)
{
    return DrawString(pszText, nLength, pFont, ptOrigin, nullptr, pBrush);
}

Status Graphics::MeasureString(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                               const StringFormat* pFormat, RectF* prcBounds) const
{
    const StringFormat formatPlain;
    const StringFormat& format = pFormat ? *pFormat : formatPlain;
    m_Status = CheckText(pszText, nLength, pFont, ptOrigin, format);
    if (m_Status == Ok && !prcBounds)
        m_Status = InvalidParameter;
    if (m_Status != Ok)
        return m_Status;
    const TextBlock block = Layout(Given(pszText, nLength), pFont->m_Face, format);
    *prcBounds = {ptOrigin.X - Offset(block.Width(), format.GetAlignment()),
                  ptOrigin.Y - Offset(block.Height(), format.GetLineAlignment()), block.Width(), block.Height()};
    return m_Status;
}

Status Graphics::MeasureString(const WCHAR* pszText, INT nLength, const Font* pFont, const PointF& ptOrigin,
                               RectF* prcBounds) const
{
    return MeasureString(pszText, nLength, pFont, ptOrigin, nullptr, prcBounds);
}

} // namespace Gdiplus
