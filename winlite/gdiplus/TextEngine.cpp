#include "gdiplus/TextEngine.h"

#include <fontconfig/fontconfig.h>

namespace winlite
{

namespace
{

// Cairo's pictures end here.
constexpr int MOST_MASK_SIZE = 32767;

// Masks with more pixels than this are made anew each time.
constexpr std::size_t MOST_KEPT_PIXELS = 1 << 18;

template<auto Free>
struct Releaser
{
    void operator()(auto* p) const { Free(p); }
};
using DescriptionPtr = std::unique_ptr<PangoFontDescription, Releaser<pango_font_description_free>>;
using MetricsPtr = std::unique_ptr<PangoFontMetrics, Releaser<pango_font_metrics_unref>>;
using FontPtr = std::unique_ptr<PangoFont, Releaser<g_object_unref>>;
using LayoutPtr = std::unique_ptr<PangoLayout, Releaser<g_object_unref>>;
using OptionsPtr = std::unique_ptr<cairo_font_options_t, Releaser<cairo_font_options_destroy>>;
using CairoSurfacePtr = std::unique_ptr<cairo_surface_t, Releaser<cairo_surface_destroy>>;
using CairoPtr = std::unique_ptr<cairo_t, Releaser<cairo_destroy>>;
using PatternPtr = std::unique_ptr<FcPattern, Releaser<FcPatternDestroy>>;
using ObjectSetPtr = std::unique_ptr<FcObjectSet, Releaser<FcObjectSetDestroy>>;
using FontSetPtr = std::unique_ptr<FcFontSet, Releaser<FcFontSetDestroy>>;

std::unique_ptr<TextEngine>& Engine()
{
    static std::unique_ptr<TextEngine> s_pEngine;
    return s_pEngine;
}

PangoContext* NewContext(PangoFontMap* pFontMap)
{
    PangoContext* pContext = pango_font_map_create_context(pFontMap);
    const OptionsPtr pOptions(cairo_font_options_create());
    cairo_font_options_set_antialias(pOptions.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(pOptions.get(), CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(pOptions.get(), CAIRO_HINT_METRICS_ON);
    pango_cairo_context_set_font_options(pContext, pOptions.get());
    pango_context_set_language(pContext, pango_language_from_string("en"));
    pango_context_set_base_dir(pContext, PANGO_DIRECTION_LTR);
    return pContext;
}

DescriptionPtr Description(const FontFace& face)
{
    DescriptionPtr pDescription(pango_font_description_new());
    pango_font_description_set_family(pDescription.get(), face.strFamily.c_str());
    pango_font_description_set_absolute_size(pDescription.get(), static_cast<double>(face.fEmSize) * PANGO_SCALE);
    pango_font_description_set_weight(pDescription.get(), face.bBold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(pDescription.get(), face.bItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return pDescription;
}

/// Whether the list of installed fonts holds one with an outline, of that family if given. The list, unlike a match,
/// knows no substitutes.
bool IsListed(const std::optional<std::string>& strFamily)
{
    const PatternPtr pPattern(FcPatternCreate());
    FcPatternAddBool(pPattern.get(), FC_OUTLINE, FcTrue);
    if (strFamily)
        FcPatternAddString(pPattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(strFamily->c_str()));
    const ObjectSetPtr pObjects(FcObjectSetBuild(FC_FAMILY, nullptr));
    const FontSetPtr pFonts(FcFontList(nullptr, pPattern.get(), pObjects.get()));
    return pFonts && pFonts->nfont > 0;
}

/// The pixels that the line may touch, from its start on the baseline, with one more around them: hinting may move
/// edges a little.
RECT InkBox(PangoLayoutLine* pLine)
{
    PangoRectangle rcInk;
    pango_layout_line_get_extents(pLine, &rcInk, nullptr);
    if (rcInk.width <= 0 || rcInk.height <= 0)
        return {};
    pango_extents_to_pixels(&rcInk, nullptr);
    return {rcInk.x - 1, rcInk.y - 1, rcInk.x + rcInk.width + 1, rcInk.y + rcInk.height + 1};
}

/// Draws the line into a mask of that box.
CoverageMask Mask(PangoLayoutLine* pLine, const RECT& rcBox)
{
    const int cx = rcBox.right - rcBox.left;
    const int cy = rcBox.bottom - rcBox.top;
    const CairoSurfacePtr pSurface(cairo_image_surface_create(CAIRO_FORMAT_A8, cx, cy));
    {
        const CairoPtr pCairo(cairo_create(pSurface.get()));
        cairo_move_to(pCairo.get(), -rcBox.left, -rcBox.top);
        pango_cairo_show_layout_line(pCairo.get(), pLine);
    }
    cairo_surface_flush(pSurface.get());
    const BYTE* pRow = cairo_image_surface_get_data(pSurface.get());
    if (!pRow)
        return {};
    CoverageMask mask{rcBox, {}};
    mask.vCoverage.reserve(static_cast<std::size_t>(cx) * static_cast<std::size_t>(cy));
    for (int y = 0; y < cy; ++y, pRow += cairo_image_surface_get_stride(pSurface.get()))
        mask.vCoverage.insert(mask.vCoverage.end(), pRow, pRow + cx);
    return mask;
}

} // namespace

TextEngine& TextEngine::Get()
{
    if (!Engine())
        Engine() = std::make_unique<TextEngine>();
    return *Engine();
}

void TextEngine::Release() { Engine().reset(); }

TextEngine::TextEngine() : m_pFontMap(pango_cairo_font_map_new()), m_pContext(NewContext(m_pFontMap)) {}

TextEngine::~TextEngine()
{
    g_object_unref(m_pContext);
    g_object_unref(m_pFontMap);
}

bool TextEngine::HasFamily(const std::string& strName)
{
    if (const bool* pbListed = m_Families.Find(strName))
        return *pbListed;
    return m_Families.Add(strName, !strName.empty() && IsListed(strName));
}

bool TextEngine::HasFonts()
{
    if (!m_bFonts)
        m_bFonts = IsListed(std::nullopt);
    return *m_bFonts;
}

TextEngine::LinePtr TextEngine::Line(const FontFace& face, const std::string& strText)
{
    const LineKey key(face, strText);
    if (const LinePtr* ppLine = m_Lines.Find(key))
        return *ppLine;
    auto pLine = std::make_shared<const TextLine>(Rasterised(face, strText));
    return pLine->mask.vCoverage.size() > MOST_KEPT_PIXELS ? pLine : m_Lines.Add(key, pLine);
}

TextEngine::Metrics TextEngine::MetricsOf(const FontFace& face)
{
    if (const Metrics* pMetrics = m_Metrics.Find(face))
        return *pMetrics;
    return m_Metrics.Add(face, ReadMetrics(face));
}

TextEngine::Metrics TextEngine::ReadMetrics(const FontFace& face) const
{
    const FontPtr pFont(pango_context_load_font(m_pContext, Description(face).get()));
    if (!pFont)
        return {};
    const MetricsPtr pMetrics(pango_font_get_metrics(pFont.get(), pango_context_get_language(m_pContext)));
    const int nAscent = pango_font_metrics_get_ascent(pMetrics.get());
    const int nExtent = nAscent + pango_font_metrics_get_descent(pMetrics.get());
    const int nHeight = std::max(nExtent, pango_font_metrics_get_height(pMetrics.get()));
    return {PANGO_PIXELS_CEIL(nHeight), PANGO_PIXELS(nAscent)};
}

TextLine TextEngine::Rasterised(const FontFace& face, const std::string& strText)
{
    const LayoutPtr pLayout(pango_layout_new(m_pContext));
    pango_layout_set_font_description(pLayout.get(), Description(face).get());
    pango_layout_set_single_paragraph_mode(pLayout.get(), TRUE);
    pango_layout_set_auto_dir(pLayout.get(), FALSE);
    pango_layout_set_text(pLayout.get(), strText.data(), static_cast<int>(strText.size()));
    PangoLayoutLine* pShaped = pango_layout_get_line_readonly(pLayout.get(), 0);
    PangoRectangle rcLogical;
    pango_layout_line_get_extents(pShaped, nullptr, &rcLogical);

    TextLine line;
    line.nAdvance = PANGO_PIXELS_CEIL(rcLogical.width);
    const RECT rcInk = InkBox(pShaped);
    line.bTooLarge = rcInk.right - rcInk.left > MOST_MASK_SIZE || rcInk.bottom - rcInk.top > MOST_MASK_SIZE;
    if (line.bTooLarge || rcInk.left == rcInk.right)
        return line;
    line.mask = Mask(pShaped, rcInk);
    const int nAscent = MetricsOf(face).nAscent;
    line.mask.rcBox.top += nAscent;
    line.mask.rcBox.bottom += nAscent;
    return line;
}

} // namespace winlite
