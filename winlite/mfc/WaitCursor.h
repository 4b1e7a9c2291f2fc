#pragma once

#include "user/User.h"

/// Shows the wait cursor while it lives. Objects nest; the outermost puts back what was shown before it.
class CWaitCursor
{
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};
