#pragma once

#include "base/Types.h"

#include <QCursor>

namespace winlite
{

/// What Qt shows for a cursor: its own shape for a system cursor, the picture, enlarged by the screen's scale without
/// smoothing, for any other; nothing for NULL.
QCursor CursorShape(HCURSOR hCursor, double dScale);

} // namespace winlite
