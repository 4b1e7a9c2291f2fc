#include "user/InputQueue.h"

#include "base/Desktop.h"
#include "base/StateLock.h"
#include "user/Journal.h"
#include "user/KeyState.h"

#include <deque>
#include <utility>

namespace winlite
{

namespace
{

/// Guarded by StateLock.
std::deque<InputEvent>& Waiting()
{
    static auto* pWaiting = new std::deque<InputEvent>;
    return *pWaiting;
}

/// A message that was looked at and not taken. Guarded by StateLock.
std::optional<MSG> s_Peeked;

std::optional<MSG> Peeked(bool bTake)
{
    StateLock lock;
    return bTake ? std::exchange(s_Peeked, std::nullopt) : s_Peeked;
}

void SetPeeked(const std::optional<MSG>& msg)
{
    StateLock lock;
    s_Peeked = msg;
}

template<class T>
void Queue(const T& event)
{
    {
        StateLock lock;
        std::deque<InputEvent>& vWaiting = Waiting();
        const InputEvent entry = {event, static_cast<DWORD>(TheDesktop().TickCount())};
        const bool bMove = std::is_same_v<T, PointerMoveEvent>;
        if (bMove && !vWaiting.empty() && std::holds_alternative<PointerMoveEvent>(vWaiting.back().what))
            vWaiting.back() = entry;
        else
            vWaiting.push_back(entry);
    }
    TheDesktop().Wake();
}

std::optional<InputEvent> TakeOldest()
{
    StateLock lock;
    std::deque<InputEvent>& vWaiting = Waiting();
    if (vWaiting.empty())
        return std::nullopt;
    const InputEvent event = vWaiting.front();
    vWaiting.pop_front();
    return event;
}

} // namespace

POINT& LastPointerPosition()
{
    static POINT s_ptLast = {};
    return s_ptLast;
}

void QueuePointerMove(HWND hTopLevel, POINT ptScreen)
{
    {
        StateLock lock;
        LastPointerPosition() = ptScreen;
    }
    Queue(PointerMoveEvent{hTopLevel, ptScreen});
}

void QueueButton(HWND hTopLevel, MouseButton button, bool bDown, POINT ptScreen)
{
    {
        StateLock lock;
        LastPointerPosition() = ptScreen;
        ArrivedKeys().SetButton(button, bDown);
    }
    Queue(ButtonEvent{hTopLevel, ptScreen, button, bDown});
}

void QueueWheel(int zDelta, POINT ptScreen)
{
    if (zDelta != 0)
        Queue(WheelEvent{ptScreen, zDelta});
}

void QueueKey(const KeyEvent& key)
{
    {
        StateLock lock;
        ArrivedKeys().SetKey(key);
    }
    Queue(key);
}

void QueueActivation(HWND hTopLevel, bool bActive) { Queue(ActivationEvent{hTopLevel, bActive}); }

void QueueCaptureLost() { Queue(CaptureLostEvent{}); }

bool HasInput()
{
    StateLock lock;
    return s_Peeked || !Waiting().empty();
}

std::optional<MSG> NextInputMessage(bool bTake)
{
    while (!Peeked(false))
    {
        const std::optional<InputEvent> event = TheJournal().OnInput(TakeOldest());
        if (!event)
            return std::nullopt;
        SetPeeked(std::visit([&](const auto& what) { return MessageFor(what, event->uTime); }, event->what));
    }
    return Peeked(bTake);
}

} // namespace winlite
