#include "document/UprightSegment.h"

#include "document/TiffFields.h"

namespace
{

constexpr int MARKER_APP1 = 0xE1;
constexpr int MOST_BYTES = 65533; // A segment's length has 16 bits and counts itself.

// Tags of EXIF, and of the TIFF structure it lies in.
constexpr int TAG_WIDTH = 0x100;
constexpr int TAG_HEIGHT = 0x101;
constexpr int TAG_ORIENTATION = 0x112;
constexpr int TAG_SOFTWARE = 0x131;
constexpr int TAG_THUMBNAIL = 0x201;
constexpr int TAG_THUMBNAIL_SIZE = 0x202;
constexpr int TAG_EXIF_DIRECTORY = 0x8769;
constexpr int TAG_PIXEL_WIDTH = 0xA002;
constexpr int TAG_PIXEL_HEIGHT = 0xA003;

const QByteArray EXIF_NAME("Exif\0\0", 6);
const QByteArray XMP_NAME("http://ns.adobe.com/xap/1.0/\0", 29);

void DropThumbnail(CTiffFields& fields)
{
    const std::uint32_t uMain = fields.MainDirectory();
    const std::uint32_t uSecond = fields.DirectoryAfter(uMain);
    const std::uint32_t uStart = fields.Number(uSecond, TAG_THUMBNAIL).value_or(0);
    const std::uint32_t nBytes = fields.Number(uSecond, TAG_THUMBNAIL_SIZE).value_or(0);
    fields.EndAfter(uMain);
    // A length that lies shall not take the fields along.
    const QByteArray thumbnail = fields.Bytes().mid(uStart, nBytes);
    if (thumbnail.startsWith("\xFF\xD8\xFF") && thumbnail.contains("\xFF\xD9"))
        fields.Erase(uStart, static_cast<std::uint32_t>(thumbnail.lastIndexOf("\xFF\xD9") + 2));
}

QByteArray UprightExif(const QByteArray& data, int cx, int cy)
{
    CTiffFields fields(data.mid(EXIF_NAME.size()));
    if (!fields.IsValid())
        return data;
    const std::uint32_t uMain = fields.MainDirectory();
    fields.SetNumber(uMain, TAG_ORIENTATION, 1);
    fields.SetNumber(uMain, TAG_WIDTH, cx);
    fields.SetNumber(uMain, TAG_HEIGHT, cy);
    const std::uint32_t uExif = fields.Number(uMain, TAG_EXIF_DIRECTORY).value_or(0);
    fields.SetNumber(uExif, TAG_PIXEL_WIDTH, cx);
    fields.SetNumber(uExif, TAG_PIXEL_HEIGHT, cy);
    DropThumbnail(fields);
    const QByteArray withoutSoftware = EXIF_NAME + fields.Bytes();
    fields.SetText(TAG_SOFTWARE, "Pixtane retouch");
    const QByteArray all = EXIF_NAME + fields.Bytes();
    return all.size() <= MOST_BYTES ? all : withoutSoftware;
}

/// Sets the orientation wherever the packet tells it: as an attribute, tiff:Orientation="6", or as an element.
QByteArray UprightXmp(QByteArray data)
{
    const QByteArray name = "tiff:Orientation";
    for (qsizetype i = data.indexOf(name); i >= 0; i = data.indexOf(name, i))
    {
        i += name.size();
        qsizetype iDigit = i;
        while (iDigit < data.size() && QByteArray(" \t\r\n=>\"'").contains(data[iDigit]))
            ++iDigit;
        if (iDigit > i && iDigit < data.size() && data[iDigit] >= '1' && data[iDigit] <= '8')
            data[iDigit] = '1';
    }
    return data;
}

} // namespace

JpegSegment UprightSegment(JpegSegment segment, int cx, int cy)
{
    if (segment.iMarker == MARKER_APP1 && segment.data.startsWith(EXIF_NAME))
        segment.data = UprightExif(segment.data, cx, cy);
    else if (segment.iMarker == MARKER_APP1 && segment.data.startsWith(XMP_NAME))
        segment.data = UprightXmp(segment.data);
    return segment;
}
