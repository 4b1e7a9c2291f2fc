#include "headless/HeadlessDesktop.h"
#include "retouch/SamplePicture.h"
#include "retouch/Tour.h"

#include <filesystem>
#include <iostream>
#include <QCommandLineParser>
#include <QCoreApplication>

namespace
{

int Fail(const std::string& strReason)
{
    std::cerr << "retouch: " << strReason << "\n";
    return 1;
}

std::optional<CPhoto> OpenPhoto(const QStringList& vPaths, std::string& strError)
{
    return vPaths.isEmpty() ? RenderSamplePicture() : CPhoto::Load(vPaths.front().toStdString(), strError);
}

int PlayTour(CPhoto& photo, const std::string& strFolder)
{
    std::error_code error;
    std::filesystem::create_directories(strFolder, error);
    if (error)
        return Fail(strFolder + ": " + error.message());
    winlite::HeadlessDesktop desktop;
    CWinApp app;
    if (!AfxWinInit(nullptr, nullptr, nullptr, SW_SHOW))
        return Fail("the library did not start");
    std::string strError;
    const bool bPlayed = CTour(photo, strFolder).Play(strError);
    AfxWinTerm();
    if (!bPlayed)
        return Fail(strError);
    std::cout << "The tour's pictures are in " << std::filesystem::absolute(strFolder).string() << "\n";
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription("Retouches a photo.");
    parser.addHelpOption();
    const QCommandLineOption tour("tour", "Plays a session without a display and writes its pictures to <folder>.",
                                  "folder");
    parser.addOption(tour);
    parser.addPositionalArgument("photo", "A JPEG or PNG file; the bundled sample picture without it.", "[photo]");
    parser.process(application);
    if (!parser.isSet(tour))
        return Fail("there is no window yet: use --tour FOLDER");

    std::string strError;
    std::optional<CPhoto> photo = OpenPhoto(parser.positionalArguments(), strError);
    return photo ? PlayTour(*photo, parser.value(tour).toStdString()) : Fail(strError);
}
