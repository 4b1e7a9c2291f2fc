#include "mfc/WaitCursor.h"

namespace
{

int s_nShown = 0;
HCURSOR s_hBefore = {};

} // namespace

CWaitCursor::CWaitCursor()
{
    const HCURSOR hBefore = ::SetCursor(::LoadCursor(nullptr, IDC_WAIT));
    if (s_nShown++ == 0)
        s_hBefore = hBefore;
}

CWaitCursor::~CWaitCursor()
{
    if (--s_nShown == 0)
        ::SetCursor(s_hBefore);
}
