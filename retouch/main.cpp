#include "document/SamplePicture.h"
#include "headless/HeadlessDesktop.h"
#include "journal/JournalWriter.h"
#include "program/Batch.h"
#include "program/BatchRun.h"
#include "program/CommandTable.h"
#include "program/Session.h"
#include "program/Tour.h"
#include "qt/PixtaneQt.h"
#include "qtdesktop/LivePointer.h"
#include "window/MainWindow.h"

#include <algorithm>
#include <array>
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

int ShowWindow(const QStringList& vPhotos)
{
    CMainWindow window;
    window.show();
    window.OpenFirst(vPhotos);
    window.KeepWork();
    return QApplication::exec();
}

int RecordWindow(const QStringList& vPhotos, const std::string& strJournal)
{
    winlite::JournalWriter journal(strJournal);
    CMainWindow window;
    window.show();
    window.OpenFirst(vPhotos);
    const int iResult = QApplication::exec();
    journal.WriteEnd(DescribePicture(window.TakePicture()));
    return journal.IsGood() ? iResult : Fail(strJournal + ": could not be written to its end");
}

/// On a Wayland desktop the pointer cannot be asked for, which brushes and drags at the edge do.
void PreferX11()
{
    if (!qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return;
    if (qEnvironmentVariableIsSet("DISPLAY") && winlite::X11Answers())
        qputenv("QT_QPA_PLATFORM", "xcb");
    else
        std::cerr << "retouch: XWayland does not answer; on Wayland itself drawing at the edge of the window does not "
                     "scroll\n";
}

int RunWindow(int argc, char** argv, const QCommandLineParser& options)
{
    PreferX11();
    QApplication application(argc, argv);
    const CPixtaneQt library;
    const QStringList vPhotos = options.positionalArguments();
    return options.isSet("record") ? RecordWindow(vPhotos, options.value("record").toStdString()) : ShowWindow(vPhotos);
}

int PlayTour(CPhoto photo, const std::string& strFolder)
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
    const bool bPlayed = CTour(std::move(photo), strFolder).Play(strError);
    AfxWinTerm();
    if (!bPlayed)
        return Fail(strError);
    std::cout << "The tour's pictures are in " << std::filesystem::absolute(strFolder).string() << "\n";
    return 0;
}

int Replay(const QCommandLineParser& options)
{
    const std::string strJournal = options.value("replay").toStdString();
    const std::string strPicture = strJournal + ".png";
    const std::string strPhoto = options.positionalArguments().value(0).toStdString();
    const ReplayResult result = ReplaySession(strJournal, strPicture, strPhoto);
    std::cout << result.strNow << "\nThe last picture is " << strPicture << "\n";
    if (result.strRecorded.empty())
        std::cout << "The session was cut off: there is nothing to compare it with.\n";
    else if (result.strRecorded != result.strNow)
        return Fail(strJournal + ": the recorded session came to " + result.strRecorded);
    return 0;
}

int Tour(const QCommandLineParser& options)
{
    std::string strError;
    std::optional<CPhoto> photo = OpenPhoto(options.positionalArguments(), strError);
    return photo ? PlayTour(std::move(*photo), options.value("tour").toStdString()) : Fail(strError);
}

int Do(const QCommandLineParser& options)
{
    std::string strError;
    const std::string strCommands = options.value("do").toStdString();
    std::vector<std::string> vPaths;
    for (const QString& strPath : options.positionalArguments())
        vPaths.push_back(strPath.toStdString());
    bool bNumber = true;
    const int nJobs = options.isSet("jobs") ? options.value("jobs").toInt(&bNumber) : 1;
    if (!bNumber || nJobs < 1)
        return Fail("--jobs takes a number from 1 on");
    const std::vector<std::string> vPhotos = PhotosOf(vPaths, strError);
    if (!strError.empty())
        return Fail(strError);
    if (vPhotos.size() > 1)
        return RunBatch(strCommands, vPhotos, nJobs);
    return DoCommands(strCommands, vPhotos.empty() ? "" : vPhotos.front(), strError) ? 0 : Fail(strError);
}

int ListCommands()
{
    for (const Command& command : Commands())
        std::cout << DescribeCommand(command) << "\n";
    return 0;
}

/// The command line, before the kind of application is chosen; ends the program for mistakes.
void Parse(QCommandLineParser& parser, const QStringList& vArguments)
{
    parser.setApplicationDescription("Retouches a photo.");
    parser.addHelpOption();
    parser.addOption({"tour", "Plays a session without a display and writes its pictures to <folder>.", "folder"});
    parser.addOption({"record", "Writes down the session in <file>, to be played again.", "file"});
    parser.addOption({"replay",
                      "Plays a recorded session without a display, writes its last picture beside <file> and "
                      "compares it with what was recorded.",
                      "file"});
    parser.addOption({"do",
                      "Carries out <commands>, separated by semicolons, on the photos, and those of folders, without a "
                      "display. Quotes keep blanks and semicolons together.",
                      "commands"});
    parser.addOption({"jobs", "Works on up to <n> photos at a time with --do.", "n"});
    parser.addOption({"commands", "Lists the commands with their arguments."});
    parser.addPositionalArgument(
        "photo",
        "A JPEG, PNG or TIFF file; the bundled sample picture without it. With --do also several, "
        "and folders.",
        "[photo...]");
    if (!parser.parse(vArguments))
        std::exit(Fail(parser.errorText().toStdString()));
    int nModes = 0;
    for (const char* const pszMode : {"tour", "record", "replay", "do", "commands"})
        nModes += parser.isSet(pszMode);
    if (nModes > 1)
        std::exit(Fail("--tour, --record, --replay, --do and --commands do not go together"));
    if (parser.isSet("jobs") && !parser.isSet("do"))
        std::exit(Fail("--jobs goes with --do"));
}

int Run(int argc, char** argv)
{
    QCommandLineParser options;
    Parse(options, QStringList(argv, argv + argc));
    const auto isSet = [&](const char* pszMode) { return options.isSet(pszMode); };
    if (std::ranges::none_of(std::array{"tour", "replay", "do", "commands", "help"}, isSet))
        return RunWindow(argc, argv, options);
    const QCoreApplication application(argc, argv);
    if (options.isSet("help"))
        options.showHelp();
    if (options.isSet("commands"))
        return ListCommands();
    if (options.isSet("do"))
        return Do(options);
    return options.isSet("replay") ? Replay(options) : Tour(options);
}

} // namespace

int main(int argc, char** argv)
try
{
    QCoreApplication::setOrganizationName("pixtane");
    QCoreApplication::setApplicationName("retouch");
    QCoreApplication::setApplicationVersion(RETOUCH_VERSION);
    return Run(argc, argv);
}
catch (const std::runtime_error& error)
{
    return Fail(error.what());
}
