#pragma once

#include "platform/framework.h"

namespace Pixtane
{

/// Whether the host's main window (that of the current thread) is minimised; FALSE when it has none.
inline bool IsMainWindowMinimised()
{
    const CWnd* pMainWnd = AfxGetMainWnd();
    return pMainWnd && pMainWnd->IsIconic();
}

} // namespace Pixtane
