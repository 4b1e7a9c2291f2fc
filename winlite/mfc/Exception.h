#pragma once

#include "mfc/Object.h"

/// The base of the class library's exceptions, which are thrown and caught as pointers; Delete() ends one after it was
/// caught.
class CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    void Delete() { delete this; }

    /// Writes what happened into nMaxError characters, shortened to fit; FALSE, and an empty text, when there is
    /// nothing to say.
    virtual BOOL GetErrorMessage(LPWSTR pszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const;
};

/// Memory ran out. What winlite itself and the standard library throw is std::bad_alloc; sources written for the
/// framework catch this too.
class CMemoryException : public CException
{
    DECLARE_DYNAMIC(CMemoryException)
};

/// A window, device context or other system object could not be had.
class CResourceException : public CException
{
    DECLARE_DYNAMIC(CResourceException)
};

/// Throws a CResourceException.
[[noreturn]] void AfxThrowResourceException();
