#include "user/Cursor.h"

#include "base/Desktop.h"
#include "base/Module.h"
#include "gdi/Handles.h"

#include <algorithm>
#include <map>
#include <utility>

namespace winlite
{

namespace
{

// The cursor that is shown. User-interface thread only.
HCURSOR s_hCursor = nullptr;

constexpr int SYSTEM_CURSORS[] = {32512, 32513, 32514, 32515, 32642, 32643, 32644, 32645, 32646, 32648, 32649};

std::shared_ptr<CursorObject> MakeCursor(HINSTANCE hInstance, int iId)
{
    constexpr int TYPE_CURSOR = 12;
    if (!hInstance)
    {
        if (std::ranges::find(SYSTEM_CURSORS, iId) == std::end(SYSTEM_CURSORS))
            return nullptr;
        auto pCursor = std::make_shared<CursorObject>();
        pCursor->iSystemId = iId;
        return pCursor;
    }
    const Module* pModule = FindModule(hInstance);
    const Resource* pResource = pModule ? FindResourceIn(*pModule, TYPE_CURSOR, iId) : nullptr;
    return pResource ? ReadCursorFile(pResource->vBytes) : nullptr;
}

} // namespace

} // namespace winlite

using namespace winlite;

HCURSOR LoadCursor(HINSTANCE hInstance, LPCWSTR pszName)
{
    static auto* pShared = new std::map<std::pair<HINSTANCE, int>, HCURSOR>; // They live as long as the program.
    if (!IS_INTRESOURCE(pszName))
        return nullptr;
    const int iId = static_cast<int>(reinterpret_cast<ULONG_PTR>(pszName));
    if (const auto it = pShared->find({hInstance, iId}); it != pShared->end())
        return it->second;
    auto pCursor = MakeCursor(hInstance, iId);
    if (!pCursor)
        return nullptr;
    const HCURSOR hCursor = OpenTyped<HCURSOR>(std::move(pCursor));
    DoNotCountHandle(hCursor);
    (*pShared)[{hInstance, iId}] = hCursor;
    return hCursor;
}

HCURSOR SetCursor(HCURSOR hCursor)
{
    const HCURSOR hOld = std::exchange(s_hCursor, hCursor);
    if (hOld != hCursor && HasDesktop())
        TheDesktop().CursorChanged(hCursor);
    return hOld;
}

HCURSOR GetCursor() { return s_hCursor; }
