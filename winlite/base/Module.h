#pragma once

#include "base/Types.h"

#include <span>
#include <vector>

namespace winlite
{

/// One embedded resource: a type (RT_BITMAP, RT_GROUP_CURSOR), its number and its bytes. A bitmap is a packed DIB
/// (header, then bits); a cursor is a whole .cur file.
struct Resource
{
    int iType;
    int iId;
    std::span<const BYTE> vBytes;
};

/// What the system calls in a module when it is loaded and unloaded (DllMain on Windows).
using ModuleEntry = BOOL (*)(HINSTANCE hInstance, DWORD dwReason, LPVOID pReserved);

/// A loaded library with its resources. Its address is the module's instance handle.
struct Module
{
    const wchar_t* pszName;
    ModuleEntry pEntry;
    std::span<const Resource> vResources;
};

/// Enters a module for the rest of the program; made as a static object by the code that the resource compiler writes.
class ModuleRegistration
{
public:
    explicit ModuleRegistration(const Module& module);
};

/// The registered modules in the order of their registration.
const std::vector<const Module*>& RegisteredModules();

/// The module of an instance handle, NULL when it is none's.
const Module* FindModule(HINSTANCE hInstance);
HINSTANCE InstanceOf(const Module& module);

/// The module's resource of that type and number, NULL when it has none.
const Resource* FindResourceIn(const Module& module, int iType, int iId);

} // namespace winlite

inline const LPCWSTR RT_BITMAP = MAKEINTRESOURCE(2);
inline const LPCWSTR RT_GROUP_CURSOR = MAKEINTRESOURCE(12);

constexpr DWORD DLL_PROCESS_DETACH = 0;
constexpr DWORD DLL_PROCESS_ATTACH = 1;
