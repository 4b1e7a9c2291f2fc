#pragma once

#include "Canvas.h"

#include "gdiplus/GdiPlus.h"

/// A test with GDI+ started, that must leave as many handles as it found.
class GdiPlusStarted : public HandleTest
{
protected:
    GdiPlusStarted()
    {
        const Gdiplus::GdiplusStartupInput input;
        EXPECT_EQ(Gdiplus::GdiplusStartup(&m_uToken, &input, nullptr), Gdiplus::Ok);
        EXPECT_NE(m_uToken, 0u);
    }
    ~GdiPlusStarted() override { Gdiplus::GdiplusShutdown(m_uToken); }

    ULONG_PTR m_uToken = 0;
};
