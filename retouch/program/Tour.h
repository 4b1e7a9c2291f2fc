#pragma once

#include "program/Retoucher.h"

#include <string>

/// Plays a scripted session with a photo, without a display, and writes a numbered PNG of each stop.
class CTour
{
public:
    /// The folder must exist.
    CTour(CPhoto photo, std::string strFolder);

    /// FALSE, with the reason, when a picture cannot be written.
    bool Play(std::string& strError);

private:
    struct Stop;
    static const Stop s_vStops[];

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

    // What a person does: places are shares of the view's width and height.
    struct Place
    {
        double dX, dY;
    };
    void Do(const std::string& strCommand);
    void PointTo(Place place);
    void Button(bool bDown);
    void Draw(const std::vector<Place>& vPlaces);
    void Drag(Place from, Place to);

    CViewHost m_host;
    CRetoucher m_retoucher{m_host};
    std::string m_strFolder;
    POINT m_ptPointer = {};
};
