#include "base/Module.h"

#include <algorithm>

namespace winlite
{

namespace
{

std::vector<const Module*>& Modules()
{
    // A function's static: registrations run before main, in an order nobody fixes.
    static std::vector<const Module*> vModules;
    return vModules;
}

} // namespace

ModuleRegistration::ModuleRegistration(const Module& module) { Modules().push_back(&module); }

const std::vector<const Module*>& RegisteredModules() { return Modules(); }

const Module* FindModule(HINSTANCE hInstance)
{
    const auto it = std::ranges::find(Modules(), hInstance, [](const Module* pModule) { return InstanceOf(*pModule); });
    return it == Modules().end() ? nullptr : *it;
}

HINSTANCE InstanceOf(const Module& module) { return reinterpret_cast<HINSTANCE>(const_cast<Module*>(&module)); }

const Resource* FindResourceIn(const Module& module, int iType, int iId)
{
    const auto it = std::ranges::find_if(module.vResources, [&](const Resource& resource)
                                         { return resource.iType == iType && resource.iId == iId; });
    return it == module.vResources.end() ? nullptr : &*it;
}

} // namespace winlite
