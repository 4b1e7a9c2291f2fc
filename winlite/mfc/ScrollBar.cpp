#include "mfc/ScrollBar.h"

IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID)
{
    return CWnd::Create(L"SCROLLBAR", nullptr, dwStyle, rect, pParent, nID);
}

BOOL CScrollBar::SetScrollInfo(LPSCROLLINFO pInfo, BOOL bRedraw)
{
    pInfo->cbSize = sizeof(SCROLLINFO);
    ::SetScrollInfo(m_hWnd, SB_CTL, pInfo, bRedraw);
    return TRUE;
}

BOOL CScrollBar::GetScrollInfo(LPSCROLLINFO pInfo, UINT uMask)
{
    pInfo->cbSize = sizeof(SCROLLINFO);
    pInfo->fMask = uMask;
    return ::GetScrollInfo(m_hWnd, SB_CTL, pInfo);
}
