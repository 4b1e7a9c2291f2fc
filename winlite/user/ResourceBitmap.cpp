#include "base/Module.h"
#include "user/User.h"

using namespace winlite;

HBITMAP LoadBitmap(HINSTANCE hInstance, LPCWSTR pszName)
{
    constexpr int TYPE_BITMAP = 2;
    const Module* pModule = FindModule(hInstance);
    if (!pModule || !IS_INTRESOURCE(pszName))
        return nullptr;
    const int iId = static_cast<int>(reinterpret_cast<ULONG_PTR>(pszName));
    const Resource* pResource = FindResourceIn(*pModule, TYPE_BITMAP, iId);
    return pResource ? ::CreateBitmapFromPackedDIB(pResource->vBytes.data(), pResource->vBytes.size()) : nullptr;
}
