#pragma once

#include "user/Input.h"

#include <optional>
#include <variant>

namespace winlite
{

// Input as it arrived, before it is decided which window gets it.
struct PointerMoveEvent
{
    HWND hTopLevel;
    POINT ptScreen;
};
struct ButtonEvent
{
    HWND hTopLevel;
    POINT ptScreen;
    MouseButton button;
    bool bDown;
};
struct WheelEvent
{
    POINT ptScreen;
    int zDelta;
};
struct ActivationEvent
{
    HWND hTopLevel;
    bool bActive;
};
struct CaptureLostEvent
{
};
struct InputEvent
{
    std::variant<PointerMoveEvent, ButtonEvent, WheelEvent, KeyEvent, ActivationEvent, CaptureLostEvent> what;
    DWORD uTime;
};

/// Decides the windows of the oldest input that waits and gives the message for it; events that nobody gets are used up
/// on the way. Sends what goes along with it (hit tests, the cursor). Nothing when no input is left. With bTake false
/// the message stays for the next call.
std::optional<MSG> NextInputMessage(bool bTake);

/// Whether input waits.
bool HasInput();

// What the parts of the input half do with one kind of event.
std::optional<MSG> MessageFor(const PointerMoveEvent& event, DWORD uTime);
std::optional<MSG> MessageFor(const ButtonEvent& event, DWORD uTime);
std::optional<MSG> MessageFor(const WheelEvent& event, DWORD uTime);
std::optional<MSG> MessageFor(const KeyEvent& event, DWORD uTime);
std::optional<MSG> MessageFor(const ActivationEvent& event, DWORD uTime);
std::optional<MSG> MessageFor(const CaptureLostEvent& event, DWORD uTime);

/// The pointer's place by the last event that arrived. Guarded by StateLock.
POINT& LastPointerPosition();

/// A window is about to go: capture and focus leave it. Call it without StateLock.
void ForgetInputOf(HWND hWnd);

/// A window that was hidden or minimised passes the focus on: to its parent, or to nobody.
void MoveFocusFrom(HWND hWnd, HWND hTo);

} // namespace winlite
