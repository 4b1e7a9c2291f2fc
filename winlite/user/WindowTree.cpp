#include "base/Desktop.h"
#include "base/StateLock.h"
#include "base/Thread.h"
#include "user/InputQueue.h"
#include "user/Window.h"
#include "user/WindowObject.h"

#include <algorithm>

namespace winlite
{

namespace
{

std::shared_ptr<WindowObject> MakeWindow(const CREATESTRUCT& create, const WindowClass& windowClass,
                                         WindowObject* pParent)
{
    auto pWindow = std::make_shared<WindowObject>();
    pWindow->pClass = &windowClass;
    pWindow->pProc = windowClass.wndClass.lpfnWndProc;
    pWindow->dwStyle = static_cast<DWORD>(create.style) & ~WS_VISIBLE; // shown at the end of the creation
    pWindow->lId = reinterpret_cast<LONG_PTR>(create.hMenu);
    pWindow->strTitle = create.lpszName ? create.lpszName : L"";
    pWindow->pParent = pParent;
    pWindow->ptPosition = {std::clamp(create.x, -MAX_COORDINATE, MAX_COORDINATE),
                           std::clamp(create.y, -MAX_COORDINATE, MAX_COORDINATE)};
    pWindow->szClient = {std::clamp(create.cx, 0, MAX_EXTENT), std::clamp(create.cy, 0, MAX_EXTENT)};
    pWindow->iNumber = ++WindowCount();
    pWindow->hWnd = reinterpret_cast<HWND>(OpenHandle(pWindow));
    // A new child goes below its siblings.
    (pParent ? pParent->vChildren : TopLevelWindows()).push_back(pWindow);
    return pWindow;
}

/// Takes the window out of the tree, the queue and the handle table. Its surface ends here, on its owner's thread: a
/// worker that is just asking about the window may be the last to hold the object.
void RemoveWindow(WindowObject& window)
{
    StateLock lock;
    window.pSurface.reset();
    ForgetTimersOf(window.hWnd);
    ForgetMessagesOf(window.hWnd);
    auto& vSiblings = window.pParent ? window.pParent->vChildren : TopLevelWindows();
    const std::shared_ptr<HandleObject> pKeep = CloseHandleEntry(window.hWnd);
    std::erase_if(vSiblings, [&window](const auto& pSibling) { return pSibling.get() == &window; });
    window.pParent = nullptr; // It may be gone before the last holder of this object.
}

std::vector<std::shared_ptr<WindowObject>> ChildrenOf(const WindowObject& window)
{
    StateLock lock;
    return window.vChildren;
}

void SendDestroy(WindowObject& window)
{
    window.bDestroying = true;
    ::SendMessage(window.hWnd, WM_DESTROY, 0, 0);
    for (const auto& pChild : ChildrenOf(window))
    {
        if (!pChild->bDestroying)
            SendDestroy(*pChild);
    }
}

void SendNcDestroyAndRemove(WindowObject& window)
{
    // A handler may create children even now; they go as well.
    for (auto vChildren = ChildrenOf(window); !vChildren.empty(); vChildren = ChildrenOf(window))
    {
        for (const auto& pChild : vChildren)
        {
            if (::IsWindow(pChild->hWnd))
                SendNcDestroyAndRemove(*pChild);
        }
    }
    ForgetInputOf(window.hWnd);
    ::SendMessage(window.hWnd, WM_NCDESTROY, 0, 0);
    if (::IsWindow(window.hWnd))
        RemoveWindow(window);
}

void TellDesktop(const WindowObject& window)
{
    if (!window.pParent && HasDesktop())
        TheDesktop().WindowChanged(window.hWnd);
}

/// The creation messages after WM_NCCREATE; false when the window refuses or goes.
bool SendCreationMessages(const std::shared_ptr<WindowObject>& pWindow, CREATESTRUCT& create)
{
    const HWND hWnd = pWindow->hWnd;
    if (::SendMessage(hWnd, WM_CREATE, 0, reinterpret_cast<LPARAM>(&create)) == -1)
    {
        ::DestroyWindow(hWnd);
        return false;
    }
    ::SendMessage(hWnd, WM_SIZE, SIZE_RESTORED, MAKELPARAM(pWindow->szClient.cx, pWindow->szClient.cy));
    ::SendMessage(hWnd, WM_MOVE, 0, MAKELPARAM(pWindow->ptPosition.x, pWindow->ptPosition.y));
    if (create.hwndParent)
        ::SendMessage(create.hwndParent, WM_PARENTNOTIFY, MAKEWPARAM(WM_CREATE, static_cast<int>(pWindow->lId)),
                      reinterpret_cast<LPARAM>(hWnd));
    return ::IsWindow(hWnd);
}

} // namespace

int& WindowCount()
{
    static int s_nCreated = 0;
    return s_nCreated;
}

HWND CreateWindowHooked(const CREATESTRUCT& create, const std::function<void(HWND)>& beforeFirstMessage)
{
    AssertUserInterfaceThread();
    const WindowClass* pClass = FindWindowClass(create.lpszClass);
    const bool bChild = (static_cast<DWORD>(create.style) & WS_CHILD) != 0;
    const std::shared_ptr<WindowObject> pParent = bChild ? FindWindowObject(create.hwndParent) : nullptr;
    if (!pClass || (bChild && (!pParent || pParent->bDestroying)))
        return nullptr;
    std::shared_ptr<WindowObject> pWindow;
    {
        StateLock lock;
        pWindow = MakeWindow(create, *pClass, pParent.get());
    }
    if (beforeFirstMessage)
        beforeFirstMessage(pWindow->hWnd);
    CREATESTRUCT createSent = create;
    if (!bChild)
        createSent.hwndParent = nullptr;
    if (!::SendMessage(pWindow->hWnd, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&createSent)))
    {
        if (::IsWindow(pWindow->hWnd))
            SendNcDestroyAndRemove(*pWindow);
        return nullptr;
    }
    if (!SendCreationMessages(pWindow, createSent))
        return nullptr;
    if (static_cast<DWORD>(create.style) & WS_VISIBLE)
        ::ShowWindow(pWindow->hWnd, SW_SHOW);
    else
        TellDesktop(*pWindow);
    return ::IsWindow(pWindow->hWnd) ? pWindow->hWnd : nullptr;
}

} // namespace winlite

using namespace winlite;

HWND CreateWindowEx(DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x, int y, int cx, int cy,
                    HWND hParent, HMENU hMenu, HINSTANCE hInstance, LPVOID pParam)
{
    const CREATESTRUCT create = {pParam,  hInstance, hMenu,    hParent, cy, cx, y, x, static_cast<LONG>(dwStyle),
                                 pszName, pszClass,  dwExStyle};
    return CreateWindowHooked(create, nullptr);
}

BOOL DestroyWindow(HWND hWnd)
{
    AssertUserInterfaceThread();
    const std::shared_ptr<WindowObject> pWindow = FindWindowObject(hWnd);
    if (!pWindow || pWindow->bDestroying)
        return FALSE;
    const bool bTopLevel = !pWindow->pParent;
    ::ShowWindow(hWnd, SW_HIDE);
    if (!::IsWindow(hWnd))
        return FALSE; // Gone in the handler of the hiding.
    SendDestroy(*pWindow);
    if (::IsWindow(hWnd)) // A handler may have destroyed an ancestor, and this window with it.
        SendNcDestroyAndRemove(*pWindow);
    if (bTopLevel)
        TellDesktop(*pWindow);
    return TRUE;
}

BOOL IsWindow(HWND hWnd) { return FindWindowObject(hWnd) != nullptr; }

HWND GetParent(HWND hWnd)
{
    const auto pWindow = FindWindowObject(hWnd);
    StateLock lock;
    return pWindow && pWindow->pParent ? pWindow->pParent->hWnd : nullptr;
}

HWND GetWindow(HWND hWnd, UINT uCommand)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return nullptr;
    StateLock lock;
    if (uCommand == GW_CHILD)
        return pWindow->vChildren.empty() ? nullptr : pWindow->vChildren.front()->hWnd;
    if (uCommand != GW_HWNDNEXT || !pWindow->pParent)
        return nullptr;
    const auto& vSiblings = pWindow->pParent->vChildren;
    const auto it = std::ranges::find(vSiblings, pWindow);
    return it == vSiblings.end() || it + 1 == vSiblings.end() ? nullptr : (*(it + 1))->hWnd;
}

int GetDlgCtrlID(HWND hWnd) { return static_cast<int>(GetWindowLongPtr(hWnd, GWLP_ID)); }

LONG_PTR GetWindowLongPtr(HWND hWnd, int iIndex)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return 0;
    StateLock lock;
    switch (iIndex)
    {
    case GWL_STYLE:
        return static_cast<LONG_PTR>(pWindow->dwStyle);
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(pWindow->pProc);
    case GWLP_ID:
        return pWindow->lId;
    default:
        return 0;
    }
}

LONG_PTR SetWindowLongPtr(HWND hWnd, int iIndex, LONG_PTR lValue)
{
    const LONG_PTR lOld = GetWindowLongPtr(hWnd, iIndex);
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return 0;
    StateLock lock;
    if (iIndex == GWL_STYLE)
        pWindow->dwStyle = static_cast<DWORD>(lValue);
    else if (iIndex == GWLP_WNDPROC)
        pWindow->pProc = reinterpret_cast<WNDPROC>(lValue);
    else if (iIndex == GWLP_ID)
        pWindow->lId = lValue;
    return lOld;
}

BOOL SetWindowText(HWND hWnd, LPCWSTR pszText)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow)
        return FALSE;
    {
        StateLock lock;
        pWindow->strTitle = pszText ? pszText : L"";
    }
    TellDesktop(*pWindow);
    return TRUE;
}

int GetWindowText(HWND hWnd, LPWSTR pszText, int nMax)
{
    const auto pWindow = FindWindowObject(hWnd);
    if (!pWindow || nMax <= 0)
        return 0;
    StateLock lock;
    const std::size_t nCopied = pWindow->strTitle.copy(pszText, static_cast<std::size_t>(nMax) - 1);
    pszText[nCopied] = 0;
    return static_cast<int>(nCopied);
}
