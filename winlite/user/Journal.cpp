#include "user/Journal.h"

#include "base/StateLock.h"
#include "user/WindowObject.h"

namespace winlite
{

namespace
{

thread_local InputJournal* t_pJournal = nullptr;

HWND FindNumber(const std::vector<std::shared_ptr<WindowObject>>& vWindows, int iNumber)
{
    for (const auto& pWindow : vWindows)
    {
        if (pWindow->iNumber == iNumber)
            return pWindow->hWnd;
        if (const HWND hChild = FindNumber(pWindow->vChildren, iNumber))
            return hChild;
    }
    return nullptr;
}

} // namespace

void SetJournal(InputJournal* pJournal) { t_pJournal = pJournal; }

InputJournal& TheJournal()
{
    static InputJournal s_PassesAll;
    return t_pJournal ? *t_pJournal : s_PassesAll;
}

int NumberOf(HWND hWnd)
{
    const auto pWindow = FindWindowObject(hWnd);
    return pWindow ? pWindow->iNumber : 0;
}

HWND WindowOfNumber(int iNumber)
{
    StateLock lock;
    return iNumber ? FindNumber(TopLevelWindows(), iNumber) : nullptr;
}

int OldestWindowNumber()
{
    StateLock lock;
    return TopLevelWindows().empty() ? WindowCount() + 1 : TopLevelWindows().front()->iNumber;
}

void PlaceTopLevel(HWND hTopLevel, const RECT& rcScreen)
{
    TheJournal().OnPlaced(hTopLevel, rcScreen);
    ::MoveWindow(hTopLevel, rcScreen.left, rcScreen.top, rcScreen.right - rcScreen.left, rcScreen.bottom - rcScreen.top,
                 TRUE);
}

void ShowTopLevel(HWND hTopLevel, int iShow)
{
    TheJournal().OnShown(hTopLevel, iShow);
    ::ShowWindow(hTopLevel, iShow);
}

void EnableTopLevel(HWND hTopLevel, BOOL bEnable)
{
    TheJournal().OnEnabled(hTopLevel, bEnable);
    ::EnableWindow(hTopLevel, bEnable);
}

} // namespace winlite
