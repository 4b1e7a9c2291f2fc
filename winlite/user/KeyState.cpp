#include "user/KeyState.h"

#include "base/Desktop.h"
#include "base/StateLock.h"
#include "user/Journal.h"
#include "user/Workers.h"

#include <optional>

namespace winlite
{

namespace
{

constexpr int DOWN = 0x8000; // makes the result negative

constexpr UINT KeyOf(MouseButton button)
{
    return button == MouseButton::Left ? VK_LBUTTON : button == MouseButton::Right ? VK_RBUTTON : VK_MBUTTON;
}

/// The left or right one of Shift, Ctrl and Alt; 0 for other keys.
constexpr UINT SidedKey(const KeyEvent& key)
{
    switch (key.uKey)
    {
    case VK_SHIFT:
        return key.bExtended ? VK_RSHIFT : VK_LSHIFT;
    case VK_CONTROL:
        return key.bExtended ? VK_RCONTROL : VK_LCONTROL;
    case VK_MENU:
        return key.bExtended ? VK_RMENU : VK_LMENU;
    default:
        return 0;
    }
}

SHORT StateOf(const KeyState& state, int iKey)
{
    const UINT uKey = static_cast<UINT>(iKey);
    return static_cast<SHORT>((state.IsDown(uKey) ? DOWN : 0) | (state.IsToggled(uKey) ? 1 : 0));
}

/// What the desktop says of the left button, or the input that arrived.
SHORT StateNow(int iKey)
{
    if (iKey == static_cast<int>(VK_LBUTTON) && HasDesktop())
    {
        if (const std::optional<bool> bDown = TheDesktop().IsLeftButtonDown())
            return static_cast<SHORT>(*bDown ? DOWN : 0);
    }
    StateLock lock;
    return StateOf(ArrivedKeys(), iKey);
}

} // namespace

void KeyState::Set(UINT uKey, bool bDown)
{
    if (bDown && !m_Down[uKey])
        m_Toggled.flip(uKey);
    m_Down[uKey] = bDown;
}

void KeyState::SetKey(const KeyEvent& key)
{
    const UINT uSided = SidedKey(key);
    if (!uSided)
    {
        Set(key.uKey & 0xFF, key.bDown);
        return;
    }
    // The neutral key is down while either of the two is.
    Set(uSided, key.bDown);
    KeyEvent other = key;
    other.bExtended = !key.bExtended;
    Set(key.uKey, key.bDown || IsDown(SidedKey(other)));
}

void KeyState::SetButton(MouseButton button, bool bDown) { Set(KeyOf(button), bDown); }

UINT KeyState::MouseFlags() const
{
    return (IsDown(VK_LBUTTON) ? MK_LBUTTON : 0) | (IsDown(VK_RBUTTON) ? MK_RBUTTON : 0) |
           (IsDown(VK_MBUTTON) ? MK_MBUTTON : 0) | (IsDown(VK_SHIFT) ? MK_SHIFT : 0) |
           (IsDown(VK_CONTROL) ? MK_CONTROL : 0);
}

KeyState& FetchedKeys()
{
    static KeyState s_State;
    return s_State;
}

KeyState& ArrivedKeys()
{
    static KeyState s_State;
    return s_State;
}

} // namespace winlite

using namespace winlite;

SHORT GetKeyState(int iKey)
{
    StateLock lock;
    return StateOf(FetchedKeys(), iKey);
}

SHORT GetAsyncKeyState(int iKey)
{
    const SHORT iNow = StateNow(iKey);
    if (Workers::Current())
    {
        const JournalNumbers vAnswer = AskAsWorker("worker-key",
                                                   [=](const JournalNumbers* pRecorded) {
                                                       return pRecorded ? *pRecorded : JournalNumbers{iKey, iNow < 0};
                                                   });
        return static_cast<SHORT>(vAnswer[1] ? DOWN : 0);
    }
    const bool bDown = TheJournal().OnKeyAsked(iKey, iNow < 0);
    return static_cast<SHORT>((bDown ? DOWN : 0) | (iNow & 1));
}
