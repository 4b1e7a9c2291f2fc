#pragma once

#include "program/Hand.h"
#include "program/Retoucher.h"

#include <string>

/// Plays a scripted session with a photo, without a display, and writes a numbered PNG of each stop: what the view
/// shows, and what the rows of the tools say.
class CTour
{
public:
    /// The folder must exist.
    CTour(CPhoto photo, std::string strFolder);

    /// FALSE, with the reason, when a picture cannot be written.
    bool Play(std::string& strError);

private:
    struct ViewStop;
    static const ViewStop s_vViewStops[];

    bool WriteStop(const char* pszName, bool (CTour::*pWrite)(const std::string&, std::string&), std::string& strError);

    bool WriteWindow(const std::string& strPath, std::string& strError);
    bool WriteCorner(const std::string& strPath, std::string& strError);
    bool WriteReadBack(const std::string& strPath, std::string& strError);

    Pixtane::CPixtane& View() { return m_host.View(); }
    double FitZoom();
    void ShowWhole();
    void ShowFitted();
    void ShowCentreAt(double dbZoom);
    void FreezePreview();
    void LeavePreview();
    void ShowCover();
    void LeaveCover();

    // What a person does.
    bool Play(const TourStop& stop, std::string& strError);
    bool Do(const std::string& strStep, std::string& strError);
    bool UseHand(const std::string& strStep);

    CViewHost m_host;
    CRetoucher m_retoucher{m_host};
    std::string m_strFolder;
    CHand m_hand{m_host};
    int m_nWritten = 0;
};
