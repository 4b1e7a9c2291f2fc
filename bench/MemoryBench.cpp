#include "bench/BenchView.h"
#include "bench/Suite.h"
#include "gdi/Surface.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <QBuffer>
#include <QImage>
#include <spawn.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// What a view keeps and needs during paints, pooled buffers included, in surfaces of its size.
Figure SurfacesOfAView()
{
    const std::size_t nBefore = winlite::Surface::BytesInUse();
    CBenchBitmap bitmap(24);
    CBenchView window(3840, 2160, bitmap, 1);
    for (int i = 0; i < 4; ++i)
    {
        window.Paint();
        window.PaintFresh();
    }
    const double dSurface = 3840.0 * 2160 * 4;
    const double dUsed = static_cast<double>(winlite::Surface::BytesInUse() - nBefore) - dSurface;
    return {dUsed / dSurface, "the window's surface, beside it", 2.0};
}

constexpr int PHOTO_WIDTH = 12240;
constexpr int PHOTO_HEIGHT = 8170;

/// An EXIF segment that says nothing but the orientation.
QByteArray OrientationSegment(int iOrientation)
{
    QByteArray segment("\xFF\xE1\x00\x22"
                       "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\0\0\0\0\0\0\0\0",
                       36);
    segment[28] = static_cast<char>(iOrientation);
    return segment;
}

void WriteLargeJpeg(const std::string& strPath, int iOrientation)
{
    QImage image(PHOTO_WIDTH, PHOTO_HEIGHT, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
    {
        auto* pRow = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            pRow[x] = qRgb(x >> 5, y >> 5, (x + y) >> 6);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "jpeg", 85);
    bytes.insert(2, OrientationSegment(iOrientation));
    std::ofstream(strPath, std::ios::binary).write(bytes.constData(), bytes.size());
}

/// The most memory that a program of the build had, in bytes; its output is not shown.
double PeakOf(const std::string& strName, std::vector<std::string> vArguments)
{
    const std::string strProgram =
        std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / strName;
    vArguments.insert(vArguments.begin(), strProgram);
    std::vector<char*> vPointers;
    for (std::string& strArgument : vArguments)
        vPointers.push_back(strArgument.data());
    vPointers.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    const int iError = posix_spawn(&pid, strProgram.c_str(), &actions, nullptr, vPointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int iStatus = -1;
    rusage usage = {};
    if (iError != 0 || wait4(pid, &iStatus, 0, &usage) != pid || iStatus != 0)
        throw std::runtime_error(strProgram + " failed");
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

/// While it opened and painted the photo.
double PeakOfOpening(const std::string& strJournal, const std::string& strPhoto)
{
    std::ofstream(strJournal) << "winlite journal 1\nscreen 1920 1080 scale 1\n0 place 1 0 0 1600 900\n0 show 1 5\n"
                                 "0 command open-sample\n1 command fit\n";
    return PeakOf("retouch/retouch", {"--replay", strJournal, strPhoto});
}

Figure PeakOfRetouch(int iOrientation)
{
    const auto folder = std::filesystem::temp_directory_path() / ("bench" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    WriteLargeJpeg(folder / "photo.jpg", iOrientation);
    const double dPeak = PeakOfOpening(folder / "session", folder / "photo.jpg");
    std::filesystem::remove_all(folder);
    return {dPeak / (4.0 * PHOTO_WIDTH * PHOTO_HEIGHT), "the photo's 32-bit size", 2.2};
}

} // namespace

void AddMemoryFigures(CSuite& suite)
{
    suite.AddFigure("Memory/View/4K", &SurfacesOfAView);
    for (const int iOrientation : {1, 6})
        suite.AddFigure("Memory/Open/100MP/orientation:" + std::to_string(iOrientation),
                        [=] { return PeakOfRetouch(iOrientation); });
    suite.AddFigure("Memory/Session/24MP",
                    [] { return Figure{PeakOf("bench/session-memory", {}) / (1 << 20), "a megabyte", 512}; });
}
