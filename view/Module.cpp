#include "view/Module.h"

#include <afxdllx.h>

namespace
{

AFX_EXTENSION_MODULE s_Extension = {};
HINSTANCE s_hInstance = nullptr;
ULONG_PTR s_uGdiplusToken = 0;
int s_cxVerticalBar = 0;
int s_cyHorizontalBar = 0;

BOOL AttachProcess()
{
    if (!AfxInitExtensionModule(s_Extension, s_hInstance))
        return FALSE;
    new CDynLinkLibrary(s_Extension); // AfxTermExtensionModule deletes it.
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&s_uGdiplusToken, &input, nullptr) != Gdiplus::Ok)
        return FALSE;
    s_cxVerticalBar = ::GetSystemMetrics(SM_CXVSCROLL);
    s_cyHorizontalBar = ::GetSystemMetrics(SM_CYHSCROLL);
    return TRUE;
}

void DetachProcess()
{
    Gdiplus::GdiplusShutdown(s_uGdiplusToken);
    AfxTermExtensionModule(s_Extension);
}

} // namespace

extern "C" BOOL APIENTRY DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID)
{
    s_hInstance = hInstance;
    if (dwReason == DLL_PROCESS_ATTACH)
        return AttachProcess();
    if (dwReason == DLL_PROCESS_DETACH)
        DetachProcess();
    return TRUE;
}

namespace Pixtane
{

HINSTANCE ModuleInstance() { return s_hInstance; }

int ShowOwnCursor(UINT uId)
{
    const HCURSOR hCursor = ::LoadCursor(s_hInstance, MAKEINTRESOURCE(uId));
    if (!hCursor)
        return FALSE;
    ::SetCursor(hCursor);
    return TRUE;
}

int VerticalBarWidth() { return s_cxVerticalBar; }
int HorizontalBarHeight() { return s_cyHorizontalBar; }

} // namespace Pixtane
