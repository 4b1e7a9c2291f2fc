#include "mfc/Module.h"

#include "base/Desktop.h"

#include <algorithm>
#include <cassert>
#include <ranges>

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CObject)

namespace
{

HINSTANCE s_hProgram = nullptr;
std::vector<const winlite::Module*> s_vAttached;
std::vector<CDynLinkLibrary*> s_vChain;

int ResourceNumber(LPCWSTR pszName) { return static_cast<int>(reinterpret_cast<ULONG_PTR>(pszName)); }

bool HasResource(HINSTANCE hModule, LPCWSTR pszName, LPCWSTR pszType)
{
    const winlite::Module* pModule = winlite::FindModule(hModule);
    return pModule && IS_INTRESOURCE(pszName) && IS_INTRESOURCE(pszType) &&
           winlite::FindResourceIn(*pModule, ResourceNumber(pszType), ResourceNumber(pszName));
}

} // namespace

BOOL AfxWinInit(HINSTANCE hInstance, HINSTANCE, LPWSTR, int)
{
    assert(winlite::HasDesktop());
    s_hProgram = hInstance;
    for (const winlite::Module* pModule : winlite::RegisteredModules())
    {
        // A module that refuses is detached too, so that it can undo what it had begun.
        s_vAttached.push_back(pModule);
        if (!pModule->pEntry(winlite::InstanceOf(*pModule), DLL_PROCESS_ATTACH, nullptr))
        {
            AfxWinTerm();
            return FALSE;
        }
    }
    return TRUE;
}

void AfxWinTerm()
{
    for (const winlite::Module* pModule : s_vAttached | std::views::reverse)
        pModule->pEntry(winlite::InstanceOf(*pModule), DLL_PROCESS_DETACH, nullptr);
    s_vAttached.clear();
}

HINSTANCE AfxGetInstanceHandle() { return s_hProgram; }

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule)
{
    if (state.bInitialized)
        return TRUE;
    if (!winlite::FindModule(hModule))
        return FALSE;
    state = {TRUE, hModule};
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL)
{
    if (!state.bInitialized)
        return;
    const std::vector<CDynLinkLibrary*> vChain = s_vChain;
    for (CDynLinkLibrary* pLibrary : vChain)
    {
        if (pLibrary->m_hModule == state.hModule)
            delete pLibrary;
    }
    state = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state) : m_hModule(state.hModule)
{
    s_vChain.insert(s_vChain.begin(), this);
}

CDynLinkLibrary::~CDynLinkLibrary() { std::erase(s_vChain, this); }

HINSTANCE AfxFindResourceHandle(LPCWSTR pszName, LPCWSTR pszType)
{
    if (HasResource(s_hProgram, pszName, pszType))
        return s_hProgram;
    const auto it = std::ranges::find_if(s_vChain, [&](const CDynLinkLibrary* pLibrary)
                                         { return HasResource(pLibrary->m_hModule, pszName, pszType); });
    return it == s_vChain.end() ? s_hProgram : (*it)->m_hModule;
}
