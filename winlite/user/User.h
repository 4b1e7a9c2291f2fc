#pragma once

#include "gdi/Gdi.h"

// The window functions that winlite offers, with Windows' names and behaviour. They belong to the user-interface thread
// (the one that calls AfxWinInit or creates the first window) unless marked "any thread". Failures are the function's
// own failure results.

// ---- messages

constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_CANCELMODE = 0x001F;
constexpr UINT WM_SETCURSOR = 0x0020;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_WINDOWPOSCHANGING = 0x0046;
constexpr UINT WM_WINDOWPOSCHANGED = 0x0047;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_NCCREATE = 0x0081;
constexpr UINT WM_NCDESTROY = 0x0082;
constexpr UINT WM_NCHITTEST = 0x0084;
constexpr UINT WM_KEYFIRST = 0x0100;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_SYSKEYDOWN = 0x0104;
constexpr UINT WM_SYSKEYUP = 0x0105;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_HSCROLL = 0x0114;
constexpr UINT WM_VSCROLL = 0x0115;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_RBUTTONDBLCLK = 0x0206;
constexpr UINT WM_MBUTTONDOWN = 0x0207;
constexpr UINT WM_MBUTTONUP = 0x0208;
constexpr UINT WM_MBUTTONDBLCLK = 0x0209;
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr UINT WM_MOUSELAST = 0x020A;
constexpr UINT WM_PARENTNOTIFY = 0x0210;
constexpr UINT WM_CAPTURECHANGED = 0x0215;
constexpr UINT WM_USER = 0x0400;

constexpr UINT SBM_SETSCROLLINFO = 0x00E9;
constexpr UINT SBM_GETSCROLLINFO = 0x00EA;

// ---- styles and codes

constexpr DWORD WS_OVERLAPPED = 0x00000000;
constexpr DWORD WS_TABSTOP = 0x00010000;
constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
constexpr DWORD WS_DISABLED = 0x08000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_MINIMIZE = 0x20000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_POPUP = 0x80000000;

constexpr UINT CS_VREDRAW = 0x0001;
constexpr UINT CS_HREDRAW = 0x0002;
constexpr UINT CS_DBLCLKS = 0x0008;

constexpr DWORD SBS_HORZ = 0x0000;
constexpr DWORD SBS_VERT = 0x0001;
constexpr DWORD SBS_RIGHTALIGN = 0x0004;
constexpr DWORD SBS_BOTTOMALIGN = 0x0004;

constexpr int SB_CTL = 2;
constexpr int SB_LINELEFT = 0;
constexpr int SB_LINEUP = 0;
constexpr int SB_LINERIGHT = 1;
constexpr int SB_LINEDOWN = 1;
constexpr int SB_PAGELEFT = 2;
constexpr int SB_PAGEUP = 2;
constexpr int SB_PAGERIGHT = 3;
constexpr int SB_PAGEDOWN = 3;
constexpr int SB_THUMBPOSITION = 4;
constexpr int SB_THUMBTRACK = 5;
constexpr int SB_LEFT = 6;
constexpr int SB_TOP = 6;
constexpr int SB_RIGHT = 7;
constexpr int SB_BOTTOM = 7;
constexpr int SB_ENDSCROLL = 8;

constexpr UINT SIF_RANGE = 0x0001;
constexpr UINT SIF_PAGE = 0x0002;
constexpr UINT SIF_POS = 0x0004;
constexpr UINT SIF_DISABLENOSCROLL = 0x0008;
constexpr UINT SIF_TRACKPOS = 0x0010;
constexpr UINT SIF_ALL = 0x0017;

constexpr int SW_HIDE = 0;
constexpr int SW_SHOW = 5;
constexpr int SW_MINIMIZE = 6;
constexpr int SW_RESTORE = 9;

constexpr UINT SWP_NOSIZE = 0x0001;
constexpr UINT SWP_NOMOVE = 0x0002;
constexpr UINT SWP_NOZORDER = 0x0004;
constexpr UINT SWP_NOREDRAW = 0x0008;
constexpr UINT SWP_SHOWWINDOW = 0x0040;
constexpr UINT SWP_HIDEWINDOW = 0x0080;

constexpr WPARAM SIZE_RESTORED = 0;
constexpr WPARAM SIZE_MINIMIZED = 1;

constexpr UINT PM_NOREMOVE = 0x0000;
constexpr UINT PM_REMOVE = 0x0001;
constexpr UINT PM_QS_PAINT = 0x00200000;

constexpr UINT MK_LBUTTON = 0x0001;
constexpr UINT MK_RBUTTON = 0x0002;
constexpr UINT MK_SHIFT = 0x0004;
constexpr UINT MK_CONTROL = 0x0008;
constexpr UINT MK_MBUTTON = 0x0010;
constexpr int WHEEL_DELTA = 120;

constexpr int HTTRANSPARENT = -1;
constexpr int HTNOWHERE = 0;
constexpr int HTCLIENT = 1;

constexpr UINT VK_LBUTTON = 0x01;
constexpr UINT VK_RBUTTON = 0x02;
constexpr UINT VK_MBUTTON = 0x04;
constexpr UINT VK_BACK = 0x08;
constexpr UINT VK_TAB = 0x09;
constexpr UINT VK_RETURN = 0x0D;
constexpr UINT VK_SHIFT = 0x10;
constexpr UINT VK_CONTROL = 0x11;
constexpr UINT VK_MENU = 0x12;
constexpr UINT VK_ESCAPE = 0x1B;
constexpr UINT VK_SPACE = 0x20;
constexpr UINT VK_PRIOR = 0x21;
constexpr UINT VK_NEXT = 0x22;
constexpr UINT VK_END = 0x23;
constexpr UINT VK_HOME = 0x24;
constexpr UINT VK_LEFT = 0x25;
constexpr UINT VK_UP = 0x26;
constexpr UINT VK_RIGHT = 0x27;
constexpr UINT VK_DOWN = 0x28;
constexpr UINT VK_DELETE = 0x2E;
constexpr UINT VK_F1 = 0x70;
constexpr UINT VK_F10 = 0x79;
constexpr UINT VK_LSHIFT = 0xA0;
constexpr UINT VK_RSHIFT = 0xA1;
constexpr UINT VK_LCONTROL = 0xA2;
constexpr UINT VK_RCONTROL = 0xA3;
constexpr UINT VK_LMENU = 0xA4;
constexpr UINT VK_RMENU = 0xA5;
constexpr UINT VK_OEM_4 = 0xDB; ///< [
constexpr UINT VK_OEM_6 = 0xDD; ///< ]

constexpr UINT GW_HWNDNEXT = 2;
constexpr UINT GW_CHILD = 5;

constexpr int GWL_STYLE = -16;
constexpr int GWLP_WNDPROC = -4;
constexpr int GWLP_ID = -12;

constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
constexpr int SM_CXVSCROLL = 2;
constexpr int SM_CYHSCROLL = 3;
constexpr int SM_SWAPBUTTON = 23; ///< 0: what a desktop delivers as left is the left one.
constexpr int SM_XVIRTUALSCREEN = 76;
constexpr int SM_YVIRTUALSCREEN = 77;
constexpr int SM_CXVIRTUALSCREEN = 78;
constexpr int SM_CYVIRTUALSCREEN = 79;

constexpr int COLOR_SCROLLBAR = 0;
constexpr int COLOR_WINDOW = 5;
constexpr int COLOR_BTNFACE = 15;
constexpr int COLOR_BTNSHADOW = 16;

// ---- structures

using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);

struct WNDCLASS
{
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
};

struct MSG
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

struct CREATESTRUCT
{
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};

struct WINDOWPOS
{
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
};

struct PAINTSTRUCT
{
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};

struct SCROLLINFO
{
    UINT cbSize;
    UINT fMask;
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
};
using LPSCROLLINFO = SCROLLINFO*;
using LPCSCROLLINFO = const SCROLLINFO*;

struct NMHDR
{
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

// ---- window classes and windows

/// Enters a class; 0 when the name is taken or missing or there is no procedure. "SCROLLBAR" is there from the start.
ATOM RegisterClass(const WNDCLASS* pClass);

/// Whether a class of that name exists, and its description. The module is not looked at: class names are program-wide.
BOOL GetClassInfo(HINSTANCE hInstance, LPCWSTR pszClass, WNDCLASS* pClass);

/// Creates a window: WM_NCCREATE, WM_CREATE, WM_SIZE, WM_MOVE, and WM_PARENTNOTIFY to a child's parent. A new child
/// goes to the bottom of its siblings. hMenu is a child's control id. NULL when the class or parent is missing or the
/// procedure refuses. Different from Windows: a top-level window is all client area; frame and caption are the
/// desktop's.
HWND CreateWindowEx(DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x, int y, int cx, int cy,
                    HWND hParent, HMENU hMenu, HINSTANCE hInstance, LPVOID pParam);

/// Destroys a window after its children: WM_DESTROY from the top down, WM_NCDESTROY from the bottom up; its timers,
/// posted messages and update regions go with it.
BOOL DestroyWindow(HWND hWnd);
BOOL IsWindow(HWND hWnd);                 ///< Any thread.
HWND GetParent(HWND hWnd);                ///< Any thread.
HWND GetWindow(HWND hWnd, UINT uCommand); ///< GW_CHILD and GW_HWNDNEXT. Any thread.
int GetDlgCtrlID(HWND hWnd);

/// GWL_STYLE, GWLP_WNDPROC and GWLP_ID; 0 for others.
LONG_PTR GetWindowLongPtr(HWND hWnd, int iIndex);
LONG_PTR SetWindowLongPtr(HWND hWnd, int iIndex, LONG_PTR lValue);
BOOL SetWindowText(HWND hWnd, LPCWSTR pszText);
int GetWindowText(HWND hWnd, LPWSTR pszText, int nMax);

// ---- geometry and visibility

/// (0, 0, width, height). Any thread.
BOOL GetClientRect(HWND hWnd, LPRECT prc);

/// Screen coordinates. Any thread.
BOOL GetWindowRect(HWND hWnd, LPRECT prc);
BOOL ScreenToClient(HWND hWnd, LPPOINT ppt); ///< Any thread.
BOOL ClientToScreen(HWND hWnd, LPPOINT ppt); ///< Any thread.

/// Moves and sizes a window in its parent's client coordinates; sends WM_WINDOWPOSCHANGING and WM_WINDOWPOSCHANGED,
/// whose default sends WM_MOVE and WM_SIZE (that only for a new size). With bRepaint the new and the uncovered area
/// become invalid.
BOOL MoveWindow(HWND hWnd, int x, int y, int cx, int cy, BOOL bRepaint);

/// The same with flags: SWP_NOSIZE, SWP_NOMOVE, SWP_NOZORDER (required: the z-order cannot be changed here),
/// SWP_NOREDRAW, SWP_SHOWWINDOW, SWP_HIDEWINDOW. Hiding leaves the focus where it is, as ShowWindow does not.
BOOL SetWindowPos(HWND hWnd, HWND hAfter, int x, int y, int cx, int cy, UINT uFlags);

/// Shows, hides, minimises or restores; returns whether the window was visible before.
BOOL ShowWindow(HWND hWnd, int iCommand);

/// Whether the window and all its ancestors have WS_VISIBLE.
BOOL IsWindowVisible(HWND hWnd);
BOOL IsIconic(HWND hWnd);

/// SM_CXSCREEN, SM_CYSCREEN, the box around all screens, and the scroll bar sizes: 17 times the screen's scale,
/// rounded, as it was at the program's start. 0 for other numbers.
int GetSystemMetrics(int iIndex);
COLORREF GetSysColor(int iIndex);

/// A stock brush of that colour.
HBRUSH GetSysColorBrush(int iIndex);

// ---- messages

/// Calls the window's procedure; 0 for a window that is gone. Asserts on other threads than the window's.
LRESULT SendMessage(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);

/// Puts a message into the queue; FALSE for a window that is gone. A posted WM_NOTIFY carries an NMHDR made with new,
/// which its receiver deletes; when the window goes before it gets the message, winlite does so. Any thread.
BOOL PostMessage(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);
void PostQuitMessage(int iExitCode);

/// Takes the next message: posted ones, input, WM_QUIT, WM_PAINT, WM_TIMER; 0 for WM_QUIT. Waits for one
/// through the desktop, after presenting what was drawn. Returns -1 when the desktop says that nothing can come any
/// more.
BOOL GetMessage(MSG* pMessage, HWND hWnd, UINT uMin, UINT uMax);

/// The same without waiting; FALSE when there is none.
BOOL PeekMessage(MSG* pMessage, HWND hWnd, UINT uMin, UINT uMax, UINT uRemove);

/// Does nothing here (the backends deliver characters themselves) and returns FALSE.
BOOL TranslateMessage(const MSG* pMessage);
LRESULT DispatchMessage(const MSG* pMessage);
LRESULT CallWindowProc(WNDPROC pProc, HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);
LRESULT DefWindowProc(HWND hWnd, UINT uMessage, WPARAM wParam, LPARAM lParam);
DWORD GetTickCount(); ///< Milliseconds of the desktop's clock. Any thread.

/// Starts or restarts a timer of the window: WM_TIMER every uMs milliseconds (at least 10). Different from Windows: a
/// window is required and there is no callback (pCallback must be NULL).
UINT_PTR SetTimer(HWND hWnd, UINT_PTR uId, UINT uMs, void* pCallback);
BOOL KillTimer(HWND hWnd, UINT_PTR uId);

// ---- input

/// The window that gets all mouse messages until it lets go, is destroyed, or loses it; NULL on other threads.
/// SetCapture returns the window before, and sends it WM_CAPTURECHANGED, also when it is the same one.
HWND SetCapture(HWND hWnd);
BOOL ReleaseCapture();
HWND GetCapture();

/// The window that gets the keys. SetFocus sends WM_KILLFOCUS and WM_SETFOCUS, nothing when the window has it already,
/// and returns the window before; NULL takes it away. A disabled window does not get it.
HWND SetFocus(HWND hWnd);
HWND GetFocus();

/// The top-level window that the desktop says is active; NULL when none is.
HWND GetActiveWindow();

/// A disabled window gets no mouse and no keys; returns whether it was disabled before.
BOOL EnableWindow(HWND hWnd, BOOL bEnable);
BOOL IsWindowEnabled(HWND hWnd);

/// Negative while the key was down after the last input message that was fetched; the low bit toggles with each press.
SHORT GetKeyState(int iKey);

/// Negative while the key is down now. Any thread.
SHORT GetAsyncKeyState(int iKey);

/// The pointer in screen coordinates: live where the desktop can tell, otherwise of the last event. Any thread.
BOOL GetCursorPos(LPPOINT ppt);

/// Sets the cursor that is shown until the next call; NULL hides it. Returns the one before.
HCURSOR SetCursor(HCURSOR hCursor);
HCURSOR GetCursor();

/// The visible, enabled window under a point of the screen, children before their parents; NULL when there is none.
HWND WindowFromPoint(POINT pt);

// ---- painting

/// Adds to the update region; NULL means the whole client area. Without WS_CLIPCHILDREN children beneath the rectangle
/// become invalid too. Any thread.
BOOL InvalidateRect(HWND hWnd, const RECT* prc, BOOL bErase);
BOOL ValidateRect(HWND hWnd, const RECT* prc);

/// Sends WM_PAINT at once when the update region is not empty and the window is visible. The screen follows when its
/// refresh interval has passed, so that a long handler shows what it does.
BOOL UpdateWindow(HWND hWnd);

/// The update region's box; FALSE when it is empty.
BOOL GetUpdateRect(HWND hWnd, LPRECT prc, BOOL bErase);
HDC BeginPaint(HWND hWnd, PAINTSTRUCT* pPaint);
BOOL EndPaint(HWND hWnd, const PAINTSTRUCT* pPaint);

/// A device context for the visible part of the client area; NULL for a bad window. A NULL window gives one like the
/// screen's with nothing visible. What is written is on the window's surface at once.
HDC GetDC(HWND hWnd);
int ReleaseDC(HWND hWnd, HDC hDC);

// ---- scroll bars and resources

/// Sets what fMask names, then limits range, page and position to each other; returns the position. Only SB_CTL.
int SetScrollInfo(HWND hWnd, int iBar, LPCSCROLLINFO pInfo, BOOL bRedraw);
BOOL GetScrollInfo(HWND hWnd, int iBar, LPSCROLLINFO pInfo);

/// A bitmap resource as a bitmap of the screen's format; NULL when missing.
HBITMAP LoadBitmap(HINSTANCE hInstance, LPCWSTR pszName);

/// A cursor resource (shared: same id, same handle), or with a NULL module a system cursor; NULL when missing or
/// broken.
HCURSOR LoadCursor(HINSTANCE hInstance, LPCWSTR pszName);
inline const LPCWSTR IDC_ARROW = MAKEINTRESOURCE(32512);
inline const LPCWSTR IDC_WAIT = MAKEINTRESOURCE(32514);
inline const LPCWSTR IDC_HAND = MAKEINTRESOURCE(32649);
