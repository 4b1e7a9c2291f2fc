#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <unistd.h>

/// A folder that goes with the test.
class CPictureFilesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_folder = std::filesystem::temp_directory_path() / ("pictures-" + std::to_string(::getpid()));
        std::filesystem::create_directories(m_folder);
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    std::string Path(const char* pszName) const { return (m_folder / pszName).string(); }

    std::string WriteFile(const char* pszName, const QByteArray& bytes) const
    {
        std::ofstream(Path(pszName), std::ios::binary).write(bytes.data(), bytes.size());
        return Path(pszName);
    }

    static QByteArray ReadFile(const std::string& strPath)
    {
        QFile file(QString::fromStdString(strPath));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << strPath;
        return file.readAll();
    }

    std::filesystem::path m_folder;
};

inline QByteArray Encoded(const QImage& image, const char* pszFormat)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, pszFormat, 100);
    return bytes;
}

/// Three by two tiles of 16 pixels, each of its own colour.
inline QImage Tiles()
{
    QImage image(48, 32, QImage::Format_RGB32);
    for (int y = 0; y < 32; ++y)
    {
        for (int x = 0; x < 48; ++x)
            image.setPixel(x, y, qRgb(40 + x / 16 * 80, 60 + y / 16 * 120, 30 + (x / 16 + y / 16) % 2 * 150));
    }
    return image;
}

/// The image as a camera stores it that was held so that the viewer must apply that EXIF orientation: turned by the
/// inverse of the orientation's own transform.
inline QImage StoredImage(const QImage& upright, int iOrientation)
{
    static const QTransform TO_STORED[] = {{},
                                           {-1, 0, 0, 1, 0, 0},
                                           {-1, 0, 0, -1, 0, 0},
                                           {1, 0, 0, -1, 0, 0},
                                           {0, 1, 1, 0, 0, 0},
                                           {0, -1, 1, 0, 0, 0},
                                           {0, -1, -1, 0, 0, 0},
                                           {0, 1, -1, 0, 0, 0}};
    return upright.transformed(TO_STORED[iOrientation - 1]);
}
