#include "program/Batch.h"

#include "document/Message.h"
#include "document/SamplePicture.h"
#include "headless/HeadlessDesktop.h"
#include "program/CommandText.h"
#include "program/Retoucher.h"
#include "program/Saving.h"

#include <iostream>

namespace
{

constexpr SIZE WINDOW_SIZE = {1100, 740};

/// The message of a command that failed.
std::string Failed(const std::string& strCommand, const std::string& strReason)
{
    return strCommand + ": " + strReason;
}

std::optional<std::vector<std::string>> ReadCommands(const std::string& strCommands, std::string& strError)
{
    std::optional<std::vector<std::string>> vCommands = SplitCommands(strCommands, strError);
    if (!vCommands)
        return std::nullopt;
    for (const std::string& strCommand : *vCommands)
    {
        std::string strReason;
        if (ParseCommand(Commands(), strCommand, strReason))
            continue;
        strError = Failed(strCommand, strReason);
        return std::nullopt;
    }
    if (!vCommands->empty())
        return vCommands;
    strError = Message(QT_TRANSLATE_NOOP("Program", "there is no command to carry out"));
    return std::nullopt;
}

bool DoThem(const std::vector<std::string>& vCommands, CPhoto photo, winlite::HeadlessDesktop& desktop,
            std::string& strError)
{
    CViewHost host;
    host.MoveWindow(0, 0, WINDOW_SIZE.cx, WINDOW_SIZE.cy);
    host.ShowWindow(SW_SHOW);
    CRetoucher retoucher(host);
    retoucher.ShowPhoto(std::move(photo));
    for (const std::string& strCommand : vCommands)
    {
        desktop.DispatchPending();
        std::string strReason;
        if (retoucher.Execute(strCommand, strReason))
            continue;
        strError = Failed(strCommand, strReason);
        return false;
    }
    return true;
}

} // namespace

bool DoCommands(const std::string& strCommands, const std::string& strPhoto, std::string& strError)
{
    const std::optional<std::vector<std::string>> vCommands = ReadCommands(strCommands, strError);
    if (!vCommands)
        return false;
    std::optional<CPhoto> photo = strPhoto.empty() ? RenderSamplePicture() : CPhoto::Load(strPhoto, strError);
    if (!photo)
        return false;
    if (photo->Origin().bCutOff)
        std::cerr << strPhoto << ": "
                  << Message(QT_TRANSLATE_NOOP("Program", "ends before its picture does, which is taken as it is"))
                  << "\n";
    winlite::HeadlessDesktop desktop;
    CWinApp app;
    if (!AfxWinInit(nullptr, nullptr, nullptr, SW_SHOW))
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "the library did not start"));
        return false;
    }
    const bool bDone = DoThem(*vCommands, std::move(*photo), desktop, strError);
    AfxWinTerm();
    return bDone;
}

bool AreCommands(const std::string& strCommands, std::string& strError)
{
    return ReadCommands(strCommands, strError).has_value();
}

std::vector<std::string> FilesSavedTo(const std::string& strCommands, const std::string& strPhoto)
{
    std::string strError;
    std::vector<std::string> vFiles;
    for (const std::string& strCommand : ReadCommands(strCommands, strError).value_or(std::vector<std::string>()))
    {
        const std::optional<CommandCall> call = ParseCommand(Commands(), strCommand, strError);
        if (call->pCommand->strWord != "save")
            continue;
        if (const auto strFile = FilledIn(std::get<std::string>(call->vValues[0]), strPhoto, strError))
            vFiles.push_back(*strFile);
    }
    return vFiles;
}
