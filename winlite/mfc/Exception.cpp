#include "mfc/Exception.h"

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CResourceException, CException)

void AfxThrowResourceException() { throw new CResourceException; }
