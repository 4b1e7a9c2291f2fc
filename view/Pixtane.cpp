#include "view/Pixtane.h"

#include "view/CursorIds.h"
#include "view/Module.h"
#include "view/Notifications.h"

namespace Pixtane
{

namespace
{

constexpr UINT RES_PATTERN = 3000; // and the three after it, one for each phase of the selection border

constexpr BITMAPINFO DefaultHeader()
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

} // namespace

const UINT CPixtane::MAX_TOOLNAME;
const UINT CPixtane::TIMER_DRAWSELECTBOX;
const UINT CPixtane::TIMER_DRAWSELECTBOX_INTERVAL;
const UINT CPixtane::MAXREPEAT_DRAWSELECTBOX;

IMPLEMENT_DYNAMIC(CPixtane, CUXWnd)

BEGIN_MESSAGE_MAP(CPixtane, CUXWnd)
ON_WM_ERASEBKGND()
ON_WM_PAINT()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_SETCURSOR()
ON_WM_TIMER()
ON_WM_DESTROY()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_WM_SYSKEYDOWN()
ON_WM_SYSKEYUP()
ON_WM_CAPTURECHANGED()
ON_WM_SIZE()
END_MESSAGE_MAP()

CPixtane::CPixtane(int bNoSelectMask) : m_bNoSelectMask(bNoSelectMask)
{
    RegisterWndClass();
    m_BmpInfo = DefaultHeader();
    m_CoverBmpInfo = m_BmpInfo;
    LoadPatterns();
    m_hDefCursor = ::LoadCursor(ModuleInstance(), MAKEINTRESOURCE(CURSOR_CROSSHAIR));
}

CPixtane::~CPixtane()
{
    ClearBitmap(TRUE);
    DeleteSelectBorderMask(); // It may have been kept while the border was hidden.
    for (CBrush& br : m_brPattern)
        br.DeleteObject();
    for (CBitmap& bmp : m_bmpPattern)
        bmp.DeleteObject();
}

void CPixtane::RegisterWndClass()
{
    // Without a cursor, because the view sets one itself, and without a brush, because it never erases.
    m_strWndClass = AfxRegisterWndClass(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW);
}

void CPixtane::LoadPatterns()
{
    for (UINT i = 0; i < MAXREPEAT_DRAWSELECTBOX; ++i)
    {
        const LPCWSTR pszName = MAKEINTRESOURCE(RES_PATTERN + i);
        const HINSTANCE hModule = AfxFindResourceHandle(pszName, RT_BITMAP);
        if (!m_bmpPattern[i].Attach(::LoadBitmap(hModule, pszName)))
            throw L"Failed to load bitmap from resouce!";
        if (!m_brPattern[i].CreatePatternBrush(&m_bmpPattern[i]))
            throw L"Failed to create pattern brush!";
    }
}

int CPixtane::Create(const RECT& rect, CWnd* pParentWnd, UINT nID, DWORD crBackground)
{
    if (!CUXWnd::Create(m_strWndClass, L"", WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP, rect, pParentWnd, nID))
        return FALSE;
    CRect rcView(0, 0, 0, 0);
    GetClientRect(&rcView);
    const CRect rcHorz(rcView.left, rcView.bottom - HorizontalBarHeight(), rcView.right - VerticalBarWidth(),
                       rcView.bottom);
    if (!m_sbHorz.Create(SBS_HORZ | SBS_BOTTOMALIGN, rcHorz, this, nID + 1))
        AfxThrowResourceException();
    GetClientRect(&rcView);
    const CRect rcVert(rcView.right - VerticalBarWidth(), rcView.top, rcView.right,
                       rcView.bottom - HorizontalBarHeight());
    if (!m_sbVert.Create(SBS_VERT | SBS_RIGHTALIGN, rcVert, this, nID + 2))
        AfxThrowResourceException();
    SetTimer(TIMER_DRAWSELECTBOX, TIMER_DRAWSELECTBOX_INTERVAL, nullptr);
    m_crBackground = crBackground;
    return TRUE;
}

void CPixtane::OnDestroy()
{
    DropPostedNotifications();
    CUXWnd::OnDestroy();
}

DWORD CPixtane::SetBackgroundColor(DWORD cr)
{
    const DWORD crOld = m_crBackground;
    if (cr == crOld)
        return crOld;
    m_crBackground = cr;
    m_bCacheDirty = TRUE; // The cached rendering holds the margins too.
    Invalidate(FALSE);
    UpdateWindow();
    return crOld;
}

void CPixtane::UnlockRedraw()
{
    if (!m_bRedrawLocked)
        return;
    m_bRedrawLocked = FALSE;
    Invalidate(FALSE);
    UpdateWindow();
    NotifyParent(PVN_DISPLAYCHANGED, FALSE);
}

} // namespace Pixtane
