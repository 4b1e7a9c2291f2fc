#pragma once

#include "support/TestView.h"
#include "user/Input.h"

/// A simulated user of a view: what it does enters the input queue like a real user's input, and is dispatched with
/// everything that comes of it. Points are window coordinates of the view.
class CUser
{
public:
    explicit CUser(CWnd& view) : m_view(view)
    {
        winlite::QueueActivation(TopLevel(), true);
        Settle();
    }

    void Move(CPoint pt)
    {
        winlite::QueuePointerMove(TopLevel(), OnScreen(pt));
        Settle();
    }
    void Press(CPoint pt, winlite::MouseButton button = winlite::MouseButton::Left) { Button(pt, button, true); }
    void Release(CPoint pt, winlite::MouseButton button = winlite::MouseButton::Left) { Button(pt, button, false); }
    void Click(CPoint pt)
    {
        Press(pt);
        Release(pt);
    }
    void Drag(CPoint ptFrom, CPoint ptTo)
    {
        Press(ptFrom);
        Move(ptTo);
        Release(ptTo);
    }
    void Wheel(int zDelta, CPoint pt = {0, 0})
    {
        winlite::QueueWheel(zDelta, OnScreen(pt));
        Settle();
    }
    void KeyDown(UINT uKey) { Key(uKey, true); }
    void KeyUp(UINT uKey) { Key(uKey, false); }
    void Type(UINT uKey)
    {
        KeyDown(uKey);
        KeyUp(uKey);
    }

    /// Lets time pass in steps that no timer of the view is faster than.
    void Wait(int iMs)
    {
        for (constexpr int STEP = 10; iMs > 0; iMs -= STEP)
        {
            Desktop().Advance(STEP);
            Settle();
        }
    }
    static void Settle() { Desktop().DispatchPending(); }

private:
    static winlite::HeadlessDesktop& Desktop() { return static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()); }
    HWND TopLevel() const { return ::GetParent(m_view.m_hWnd); }
    CPoint OnScreen(CPoint pt) const
    {
        m_view.ClientToScreen(&pt);
        return pt;
    }
    void Button(CPoint pt, winlite::MouseButton button, bool bDown)
    {
        winlite::QueueButton(TopLevel(), button, bDown, OnScreen(pt));
        Settle();
    }
    void Key(UINT uKey, bool bDown)
    {
        const bool bArrow = uKey >= VK_LEFT && uKey <= VK_DOWN;
        // The scan codes of the arrows, which hold the bit that the view uses as a flag.
        constexpr BYTE SCAN_CODES[] = {0x4B, 0x48, 0x4D, 0x50};
        winlite::QueueKey({uKey, bDown, bArrow, bArrow ? SCAN_CODES[uKey - VK_LEFT] : BYTE{0}});
        Settle();
    }

    CWnd& m_view;
};
