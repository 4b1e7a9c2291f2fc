#include "document/Photo.h"
#include "document/PngFile.h"
#include "PictureFiles.h"

namespace
{

using PhotoTest = CPictureFilesTest;

std::uint32_t PixelAt(CPhoto& photo, int x, int y)
{
    const BYTE* pPixel = photo.Row(y) + 4 * x;
    return qRgb(pPixel[2], pPixel[1], pPixel[0]);
}

bool Near(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b)) < 24;
}

} // namespace

TEST_F(PhotoTest, EveryKindOfPngBecomesBottomUpColour)
{
    QImage half(2, 2, QImage::Format_ARGB32);
    half.fill(qRgba(200, 0, 0, 128));
    half.setPixel(1, 1, qRgba(0, 0, 0, 0));
    QImage deep(2, 2, QImage::Format_RGBX64);
    deep.fill(QColor(10, 20, 30));
    QImage grey(2, 2, QImage::Format_Grayscale8);
    grey.fill(77);
    const struct
    {
        const QImage& image;
        QRgb uTopLeft, uBottomRight;
    } vCases[] = {{half, qRgb(227, 127, 127), qRgb(255, 255, 255)},
                  {deep, qRgb(10, 20, 30), qRgb(10, 20, 30)},
                  {grey, qRgb(77, 77, 77), qRgb(77, 77, 77)}};
    for (const auto& c : vCases)
    {
        std::string strError;
        auto photo = CPhoto::Load(WriteFile("p.png", Encoded(c.image, "png")), strError);
        ASSERT_TRUE(photo) << strError;
        EXPECT_TRUE(Near(PixelAt(*photo, 0, 0), c.uTopLeft));
        EXPECT_TRUE(Near(PixelAt(*photo, 1, 1), c.uBottomRight));
        EXPECT_EQ(photo->Row(1), photo->Pixels()) << "the bottom row comes first";
    }
}

TEST_F(PhotoTest, WhatCannotBeReadIsNamedWithItsReason)
{
    const QByteArray jpeg = Encoded(Tiles(), "jpg");
    const QByteArray png = Encoded(Tiles(), "png");
    const struct
    {
        std::string strPath;
        const char* pszReason;
    } vCases[] = {
        {Path("missing.jpg"), "No such file"},
        {m_folder.string(), "is a folder"},
        {WriteFile("empty.png", {}), "is empty"},
        {WriteFile("text.jpg", "not a picture at all"), "is not a JPEG, PNG or TIFF"},
        {WriteFile("other.bmp", Encoded(Tiles(), "bmp")), "is not a JPEG, PNG or TIFF"},
        {WriteFile("head.jpg", jpeg.left(30)), "is broken"},
        {WriteFile("cut.png", png.left(png.size() / 2)), "is broken"},
        {WriteFile("head.png", png.left(20)), "is broken"},
    };
    for (const auto& c : vCases)
    {
        std::string strError;
        EXPECT_FALSE(CPhoto::Load(c.strPath, strError));
        EXPECT_NE(strError.find(c.strPath), std::string::npos) << strError;
        EXPECT_NE(strError.find(c.pszReason), std::string::npos) << strError;
    }
    std::string strError;
    EXPECT_TRUE(CPhoto::Load(WriteFile("named-wrongly.png", jpeg + "trailing bytes"), strError)) << strError;
    const std::uint32_t uPixel = 0;
    EXPECT_FALSE(WritePng(Path("no/folder.png"), 1, 1, &uPixel, strError));
    EXPECT_NE(strError.find("folder.png"), std::string::npos);
}
