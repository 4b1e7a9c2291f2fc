#pragma once

#include "mfc/Wnd.h"

/// A scroll-bar control.
class CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);
    BOOL SetScrollInfo(LPSCROLLINFO pInfo, BOOL bRedraw = TRUE);
    BOOL GetScrollInfo(LPSCROLLINFO pInfo, UINT uMask = SIF_ALL);
};
