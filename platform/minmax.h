#pragma once

#include "platform/framework.h"

// The platform's headers make macros of min and max, which take std::min and numeric_limits<T>::max apart. Sources that
// use those include this, and so do headers, but none that a host needs: its own sources may want the macros.
#undef min
#undef max
