#pragma once

#include "base/HandleTable.h"
#include "headless/HeadlessDesktop.h"
#include "support/Rects.h"
#include "user/Window.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>

/// A test with windows that log their messages. A window is named by one letter, its title; it paints itself with
/// pixels of that letter's value, so that pictures can be read as text.
class UserTest : public testing::Test
{
protected:
    winlite::HeadlessDesktop desktop;
    HWND hTop = {};

    /// What a window does when it gets a message, before the default; for WM_PAINT between BeginPaint and EndPaint.
    std::map<std::pair<char, UINT>, std::function<void(HWND)>> Hooks;
    bool bValidates = true; ///< Whether WM_PAINT calls BeginPaint.

    void SetUp() override
    {
        s_pTest = this;
        WNDCLASS wndClass = {};
        wndClass.lpfnWndProc = &Procedure;
        wndClass.lpszClassName = L"Recorder";
        ::RegisterClass(&wndClass); // The first test's stays.
        hTop = Make('P', WS_VISIBLE, {0, 0, 6, 4});
        desktop.DispatchPending();
        TakeLog();
    }

    void TearDown() override
    {
        ::DestroyWindow(hTop);
        EXPECT_EQ(winlite::MsToNextTimer(), -1);
        EXPECT_EQ(winlite::OpenHandleCount(), m_nHandles);
    }

    /// The rectangle is left, top, width, height.
    HWND Make(char cName, DWORD dwStyle, const RECT& rc, HWND hParent = nullptr)
    {
        const wchar_t szName[] = {static_cast<wchar_t>(cName), 0};
        const DWORD dwKind = hParent ? WS_CHILD : WS_POPUP;
        return ::CreateWindowEx(0, L"Recorder", szName, dwStyle | dwKind, rc.left, rc.top, rc.right, rc.bottom, hParent,
                                nullptr, nullptr, nullptr);
    }

    std::string TakeLog() { return std::exchange(m_strLog, {}); }

    std::string LogAfterDispatch()
    {
        desktop.DispatchPending();
        return TakeLog();
    }

    /// The top-level window's picture, its rows with a bar between them.
    std::string PictureText() const
    {
        const winlite::Picture picture = winlite::WindowPicture(hTop);
        std::string strText;
        for (std::size_t i = 0; i < picture.vPixels.size(); ++i)
        {
            if (i && i % static_cast<std::size_t>(picture.cx) == 0)
                strText += '|';
            strText += static_cast<char>(picture.vPixels[i] ? picture.vPixels[i] : '.');
        }
        return strText;
    }

private:
    static inline UserTest* s_pTest;
    static char NameOf(HWND hWnd)
    {
        wchar_t szTitle[2] = {};
        ::GetWindowText(hWnd, szTitle, 2);
        return static_cast<char>(szTitle[0]);
    }

    static std::string Describe(UINT uMessage, WPARAM wParam, LPARAM lParam)
    {
        static const std::map<UINT, std::string> s_Names = {
            {WM_NCCREATE, "nccreate"}, {WM_CREATE, "create"},       {WM_SHOWWINDOW, "show"},
            {WM_ERASEBKGND, "erase"},  {WM_PAINT, "paint"},         {WM_PARENTNOTIFY, "notify"},
            {WM_DESTROY, "destroy"},   {WM_USER, "user"},           {WM_WINDOWPOSCHANGING, "changing"},
            {WM_TIMER, "timer"},       {WM_SIZE, "size"},           {WM_WINDOWPOSCHANGED, "changed"},
            {WM_MOVE, "move"},         {WM_NCDESTROY, "ncdestroy"}, {WM_SETFOCUS, "focus"},
            {WM_KILLFOCUS, "blur"},    {WM_MOUSEMOVE, "mouse"},     {WM_CAPTURECHANGED, "lost"},
        };
        const std::string strName = s_Names.at(uMessage);
        const auto dwPair = static_cast<DWORD_PTR>(lParam);
        if (uMessage == WM_SIZE || uMessage == WM_MOVE)
            return strName + std::to_string(SHORT(LOWORD(dwPair))) + "," + std::to_string(SHORT(HIWORD(dwPair)));
        const bool bNumbered = uMessage == WM_SHOWWINDOW || uMessage == WM_TIMER || uMessage == WM_USER;
        return bNumbered ? strName + std::to_string(wParam) : strName;
    }

    static void Paint(HWND hWnd, char cName, const std::function<void(HWND)>& hook)
    {
        PAINTSTRUCT paint;
        const HDC hDC = ::BeginPaint(hWnd, &paint);
        const RECT& rc = paint.rcPaint;
        s_pTest->m_strLog += '(' + std::to_string(rc.left) + ',' + std::to_string(rc.top) + ',' +
                             std::to_string(rc.right) + ',' + std::to_string(rc.bottom) + ')';
        if (hook)
            hook(hWnd);
        const HBRUSH hBrush = ::CreateSolidBrush(RGB(0, 0, cName));
        const RECT rcAll = {0, 0, 1000, 1000};
        ::FillRect(hDC, &rcAll, hBrush);
        ::DeleteObject(hBrush);
        ::EndPaint(hWnd, &paint);
    }

    static LRESULT Procedure(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
    {
        const char cName = NameOf(hWnd);
        s_pTest->m_strLog += (s_pTest->m_strLog.empty() ? "" : " ") + (cName + Describe(uMessage, wParam, lParam));
        const auto it = s_pTest->Hooks.find({cName, uMessage});
        const auto hook = it == s_pTest->Hooks.end() ? nullptr : it->second;
        if (uMessage == WM_PAINT && s_pTest->bValidates)
        {
            Paint(hWnd, cName, hook);
            return 0;
        }
        if (hook)
            hook(hWnd);
        return uMessage == WM_PAINT ? 0 : ::DefWindowProc(hWnd, uMessage, wParam, lParam);
    }

    std::size_t m_nHandles = winlite::OpenHandleCount();
    std::string m_strLog;
};
