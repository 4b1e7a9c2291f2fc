#include "headless/HeadlessDesktop.h"
#include "qt/PixtaneQt.h"
#include "retouch/MainWindow.h"
#include "retouch/SamplePicture.h"
#include "retouch/Tour.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <QApplication>
#include <QCommandLineParser>

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

int ShowWindow(int argc, char** argv, const QStringList& vPaths)
{
    QApplication application(argc, argv);
    const CPixtaneQt library;
    CMainWindow window;
    window.show();
    window.OpenFile(vPaths.value(0));
    return QApplication::exec();
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

/// The command line, before the kind of application is chosen; ends the program for --help and mistakes.
void Parse(QCommandLineParser& parser, const QStringList& vArguments)
{
    parser.setApplicationDescription("Retouches a photo.");
    parser.addHelpOption();
    parser.addOption({"tour", "Plays a session without a display and writes its pictures to <folder>.", "folder"});
    parser.addPositionalArgument("photo", "A JPEG or PNG file; the bundled sample picture without it.", "[photo]");
    if (parser.parse(vArguments))
        return;
    std::exit(Fail(parser.errorText().toStdString()));
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setOrganizationName("pixtane");
    QCoreApplication::setApplicationName("retouch");
    QCommandLineParser parser;
    Parse(parser, QStringList(argv, argv + argc));
    if (!parser.isSet("tour") && !parser.isSet("help"))
        return ShowWindow(argc, argv, parser.positionalArguments());

    const QCoreApplication application(argc, argv);
    if (parser.isSet("help"))
        parser.showHelp();
    std::string strError;
    std::optional<CPhoto> photo = OpenPhoto(parser.positionalArguments(), strError);
    return photo ? PlayTour(*photo, parser.value("tour").toStdString()) : Fail(strError);
}
