#include "TestDib.h"

#include "gdi/Dib.h"
#include "gdi/DrawDib.h"

#include <cstring>

namespace
{

class DibTest : public HandleTest
{
protected:
    ~DibTest() override { EXPECT_TRUE(DrawDibClose(m_hDrawDib) && !DrawDibClose(m_hDrawDib)); }

    HDRAWDIB m_hDrawDib = DrawDibOpen();
};

} // namespace

TEST_F(DibTest, OtherFormatsAndSizesAreRefused)
{
    const auto With = [](auto change)
    {
        BITMAPINFOHEADER header = TestDib::Header(4, 4, 32);
        change(header);
        return header;
    };
    const struct
    {
        BITMAPINFOHEADER header;
        bool bTaken;
    } vCases[] = {
        {TestDib::Header(4, 4, 24), true},
        {With([](auto& header) { header.biSizeImage = 1; }), true},
        {With([](auto& header) { header.biSize = 12; }), false},
        {With([](auto& header) { header.biCompression = 3; }), false},
        {With([](auto& header) { header.biClrUsed = 2; }), true}, // a hint, not a table of this format
        {TestDib::Header(4, 4, 8), false},
        {TestDib::Header(0, 4, 32), false},
        {TestDib::Header(4, -4, 32), false},
        {TestDib::Header(0x20000000, 1, 32), false},
        {TestDib::Header(1, 0x7FFFFFFF, 16), false},
        {TestDib::Header(0x8000, 0x4000, 32), false},
    };
    const std::vector<std::uint32_t> vBits(16);
    for (const auto& test : vCases)
    {
        Canvas canvas(4, 4);
        EXPECT_EQ(winlite::Dib::From(test.header, vBits.data()).has_value(), test.bTaken) << test.header.biWidth;
        EXPECT_EQ(DrawDibDraw(m_hDrawDib, canvas.hDC, 0, 0, 4, 4, &test.header, vBits.data(), 0, 0, 4, 4, 0),
                  test.bTaken);
        EXPECT_EQ(canvas.vDamage.empty(), !test.bTaken);
    }
    Canvas canvas(4, 4);
    const BITMAPINFOHEADER header = TestDib::Header(4, 4, 32);
    EXPECT_FALSE(DrawDibDraw(nullptr, canvas.hDC, 0, 0, 4, 4, &header, vBits.data(), 0, 0, 4, 4, 0));
    EXPECT_FALSE(DrawDibDraw(m_hDrawDib, canvas.hDC, 0, 0, 4, 4, &header, nullptr, 0, 0, 4, 4, 0));
}

TEST_F(DibTest, PackedDibsBecomeBitmaps)
{
    Dice dice;
    const TestDib dib(dice, 3, 2, 24);
    std::vector<BYTE> vPacked(1 + sizeof dib.header + dib.vBits.size()); // Begins at an odd address.
    std::memcpy(vPacked.data() + 1, &dib.header, sizeof dib.header);
    std::copy(dib.vBits.begin(), dib.vBits.end(), vPacked.begin() + 1 + sizeof dib.header);
    const HBITMAP hBitmap = CreateBitmapFromPackedDIB(vPacked.data() + 1, vPacked.size() - 1);
    Picture picture(6);
    EXPECT_EQ(GetBitmapBits(hBitmap, 24, picture.data()), 24);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(picture[static_cast<std::size_t>(i)], dib.Pixel(i % 3, i / 3)) << i;
    EXPECT_TRUE(DeleteObject(hBitmap));
    EXPECT_EQ(CreateBitmapFromPackedDIB(vPacked.data() + 1, vPacked.size() - 2), nullptr);
    EXPECT_EQ(CreateBitmapFromPackedDIB(vPacked.data() + 1, 39), nullptr);
}
