#include "headless/HeadlessDesktop.h"

#include "user/Window.h"

namespace winlite
{

HeadlessDesktop::HeadlessDesktop(SIZE szScreen, double dScale) : m_szScreen(szScreen), m_dScale(dScale)
{
    SetDesktop(this);
}

HeadlessDesktop::~HeadlessDesktop() { SetDesktop(nullptr); }

std::uint64_t HeadlessDesktop::TickCount() { return m_uNow; }

double HeadlessDesktop::Scale() { return m_dScale; }

SIZE HeadlessDesktop::ScreenSize() { return m_szScreen; }

void HeadlessDesktop::Present(HWND hWnd, const SurfaceView&, std::span<const RECT>) { ++m_PresentCounts[hWnd]; }

void HeadlessDesktop::WindowChanged(HWND hWnd)
{
    if (!::IsWindow(hWnd))
        m_PresentCounts.erase(hWnd);
}

bool HeadlessDesktop::WaitForInput(int iTimeoutMs)
{
    if (iTimeoutMs < 0)
        return false;
    Advance(iTimeoutMs);
    return true;
}

void HeadlessDesktop::Advance(int iMs) { m_uNow += static_cast<std::uint64_t>(iMs); }

void HeadlessDesktop::DispatchPending()
{
    // A window that never validates asks to be painted for ever; this many messages are more than any test has.
    constexpr int MAX_MESSAGES = 100000;
    for (int i = 0; i < MAX_MESSAGES && PumpOneMessage(); ++i)
    {
    }
    PresentDamage();
}

int HeadlessDesktop::PresentCount(HWND hWnd) const
{
    const auto it = m_PresentCounts.find(hWnd);
    return it == m_PresentCounts.end() ? 0 : it->second;
}

} // namespace winlite
