#include "mfc/Thread.h"

#include "user/Window.h"
#include "user/Workers.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CWinThread, CObject)
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

namespace
{

thread_local CWinThread* t_pThread = nullptr;

void DispatchUnlessTranslated(MSG& msg)
{
    if (t_pThread && t_pThread->PreTranslateMessage(&msg))
        return;
    ::TranslateMessage(&msg);
    ::DispatchMessage(&msg);
}

/// One message for a desktop that runs the loop itself; FALSE, with the temporary objects ended, when there is none.
bool PumpPendingMessage()
{
    MSG msg;
    if (::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE))
    {
        DispatchUnlessTranslated(msg);
        return true;
    }
    if (t_pThread)
        t_pThread->OnIdle(0);
    return false;
}

} // namespace

CWinThread::~CWinThread()
{
    if (t_pThread == this)
        t_pThread = nullptr;
    if (m_hThread)
        ::CloseHandle(m_hThread);
}

void CWinThread::RunWorker(AFX_THREADPROC pProc, LPVOID pParam)
{
    t_pThread = this;
    pProc(pParam);
    if (m_bAutoDelete)
        delete this;
}

CWinThread* AfxBeginThread(AFX_THREADPROC pProc, LPVOID pParam, int iPriority, UINT, DWORD dwCreateFlags, void*)
{
    auto* pThread = new CWinThread;
    pThread->m_hThread = winlite::Workers::Start([=] { pThread->RunWorker(pProc, pParam); });
    if (!pThread->m_hThread)
    {
        delete pThread;
        return nullptr;
    }
    pThread->SetThreadPriority(iPriority);
    if (!(dwCreateFlags & CREATE_SUSPENDED))
        pThread->ResumeThread();
    return pThread;
}

int CWinThread::Run()
{
    while (PumpMessage())
    {
        MSG msg;
        if (!::PeekMessage(&msg, nullptr, 0, 0, PM_NOREMOVE))
            OnIdle(0);
    }
    return ExitInstance();
}

BOOL CWinThread::PumpMessage()
{
    MSG msg;
    const BOOL bGot = ::GetMessage(&msg, nullptr, 0, 0);
    if (bGot <= 0)
    {
        m_iExitCode = bGot == 0 ? static_cast<int>(msg.wParam) : 0;
        return FALSE;
    }
    DispatchUnlessTranslated(msg);
    return TRUE;
}

BOOL CWinThread::OnIdle(LONG)
{
    winlite::DeleteTemporaryWindows();
    winlite::DeleteTemporaryGdiObjects();
    return FALSE;
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    for (HWND hWnd = pMsg->hwnd; hWnd; hWnd = ::GetParent(hWnd))
    {
        CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
        if (pWnd && pWnd->PreTranslateMessage(pMsg))
            return TRUE;
        if (pWnd && pWnd == m_pMainWnd)
            return FALSE;
    }
    // The message's window was not one of the main window's; that one is asked all the same.
    return m_pMainWnd && m_pMainWnd->PreTranslateMessage(pMsg);
}

CWinApp::CWinApp()
{
    assert(!t_pThread);
    t_pThread = this;
    winlite::SetMessagePump(&PumpPendingMessage);
}

CWinThread* AfxGetThread() { return t_pThread; }

CWnd* AfxGetMainWnd()
{
    if (!t_pThread)
        return nullptr;
    return t_pThread->m_pMainWnd ? t_pThread->m_pMainWnd : CWnd::FromHandle(::GetActiveWindow());
}
