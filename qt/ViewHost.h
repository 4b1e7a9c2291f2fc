#pragma once

#include "view/Pixtane.h"

#include <functional>

/// The view's parent window: keeps the view as large as itself, hands the keys on to it, takes Ctrl and the wheel for
/// zooming, and reports the view's notifications. While it is the window used last it is the thread's main window.
class CViewHost : public CWnd
{
public:
    /// What it reports. A notification's result is the reply to the view.
    struct Reports
    {
        std::function<LRESULT(UINT uCode)> notified;
        std::function<void(int nSteps, CPoint ptWindow)> zoomWheel; ///< Window coordinates of the view.
    };

    /// Makes both windows, the host's hidden and without a size. Throws std::runtime_error when they cannot be made.
    explicit CViewHost(Reports reports);
    ~CViewHost() override;

    Pixtane::CPixtane& View() { return m_view; }

protected:
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* plResult) override;
    void OnSize(UINT uType, int cx, int cy);
    void OnSetFocus(CWnd* pOld);
    DECLARE_MESSAGE_MAP()

private:
    bool Holds(HWND hWnd) const;

    Reports m_Reports;
    Pixtane::CPixtane m_view;
};
