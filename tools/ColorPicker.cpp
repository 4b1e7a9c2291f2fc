#include "tools/ColorPicker.h"

#include "view/CursorIds.h"
#include "view/Module.h"
#include "view/Notifications.h"

#include <cwchar>

namespace Pixtane::EmbeddedTool
{

ColorPicker::ColorPicker() { std::wcscpy(szToolName, L"color_picker"); }

int ColorPicker::OnUnload()
{
    pView = nullptr;
    return TRUE;
}

int ColorPicker::OnSetCursor(CWnd*, UINT, UINT)
{
    if (!IsHosted() || !IsCursorOverView())
        return FALSE;
    ShowOwnCursor(CURSOR_EYEDROPPER);
    return TRUE;
}

int ColorPicker::OnLButtonDown(UINT, CPoint point)
{
    Pick(point);
    return FALSE;
}

int ColorPicker::OnMouseMove(UINT nFlags, CPoint point)
{
    if (nFlags & MK_LBUTTON)
        Pick(point);
    return FALSE;
}

void ColorPicker::Pick(CPoint ptWindow)
{
    if (!IsHosted())
        return;
    crColor = pView->GetPixelRGBValue(ptWindow, TRUE);
    pView->NotifyParent(PVN_COLORPICKER_COLOR, FALSE);
}

} // namespace Pixtane::EmbeddedTool
