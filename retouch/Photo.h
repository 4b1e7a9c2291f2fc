#pragma once

#include "platform/framework.h"

#include <optional>
#include <string>
#include <vector>

/// A photo as the view wants it: one bottom-up buffer of 32 bits a pixel (blue, green, red, unused), upright.
class CPhoto
{
public:
    /// A black photo.
    CPhoto(int cx, int cy);

    /// Reads a JPEG or PNG file, turned upright as its EXIF orientation says; transparent parts become white. Nothing
    /// on failure, with a message that names the file and the reason.
    static std::optional<CPhoto> Load(const std::string& strPath, std::string& strError);

    int Width() const { return m_info.bmiHeader.biWidth; }
    int Height() const { return m_info.bmiHeader.biHeight; }
    BITMAPINFO& Info() { return m_info; }
    BYTE* Pixels() { return m_vPixels.data(); }
    std::size_t ByteCount() const { return m_vPixels.size(); }

    /// The first byte of a row; row 0 is the top of the picture.
    BYTE* Row(int y) { return m_vPixels.data() + static_cast<std::size_t>(Height() - 1 - y) * Width() * 4; }

private:
    BITMAPINFO m_info = {};
    std::vector<BYTE> m_vPixels;
};
