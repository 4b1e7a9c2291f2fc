#include "program/Hand.h"

#include "headless/HeadlessDesktop.h"
#include "user/Input.h"

namespace
{

winlite::HeadlessDesktop& Desktop() { return static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()); }

} // namespace

void CHand::PointTo(CPoint ptWindow)
{
    m_ptScreen = ptWindow;
    m_host.View().ClientToScreen(&m_ptScreen);
    winlite::QueuePointerMove(m_host.m_hWnd, m_ptScreen);
    Desktop().DispatchPending();
}

void CHand::Button(bool bDown)
{
    winlite::QueueButton(m_host.m_hWnd, winlite::MouseButton::Left, bDown, m_ptScreen);
    Desktop().DispatchPending();
}

void CHand::AwaitBrush()
{
    // One question may be under way already.
    Desktop().WaitUntilWorkersAskedForPointer(2);
}
