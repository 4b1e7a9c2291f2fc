#include "retouch/Retoucher.h"

#include "retouch/AutoContrast.h"
#include "retouch/SamplePicture.h"
#include "user/Journal.h"

#include <algorithm>
#include <utility>

/// What a command's first word stands for; strArgument is the rest of the line.
struct CRetoucher::Command
{
    const char* pszName;
    bool (*pExecute)(CRetoucher& retoucher, const std::string& strArgument, std::string& strError);
    bool bTellsJournal = false; ///< It does so itself, once it is sure to succeed.
};

namespace
{

/// A command that needs no argument and cannot fail.
template<auto PROC>
bool Simply(CRetoucher& retoucher, const std::string&, std::string&)
{
    PROC(retoucher);
    return true;
}

} // namespace

const CRetoucher::Command CRetoucher::s_vCommands[] = {
    {"open", [](CRetoucher& r, const std::string& strPath, std::string& strError) { return r.Open(strPath, strError); },
     true},
    {"open-sample", Simply<[](CRetoucher& r) { r.Show(RenderSamplePicture()); }>},
    {"auto-contrast", Simply<[](CRetoucher& r) { r.AutoContrast(); }>},
    {"revert", Simply<[](CRetoucher& r) { r.Revert(); }>},
    {"show-original", Simply<[](CRetoucher& r) { r.ShowOriginal(true); }>},
    {"show-result", Simply<[](CRetoucher& r) { r.ShowOriginal(false); }>},
    {"zoom-in", Simply<[](CRetoucher& r) { r.m_host.Zoom().StepZoom(1, r.m_host.Zoom().ViewCentre()); }>},
    {"zoom-out", Simply<[](CRetoucher& r) { r.m_host.Zoom().StepZoom(-1, r.m_host.Zoom().ViewCentre()); }>},
    {"fit", Simply<[](CRetoucher& r) { r.m_host.Zoom().ZoomToFit(); }>},
    {"one-to-one", Simply<[](CRetoucher& r) { r.m_host.Zoom().ZoomAbout(1, r.m_host.Zoom().ViewCentre()); }>},
};

CRetoucher::~CRetoucher()
{
    // The view shows the photo's pixels, which go before it.
    View().ClearBitmap(FALSE);
}

bool CRetoucher::Execute(const std::string& strCommand, std::string& strError)
{
    const std::string strName = strCommand.substr(0, strCommand.find(' '));
    const std::string strArgument = strCommand.substr(std::min(strName.size() + 1, strCommand.size()));
    const auto it = std::ranges::find(s_vCommands, strName, &Command::pszName);
    if (it == std::end(s_vCommands))
    {
        strError = "there is no command \"" + strName + "\"";
        return false;
    }
    // Written down before it is done: what it does shows up after it.
    if (!it->bTellsJournal)
        winlite::TheJournal().OnCommand(strCommand);
    return it->pExecute(*this, strArgument, strError);
}

bool CRetoucher::Open(const std::string& strPath, std::string& strError)
{
    std::optional<CPhoto> photo = CPhoto::Load(strPath, strError);
    if (!photo)
        return false;
    winlite::TheJournal().OnCommand("open " + strPath);
    Show(std::move(*photo));
    return true;
}

void CRetoucher::Show(CPhoto photo)
{
    // The view lets go of the old pixels before they go.
    const std::optional<CPhoto> old = std::exchange(m_photo, std::move(photo));
    m_vOriginal.clear();
    View().ShowCoverImage(FALSE, FALSE);
    View().SetBitmap(m_photo->Info(), m_photo->Pixels());
    m_host.Zoom().ZoomToFit();
}

void CRetoucher::KeepOriginal()
{
    if (m_vOriginal.empty())
        m_vOriginal.assign(m_photo->Pixels(), m_photo->Pixels() + m_photo->ByteCount());
}

void CRetoucher::AutoContrast()
{
    if (!m_photo)
        return;
    KeepOriginal();
    StretchContrast({m_photo->Pixels(), m_photo->ByteCount()});
    View().UpdateBitmap(m_photo->Info(), m_photo->Pixels(), TRUE);
}

void CRetoucher::Revert()
{
    if (m_vOriginal.empty())
        return;
    std::ranges::copy(m_vOriginal, m_photo->Pixels());
    View().UpdateBitmap(m_photo->Info(), m_photo->Pixels(), TRUE);
}

void CRetoucher::ShowOriginal(bool bShow)
{
    if (m_vOriginal.empty())
        return;
    // The original covers the picture, at the same zoom and place.
    if (bShow)
    {
        View().vCoverBmpData() = m_vOriginal;
        View().CoverBmpInfo() = m_photo->Info();
    }
    View().ShowCoverImage(bShow, bShow);
}
