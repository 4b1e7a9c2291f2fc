#include "retouch/Retoucher.h"

#include "retouch/AutoContrast.h"
#include "retouch/BrightnessContrast.h"
#include "retouch/RegionList.h"
#include "retouch/SamplePicture.h"
#include "user/Journal.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <utility>

/// What a command's first word stands for; strArgument is the rest of the line.
struct CRetoucher::Command
{
    const char* pszName;
    bool (*pExecute)(CRetoucher& retoucher, const std::string& strArgument, std::string& strError);
    int iTraits = 0;
};

namespace
{

// What a command is beside.
constexpr int TELLS_JOURNAL = 1;   ///< It does so itself, once it is sure to succeed.
constexpr int KEEPS_TRANSFORM = 2; ///< It leaves a transform of the selection under way; all others apply it first.

using R = CRetoucher;
using Text = const std::string;

/// A command that needs no argument and cannot fail.
template<auto PROC>
bool Simply(CRetoucher& retoucher, const std::string&, std::string&)
{
    PROC(retoucher);
    return true;
}

} // namespace

const CRetoucher::Command CRetoucher::s_vCommands[] = {
    {"open", [](R& r, Text& strPath, std::string& strError) { return r.Open(strPath, strError); }, TELLS_JOURNAL},
    {"open-sample", Simply<[](R& r) { r.Show(RenderSamplePicture()); }>},
    {"auto-contrast", Simply<[](R& r) { r.AutoContrast(); }>},
    {"brightness-contrast",
     [](R& r, Text& str, std::string& strError) { return r.BrightnessContrast(str, false, strError); }},
    {"preview-brightness-contrast",
     [](R& r, Text& str, std::string& strError) { return r.BrightnessContrast(str, true, strError); }},
    {"end-preview", Simply<[](R& r) { r.EndPreview(); }>},
    {"revert", Simply<[](R& r) { r.Revert(); }>},
    {"show-original", Simply<[](R& r) { r.ShowOriginal(true); }>, KEEPS_TRANSFORM},
    {"show-result", Simply<[](R& r) { r.ShowOriginal(false); }>, KEEPS_TRANSFORM},
    {"undo", Simply<[](R& r) { r.Undo(); }>, KEEPS_TRANSFORM},
    {"redo", Simply<[](R& r) { r.GoTo(&CHistory::Forth); }>},
    {"select-all", Simply<[](R& r) { r.SelectAll(); }>},
    {"select-none", Simply<[](R& r) { r.SelectNone(); }>},
    {"invert", Simply<[](R& r) { r.InvertSelection(); }>},
    {"pick-colour", Simply<[](R& r) { r.PickColour(); }>},
    {"select-colour", [](R& r, Text& str, std::string& strError) { return r.SelectColour(str, strError); }},
    {"reselect", Simply<[](R& r) { r.Reselect(); }>},
    {"grow", [](R& r, Text& str, std::string& strError) { return r.GrowOrShrink(str, true, strError); }},
    {"shrink", [](R& r, Text& str, std::string& strError) { return r.GrowOrShrink(str, false, strError); }},
    {"feather-selection", [](R& r, Text& str, std::string& strError) { return r.FeatherSelection(str, strError); }},
    {"hide-outline", Simply<[](R& r) { r.HideOutline(true); }>},
    {"show-outline", Simply<[](R& r) { r.HideOutline(false); }>},
    {"still-outline", Simply<[](R& r) { r.StillOutline(true); }>, KEEPS_TRANSFORM},
    {"crawling-outline", Simply<[](R& r) { r.StillOutline(false); }>, KEEPS_TRANSFORM},
    {"tint", Simply<[](R& r) { r.Tint(true); }>, KEEPS_TRANSFORM},
    {"no-tint", Simply<[](R& r) { r.Tint(false); }>, KEEPS_TRANSFORM},
    {"transform-to", [](R& r, Text& str, std::string& strError) { return r.TransformTo(str, strError); },
     KEEPS_TRANSFORM},
    {"apply-transform", Simply<[](R& r) { r.EndTransform(true); }>},
    {"cancel-transform", Simply<[](R& r) { r.EndTransform(false); }>, KEEPS_TRANSFORM},
    {"tool", [](R& r, Text& str, std::string& strError) { return r.ChooseTool(str, strError); }},
    {"rule", [](R& r, Text& str, std::string& strError) { return r.ChooseRule(str, strError); }},
    {"tolerance", [](R& r, Text& str, std::string& strError) { return r.SetTolerance(str, strError); }},
    {"feather", [](R& r, Text& str, std::string& strError) { return r.SetFeather(str, strError); }},
    {"zoom-in", Simply<[](R& r) { r.m_host.Zoom().StepZoom(1, r.m_host.Zoom().ViewCentre()); }>, KEEPS_TRANSFORM},
    {"zoom-out", Simply<[](R& r) { r.m_host.Zoom().StepZoom(-1, r.m_host.Zoom().ViewCentre()); }>, KEEPS_TRANSFORM},
    {"fit", Simply<[](R& r) { r.m_host.Zoom().ZoomToFit(); }>, KEEPS_TRANSFORM},
    {"one-to-one", Simply<[](R& r) { r.m_host.Zoom().ZoomAbout(1, r.m_host.Zoom().ViewCentre()); }>, KEEPS_TRANSFORM},
};

CRetoucher::CRetoucher(CViewHost& host) : m_host(host)
{
    m_vSubscriptions = {m_host.Listen([this](UINT uCode, CPoint) { return OnNotified(uCode); }),
                        m_host.ListenToKeys([this](UINT uKey, bool bDown) { OnKey(uKey, bDown); })};
    m_modifier.takeKey = [this](UINT uKey) { return NudgeTransform(uKey); };
    LoadTool();
}

CRetoucher::~CRetoucher()
{
    m_vSubscriptions.clear();
    View().UnloadEmbeddedTool();
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
    if (!(it->iTraits & TELLS_JOURNAL))
        winlite::TheJournal().OnCommand(strCommand);
    if (!(it->iTraits & KEEPS_TRANSFORM))
        EndTransform(true);
    const bool bDone = it->pExecute(*this, strArgument, strError);
    if (!bDone && !(it->iTraits & TELLS_JOURNAL))
        winlite::TheJournal().OnCommand(REFUSED_COMMAND);
    Changed();
    return bDone;
}

void CRetoucher::Changed()
{
    if (m_Changed)
        m_Changed();
}

// ---- the document

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
    m_original.reset();
    m_bTinted = false;
    m_pick.reset();
    m_strPending.clear();
    m_lastSelection = {};
    View().ShowCoverImage(FALSE, FALSE);
    View().vCoverBmpData() = {};
    View().SetBitmap(m_photo->Info(), m_photo->Pixels());
    m_host.Zoom().ZoomToFit();
    m_history.Reset({});
}

void CRetoucher::PixelsChanged(const std::string& strName)
{
    View().UpdateBitmap(m_photo->Info(), m_photo->Pixels(), TRUE);
    UpdateTint();
    m_pick.reset();
    AddStep(strName);
}

void CRetoucher::AutoContrast()
{
    if (!m_photo)
        return;
    BeginPixels();
    StretchContrast({m_photo->Pixels(), m_photo->ByteCount()});
    PixelsChanged("Auto Contrast");
}

bool CRetoucher::BrightnessContrast(const std::string& strValues, bool bPreview, std::string& strError)
{
    constexpr int MOST = 100;
    std::istringstream values(strValues);
    int iBrightness = 0;
    int iContrast = 0;
    if (!(values >> iBrightness >> iContrast) || std::abs(iBrightness) > MOST || std::abs(iContrast) > MOST)
    {
        strError = "brightness and contrast are two numbers from -100 to 100";
        return false;
    }
    if (!m_photo)
        return true;
    if (bPreview)
    {
        std::vector<BYTE> vPreview(m_photo->Pixels(), m_photo->Pixels() + m_photo->ByteCount());
        ApplyBrightnessContrast(vPreview, iBrightness, iContrast);
        ShowCover(std::move(vPreview));
        return true;
    }
    BeginPixels();
    ApplyBrightnessContrast({m_photo->Pixels(), m_photo->ByteCount()}, iBrightness, iContrast);
    EndPreview();
    PixelsChanged("Brightness and Contrast");
    return true;
}

void CRetoucher::ApplyBrightnessContrast(std::span<BYTE> vPixels, int iBrightness, int iContrast)
{
    if (!HasSelection())
    {
        AdjustBrightnessContrast(vPixels, {}, iBrightness, iContrast);
        return;
    }
    // The mask's rows begin at the top, the photo's at the bottom.
    const auto nWidth = static_cast<std::size_t>(m_photo->Width());
    const std::span<const BYTE> vMask = View().vSelectMask();
    for (std::size_t y = 0; y < static_cast<std::size_t>(m_photo->Height()); ++y)
        AdjustBrightnessContrast(vPixels.subspan((m_photo->Height() - 1 - y) * nWidth * 4, nWidth * 4),
                                 vMask.subspan(y * nWidth, nWidth), iBrightness, iContrast);
}

void CRetoucher::EndPreview()
{
    View().ShowCoverImage(FALSE, FALSE);
    View().vCoverBmpData() = {};
    UpdateTint();
}

void CRetoucher::BeginPixels()
{
    if (m_original)
        return;
    m_original.emplace(std::span<const BYTE>(m_photo->Pixels(), m_photo->ByteCount()),
                       static_cast<std::size_t>(m_photo->Width()) * 4, CTiledSnapshot());
    m_history.FillPixels(*m_original);
}

void CRetoucher::Revert()
{
    if (!m_original)
        return;
    m_original->Restore({m_photo->Pixels(), m_photo->ByteCount()});
    PixelsChanged("Revert");
}

void CRetoucher::ShowOriginal(bool bShow)
{
    if (!m_original)
        return;
    if (!bShow)
    {
        EndPreview();
        return;
    }
    // The original covers the picture, at the same zoom and place.
    std::vector<BYTE> vOriginal(m_photo->ByteCount());
    m_original->Restore(vOriginal);
    ShowCover(std::move(vOriginal));
}

void CRetoucher::ShowCover(std::vector<BYTE> vPixels)
{
    View().vCoverBmpData() = std::move(vPixels);
    View().CoverBmpInfo() = m_photo->Info();
    View().ShowCoverImage(TRUE, TRUE);
}

// ---- the history

CHistory::State CRetoucher::TakeState(const std::string& strName)
{
    const CHistory::State& now = m_history.Current();
    const auto nWidth = static_cast<std::size_t>(m_photo->Width());
    CHistory::State state;
    state.strName = strName;
    if (m_original)
        state.pixels = CTiledSnapshot({m_photo->Pixels(), m_photo->ByteCount()}, nWidth * 4, now.pixels);
    CRgn rgn;
    if (View().GetSelectRegion(rgn))
    {
        state.vSelected = RectsOf(rgn);
        state.mask = CTiledSnapshot(View().vSelectMask(), nWidth, now.mask);
    }
    return state;
}

void CRetoucher::Undo()
{
    // A transform under way is the last thing that was done.
    if (IsTransforming())
        EndTransform(false);
    else
        GoTo(&CHistory::Back);
}

bool CRetoucher::AddStep(const std::string& strName)
{
    const bool bAdded = m_history.Add(TakeState(strName));
    Changed();
    return bAdded;
}

void CRetoucher::GoTo(const CHistory::State* (CHistory::*pStep)())
{
    const CTiledSnapshot before = m_history.Current().pixels;
    const CHistory::State* const pState = (m_history.*pStep)();
    if (!pState)
        return;
    m_strPending.clear();
    m_pick.reset();
    if (m_original && !pState->pixels.IsSameAs(before))
    {
        pState->pixels.Restore({m_photo->Pixels(), m_photo->ByteCount()});
        View().UpdateBitmap(m_photo->Info(), m_photo->Pixels(), TRUE);
    }
    RestoreSelection(*pState);
    UpdateTint();
}
