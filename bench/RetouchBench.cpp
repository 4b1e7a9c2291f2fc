#include "bench/BenchView.h"
#include "bench/Suite.h"
#include "bench/Timing.h"
#include "document/SamplePicture.h"
#include "document/ScreenColours.h"
#include "headless/HeadlessDesktop.h"
#include "program/Retoucher.h"
#include "user/Input.h"

#include <cstring>
#include <filesystem>
#include <optional>
#include <QColorSpace>
#include <QImage>
#include <stdexcept>
#include <unistd.h>

namespace
{

constexpr SIZE PHOTO = {6000, 4000};

/// The program with a photo in a window of 1100 x 700, without a display.
struct Program
{
    Program() : retoucher(host)
    {
        host.MoveWindow(0, 0, 1100, 700);
        host.ShowWindow(SW_SHOW);
        CPhoto photo(PHOTO.cx, PHOTO.cy);
        for (int y = 0; y < PHOTO.cy; ++y)
        {
            for (int x = 0; x < PHOTO.cx * 4; ++x)
                photo.Row(y)[x] = static_cast<BYTE>(40 + (x * 7 + y * 3) % 150);
        }
        retoucher.ShowPhoto(std::move(photo));
        Do("fit");
    }

    void Do(const std::string& strCommand)
    {
        std::string strError;
        if (!retoucher.Execute(strCommand, strError))
            throw std::runtime_error(strCommand + ": " + strError);
        static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()).DispatchPending();
    }

    CViewHost host;
    CRetoucher retoucher;
};

/// An arrow key that moves the selection, with the tint over the rest.
Figure TintedNudge()
{
    Program program;
    for (const char* pszCommand : {"select-all", "shrink 300", "tool rectangle", "tint"})
        program.Do(pszCommand);
    program.host.View().SetFocus();
    winlite::QueueActivation(program.host.m_hWnd, true);
    const auto nudge = [&]
    {
        winlite::QueueKey({VK_RIGHT, true, true, 0x4D});
        winlite::QueueKey({VK_RIGHT, false, true, 0x4D});
        static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()).DispatchPending();
    };
    return {MedianOf(
                20, [] {}, nudge),
            "a millisecond", 25};
}

Figure OriginalShown()
{
    Program program;
    program.Do("auto-contrast");
    return {MedianOf(
                20, [&] { program.Do("show-result"); }, [&] { program.Do("show-original"); }),
            "a millisecond", 30};
}

Figure BrightnessPreview()
{
    Program program;
    int iLevel = 0;
    const double dMs = MedianOf(
        30, [] {}, [&] { program.Do("preview-brightness-contrast " + std::to_string(++iLevel) + " 10"); });
    return {dMs, "a millisecond a picture", 1000.0 / 30};
}

Figure AutoContrast()
{
    Program program;
    return {MedianOf(
                7, [&] { program.Do("undo"); }, [&] { program.Do("auto-contrast"); }),
            "a millisecond", 150};
}

Figure UndoOfTheWhole()
{
    Program program;
    program.Do("auto-contrast");
    std::vector<BYTE> vFrom(std::size_t{4} * PHOTO.cx * PHOTO.cy), vTo(vFrom);
    const double dCopy = MedianOf(
        7, [] {}, [&] { std::memcpy(vTo.data(), vFrom.data(), vTo.size()); });
    return {MedianOf(
                7, [&] { program.Do("redo"); }, [&] { program.Do("undo"); }) /
                dCopy,
            "memcpy of the photo", 4};
}

/// A step of all of the photo that is in the session's file and not in the memory.
Figure UndoOutOfTheFile()
{
    const auto folder = std::filesystem::temp_directory_path() / ("bench" + std::to_string(getpid()));
    std::optional<Program> program(std::in_place);
    program->retoucher.KeepSteps(folder);
    program->Do("auto-contrast");
    program->Do("brightness-contrast 9 9");
    program->retoucher.FlushSteps();
    const double dMs = MedianOf(
        7, [&] { program->Do("redo"); }, [&] { program->Do("undo"); });
    program.reset();
    std::filesystem::remove_all(folder);
    return {dMs, "a millisecond", 150};
}

/// A spot in the middle of the photo, as a step. A corner runs into it, which takes longest.
Figure Healing(int iSize, double dMost)
{
    Program program;
    for (int y = 0; y < PHOTO.cy / 2; ++y)
        std::memset(program.retoucher.Photo()->Row(y), 240, PHOTO.cx / 2 * std::size_t{4});
    const std::string strHeal = "heal 3000 2000 " + std::to_string(iSize);
    return {MedianOf(
                9, [&] { program.Do("undo"); }, [&] { program.Do(strHeal); }),
            "a millisecond", dMost};
}

/// A window's pixels on their way to the screen, from a wider colour space.
Figure ScreenColours()
{
    constexpr int CX = 1920;
    constexpr int CY = 1080;
    CPhoto sample = RenderSamplePicture();
    std::vector<std::uint32_t> vFrom(std::size_t{CX} * CY);
    std::memcpy(vFrom.data(), sample.Pixels(), vFrom.size() * sizeof(vFrom[0]));
    std::vector<std::uint32_t> vTo(vFrom.size());
    const auto pColours = CScreenColours::For(QColorSpace(QColorSpace::AdobeRgb).iccProfile());
    return {MedianOf(
                11, [] {}, [&] { pColours->Convert(vFrom.data(), CX * 4, vTo.data(), CX * 4, CX, CY); }),
            "a millisecond", 12};
}

/// From the file to the first picture, against Qt's decoding alone.
Figure Opening()
{
    const auto path = std::filesystem::temp_directory_path() / ("bench" + std::to_string(getpid()) + ".jpg");
    QImage image(PHOTO.cx, PHOTO.cy, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
    {
        auto* pRow = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            pRow[x] = qRgb(x >> 5, y >> 5, (x * y) >> 12);
    }
    image.save(QString::fromStdString(path), "jpeg", 88);
    Program program;
    std::vector<double> vOurs, vQt;
    for (int i = 0; i < 5; ++i)
    {
        vOurs.push_back(Milliseconds([&] { program.Do("open " + path.string()); }));
        vQt.push_back(Milliseconds([&] { QImage decoded(QString::fromStdString(path)); }));
    }
    std::filesystem::remove(path);
    return {Median(vOurs) / Median(vQt), "Qt's decoding", 1.3};
}

} // namespace

void AddRetouchFigures(CSuite& suite)
{
    suite.AddFigure("Retouch/TintedNudge/24MP", &TintedNudge);
    suite.AddFigure("Retouch/ShowOriginal/24MP", &OriginalShown);
    suite.AddFigure("Retouch/BrightnessPreview/24MP", &BrightnessPreview);
    suite.AddFigure("Retouch/AutoContrast/24MP", &AutoContrast);
    suite.AddFigure("Retouch/Undo/24MP", &UndoOfTheWhole);
    suite.AddFigure("Retouch/UndoOutOfTheFile/24MP", &UndoOutOfTheFile);
    suite.AddFigure("Retouch/Heal/50/24MP", [] { return Healing(50, 50); });
    suite.AddFigure("Retouch/Heal/500/24MP", [] { return Healing(500, 1000); });
    suite.AddFigure("Retouch/ScreenColours/1920x1080", &ScreenColours);
    suite.AddFigure("Retouch/Open/24MP", &Opening);
}
