#pragma once

#include "platform/framework.h"

/// The host's window base class: a CWnd whose message map comes before CWnd's own.
class CUXWnd : public CWnd
{
    DECLARE_DYNAMIC(CUXWnd)
    DECLARE_MESSAGE_MAP()
};

/// A memory device context with a bitmap of its own, compatible with the given device context and zeroed. Both go with
/// it.
class CUXMemDC : public CDC
{
public:
    CUXMemDC(CDC& dc, int cx, int cy);
    ~CUXMemDC() override;

    CBitmap& GetBitmap() { return m_bmp; }

    /// Deletes the device context and its bitmap before the object goes; FALSE when that happened already.
    BOOL DeleteDC();

private:
    CBitmap m_bmp;
    HBITMAP m_hOldBitmap = nullptr;
};
