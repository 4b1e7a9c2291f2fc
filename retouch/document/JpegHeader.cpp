#include "document/JpegHeader.h"

#include "document/JpegErrors.h"

#include <cstdlib>

namespace
{

/// A decoder, and what it found; goes through plain memory because errors jump.
struct Decoder
{
    JpegErrors errors;
    jpeg_decompress_struct jpeg = {};
    JOCTET* pProfile = nullptr;
    unsigned int nProfile = 0;

    Decoder() { jpeg.err = &errors.manager; }
    ~Decoder()
    {
        std::free(pProfile);
        jpeg_destroy_decompress(&jpeg);
    }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
};

bool Read(Decoder& decoder, const unsigned char* pBytes, unsigned long nBytes)
{
    if (setjmp(decoder.errors.jump))
        return false;
    jpeg_create_decompress(&decoder.jpeg);
    jpeg_mem_src(&decoder.jpeg, pBytes, nBytes);
    for (int i = 0; i < 16; ++i)
        jpeg_save_markers(&decoder.jpeg, JPEG_APP0 + i, 0xFFFF);
    jpeg_save_markers(&decoder.jpeg, JPEG_COM, 0xFFFF);
    if (jpeg_read_header(&decoder.jpeg, TRUE) != JPEG_HEADER_OK)
        return false;
    jpeg_read_icc_profile(&decoder.jpeg, &decoder.pProfile, &decoder.nProfile);
    return true;
}

JpegCoding CodingOf(const jpeg_decompress_struct& jpeg)
{
    JpegCoding coding;
    for (int i = 0; i < jpeg.num_components; ++i)
        coding.vSampling.push_back({jpeg.comp_info[i].h_samp_factor, jpeg.comp_info[i].v_samp_factor});
    coding.bHasJfif = jpeg.saw_JFIF_marker;
    coding.iDensityUnit = jpeg.density_unit;
    coding.iDensityX = jpeg.X_density;
    coding.iDensityY = jpeg.Y_density;
    return coding;
}

} // namespace

std::optional<JpegHeader> ReadJpegHeader(const QByteArray& bytes)
{
    Decoder decoder;
    if (!Read(decoder, reinterpret_cast<const unsigned char*>(bytes.constData()), bytes.size()))
        return std::nullopt;
    JpegHeader header{CodingOf(decoder.jpeg), {}, {}};
    for (const jpeg_marker_struct* pMarker = decoder.jpeg.marker_list; pMarker; pMarker = pMarker->next)
    {
        const QByteArray data(reinterpret_cast<const char*>(pMarker->data), pMarker->data_length);
        header.vSegments.push_back({pMarker->marker, data});
    }
    if (decoder.pProfile)
        header.profile = QByteArray(reinterpret_cast<const char*>(decoder.pProfile), decoder.nProfile);
    return header;
}
