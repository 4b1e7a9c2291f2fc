#pragma once

#include "gdiplus/Types.h"

#include <string>

// What text is written with. Glyphs come from the fonts that fontconfig finds; nothing here holds on to them, so these
// objects may outlive GDI+'s shutdown.

namespace winlite
{

/// Which font, at which size. Families are UTF-8.
struct FontFace
{
    std::string strFamily;
    float fEmSize = 0; ///< Pixels.
    bool bBold = false;
    bool bItalic = false;
    bool operator==(const FontFace&) const = default;
};

} // namespace winlite

namespace Gdiplus
{

class Graphics;

/// A family among the installed fonts, by its own name in any case: one that would only be substituted is not
/// available, and its last status is FontFamilyNotFound.
class FontFamily
{
public:
    explicit FontFamily(const WCHAR* pszName);
    FontFamily(const FontFamily&) = delete;
    FontFamily& operator=(const FontFamily&) = delete;

    /// What the system shows text in by default; not available only when there are no fonts at all. Never NULL, not to
    /// be deleted.
    static const FontFamily* GenericSansSerif();

    BOOL IsAvailable() const { return m_Status == Ok; }
    Status GetLastStatus() const { return m_Status; }

private:
    FontFamily(std::string strName, Status status);

    friend class Font;
    std::string m_strName;
    Status m_Status;
};

enum FontStyle
{
    FontStyleRegular = 0,
    FontStyleBold = 1,
    FontStyleItalic = 2,
    FontStyleBoldItalic = 3,
};

/// A family at an em height above 0 and up to 4096 pixels (InvalidParameter otherwise), in one of the styles above.
/// Units other than the pixel do not compile.
class Font
{
public:
    Font(const FontFamily* pFamily, REAL fEmSize, INT iStyle, Unit unit);
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    BOOL IsAvailable() const { return m_Status == Ok; }
    Status GetLastStatus() const { return m_Status; }
    REAL GetSize() const { return m_Face.fEmSize; }

    /// From one line of text to the next, whole pixels; 0 when the font is not available.
    REAL GetHeight(const Graphics* pGraphics) const;

private:
    friend class Graphics;
    winlite::FontFace m_Face;
    Status m_Status;
};

enum StringAlignment
{
    StringAlignmentNear = 0,
    StringAlignmentCenter = 1,
    StringAlignmentFar = 2,
};

enum StringFormatFlags
{
    StringFormatFlagsMeasureTrailingSpaces = 0x0800,
    StringFormatFlagsLineLimit = 0x2000, ///< No effect without a layout rectangle, and there is none here.
    StringFormatFlagsNoClip = 0x4000,    ///< Neither has this one.
};

/// How text stands beside its point. NotImplemented, and so drawing with it, for flags other than the ones above.
class StringFormat
{
public:
    explicit StringFormat(INT iFlags = 0);
    StringFormat(const StringFormat&) = delete;
    StringFormat& operator=(const StringFormat&) = delete;

    Status SetFormatFlags(INT iFlags);
    Status SetAlignment(StringAlignment alignment);
    Status SetLineAlignment(StringAlignment alignment);
    INT GetFormatFlags() const { return m_iFlags; }
    StringAlignment GetAlignment() const { return m_Alignment; }
    StringAlignment GetLineAlignment() const { return m_LineAlignment; }
    Status GetLastStatus() const { return m_Status; }

private:
    INT m_iFlags = 0;
    StringAlignment m_Alignment = StringAlignmentNear;
    StringAlignment m_LineAlignment = StringAlignmentNear;
    Status m_Status = Ok;
};

} // namespace Gdiplus
