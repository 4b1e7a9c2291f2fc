#include "base/StateLock.h"
#include "user/InputQueue.h"
#include "user/KeyState.h"

namespace winlite
{

namespace
{

// Whether another key was pressed since Alt went down: its release is then an ordinary one.
bool s_bAltAlone = false;

/// lParam of a key message: repeat count 1, scan code, and the flags.
LPARAM KeyParam(const KeyEvent& key, bool bAltHeld, bool bWasDown)
{
    return 1 | static_cast<LPARAM>(key.uScanCode) << 16 | static_cast<LPARAM>(key.bExtended) << 24 |
           static_cast<LPARAM>(bAltHeld) << 29 | static_cast<LPARAM>(bWasDown) << 30 |
           static_cast<LPARAM>(!key.bDown) << 31;
}

/// Whether the message is one of the WM_SYSKEY ones: with Alt held and Ctrl not, for a lone Alt, and for F10.
bool IsSystemKey(const KeyEvent& key, bool bAltHeld, bool bCtrlHeld)
{
    if (key.uKey == VK_F10)
        return true;
    if (key.uKey == VK_MENU && !key.bDown)
        return s_bAltAlone;
    return bAltHeld && !bCtrlHeld;
}

} // namespace

std::optional<MSG> MessageFor(const KeyEvent& key, DWORD uTime)
{
    bool bWasDown;
    bool bAltHeld;
    bool bCtrlHeld;
    {
        StateLock lock;
        KeyState& keys = FetchedKeys();
        bWasDown = keys.IsDown(key.uKey);
        keys.SetKey(key);
        bAltHeld = keys.IsDown(VK_MENU);
        bCtrlHeld = keys.IsDown(VK_CONTROL);
    }
    const HWND hFocus = ::GetFocus();
    const bool bSystem = !hFocus || IsSystemKey(key, bAltHeld, bCtrlHeld);
    if (key.bDown)
        s_bAltAlone = key.uKey == VK_MENU && !bCtrlHeld;
    const HWND hTarget = hFocus ? hFocus : ::GetActiveWindow();
    if (!hTarget || !::IsWindowEnabled(hTarget))
        return std::nullopt;
    const UINT uMessage = key.bDown ? (bSystem ? WM_SYSKEYDOWN : WM_KEYDOWN) : (bSystem ? WM_SYSKEYUP : WM_KEYUP);
    return MSG{hTarget, uMessage, key.uKey, KeyParam(key, bAltHeld, bWasDown || !key.bDown), uTime, {}};
}

} // namespace winlite
