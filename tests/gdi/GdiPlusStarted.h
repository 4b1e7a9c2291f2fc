#pragma once

#include "Canvas.h"

#include "gdiplus/GdiPlus.h"

/// A test with GDI+ started, that must leave as many handles as it found.
class GdiPlusStarted : public HandleTest
{
protected:
    void SetUp() override
    {
        const Gdiplus::GdiplusStartupInput input;
        ASSERT_EQ(Gdiplus::GdiplusStartup(&m_uToken, &input, nullptr), Gdiplus::Ok);
        ASSERT_NE(m_uToken, 0u);
    }
    void TearDown() override
    {
        Gdiplus::GdiplusShutdown(m_uToken);
        HandleTest::TearDown();
    }

    ULONG_PTR m_uToken = 0;
};
