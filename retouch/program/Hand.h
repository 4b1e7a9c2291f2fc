#pragma once

#include "host/ViewHost.h"

/// A person's hand on the mouse in a program without a display: what it does goes the way of all input, and is done
/// when a call returns. User-interface thread; the desktop must be a winlite::HeadlessDesktop.
class CHand
{
public:
    /// The host must outlive it.
    explicit CHand(CViewHost& host) : m_host(host) {}

    /// Window coordinates of the view, which may lie outside of it.
    void PointTo(CPoint ptWindow);
    void Button(bool bDown);

    /// Waits until the worker of a brush that paints has seen where the pointer is.
    void AwaitBrush();

private:
    CViewHost& m_host;
    CPoint m_ptScreen{0, 0};
};
