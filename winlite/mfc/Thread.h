#pragma once

#include "mfc/Wnd.h"
#include "user/Sync.h"

using AFX_THREADPROC = UINT (*)(LPVOID pParam);

/// A thread: the program's own, with a message loop, or a worker. m_pMainWnd is the host's main window; a worker's has
/// none, since windows' objects belong to the user-interface thread.
class CWinThread : public CObject
{
    DECLARE_DYNAMIC(CWinThread)

public:
    CWinThread() = default;
    ~CWinThread() override;

    /// Lets a worker that was created suspended begin. Any thread.
    DWORD ResumeThread() { return ::ResumeThread(m_hThread); }

    /// Takes effect when the worker begins. Any thread.
    BOOL SetThreadPriority(int iPriority) { return ::SetThreadPriority(m_hThread, iPriority); }

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
    HANDLE m_hThread = nullptr; ///< Of a worker, to wait for its end; closed with the object.

    /// A worker's object is deleted when the worker ends. One that sets this to FALSE, before the worker begins,
    /// deletes the object itself, after that end.
    BOOL m_bAutoDelete = TRUE;

private:
    friend CWinThread* AfxBeginThread(AFX_THREADPROC, LPVOID, int, UINT, DWORD, void*);

    void RunWorker(AFX_THREADPROC pProc, LPVOID pParam);

    int m_iExitCode = 0;
};

/// The program: its main thread. Made once, before AfxWinInit.
class CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    CWinApp();
};

/// Starts a worker that calls pProc(pParam) and ends with it; suspended first with CREATE_SUSPENDED. The stack size and
/// the security attributes are the system's. NULL when it cannot be started. The object may be gone as soon as the
/// worker runs: wait for events, not for it.
CWinThread* AfxBeginThread(AFX_THREADPROC pProc, LPVOID pParam, int iPriority = THREAD_PRIORITY_NORMAL,
                           UINT uStackSize = 0, DWORD dwCreateFlags = 0, void* pSecurity = nullptr);

/// The calling thread's object; NULL for a thread that the class library did not start.
CWinThread* AfxGetThread();

/// The thread's m_pMainWnd, or the active window when that is NULL; NULL for a thread without an object.
CWnd* AfxGetMainWnd();
