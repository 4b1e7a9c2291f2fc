#include "mfc/Exception.h"

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CResourceException, CException)

BOOL CException::GetErrorMessage(LPWSTR pszError, UINT nMaxError, UINT*) const
{
    if (nMaxError > 0)
        pszError[0] = 0;
    return FALSE;
}

void AfxThrowResourceException() { throw new CResourceException; }
