#pragma once

// The one place where the framework comes in: MFC with the Windows API, GDI+ and DrawDib, from Windows or from a
// stand-in.
#include <afxwin.h>

#include <afxdllx.h>
#include <gdiplus.h>
#include <vfw.h>
