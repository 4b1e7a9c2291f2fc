#pragma once

#include "platform/quillog.h"

namespace Pixtane
{

/// What the library calls itself in log records.
inline constexpr const wchar_t* MODULE_NAME = L"Pixtane";

} // namespace Pixtane
