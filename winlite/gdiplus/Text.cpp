#include "gdiplus/Text.h"

#include "base/Utf8.h"
#include "gdiplus/Startup.h"
#include "gdiplus/TextEngine.h"

namespace Gdiplus
{

namespace
{

constexpr REAL MOST_EM_SIZE = 4096;
constexpr INT KNOWN_FORMAT_FLAGS =
    StringFormatFlagsMeasureTrailingSpaces | StringFormatFlagsLineLimit | StringFormatFlagsNoClip;

Status FamilyStatus(const WCHAR* pszName)
{
    if (!IsStarted())
        return GdiplusNotInitialized;
    if (!pszName)
        return InvalidParameter;
    return winlite::TextEngine::Get().HasFamily(winlite::ToUtf8(pszName)) ? Ok : FontFamilyNotFound;
}

Status GenericStatus()
{
    if (!IsStarted())
        return GdiplusNotInitialized;
    return winlite::TextEngine::Get().HasFonts() ? Ok : FontFamilyNotFound;
}

Status FontStatus(const FontFamily* pFamily, REAL fEmSize, INT iStyle, Unit unit)
{
    if (!IsStarted())
        return GdiplusNotInitialized;
    const bool bSizeFits = fEmSize > 0 && fEmSize <= MOST_EM_SIZE;
    if (!pFamily || !bSizeFits || unit != UnitPixel || (iStyle & ~FontStyleBoldItalic) != 0)
        return InvalidParameter;
    return pFamily->GetLastStatus();
}

bool IsAlignment(StringAlignment alignment)
{
    return alignment == StringAlignmentNear || alignment == StringAlignmentCenter || alignment == StringAlignmentFar;
}

} // namespace

FontFamily::FontFamily(const WCHAR* pszName)
    : m_strName(pszName ? winlite::ToUtf8(pszName) : ""), m_Status(FamilyStatus(pszName))
{
}

FontFamily::FontFamily(std::string strName, Status status) : m_strName(std::move(strName)), m_Status(status) {}

const FontFamily* FontFamily::GenericSansSerif()
{
    static FontFamily s_Family("sans-serif", Ok);
    s_Family.m_Status = GenericStatus();
    return &s_Family;
}

Font::Font(const FontFamily* pFamily, REAL fEmSize, INT iStyle, Unit unit)
    : m_Status(FontStatus(pFamily, fEmSize, iStyle, unit))
{
    if (m_Status == Ok)
        m_Face = {pFamily->m_strName, fEmSize, (iStyle & FontStyleBold) != 0, (iStyle & FontStyleItalic) != 0};
}

REAL Font::GetHeight(const Graphics*) const
{
    const bool bUsable = m_Status == Ok && IsStarted();
    return bUsable ? static_cast<REAL>(winlite::TextEngine::Get().LineHeight(m_Face)) : 0;
}

StringFormat::StringFormat(INT iFlags) { SetFormatFlags(iFlags); }

Status StringFormat::SetFormatFlags(INT iFlags)
{
    m_iFlags = iFlags;
    return m_Status = (iFlags & ~KNOWN_FORMAT_FLAGS) == 0 ? Ok : NotImplemented;
}

Status StringFormat::SetAlignment(StringAlignment alignment)
{
    if (!IsAlignment(alignment))
        return InvalidParameter;
    m_Alignment = alignment;
    return Ok;
}

Status StringFormat::SetLineAlignment(StringAlignment alignment)
{
    if (!IsAlignment(alignment))
        return InvalidParameter;
    m_LineAlignment = alignment;
    return Ok;
}

} // namespace Gdiplus
