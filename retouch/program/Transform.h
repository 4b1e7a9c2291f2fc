#pragma once

#include "program/ProgramParts.h"
#include "program/ToolSession.h"

#include <memory>

/// The selection is moved and resized as a whole, by the mouse, the arrow keys or numbers: one step, or none.
std::unique_ptr<CToolSession> MakeTransform(ProgramParts& parts);
