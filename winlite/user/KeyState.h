#pragma once

#include "user/Input.h"

#include <bitset>
#include <cstdint>

namespace winlite
{

/// Which keys and buttons are down: one such table follows the input as it is fetched, another as it arrives.
class KeyState
{
public:
    /// A key by its neutral code; of Shift, Ctrl and Alt the left or right one goes with it.
    void SetKey(const KeyEvent& key);
    void SetButton(MouseButton button, bool bDown);

    bool IsDown(UINT uKey) const { return m_Down[uKey & 0xFF]; }
    bool IsToggled(UINT uKey) const { return m_Toggled[uKey & 0xFF]; }

    /// The MK_ bits of a mouse message.
    UINT MouseFlags() const;

private:
    void Set(UINT uKey, bool bDown);

    std::bitset<256> m_Down;
    std::bitset<256> m_Toggled;
};

/// The state after the last fetched input, and the one now. Guarded by StateLock.
KeyState& FetchedKeys();
KeyState& ArrivedKeys();

} // namespace winlite
