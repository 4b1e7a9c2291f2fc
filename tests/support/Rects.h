#pragma once

#include "base/Types.h"

#include <ostream>

inline bool operator==(const RECT& rcOne, const RECT& rcOther)
{
    return rcOne.left == rcOther.left && rcOne.top == rcOther.top && rcOne.right == rcOther.right &&
           rcOne.bottom == rcOther.bottom;
}

inline void PrintTo(const RECT& rc, std::ostream* pStream)
{
    *pStream << '{' << rc.left << ", " << rc.top << ", " << rc.right << ", " << rc.bottom << '}';
}
