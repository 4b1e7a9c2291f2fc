#include "program/Session.h"

#include "document/PngFile.h"
#include "headless/HeadlessDesktop.h"
#include "journal/JournalPlayer.h"
#include "program/Navigator.h"
#include "program/Retoucher.h"
#include "user/Window.h"

#include <fstream>
#include <QCryptographicHash>
#include <stdexcept>

namespace
{

/// The program behind a replay: started and ended like the real one.
class CReplay
{
public:
    explicit CReplay(std::istream& stream) : m_player(stream), m_desktop(m_player.ScreenSize(), m_player.Scale())
    {
        if (!AfxWinInit(nullptr, nullptr, nullptr, SW_SHOW))
            throw std::runtime_error("the library did not start");
    }
    ~CReplay() { AfxWinTerm(); }

    winlite::Picture Play(const std::string& strPhoto)
    {
        CViewHost host;
        CRetoucher retoucher(host);
        retoucher.LeaveToolCommands();
        CViewHost small; // The real program has it, seen or not.
        const CNavigator navigator(small, host, retoucher);
        std::string strError;
        bool bRefused = false;
        const auto execute = [&](const std::string& strCommand)
        {
            // What was refused then must be refused now, and nothing else.
            if (strCommand == REFUSED_COMMAND || bRefused)
                return std::exchange(bRefused, false) == (strCommand == REFUSED_COMMAND);
            if (strCommand.starts_with("save"))
                return true; // A replay writes no photos.
            const bool bReplaced = !strPhoto.empty() && strCommand.starts_with("open");
            bRefused = !host.Execute(strCommand) && !small.Execute(strCommand) &&
                       !retoucher.Execute(bReplaced ? "open " + strPhoto : strCommand, strError);
            return true;
        };
        try
        {
            m_player.Play(m_desktop, execute);
        }
        catch (const std::runtime_error& error)
        {
            throw std::runtime_error(strError.empty() ? error.what() : error.what() + (": " + strError));
        }
        if (bRefused)
            throw std::runtime_error("a command at the end could not be done: " + strError);
        return winlite::WindowPicture(host.m_hWnd);
    }
    const std::string& RecordedEnd() const { return m_player.End(); }

private:
    winlite::JournalPlayer m_player;
    winlite::HeadlessDesktop m_desktop;
    CWinApp m_app;
};

} // namespace

std::string DescribePicture(const winlite::Picture& picture)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(picture.vPixels.data()),
                                static_cast<qsizetype>(picture.vPixels.size() * sizeof(std::uint32_t))));
    return std::to_string(picture.cx) + "x" + std::to_string(picture.cy) + " " + hash.result().toHex().toStdString();
}

ReplayResult ReplaySession(const std::string& strPath, const std::string& strPicture, const std::string& strPhoto)
try
{
    std::ifstream file(strPath);
    if (!file)
        throw std::runtime_error("cannot be opened");
    CReplay replay(file);
    const winlite::Picture picture = replay.Play(strPhoto);
    std::string strError;
    if (picture.vPixels.empty())
        throw std::runtime_error("its window has no size in the end");
    if (!WritePng(strPicture, picture.cx, picture.cy, picture.vPixels.data(), strError))
        throw std::runtime_error(strError);
    return {DescribePicture(picture), replay.RecordedEnd()};
}
catch (const std::runtime_error& error)
{
    throw std::runtime_error(strPath + ": " + error.what());
}
