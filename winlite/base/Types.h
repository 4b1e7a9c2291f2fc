#pragma once

#include <cstddef>
#include <cstdint>

// The Windows base types. LONG, DWORD and BOOL are 32 bits wide whatever the platform's long is.

using BYTE = unsigned char;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using SHORT = std::int16_t;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using BOOL = int;
using INT = int;
using UINT_PTR = std::uintptr_t;
using INT_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using ATOM = WORD;
using COLORREF = DWORD;
using WCHAR = wchar_t;
using LPCWSTR = const wchar_t*;
using LPWSTR = wchar_t*;
using LPCTSTR = LPCWSTR;
using LPVOID = void*;

// The calling convention of callbacks that the system calls; there is only one here.
#define APIENTRY

constexpr BOOL FALSE = 0;
constexpr BOOL TRUE = 1;

// Handles are opaque values, one pointer type for each kind as with STRICT; HANDLE and HGDIOBJ take any of them.
using HANDLE = void*;
using HGDIOBJ = void*;
using HBITMAP = struct HBITMAP__*;
using HBRUSH = struct HBRUSH__*;
using HPEN = struct HPEN__*;
using HRGN = struct HRGN__*;
using HDC = struct HDC__*;
using HWND = struct HWND__*;
using HMENU = struct HMENU__*;
using HICON = struct HICON__*;
using HCURSOR = HICON;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;
using HRSRC = struct HRSRC__*;
using HDRAWDIB = struct HDRAWDIB__*;

struct POINT
{
    LONG x;
    LONG y;
};

struct SIZE
{
    LONG cx;
    LONG cy;
};

/// Half-open: right and bottom are exclusive.
struct RECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

using LPPOINT = POINT*;
using LPSIZE = SIZE*;
using LPRECT = RECT*;
using LPCRECT = const RECT*;
static_assert(sizeof(RECT) == 16);

struct GUID
{
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};
static_assert(sizeof(GUID) == 16);

/// 0x00BBGGRR from the three channels.
constexpr COLORREF RGB(int iRed, int iGreen, int iBlue)
{
    return static_cast<BYTE>(iRed) | static_cast<DWORD>(static_cast<BYTE>(iGreen)) << 8 |
           static_cast<DWORD>(static_cast<BYTE>(iBlue)) << 16;
}
constexpr BYTE GetRValue(COLORREF cr) { return static_cast<BYTE>(cr); }
constexpr BYTE GetGValue(COLORREF cr) { return static_cast<BYTE>(cr >> 8); }
constexpr BYTE GetBValue(COLORREF cr) { return static_cast<BYTE>(cr >> 16); }

constexpr WORD LOWORD(DWORD_PTR dw) { return static_cast<WORD>(dw); }
constexpr WORD HIWORD(DWORD_PTR dw) { return static_cast<WORD>(dw >> 16); }
constexpr DWORD MAKELONG(int iLow, int iHigh)
{
    return static_cast<WORD>(iLow) | static_cast<DWORD>(static_cast<WORD>(iHigh)) << 16;
}
constexpr LPARAM MAKELPARAM(int iLow, int iHigh) { return static_cast<LPARAM>(MAKELONG(iLow, iHigh)); }
constexpr WPARAM MAKEWPARAM(int iLow, int iHigh) { return static_cast<WPARAM>(MAKELONG(iLow, iHigh)); }

/// A resource name that is a number: small integers stand where a name's address would.
inline LPCWSTR MAKEINTRESOURCE(UINT_PTR uId) { return reinterpret_cast<LPCWSTR>(static_cast<ULONG_PTR>(uId)); }
inline bool IS_INTRESOURCE(LPCWSTR pszName) { return reinterpret_cast<ULONG_PTR>(pszName) >> 16 == 0; }
