#pragma once

#include "retouch/Photo.h"
#include "view/Pixtane.h"

#include <string>

/// Plays a scripted session with a photo, without a display, and writes a numbered PNG of each stop.
class CTour
{
public:
    /// The folder must exist. The photo's pixels are changed along the way.
    CTour(CPhoto& photo, std::string strFolder);
    ~CTour();

    /// FALSE, with the reason, when the window cannot be made or a picture cannot be written.
    bool Play(std::string& strError);

private:
    struct Stop;
    static const Stop s_vStops[];

    bool OpenWindow(std::string& strError);
    bool WriteWindow(const std::string& strPath, std::string& strError);
    bool WriteCorner(const std::string& strPath, std::string& strError);
    bool WriteReadBack(const std::string& strPath, std::string& strError);

    double FitZoom();
    void ShowWhole();
    void ShowFitted();
    void ShowCentreAt(double dbZoom);
    void FreezePreview();
    void LeavePreview();
    void ShowCover();
    void LeaveCover();

    CPhoto& m_photo;
    std::string m_strFolder;
    CWnd m_wndHost;
    Pixtane::CPixtane m_view;
};
