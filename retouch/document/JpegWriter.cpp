#include "document/JpegWriter.h"

#include "document/JpegErrors.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace
{

constexpr int ROWS_BETWEEN_REPORTS = 64;

/// An encoder, and the bytes it makes; goes through plain memory because errors jump.
struct Encoder
{
    JpegErrors errors;
    jpeg_compress_struct jpeg = {};
    unsigned char* pBytes = nullptr;
    unsigned long nBytes = 0;

    Encoder() { jpeg.err = &errors.manager; }
    ~Encoder()
    {
        jpeg_destroy_compress(&jpeg);
        std::free(pBytes);
    }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;
};

/// The factors without what they have in common: a file that keeps its components apart may have larger ones than one
/// that mixes them, which this encoder writes.
std::vector<JpegCoding::Factors> Reduced(std::vector<JpegCoding::Factors> vSampling)
{
    int iWide = 0;
    int iHigh = 0;
    for (const auto& factors : vSampling)
    {
        iWide = std::gcd(iWide, factors.iHorizontal);
        iHigh = std::gcd(iHigh, factors.iVertical);
    }
    for (auto& factors : vSampling)
        factors = {factors.iHorizontal / iWide, factors.iVertical / iHigh};
    return vSampling;
}

/// Whether the encoder can write a colour picture with this sampling: it makes samples coarser by whole factors only.
bool CanRepeat(const std::vector<JpegCoding::Factors>& vSampling)
{
    int iMostWide = 1;
    int iMostHigh = 1;
    int nBlocks = 0;
    for (const auto& factors : vSampling)
    {
        iMostWide = std::max(iMostWide, factors.iHorizontal);
        iMostHigh = std::max(iMostHigh, factors.iVertical);
        nBlocks += factors.iHorizontal * factors.iVertical;
    }
    return vSampling.size() == 3 && nBlocks <= C_MAX_BLOCKS_IN_MCU &&
           std::ranges::all_of(vSampling, [&](const auto& factors)
                               { return iMostWide % factors.iHorizontal == 0 && iMostHigh % factors.iVertical == 0; });
}

void SetCoding(jpeg_compress_struct& jpeg, const JpegCoding& coding)
{
    const auto vSampling = Reduced(coding.vSampling);
    for (std::size_t i = 0; CanRepeat(vSampling) && i < vSampling.size(); ++i)
    {
        jpeg.comp_info[i].h_samp_factor = vSampling[i].iHorizontal;
        jpeg.comp_info[i].v_samp_factor = vSampling[i].iVertical;
    }
    jpeg.write_JFIF_header = coding.bHasJfif;
    jpeg.density_unit = static_cast<UINT8>(coding.iDensityUnit);
    jpeg.X_density = static_cast<UINT16>(coding.iDensityX);
    jpeg.Y_density = static_cast<UINT16>(coding.iDensityY);
}

void WriteHeader(jpeg_compress_struct& jpeg, PixelView picture, const JpegTarget& target)
{
    jpeg.image_width = static_cast<JDIMENSION>(picture.cx);
    jpeg.image_height = static_cast<JDIMENSION>(picture.cy);
    jpeg.input_components = 4;
    jpeg.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&jpeg);
    jpeg_set_quality(&jpeg, std::clamp(target.iQuality, 1, 100), TRUE);
    if (target.coding)
        SetCoding(jpeg, *target.coding);
    jpeg_start_compress(&jpeg, TRUE);
    for (const JpegSegment& segment : target.vSegments)
        jpeg_write_marker(&jpeg, segment.iMarker, reinterpret_cast<const JOCTET*>(segment.data.constData()),
                          static_cast<unsigned int>(segment.data.size()));
    if (!target.profile.isEmpty())
        jpeg_write_icc_profile(&jpeg, reinterpret_cast<const JOCTET*>(target.profile.constData()),
                               static_cast<unsigned int>(target.profile.size()));
}

bool Write(Encoder& encoder, PixelView picture, const JpegTarget& target, CProgress& progress)
{
    if (setjmp(encoder.errors.jump))
        return false;
    jpeg_create_compress(&encoder.jpeg);
    jpeg_mem_dest(&encoder.jpeg, &encoder.pBytes, &encoder.nBytes);
    WriteHeader(encoder.jpeg, picture, target);
    for (int y = 0; y < picture.cy; ++y)
    {
        if (y % ROWS_BETWEEN_REPORTS == 0 && !progress.Report(y, picture.cy))
            return false;
        JSAMPROW pRow = picture.Row(y);
        jpeg_write_scanlines(&encoder.jpeg, &pRow, 1);
    }
    jpeg_finish_compress(&encoder.jpeg);
    return true;
}

} // namespace

std::optional<QByteArray> EncodeJpeg(PixelView picture, const JpegTarget& target, CProgress& progress,
                                     std::string& strReason)
{
    Encoder encoder;
    if (Write(encoder, picture, target, progress))
        return QByteArray(reinterpret_cast<const char*>(encoder.pBytes), static_cast<qsizetype>(encoder.nBytes));
    strReason = encoder.errors.szReason;
    return std::nullopt;
}
