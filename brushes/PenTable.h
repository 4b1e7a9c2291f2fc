#pragma once

#include "brushes/Sketcher.h"

#include <vector>

namespace Pixtane
{

/// The module's pen table: what the latest successful LoadSketchPens has loaded, in that order. It stays until the
/// module is unloaded. User-interface thread.
const std::vector<EmbeddedTool::Sketcher::SketchPen>& SketchPens();

} // namespace Pixtane
