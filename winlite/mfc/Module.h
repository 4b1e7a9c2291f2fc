#pragma once

#include "base/Module.h"
#include "mfc/Object.h"
#include "user/User.h"

/// Starts the class library: calls every registered module's entry with DLL_PROCESS_ATTACH, in order. The Desktop must
/// be there, and a CWinApp. FALSE when a module refuses; it and those before it are detached again.
BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPWSTR pszCommandLine, int nCmdShow);

/// Calls the attached modules' entries with DLL_PROCESS_DETACH, the last attached first. After the last window is gone.
void AfxWinTerm();

/// The program's own instance handle, as AfxWinInit was given it.
HINSTANCE AfxGetInstanceHandle();

/// What an extension module knows of itself.
struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
    HMODULE hModule;
};

/// Makes a module one of the class library's; FALSE when the handle is no module's. TRUE when it was one already.
BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

/// Puts an extension module's resources on the search chain while it lives. AfxTermExtensionModule deletes it.
class CDynLinkLibrary : public CObject
{
    DECLARE_DYNAMIC(CDynLinkLibrary)

public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
};

/// The module that holds a resource: the program itself, then the chained extension modules, the last chained first;
/// when none has it the program, whose loading of it then fails.
HINSTANCE AfxFindResourceHandle(LPCWSTR pszName, LPCWSTR pszType);

/// Marks a class as exported from an extension module.
#define AFX_EXT_CLASS __attribute__((visibility("default")))
#define AFX_EXT_API __attribute__((visibility("default")))
