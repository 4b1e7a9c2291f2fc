#pragma once

#include "gdiplus/Painting.h"
#include "gdiplus/RecentCache.h"
#include "gdiplus/Text.h"

#include <memory>
#include <optional>
#include <pango/pangocairo.h>

namespace winlite
{

/// One line of text, ready to be drawn any number of times. The mask counts from the line's start and its top.
struct TextLine
{
    int nAdvance = 0;
    bool bTooLarge = false; ///< Then there is no mask.
    CoverageMask mask;
};

/// Gives text its shape, through pango and cairo. Rendering is fixed here (grey levels, light hinting, whole-pixel
/// advances, no locale), so that the same fonts give the same pixels everywhere. What was used lately is kept: a label
/// with a halo is rasterised once. User-interface thread only.
class TextEngine
{
public:
    /// The one engine, made when first asked for.
    static TextEngine& Get();

    /// Drops the engine with all it holds.
    static void Release();

    TextEngine();
    ~TextEngine();
    TextEngine(const TextEngine&) = delete;
    TextEngine& operator=(const TextEngine&) = delete;

    /// Whether the family is installed under this name (any case), substitutes not counted.
    bool HasFamily(const std::string& strName);

    /// Whether anything can be written at all.
    bool HasFonts();

    /// From one line to the next.
    int LineHeight(const FontFace& face) { return MetricsOf(face).nHeight; }

    /// The line, whose text (UTF-8) holds no line ends.
    std::shared_ptr<const TextLine> Line(const FontFace& face, const std::string& strText);

private:
    struct Metrics
    {
        int nHeight = 0;
        int nAscent = 0;
    };
    using LineKey = std::pair<FontFace, std::string>;
    using LinePtr = std::shared_ptr<const TextLine>;

    Metrics MetricsOf(const FontFace& face);
    Metrics ReadMetrics(const FontFace& face) const;
    TextLine Rasterised(const FontFace& face, const std::string& strText);

    PangoFontMap* m_pFontMap;
    PangoContext* m_pContext;
    std::optional<bool> m_bFonts;
    RecentCache<std::string, bool> m_Families{64};
    RecentCache<FontFace, Metrics> m_Metrics{16};
    RecentCache<LineKey, LinePtr> m_Lines{64};
};

} // namespace winlite
