#include "retouch/Photo.h"
#include "retouch/PngFile.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <QBuffer>
#include <QImage>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

/// A folder that goes with the test.
class PhotoTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_folder = fs::temp_directory_path() / ("photo-test-" + std::to_string(::getpid()));
        fs::create_directories(m_folder);
    }
    void TearDown() override { fs::remove_all(m_folder); }

    std::string Path(const char* pszName) const { return (m_folder / pszName).string(); }

    std::string WriteFile(const char* pszName, const QByteArray& bytes) const
    {
        std::ofstream(Path(pszName), std::ios::binary).write(bytes.data(), bytes.size());
        return Path(pszName);
    }

    fs::path m_folder;
};

QByteArray Encoded(const QImage& image, const char* pszFormat)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, pszFormat, 100);
    return bytes;
}

/// Three by two tiles of 16 pixels, each of its own colour.
QImage Tiles()
{
    QImage image(48, 32, QImage::Format_RGB32);
    for (int y = 0; y < 32; ++y)
    {
        for (int x = 0; x < 48; ++x)
            image.setPixel(x, y, qRgb(40 + x / 16 * 80, 60 + y / 16 * 120, 30 + (x / 16 + y / 16) % 2 * 150));
    }
    return image;
}

/// A JPEG of the image as a camera stores it that was held so that the viewer must apply that EXIF orientation.
QByteArray StoredWithOrientation(const QImage& upright, int iOrientation)
{
    // What turns the upright picture into the stored one: the inverse of the orientation's own transform.
    static const QTransform TO_STORED[] = {{},
                                           {-1, 0, 0, 1, 0, 0},
                                           {-1, 0, 0, -1, 0, 0},
                                           {1, 0, 0, -1, 0, 0},
                                           {0, 1, 1, 0, 0, 0},
                                           {0, -1, 1, 0, 0, 0},
                                           {0, -1, -1, 0, 0, 0},
                                           {0, 1, -1, 0, 0, 0}};
    QByteArray jpeg = Encoded(upright.transformed(TO_STORED[iOrientation - 1]), "jpg");
    // APP1 with a big-endian TIFF of one entry: tag 0x0112, a short.
    const char szExif[] = "\xFF\xE1\x00\x22"
                          "Exif\0\0"
                          "MM\0\x2A\0\0\0\x08"
                          "\0\x01\x01\x12\0\x03\0\0\0\x01\0";
    QByteArray segment(szExif, sizeof(szExif) - 1);
    segment.append(static_cast<char>(iOrientation)).append("\0\0\0\0\0\0", 6);
    return jpeg.insert(2, segment);
}

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

TEST_F(PhotoTest, AllOrientationsComeUpright)
{
    const QImage upright = Tiles();
    for (int iOrientation = 1; iOrientation <= 8; ++iOrientation)
    {
        std::string strError;
        auto photo = CPhoto::Load(WriteFile("o.jpg", StoredWithOrientation(upright, iOrientation)), strError);
        ASSERT_TRUE(photo) << strError;
        ASSERT_EQ(photo->Width(), 48) << iOrientation;
        ASSERT_EQ(photo->Height(), 32) << iOrientation;
        for (int y = 8; y < 32; y += 16)
        {
            for (int x = 8; x < 48; x += 16)
                EXPECT_TRUE(Near(PixelAt(*photo, x, y), upright.pixel(x, y))) << iOrientation << ": " << x << ", " << y;
        }
    }
}

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
        {WriteFile("text.jpg", "not a picture at all"), "is not a JPEG or PNG"},
        {WriteFile("other.bmp", Encoded(Tiles(), "bmp")), "is not a JPEG or PNG"},
        {WriteFile("cut.jpg", jpeg.left(jpeg.size() - 2)), "is broken"},
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
