#pragma once

#include "mfc/Wnd.h"

/// A thread with a message loop. m_pMainWnd is the host's main window.
class CWinThread : public CObject
{
    DECLARE_DYNAMIC(CWinThread)

public:
    CWinThread() = default;
    ~CWinThread() override;

    virtual BOOL InitInstance() { return FALSE; }
    virtual int ExitInstance() { return m_iExitCode; }

    /// Runs the message loop until WM_QUIT, or until the desktop says that nothing can come any more.
    virtual int Run();

    /// Takes one message and dispatches it unless PreTranslateMessage ended it; FALSE for WM_QUIT.
    virtual BOOL PumpMessage();

    /// Called when the queue is empty: ends temporary objects.
    virtual BOOL OnIdle(LONG iCount);

    /// Walks from the message's window up to the main window and asks each window's object; TRUE ends the message.
    virtual BOOL PreTranslateMessage(MSG* pMsg);

    CWnd* m_pMainWnd = nullptr;

private:
    int m_iExitCode = 0;
};

/// The program: its main thread. Made once, before AfxWinInit.
class CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    CWinApp();
};

/// The calling thread's object; NULL for a thread that the class library did not start.
CWinThread* AfxGetThread();

/// The thread's m_pMainWnd, or the active window when that is NULL; NULL for a thread without an object.
CWnd* AfxGetMainWnd();
