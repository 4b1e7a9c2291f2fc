#include "headless/HeadlessDesktop.h"
#include "host/ViewHost.h"
#include "platform/framework.h"
#include "program/Retoucher.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

// A long session on a photo of 24 megapixels in a program of its own, so that its memory can be told: 100 small steps,
// 50 that change all of the photo, and back again through all of them.

namespace
{

constexpr int CX = 6000;
constexpr int CY = 4000;

/// A photo with the noise of a sensor, which compresses as badly as photos do.
CPhoto MakePhoto()
{
    CPhoto photo(CX, CY);
    std::minstd_rand random(3);
    for (int y = 0; y < CY; ++y)
    {
        for (int x = 0; x < CX * 4; ++x)
            photo.Row(y)[x] = static_cast<BYTE>(x % 4 == 3 ? 0 : 60 + (x / 64 + y / 16) % 120 + random() / 65536 % 8);
    }
    return photo;
}

void Do(CRetoucher& retoucher, const std::string& strCommand)
{
    std::string strError;
    if (!retoucher.Execute(strCommand, strError))
    {
        std::fprintf(stderr, "%s: %s\n", strCommand.c_str(), strError.c_str());
        std::exit(1);
    }
    static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()).DispatchPending();
}

void Work(const std::string& strFolder)
{
    CViewHost host;
    CRetoucher retoucher(host);
    retoucher.KeepSteps(strFolder);
    host.MoveWindow(0, 0, 1100, 700);
    host.ShowWindow(SW_SHOW);
    retoucher.ShowPhoto(MakePhoto());
    std::mt19937 random(5);
    for (int i = 0; i < 150; ++i)
    {
        if (i % 3 == 0)
            Do(retoucher, "brightness-contrast " + std::to_string(i % 2 ? 3 : -3) + " 1");
        else
            Do(retoucher, "heal " + std::to_string(random() % CX) + " " + std::to_string(random() % CY) + " 40");
    }
    const auto nSteps = retoucher.State().vSteps.size();
    retoucher.FlushSteps();
    double dLongest = 0;
    for (std::size_t i = 1; i < nSteps; ++i)
    {
        const auto start = std::chrono::steady_clock::now();
        Do(retoucher, "undo");
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        dLongest = std::max(dLongest, taken.count());
    }
    std::printf("%zu steps, none forgotten: %s; the longest undo %.0f ms\n", nSteps - 1,
                retoucher.State().bForgot ? "no" : "yes", dLongest);
}

} // namespace

int main()
{
    winlite::HeadlessDesktop desktop({1920, 1080});
    CWinApp app;
    if (!AfxWinInit(nullptr, nullptr, nullptr, SW_SHOW))
        return 1;
    const auto folder = std::filesystem::temp_directory_path() / ("session" + std::to_string(::getpid()));
    Work(folder);
    std::filesystem::remove_all(folder);
    AfxWinTerm();
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    std::printf("most memory: %.0f MB\n", static_cast<double>(usage.ru_maxrss) / 1024);
}
