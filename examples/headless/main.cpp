// Shows a bitmap in a view without a display and writes what is on screen: example_headless PICTURE.ppm

#include "headless/HeadlessDesktop.h"
#include "view/Pixtane.h"

#include <fstream>
#include <iostream>

namespace
{

/// A bitmap as a host owns it: bottom-up, 32 bits a pixel.
std::vector<BYTE> MakeGradient(const BITMAPINFOHEADER& header)
{
    std::vector<BYTE> vPixels;
    for (int y = 0; y < header.biHeight; ++y)
    {
        for (int x = 0; x < header.biWidth; ++x)
            vPixels.insert(vPixels.end(), {static_cast<BYTE>(x * 8), static_cast<BYTE>(y * 8), 160, 0});
    }
    return vPixels;
}

bool WritePpm(const char* pszPath, const std::vector<BYTE>& vData, const BITMAPINFOHEADER& header)
{
    std::ofstream file(pszPath, std::ios::binary);
    file << "P6 " << header.biWidth << " " << header.biHeight << " 255\n";
    for (int y = header.biHeight - 1; y >= 0; --y)
    {
        for (int x = 0; x < header.biWidth; ++x)
        {
            const BYTE* pPixel = &vData[(static_cast<std::size_t>(y) * header.biWidth + x) * 4];
            file << static_cast<char>(pPixel[2]) << static_cast<char>(pPixel[1]) << static_cast<char>(pPixel[0]);
        }
    }
    return file.good();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 1;
    winlite::HeadlessDesktop desktop;
    CWinApp app;
    if (!AfxWinInit(nullptr, nullptr, nullptr, SW_SHOW))
        return 1;
    bool bWritten = false;
    {
        const CRect rcWindow(0, 0, 300, 200);
        CWnd wndHost;
        wndHost.CreateEx(0, AfxRegisterWndClass(0), L"example", WS_VISIBLE, rcWindow, nullptr, 0);
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), 32, 24, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        std::vector<BYTE> vPixels = MakeGradient(info.bmiHeader);

        Pixtane::CPixtane view;
        view.Create(rcWindow, &wndHost, 1, RGB(58, 60, 64));
        view.ShowWindow(SW_SHOW);
        view.ShowScrollBar(FALSE);
        view.SetBitmap(info, vPixels.data());
        view.SetZoom(10);

        CRect rcShown;
        std::vector<BYTE> vShown;
        BITMAPINFO shown = {};
        bWritten = view.GetCurDisplayImage(&rcShown, vShown, shown) && WritePpm(argv[1], vShown, shown.bmiHeader);
        std::cout << argv[1] << ": " << rcShown.Width() << " x " << rcShown.Height() << " pixels at zoom "
                  << view.dbZoom() << "\n";
        view.DestroyWindow();
    }
    AfxWinTerm();
    return bWritten ? 0 : 1;
}
