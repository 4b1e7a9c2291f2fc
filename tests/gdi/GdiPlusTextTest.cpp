#include "GdiPlusStarted.h"

#include "gdi/RectMath.h"

#include <limits>

using namespace Gdiplus;

namespace
{

class GdiPlusTextTest : public GdiPlusStarted
{
protected:
    RectF Measured(const WCHAR* pszText, INT nLength = -1, const StringFormat* pFormat = nullptr)
    {
        const Font font(FontFamily::GenericSansSerif(), 12, FontStyleBold, UnitPixel);
        RectF rcBounds;
        EXPECT_EQ(Graphics(m_Canvas.hDC).MeasureString(pszText, nLength, &font, {5, 6}, pFormat, &rcBounds), Ok);
        return rcBounds;
    }

    /// Draws on white, and returns the smallest box of what changed.
    RECT Drawn(const WCHAR* pszText, const PointF& ptOrigin, const StringFormat* pFormat = nullptr,
               const Color& color = Color::Black)
    {
        const Font font(FontFamily::GenericSansSerif(), 12, FontStyleBold, UnitPixel);
        const SolidBrush brush(color);
        m_Canvas.pSurface->Fill(m_Canvas.pSurface->Bounds(), 0xFFFFFF);
        m_Canvas.vDamage.clear();
        Graphics graphics(m_Canvas.hDC);
        const auto rgnClip = m_Canvas.pDC->ApplicationClip();
        m_Canvas.pDC->SetClip(winlite::Region()); // which comes too late
        EXPECT_EQ(graphics.DrawString(pszText, -1, &font, ptOrigin, pFormat, &brush), Ok);
        m_Canvas.pDC->SetClip(rgnClip);
        RECT rcChanged = {};
        const Picture picture = m_Canvas.Pixels();
        for (int i = 0; i < static_cast<int>(picture.size()); ++i)
            if (picture[static_cast<std::size_t>(i)] != 0xFFFFFF)
                rcChanged = winlite::UnionBox(rcChanged, {i % 120, i / 120, i % 120 + 1, i / 120 + 1});
        return rcChanged;
    }

    Canvas m_Canvas{120, 60};
};

} // namespace

TEST_F(GdiPlusTextTest, FamiliesAreThoseInstalledUnderTheirOwnName)
{
    ASSERT_TRUE(FontFamily::GenericSansSerif()->IsAvailable()) << "No fonts are installed";
    EXPECT_TRUE(FontFamily(L"DejaVu Sans").IsAvailable());
    EXPECT_TRUE(FontFamily(L"dejavu sans").IsAvailable());
    EXPECT_EQ(FontFamily(L"No Such Family").GetLastStatus(), FontFamilyNotFound);
    EXPECT_FALSE(FontFamily(L"sans-serif").IsAvailable());
    EXPECT_FALSE(FontFamily(L"").IsAvailable());
    EXPECT_EQ(FontFamily(nullptr).GetLastStatus(), InvalidParameter);
    const FontFamily missing(L"No Such Family");
    EXPECT_EQ(Font(&missing, 12, FontStyleRegular, UnitPixel).GetLastStatus(), FontFamilyNotFound);
}

TEST_F(GdiPlusTextTest, MeasuringAddsAdvancesMarginsAndLines)
{
    const Font font(FontFamily::GenericSansSerif(), 12, FontStyleBold, UnitPixel);
    const RectF rcOne = Measured(L"0");
    const REAL fAdvance = rcOne.Width - 4; // Two pixels of margin on either side.
    EXPECT_GT(fAdvance, 4);
    EXPECT_GE(rcOne.Height, 12);
    EXPECT_LE(rcOne.Height, 18);
    EXPECT_EQ(font.GetHeight(nullptr), rcOne.Height);
    const Font fontLarge(FontFamily::GenericSansSerif(), 24, FontStyleBold, UnitPixel);
    RectF rcLarge;
    EXPECT_EQ(Graphics(m_Canvas.hDC).MeasureString(L"0", -1, &fontLarge, {0, 0}, &rcLarge), Ok);
    EXPECT_GT(rcLarge.Width, 1.8F * rcOne.Width);
    EXPECT_GT(rcLarge.Height, 1.8F * rcOne.Height);
    StringFormat formatBlanks(StringFormatFlagsMeasureTrailingSpaces);
    const REAL fBlank = Measured(L"0 0").Width - Measured(L"00").Width;
    EXPECT_GT(fBlank, 1);
    const struct
    {
        const WCHAR* pszText;
        INT nLength;
        const StringFormat* pFormat;
        SizeF szExpected;
    } vCases[] = {
        {L"00", -1, nullptr, {2 * fAdvance + 4, rcOne.Height}},
        {L"00000", 3, nullptr, {3 * fAdvance + 4, rcOne.Height}},
        {L"0  ", -1, nullptr, {rcOne.Width, rcOne.Height}},
        {L"0  ", -1, &formatBlanks, {rcOne.Width + 2 * fBlank, rcOne.Height}},
        {L"0\n000\r\n0", -1, nullptr, {3 * fAdvance + 4, 3 * rcOne.Height}},
        {L"", -1, nullptr, {0, 0}},
        {L"0", 0, nullptr, {0, 0}},
    };
    for (const auto& test : vCases)
    {
        const RectF rc = Measured(test.pszText, test.nLength, test.pFormat);
        EXPECT_EQ(rc, RectF(5, 6, test.szExpected.Width, test.szExpected.Height)) << &test - vCases;
    }
}

TEST_F(GdiPlusTextTest, TextStandsBesideItsPointAsAligned)
{
    const RectF rcMeasured = Measured(L"HHHH");
    const int cx = static_cast<int>(rcMeasured.Width);
    const int cy = static_cast<int>(rcMeasured.Height);
    const RECT rcNear = Drawn(L"HHHH", {60, 30});
    EXPECT_GE(rcNear.left, 62);
    EXPECT_LE(rcNear.left, 64);
    EXPECT_LE(rcNear.right, 60 + cx - 2);
    EXPECT_GE(rcNear.right, 60 + cx - 5);
    EXPECT_GE(rcNear.top, 30);
    EXPECT_LE(rcNear.bottom, 30 + cy);
    EXPECT_GE(rcNear.bottom - rcNear.top, 8);
    const struct
    {
        StringAlignment alignment, lineAlignment;
        const WCHAR* pszText;
        int dx, dy;
    } vCases[] = {
        {StringAlignmentFar, StringAlignmentNear, L"HHHH", -cx, 0},
        {StringAlignmentFar, StringAlignmentNear, L"HHHH \t", -cx, 0},
        {StringAlignmentCenter, StringAlignmentNear, L"HHHH ", -cx / 2, 0},
        {StringAlignmentNear, StringAlignmentFar, L"HHHH", 0, -cy},
        {StringAlignmentNear, StringAlignmentNear, L" \nHHHH", 0, cy},
    };
    for (const auto& test : vCases)
    {
        StringFormat format(StringFormatFlagsNoClip | StringFormatFlagsLineLimit);
        format.SetAlignment(test.alignment);
        format.SetLineAlignment(test.lineAlignment);
        const RECT rcExpected = {rcNear.left + test.dx, rcNear.top + test.dy, rcNear.right + test.dx,
                                 rcNear.bottom + test.dy};
        EXPECT_EQ(Drawn(test.pszText, {60, 30}, &format), rcExpected) << &test - vCases;
    }
}

TEST_F(GdiPlusTextTest, DrawingStaysInTheClipAndIsReported)
{
    const RECT rcWhole = Drawn(L"HHHH", {20, 20});
    ASSERT_EQ(m_Canvas.vDamage.size(), 1u);
    EXPECT_EQ(winlite::UnionBox(m_Canvas.vDamage[0], rcWhole), m_Canvas.vDamage[0]);
    m_Canvas.pDC->SetClip(winlite::Region(RECT{0, 0, 34, 60}));
    EXPECT_EQ(Drawn(L"HHHH", {20, 20}), (RECT{rcWhole.left, rcWhole.top, 34, rcWhole.bottom}));
    EXPECT_EQ(m_Canvas.vDamage[0].right, 34);
    Drawn(L"HHHH", {-1e6F, 20});
    Drawn(L"HHHH", {20, 20}, nullptr, Color(0, 9, 9, 9));
    EXPECT_TRUE(m_Canvas.vDamage.empty());
}

TEST_F(GdiPlusTextTest, ColoursAreLaidOverByCoverageAndAlpha)
{
    // U+2588 fills its whole box, so some pixels are covered entirely.
    Drawn(L"\x2588", {20, 20}, nullptr, Color(51, 255, 0, 0));
    const Picture picture = m_Canvas.Pixels();
    EXPECT_NE(std::find(picture.begin(), picture.end(), 0xFFCCCCu), picture.end());
    Drawn(L"\x2588", {20, 20}, nullptr, Color(255, 1, 2, 3));
    const Picture pictureOpaque = m_Canvas.Pixels();
    EXPECT_NE(std::find(pictureOpaque.begin(), pictureOpaque.end(), 0x010203u), pictureOpaque.end());
}

TEST_F(GdiPlusTextTest, BadArgumentsDrawNothing)
{
    const FontFamily* pFamily = FontFamily::GenericSansSerif();
    const Font font(pFamily, 12, FontStyleRegular, UnitPixel);
    const Font vBadFonts[] = {{nullptr, 12, 0, UnitPixel},
                              {pFamily, 0, 0, UnitPixel},
                              {pFamily, 5000, 0, UnitPixel},
                              {pFamily, 12, 4, UnitPixel}};
    const SolidBrush brush(Color::Black);
    const StringFormat formatUnknown(1);
    const REAL fNaN = std::numeric_limits<REAL>::quiet_NaN();
    RectF rc;
    Graphics graphics(m_Canvas.hDC);
    for (const Font& fontBad : vBadFonts)
        EXPECT_EQ(graphics.DrawString(L"0", -1, &fontBad, {0, 0}, &brush), InvalidParameter);
    EXPECT_EQ(graphics.DrawString(L"0", -1, nullptr, {0, 0}, &brush), InvalidParameter);
    EXPECT_EQ(graphics.DrawString(nullptr, -1, &font, {0, 0}, &brush), InvalidParameter);
    EXPECT_EQ(graphics.DrawString(L"0", -2, &font, {0, 0}, &brush), InvalidParameter);
    EXPECT_EQ(graphics.DrawString(L"0", -1, &font, {fNaN, 0}, &brush), InvalidParameter);
    EXPECT_EQ(graphics.DrawString(L"0", -1, &font, {0, 0}, nullptr), InvalidParameter);
    EXPECT_EQ(graphics.DrawString(L"0", -1, &font, {1e9F, 0}, &brush), ValueOverflow);
    EXPECT_EQ(graphics.DrawString(std::wstring(9000, L'W').c_str(), -1, &font, {0, 0}, &brush), ValueOverflow);
    EXPECT_EQ(graphics.DrawString(L"0", -1, &font, {0, 0}, &formatUnknown, &brush), NotImplemented);
    // What is no character is drawn as something else, here beside the surface.
    EXPECT_EQ(graphics.DrawString(L"0\xD800\x7FFFFFFF", 4, &font, {200, 0}, &brush), Ok);
    EXPECT_EQ(graphics.MeasureString(L"0", -1, &font, {0, 0}, nullptr), InvalidParameter);
    EXPECT_EQ(Graphics(nullptr).MeasureString(L"0", -1, &font, {0, 0}, &rc), InvalidParameter);
    GdiplusShutdown(m_uToken);
    EXPECT_EQ(graphics.DrawString(L"0", -1, &font, {0, 0}, &brush), GdiplusNotInitialized);
    EXPECT_EQ(FontFamily(L"DejaVu Sans").GetLastStatus(), GdiplusNotInitialized);
    EXPECT_EQ(font.GetHeight(nullptr), 0);
    EXPECT_TRUE(m_Canvas.vDamage.empty());
}
