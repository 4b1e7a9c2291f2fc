#include "mfc/Wnd.h"

#include "mfc/Exception.h"
#include "mfc/Module.h"
#include "user/Window.h"

#include <cassert>
#include <memory>
#include <unordered_map>
#include <utility>

IMPLEMENT_DYNAMIC(CWnd, CObject)

namespace
{

/// The message a thread is handling now; Default() repeats it.
struct CurrentMessage
{
    UINT uMessage = WM_NULL;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

thread_local CurrentMessage t_Current;

/// Makes a message the current one while it lives, and the one before current again.
class CurrentMessageScope
{
public:
    explicit CurrentMessageScope(const CurrentMessage& message) : m_Previous(std::exchange(t_Current, message)) {}
    ~CurrentMessageScope() { t_Current = m_Previous; }
    CurrentMessageScope(const CurrentMessageScope&) = delete;
    CurrentMessageScope& operator=(const CurrentMessageScope&) = delete;

private:
    CurrentMessage m_Previous;
};
thread_local std::unordered_map<HWND, CWnd*> t_Permanent;
thread_local std::unordered_map<HWND, std::unique_ptr<CWnd>> t_Temporary;

/// A window object that goes without taking its window with it.
class CTemporaryWnd : public CWnd
{
public:
    explicit CTemporaryWnd(HWND hWnd) { m_hWnd = hWnd; }
    ~CTemporaryWnd() override { m_hWnd = nullptr; }
};

} // namespace

namespace winlite
{
void DeleteTemporaryWindows() { t_Temporary.clear(); }
} // namespace winlite

CWnd::~CWnd()
{
    if (!m_hWnd || FromHandlePermanent(m_hWnd) != this)
        return;
    ::DestroyWindow(m_hWnd);
    t_Permanent.erase(m_hWnd); // An override that kept WM_NCDESTROY to itself has left it attached.
}

BOOL CWnd::Create(LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID, void*)
{
    return CreateEx(0, pszClass, pszName, dwStyle | WS_CHILD, rect, pParent, nID);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, const RECT& rect, CWnd* pParent,
                    UINT nID, LPVOID pParam)
{
    assert(!m_hWnd);
    CREATESTRUCT create = {};
    create.lpCreateParams = pParam;
    create.hInstance = AfxGetInstanceHandle();
    create.hMenu = reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID));
    create.hwndParent = pParent ? pParent->m_hWnd : nullptr;
    create.x = rect.left;
    create.y = rect.top;
    create.cx = rect.right - rect.left;
    create.cy = rect.bottom - rect.top;
    create.style = static_cast<LONG>(dwStyle);
    create.lpszName = pszName;
    create.lpszClass = pszClass;
    create.dwExStyle = dwExStyle;
    return winlite::CreateWindowHooked(create, [this](HWND hWnd) { AttachBeforeFirstMessage(hWnd); }) != nullptr;
}

void CWnd::AttachBeforeFirstMessage(HWND hWnd)
{
    m_hWnd = hWnd;
    t_Permanent[hWnd] = this;
    // A window of a system class keeps its own procedure, behind the object's.
    const auto pProc = reinterpret_cast<WNDPROC>(::GetWindowLongPtr(hWnd, GWLP_WNDPROC));
    if (pProc != &AfxWndProc)
    {
        m_pSuperProc = pProc;
        ::SetWindowLongPtr(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc));
    }
}

BOOL CWnd::DestroyWindow() { return m_hWnd ? ::DestroyWindow(m_hWnd) : FALSE; }

CWnd* CWnd::FromHandlePermanent(HWND hWnd)
{
    const auto it = t_Permanent.find(hWnd);
    return it == t_Permanent.end() ? nullptr : it->second;
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    if (!hWnd)
        return nullptr;
    if (CWnd* pWnd = FromHandlePermanent(hWnd))
        return pWnd;
    std::unique_ptr<CWnd>& pTemporary = t_Temporary[hWnd];
    if (!pTemporary)
        pTemporary = std::make_unique<CTemporaryWnd>(hWnd);
    return pTemporary.get();
}

void CWnd::MoveWindow(LPCRECT prc, BOOL bRepaint)
{
    MoveWindow(prc->left, prc->top, prc->right - prc->left, prc->bottom - prc->top, bRepaint);
}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

const AFX_MSGMAP* CWnd::GetMessageMap() const { return GetThisMessageMap(); }

const AFX_MSGMAP* CWnd::GetThisMessageMap()
{
    using ThisClass = CWnd;
    static const AFX_MSGMAP_ENTRY s_vEntries[] = {ON_WM_NCDESTROY(){WM_NULL, nullptr}};
    static const AFX_MSGMAP s_Map = {nullptr, s_vEntries};
    return &s_Map;
}

LRESULT CWnd::WindowProc(UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    LRESULT lResult = 0;
    return OnWndMsg(uMessage, wParam, lParam, &lResult) ? lResult : DefWindowProc(uMessage, wParam, lParam);
}

namespace
{

/// The first entry that fits, in the map of the most derived class, then in its bases'.
template<class F>
const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* pMap, F fits)
{
    for (; pMap; pMap = pMap->pfnGetBaseMap ? pMap->pfnGetBaseMap() : nullptr)
    {
        for (const AFX_MSGMAP_ENTRY* pEntry = pMap->lpEntries; pEntry->pfnCall; ++pEntry)
        {
            if (fits(*pEntry))
                return pEntry;
        }
    }
    return nullptr;
}

} // namespace

BOOL CWnd::OnWndMsg(UINT uMessage, WPARAM wParam, LPARAM lParam, LRESULT* plResult)
{
    if (uMessage == WM_NOTIFY)
        return OnNotify(wParam, lParam, plResult);
    const AFX_MSGMAP_ENTRY* pEntry =
        FindEntry(GetMessageMap(), [=](const AFX_MSGMAP_ENTRY& entry) { return entry.nMessage == uMessage; });
    if (!pEntry)
        return FALSE;
    *plResult = pEntry->pfnCall(*this, wParam, lParam);
    return TRUE;
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* plResult)
{
    const NMHDR* pNotify = reinterpret_cast<const NMHDR*>(lParam);
    if (!pNotify || !pNotify->hwndFrom)
        return FALSE;
    const UINT uId = static_cast<UINT>(::GetDlgCtrlID(pNotify->hwndFrom));
    const AFX_MSGMAP_ENTRY* pEntry =
        FindEntry(GetMessageMap(), [=](const AFX_MSGMAP_ENTRY& entry)
                  { return entry.nMessage == WM_NOTIFY && entry.nCode == pNotify->code && entry.nID == uId; });
    if (!pEntry)
        return FALSE;
    *plResult = pEntry->pfnCall(*this, wParam, lParam);
    return TRUE;
}

LRESULT CWnd::DefWindowProc(UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    return m_pSuperProc ? ::CallWindowProc(m_pSuperProc, m_hWnd, uMessage, wParam, lParam)
                        : ::DefWindowProc(m_hWnd, uMessage, wParam, lParam);
}

LRESULT CWnd::Default() { return DefWindowProc(t_Current.uMessage, t_Current.wParam, t_Current.lParam); }

void CWnd::OnNcDestroy()
{
    Default();
    t_Permanent.erase(m_hWnd);
    m_hWnd = nullptr;
    m_pSuperProc = nullptr;
    PostNcDestroy();
}

LRESULT AfxCallWndProc(CWnd* pWnd, HWND, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    const CurrentMessageScope scope({uMessage, wParam, lParam});
    return pWnd->WindowProc(uMessage, wParam, lParam);
}

LRESULT AfxWndProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
    return pWnd ? AfxCallWndProc(pWnd, hWnd, uMessage, wParam, lParam)
                : ::DefWindowProc(hWnd, uMessage, wParam, lParam);
}

LPCWSTR AfxRegisterWndClass(UINT uClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon)
{
    thread_local CString t_strName;
    t_strName.Format(L"Afx:%I64x:%x", static_cast<long long>(reinterpret_cast<UINT_PTR>(AfxGetInstanceHandle())),
                     uClassStyle);
    if (hCursor || hbrBackground || hIcon)
    {
        CString strHandles;
        strHandles.Format(L":%I64x:%I64x:%I64x", static_cast<long long>(reinterpret_cast<UINT_PTR>(hCursor)),
                          static_cast<long long>(reinterpret_cast<UINT_PTR>(hbrBackground)),
                          static_cast<long long>(reinterpret_cast<UINT_PTR>(hIcon)));
        t_strName += strHandles;
    }
    WNDCLASS wndClass = {};
    if (::GetClassInfo(AfxGetInstanceHandle(), t_strName, &wndClass))
        return t_strName;
    wndClass.style = uClassStyle;
    wndClass.lpfnWndProc = &AfxWndProc;
    wndClass.hInstance = AfxGetInstanceHandle();
    wndClass.hIcon = hIcon;
    wndClass.hCursor = hCursor;
    wndClass.hbrBackground = hbrBackground;
    wndClass.lpszClassName = t_strName;
    if (!::RegisterClass(&wndClass))
        AfxThrowResourceException();
    return t_strName;
}
