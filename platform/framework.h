#pragma once

// The one place where the framework comes in: MFC with the Windows API, GDI+ and DrawDib, from Windows or from a
// stand-in. Every header that the library needs is named, also those that others happen to bring along; the start-up
// of an extension module (afxdllx.h) is for the one source that has it.
#include <afxwin.h>

#include <afxmt.h>
#include <afxtempl.h>
#include <gdiplus.h>
#include <vfw.h>
