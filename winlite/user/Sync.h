#pragma once

#include "base/Types.h"

// Events, waits and threads with Windows' names and behaviour. Any thread. Waits use real time, whatever the desktop's
// clock does.

constexpr DWORD INFINITE = 0xFFFFFFFF;
constexpr DWORD WAIT_OBJECT_0 = 0;
constexpr DWORD WAIT_TIMEOUT = 258;
constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;
constexpr DWORD MAXIMUM_WAIT_OBJECTS = 64;

/// Makes an event. One that resets by itself lets one wait through for each time it is set; a manual one all waits
/// until it is reset. Names are not supported: an event with one is refused with NULL.
HANDLE CreateEvent(void* pSecurity, BOOL bManualReset, BOOL bInitialState, LPCWSTR pszName);

/// Lets waits for the event through. FALSE when the handle is no event. Setting a set event adds nothing. The handle
/// may be closed by whoever is woken while the call still runs.
BOOL SetEvent(HANDLE hEvent);

/// The event's waits wait again. FALSE when the handle is no event.
BOOL ResetEvent(HANDLE hEvent);

/// Closes the handle of an event or a thread; waits that have begun go on.
BOOL CloseHandle(HANDLE h);

/// Waits for an event or the end of a thread. WAIT_FAILED for any other handle.
DWORD WaitForSingleObject(HANDLE h, DWORD dwMs);

/// Waits for one of up to MAXIMUM_WAIT_OBJECTS, or with bAll for all of them at the same time; only then are events
/// that reset by themselves consumed. Returns WAIT_OBJECT_0 plus the lowest index of a signalled object.
DWORD WaitForMultipleObjects(DWORD nCount, const HANDLE* phObjects, BOOL bAll, DWORD dwMs);

/// Lets real time pass.
void Sleep(DWORD dwMs);

constexpr int THREAD_PRIORITY_LOWEST = -2;
constexpr int THREAD_PRIORITY_BELOW_NORMAL = -1;
constexpr int THREAD_PRIORITY_NORMAL = 0;
constexpr int THREAD_PRIORITY_ABOVE_NORMAL = 1;
constexpr int THREAD_PRIORITY_HIGHEST = 2;

/// Sets the priority of a thread that the class library started. Where the system does not permit it the thread keeps
/// the one it has, and the first refusal is told on standard error. FALSE when the handle is no such thread.
BOOL SetThreadPriority(HANDLE hThread, int iPriority);

constexpr DWORD CREATE_SUSPENDED = 4;

/// Lets a thread that was created suspended begin. Returns how often it was suspended before: 1, or 0 for one that
/// runs; 0xFFFFFFFF when the handle is no thread. A running thread cannot be suspended.
DWORD ResumeThread(HANDLE hThread);
