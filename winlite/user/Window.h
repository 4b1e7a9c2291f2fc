#pragma once

#include "user/User.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace winlite
{

/// Creates a window like CreateWindowEx and calls beforeFirstMessage with its handle before the first message is sent:
/// the class library attaches its object and procedure there.
HWND CreateWindowHooked(const CREATESTRUCT& create, const std::function<void(HWND)>& beforeFirstMessage);

/// Presents what was drawn on every top-level window since the last time. The message loop does so when the queue is
/// empty.
void PresentDamage();

/// The same from inside a handler that has repainted synchronously and may go on for long: when the screen's refresh
/// interval has passed since the last time, and shown at once. A handler of a captured mouse move that asks for the
/// pointer after each repaint, as scrolling at the edge does, waits for that interval from its third round on: it so
/// gets a pace that a person can follow.
void PresentWithinHandler();

/// The program asks where the pointer is now. Any thread.
void NotePointerAsked();

/// A message is about to be dispatched.
void BeginHandling(UINT uMessage);

/// Milliseconds until the next timer is due; -1 without timers.
int MsToNextTimer();

/// Replaces how a desktop that runs the loop itself takes and dispatches one message; the function returns false when
/// there was none. The class library puts its own walk through PreTranslateMessage here.
void SetMessagePump(bool (*pPump)());

/// Takes and dispatches one pending message by that function.
bool PumpOneMessage();

/// The picture of a top-level window as it stands, top row first, 0x00RRGGBB; empty for a bad handle.
struct Picture
{
    int cx = 0;
    int cy = 0;
    std::vector<std::uint32_t> vPixels;
};
Picture WindowPicture(HWND hTopLevel);

} // namespace winlite
