#pragma once

namespace Gdiplus
{

/// Whether GDI+ was started more often than shut down.
bool IsStarted();

} // namespace Gdiplus
