#include "headless/HeadlessDesktop.h"

#include "user/Window.h"
#include "user/Workers.h"

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

void HeadlessDesktop::Wake()
{
    m_bWoken = true;
    Workers::PokeWaiting();
}

std::optional<POINT> HeadlessDesktop::PointerPosition()
{
    if (Workers::Current())
    {
        ++m_nPointerAsked;
        Workers::PokeWaiting();
    }
    return std::nullopt;
}

bool HeadlessDesktop::WaitUntilWorkersAskedForPointer(int nTimes)
{
    const int nUntil = m_nPointerAsked + nTimes;
    return Workers::WaitWhileTheyRun([&] { return m_nPointerAsked >= nUntil; }, std::chrono::minutes(1));
}

bool HeadlessDesktop::WaitForWake(std::chrono::milliseconds limit)
{
    const bool bWoken = Workers::WaitWhileTheyRun([this] { return m_bWoken.load(); }, limit);
    if (bWoken)
        m_bWoken = false;
    return bWoken;
}

bool HeadlessDesktop::WaitForInput(int iTimeoutMs)
{
    constexpr std::chrono::hours WITHOUT_LIMIT(24);
    const bool bLimited = iTimeoutMs >= 0;
    if (WaitForWake(bLimited ? std::chrono::milliseconds(iTimeoutMs) : WITHOUT_LIMIT))
        return true;
    if (bLimited)
        Advance(iTimeoutMs);
    return bLimited;
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
