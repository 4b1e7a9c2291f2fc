#include "document/JpegWriter.h"
#include "document/Photo.h"
#include "document/SafeFile.h"
#include "document/SavePhoto.h"
#include "document/UprightSegment.h"
#include "PictureFiles.h"

#include <csignal>
#include <functional>
#include <libexif/exif-data.h>
#include <map>
#include <QColorSpace>
#include <random>
#include <sys/resource.h>
#include <sys/wait.h>

namespace
{

constexpr int APP1 = 0xE1;
constexpr int APP13 = 0xED;
constexpr int COMMENT = 0xFE;
const SaveOptions OVERWRITE{90, true, false};

/// A folder of pictures, and what is done with them.
class SaveTest : public CPictureFilesTest
{
protected:
    CPhoto Load(const std::string& strPath)
    {
        std::string strError;
        return CPhoto::Load(strPath, strError).value();
    }

    /// The error, or nothing; the photo's origin then is the file saved.
    std::string Save(CPhoto& photo, const std::string& strPath, const SaveOptions& options = OVERWRITE)
    {
        PhotoOrigin origin = photo.Origin();
        const auto error = SavePhoto(strPath, photo.View(), origin, options, progress);
        photo.SetOrigin(origin);
        return error.value_or("");
    }

    CProgress progress;
};

using Fields = std::map<std::pair<int, int>, QByteArray>;

/// The fields of an EXIF segment as libexif sees them, by directory and tag.
Fields FieldsOf(const QByteArray& segment)
{
    Fields mapFields;
    ExifData* pExif = exif_data_new();
    exif_data_set_option(pExif, EXIF_DATA_OPTION_DONT_CHANGE_MAKER_NOTE);
    exif_data_unset_option(pExif, EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    exif_data_load_data(pExif, reinterpret_cast<const unsigned char*>(segment.constData()),
                        static_cast<unsigned int>(segment.size()));
    for (int i = 0; i < EXIF_IFD_COUNT; ++i)
    {
        for (unsigned int j = 0; j < pExif->ifd[i]->count; ++j)
        {
            const ExifEntry* pEntry = pExif->ifd[i]->entries[j];
            mapFields[{i, pEntry->tag}] = QByteArray(reinterpret_cast<const char*>(pEntry->data), pEntry->size);
        }
    }
    exif_data_unref(pExif);
    return mapFields;
}

QByteArray Number(int iValue, int nBytes, bool bBigEndian)
{
    QByteArray bytes;
    for (int i = 0; i < nBytes; ++i)
        bytes.insert(bBigEndian ? 0 : i, static_cast<char>(iValue >> 8 * i));
    return bytes;
}

/// An EXIF segment of a camera: main directory, EXIF directory with a note of its maker, thumbnail.
QByteArray CameraExif(int iOrientation, bool bBigEndian)
{
    const auto entry = [&](int iTag, int iType, int nCount, int iValue)
    {
        const int nBytes = iType == 3 ? 2 : 4;
        return Number(iTag, 2, bBigEndian) + Number(iType, 2, bBigEndian) + Number(nCount, 4, bBigEndian) +
               Number(iValue, nBytes, bBigEndian) + QByteArray(4 - nBytes, '\0');
    };
    const auto number = [&](int iValue, int nBytes) { return Number(iValue, nBytes, bBigEndian); };
    const QByteArray make("A maker\0", 8), note("offsets into the block..", 24);
    const QByteArray thumbnail = Encoded(Tiles().scaled(12, 8), "jpg");
    const int iExif = 8 + 2 + 3 * 12 + 4, iSecond = iExif + 2 + 3 * 12 + 4, iData = iSecond + 2 + 3 * 12 + 4;
    const int iNote = iData + 8, iThumbnail = iNote + 24;
    return QByteArray("Exif\0\0", 6) + (bBigEndian ? "MM" : "II") + number(42, 2) + number(8, 4) + number(3, 2) +
           entry(0x10F, 2, 8, iData) + entry(0x112, 3, 1, iOrientation) + entry(0x8769, 4, 1, iExif) +
           number(iSecond, 4) + number(3, 2) + entry(0x927C, 7, 24, iNote) + entry(0xA002, 4, 1, 4000) +
           entry(0xA003, 3, 1, 3000) + number(0, 4) + number(3, 2) + entry(0x103, 3, 1, 6) +
           entry(0x201, 4, 1, iThumbnail) + entry(0x202, 4, 1, static_cast<int>(thumbnail.size())) + number(0, 4) +
           make + note + thumbnail + (bBigEndian ? "what follows" : "");
}

QByteArray CameraJpeg(const QImage& stored, std::vector<JpegSegment> vSegments, JpegCoding::Factors brightness = {})
{
    const JpegCoding coding{{brightness, {}, {}}, true, 1, 300, 300};
    const QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    QImage image = stored.convertToFormat(QImage::Format_RGB32);
    CProgress progress;
    std::string strReason;
    return EncodeJpeg({image.bits(), image.width(), image.height(), image.bytesPerLine()},
                      {100, coding, std::move(vSegments), profile}, progress, strReason)
        .value();
}

/// One block of four components, made of a grey one whose coefficients are all zero.
QByteArray CmykJpeg()
{
    QImage grey(8, 8, QImage::Format_Grayscale8);
    grey.fill(128);
    QByteArray bytes = Encoded(grey, "jpg");
    bytes.truncate(bytes.indexOf("\xFF\xDA"));
    bytes.replace(bytes.indexOf("\xFF\xC0"), 13,
                  QByteArray("\xFF\xC0\0\x14\x08\0\x08\0\x08\x04\x01\x11\0\x02\x11\0\x03\x11\0\x04\x11\0", 22));
    return bytes + QByteArray("\xFF\xDA\0\x0E\x04\x01\0\x02\0\x03\0\x04\0\0\x3F\0\x28\xA2\x8A\xFF\xD9", 21);
}

/// Runs a piece of work in a process of its own: whether it came to its end and said yes.
bool InChild(const std::function<bool()>& work)
{
    const pid_t idChild = ::fork();
    if (idChild == 0)
        ::_exit(work() ? 0 : 1);
    int iStatus = -1;
    ::waitpid(idChild, &iStatus, 0);
    return iStatus == 0;
}

} // namespace

TEST_F(SaveTest, PhotosComeUprightAndTheirMetadataFollowsAndStaysOtherwise)
{
    for (int iCase = 0; iCase < 16; ++iCase)
    {
        SCOPED_TRACE(iCase);
        const int iOrientation = iCase % 8 + 1;
        const QByteArray exif = CameraExif(iOrientation, iCase < 8);
        const char* const pszForm =
            iCase % 2 ? "<x tiff:Orientation = '%'/>" : "<tiff:Orientation>%</tiff:Orientation>";
        const auto xmp = [&](int iNumber)
        {
            return QByteArray("http://ns.adobe.com/xap/1.0/\0", 29) +
                   QByteArray(pszForm).replace("%", QByteArray::number(iNumber));
        };
        const QByteArray file =
            CameraJpeg(StoredImage(Tiles(), iOrientation),
                       {{APP1, exif}, {APP13, "Photoshop 3.0"}, {APP1, xmp(iOrientation)}, {COMMENT, "a comment"}},
                       {iCase / 2 % 2 + 1, iCase / 4 % 2 + 1});
        const std::string strPath = WriteFile("camera.jpg", file);
        CPhoto photo = Load(strPath);
        EXPECT_TRUE(photo.Origin().WhatWouldBeLost(PictureFormat::Jpeg).empty());
        ASSERT_EQ(Save(photo, strPath), "");

        const QByteArray saved = ReadFile(strPath);
        const auto before = ReadJpegHeader(file), after = ReadJpegHeader(saved);
        ASSERT_TRUE(before && after && after->vSegments.size() == before->vSegments.size());
        const QByteArray exifSaved = after->vSegments[1].data;
        Fields mapExpected = FieldsOf(exif);
        ASSERT_EQ(mapExpected.size(), 6u);
        mapExpected.erase({EXIF_IFD_1, EXIF_TAG_COMPRESSION});
        mapExpected[{EXIF_IFD_0, EXIF_TAG_ORIENTATION}] = Number(1, 2, iCase < 8);
        mapExpected[{EXIF_IFD_0, EXIF_TAG_SOFTWARE}] = QByteArray("Pixtane retouch", 16);
        mapExpected[{EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION}] = Number(48, 4, iCase < 8);
        mapExpected[{EXIF_IFD_EXIF, EXIF_TAG_PIXEL_Y_DIMENSION}] = Number(32, 2, iCase < 8);
        EXPECT_EQ(FieldsOf(exifSaved), mapExpected);
        EXPECT_EQ(exifSaved.indexOf("offsets into"), exif.indexOf("offsets into")) << "makers' notes know their place";
        EXPECT_FALSE(exifSaved.contains("\xFF\xD8\xFF")) << "the thumbnail shows what was";
        EXPECT_EQ(exifSaved.contains("what follows"), iCase < 8);
        std::vector<JpegSegment> vExpected = before->vSegments;
        vExpected[1].data = exifSaved;
        vExpected[3].data = xmp(1);
        EXPECT_TRUE(after->vSegments == vExpected && after->coding == before->coding);
        EXPECT_EQ(after->profile, before->profile);

        ASSERT_EQ(Save(photo, strPath), "");
        EXPECT_EQ(ReadFile(strPath), saved) << "the same pixels give the same bytes";
        CPhoto again = Load(strPath);
        ASSERT_TRUE(again.Width() == 48 && again.Height() == 32);
        for (int i = 0; i < 6; ++i)
        {
            const int x = i % 3 * 16 + 8, y = i / 3 * 16 + 8;
            EXPECT_NEAR(again.Row(y)[4 * x + 2], qRed(Tiles().pixel(x, y)), 12) << "upright at " << x << ", " << y;
            EXPECT_NEAR(again.Row(y)[4 * x], qBlue(Tiles().pixel(x, y)), 12);
        }
        ASSERT_EQ(Save(again, strPath), "");
        EXPECT_EQ(ReadJpegHeader(ReadFile(strPath))->vSegments[1].data, exifSaved) << "nothing grows";
    }
}

TEST_F(SaveTest, WhatIsLostIsNamedAndFormatsKeepTheRest)
{
    QImage deep(2, 2, QImage::Format_RGBX64), half(2, 2, QImage::Format_ARGB32), opaque(2, 2, QImage::Format_ARGB32);
    deep.fill(QColor(10, 20, 30));
    half.fill(qRgba(200, 0, 0, 128));
    opaque.fill(qRgba(200, 0, 0, 255));
    QImage profiled = Tiles(), told = Tiles();
    profiled.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    profiled.setDotsPerMeterX(11811);
    profiled.setDotsPerMeterY(11811);
    told.setText("Title", "A title");
    const QByteArray camera = CameraJpeg(Tiles(), {{COMMENT, "a comment"}});
    const struct
    {
        std::string strPath;
        std::vector<std::string> vLostAsJpeg, vLostAsPng;
    } vCases[] = {
        {WriteFile("deep.png", Encoded(deep, "png")), {"16 bits a channel"}, {"16 bits a channel"}},
        {WriteFile("deep.tif", Encoded(deep, "tiff")), {"16 bits a channel"}, {"16 bits a channel"}},
        {WriteFile("half.png", Encoded(half, "png")), {"transparency"}, {"transparency"}},
        {WriteFile("opaque.png", Encoded(opaque, "png")), {}, {}},
        {WriteFile("cmyk.jpg", CmykJpeg()), {"CMYK colours"}, {"CMYK colours"}},
        {WriteFile("cut.jpg", camera.left(camera.size() - 40)),
         {"what is left of a picture that is cut off"},
         {"what is left of a picture that is cut off", "metadata (EXIF, XMP, IPTC, comments)"}},
        {WriteFile("camera.jpg", camera), {}, {"metadata (EXIF, XMP, IPTC, comments)"}},
        {WriteFile("told.png", Encoded(told, "png")), {"texts in the file"}, {}},
        {WriteFile("profiled.png", Encoded(profiled, "png")), {}, {}},
        {WriteFile("profiled.TIFF", Encoded(profiled, "tiff")), {}, {}},
    };
    for (const auto& c : vCases)
    {
        SCOPED_TRACE(c.strPath);
        EXPECT_EQ(Load(c.strPath).Origin().WhatWouldBeLost(PictureFormat::Jpeg), c.vLostAsJpeg);
        EXPECT_EQ(Load(c.strPath).Origin().WhatWouldBeLost(PictureFormat::Png), c.vLostAsPng);
        CPhoto own = Load(c.strPath);
        const bool bLoses = !own.Origin().WhatWouldBeLost(own.Origin().format).empty();
        const QByteArray before = ReadFile(c.strPath);
        EXPECT_EQ(Save(own, c.strPath).find("it would lose") != std::string::npos, bLoses);
        EXPECT_TRUE(!bLoses || ReadFile(c.strPath) == before) << "nothing overwrites more with less";
        WriteFile(std::filesystem::path(c.strPath).filename().c_str(), before);
        for (const char* pszName : {"to.jpg", "to.png", "to.tif"})
        {
            SCOPED_TRACE(pszName);
            CPhoto photo = Load(c.strPath);
            const PhotoOrigin origin = photo.Origin();
            ASSERT_EQ(Save(photo, Path(pszName)), "");
            EXPECT_EQ(photo.Origin().strPath, Path(pszName));
            EXPECT_TRUE(photo.Origin().WhatWouldBeLost(*FormatOfName(pszName)).empty()) << "it is lost by now";
            const QByteArray saved = ReadFile(Path(pszName));
            ASSERT_EQ(Save(photo, Path(pszName)), "");
            EXPECT_EQ(ReadFile(Path(pszName)), saved);
            CPhoto again = Load(Path(pszName));
            EXPECT_EQ(again.Origin().profile, origin.profile);
            if (pszName == std::string("to.jpg"))
                continue;
            EXPECT_TRUE(std::equal(photo.Pixels(), photo.Pixels() + photo.ByteCount(), again.Pixels()));
            EXPECT_EQ(again.Origin().iDotsPerMetreX, origin.iDotsPerMetreX);
            EXPECT_EQ(again.Origin().mapTexts.size(), pszName == std::string("to.png") ? origin.mapTexts.size() : 0);
        }
    }
}

TEST_F(SaveTest, WhateverStopsTheWritingOneFileIsThereWhole)
{
    const QByteArray old = "the old file", fresh(100'000, 'n');
    for (int iTenths = 0; iTenths < 10; ++iTenths)
    {
        for (const bool bKilled : {false, true})
        {
            SCOPED_TRACE(iTenths * 2 + bKilled);
            const std::string strPath = WriteFile("photo.jpg", old);
            const bool bSaid = InChild(
                [&]
                {
                    const rlimit limit{10'000u * iTenths + 1, RLIM_INFINITY};
                    ::setrlimit(RLIMIT_FSIZE, &limit); // Beyond it a write fails or ends the process.
                    std::signal(SIGXFSZ, bKilled ? SIG_DFL : SIG_IGN);
                    return WriteWhole(strPath, fresh, true) == std::strerror(EFBIG);
                });
            EXPECT_EQ(bSaid, !bKilled);
            EXPECT_EQ(ReadFile(strPath), old);
            const auto nFiles = std::distance(std::filesystem::directory_iterator(m_folder), {});
            EXPECT_EQ(nFiles, 1 + (bKilled ? 1 : 0)) << "only a process that was killed leaves its half";
            TearDown();
            SetUp();
        }
    }
}

TEST_F(SaveTest, RefusalsNameFileAndReason)
{
    const std::string strOwn = WriteFile("own.png", Encoded(Tiles(), "png"));
    const std::string strLong = Path((std::string(246, 'l') + ".jpg").c_str());
    CPhoto photo = Load(strOwn);
    std::filesystem::create_directory(m_folder / "folder.png");
    std::filesystem::create_directory(m_folder / "closed");
    std::filesystem::permissions(m_folder, std::filesystem::perms::all);
    std::filesystem::permissions(m_folder / "closed", std::filesystem::perms{0555});
    std::filesystem::permissions(WriteFile("kept.png", "kept"), std::filesystem::perms{0444});
    std::filesystem::create_symlink(strLong, Path("link ü.jpg"));
    const struct
    {
        std::string strPath;
        SaveOptions options;
        const char* pszReason; // Nothing when it is saved.
    } vCases[] = {{strOwn, {90, false}, "exists already"},
                  {strOwn, OVERWRITE, nullptr},
                  {Path("folder.png"), OVERWRITE, "is a folder"},
                  {"/dev/null", OVERWRITE, "has no ending of a known format"},
                  {Path("photo.bmp"), OVERWRITE, "has no ending of a known format"},
                  {Path("missing/photo.png"), OVERWRITE, "No such file"},
                  {Path("kept.png"), OVERWRITE, "is write-protected"},
                  {Path("closed/new.png"), {}, "Permission denied"},
                  {strLong, {}, nullptr},
                  {Path("link ü.jpg"), OVERWRITE, nullptr},
                  {Path((std::string(300, 'l') + ".jpg").c_str()), {}, "File name too long"}};
    std::filesystem::permissions(strOwn, std::filesystem::perms{0666});
    for (const auto& c : vCases)
    {
        EXPECT_TRUE(InChild(
            [&]
            {
                if (::geteuid() == 0 && ::setuid(65534) != 0) // Rights mean nothing to root.
                    return false;
                const std::string strError = Save(photo, c.strPath, c.options);
                return c.pszReason ? strError.find(c.strPath + ": " + c.pszReason) == 0 : strError.empty();
            }))
            << c.strPath;
    }
    EXPECT_TRUE(std::filesystem::is_symlink(Path("link ü.jpg")));
    EXPECT_EQ(std::filesystem::status(strOwn).permissions(), std::filesystem::perms{0666});

    photo = Load(strOwn);
    WriteFile("own.png", "another's work");
    EXPECT_NE(Save(photo, strOwn).find("was changed by another program"), std::string::npos);
    EXPECT_EQ(ReadFile(strOwn), "another's work");
    EXPECT_EQ(Save(photo, strOwn, {90, true, true}), "");
    progress.Cancel();
    EXPECT_NE(Save(photo, Path("new.jpg")).find("cancelled"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(Path("new.jpg")));
}

TEST_F(SaveTest, SegmentsWhoseLengthsLieAreSafe)
{
    std::mt19937 random(7);
    const QByteArray exif = CameraExif(6, true);
    for (int i = 6; i < exif.size(); ++i)
    {
        for (const int nBytes : {1, 2, 4})
        {
            QByteArray lying = exif.left(random() % 8 ? exif.size() : i + nBytes);
            lying.replace(i, nBytes, QByteArray(nBytes, static_cast<char>(random() % 2 ? 0xFF : random())));
            const QByteArray upright = UprightSegment({APP1, lying}, 48, 32).data;
            ASSERT_TRUE(upright.startsWith("Exif") && upright.size() <= 2 * exif.size()) << i;
        }
    }
    const QByteArray camera = CameraJpeg(Tiles(), {{APP1, exif}, {COMMENT, "a comment"}});
    int nSaved = 0;
    for (int i = 0; i < 150; ++i)
    {
        QByteArray lying = camera.left(random() % 4 ? camera.size() : random() % camera.size());
        lying[random() % std::min<qsizetype>(lying.size(), 1600)] = static_cast<char>(random());
        std::string strError;
        auto photo = CPhoto::Load(WriteFile("lying.jpg", lying), strError);
        nSaved += photo && Save(*photo, Path("lying.jpg")).empty() && Load(Path("lying.jpg")).Width() == photo->Width();
    }
    EXPECT_GT(nSaved, 75);
}
