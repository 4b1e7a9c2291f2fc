#include "qtdesktop/KeyCodes.h"

#include <algorithm>
#include <QKeyEvent>

namespace winlite
{

namespace
{

struct KeyCode
{
    int iQtKey;
    UINT uKey;
    BYTE uScanCode;
    bool bExtended;
};

constexpr KeyCode KEY_CODES[] = {
    {Qt::Key_Left, VK_LEFT, 0x4B, true},         {Qt::Key_Up, VK_UP, 0x48, true},
    {Qt::Key_Right, VK_RIGHT, 0x4D, true},       {Qt::Key_Down, VK_DOWN, 0x50, true},
    {Qt::Key_PageUp, VK_PRIOR, 0x49, true},      {Qt::Key_PageDown, VK_NEXT, 0x51, true},
    {Qt::Key_Home, VK_HOME, 0x47, true},         {Qt::Key_End, VK_END, 0x4F, true},
    {Qt::Key_Delete, VK_DELETE, 0x53, true},     {Qt::Key_Backspace, VK_BACK, 0x0E, false},
    {Qt::Key_Tab, VK_TAB, 0x0F, false},          {Qt::Key_Backtab, VK_TAB, 0x0F, false},
    {Qt::Key_Return, VK_RETURN, 0x1C, false},    {Qt::Key_Enter, VK_RETURN, 0x1C, true},
    {Qt::Key_Shift, VK_SHIFT, 0x2A, false},      {Qt::Key_Control, VK_CONTROL, 0x1D, false},
    {Qt::Key_Alt, VK_MENU, 0x38, false},         {Qt::Key_Escape, VK_ESCAPE, 0x01, false},
    {Qt::Key_Space, VK_SPACE, 0x39, false},      {Qt::Key_BracketLeft, VK_OEM_4, 0x1A, false},
    {Qt::Key_BraceLeft, VK_OEM_4, 0x1A, false},  {Qt::Key_BracketRight, VK_OEM_6, 0x1B, false},
    {Qt::Key_BraceRight, VK_OEM_6, 0x1B, false},
};

// Codes that X11 and Wayland keyboards send for a place on the keyboard, whatever is printed there.
constexpr UINT PLACE_FIRST_DIGIT = 10;
constexpr UINT PLACE_LAST_DIGIT = 19;
constexpr UINT PLACE_RIGHT_SHIFT = 62;
constexpr UINT PLACE_RIGHT_CONTROL = 105;
constexpr UINT PLACE_RIGHT_ALT = 108;

/// The row of digits gives the same codes with Shift, which makes other characters of them.
UINT DigitOfPlace(UINT uPlace)
{
    if (uPlace < PLACE_FIRST_DIGIT || uPlace > PLACE_LAST_DIGIT)
        return 0;
    return '0' + (uPlace - PLACE_FIRST_DIGIT + 1) % 10;
}

/// The keys whose codes follow from Qt's; 0 for others.
UINT RowKeyOf(int iQtKey)
{
    if ((iQtKey >= Qt::Key_A && iQtKey <= Qt::Key_Z) || (iQtKey >= Qt::Key_0 && iQtKey <= Qt::Key_9))
        return static_cast<UINT>(iQtKey);
    if (iQtKey >= Qt::Key_F1 && iQtKey <= Qt::Key_F12)
        return VK_F1 + static_cast<UINT>(iQtKey - Qt::Key_F1);
    return 0;
}

bool IsRightOfTwo(UINT uPlace)
{
    return uPlace == PLACE_RIGHT_SHIFT || uPlace == PLACE_RIGHT_CONTROL || uPlace == PLACE_RIGHT_ALT;
}

} // namespace

std::optional<KeyEvent> KeyOf(const QKeyEvent& event, bool bDown)
{
    const UINT uPlace = event.nativeScanCode();
    if (const auto it = std::ranges::find(KEY_CODES, event.key(), &KeyCode::iQtKey); it != std::end(KEY_CODES))
    {
        // The arrows of the number pad are the plain ones, its Enter is the extended one.
        const bool bPad = (event.modifiers() & Qt::KeypadModifier) && it->uKey != VK_RETURN;
        return KeyEvent{it->uKey, bDown, (it->bExtended && !bPad) || IsRightOfTwo(uPlace), it->uScanCode};
    }
    if (const UINT uKey = RowKeyOf(event.key()))
        return KeyEvent{uKey, bDown};
    if (const UINT uDigit = DigitOfPlace(uPlace))
        return KeyEvent{uDigit, bDown};
    return std::nullopt;
}

} // namespace winlite
