#pragma once

#include "mfc/Object.h"

/// The base of the class library's exceptions, which are thrown and caught as pointers; Delete() ends one after it was
/// caught.
class CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    void Delete() { delete this; }
};

/// A window, device context or other system object could not be had.
class CResourceException : public CException
{
    DECLARE_DYNAMIC(CResourceException)
};

/// Throws a CResourceException.
[[noreturn]] void AfxThrowResourceException();
