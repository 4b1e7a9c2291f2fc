#pragma once

#include "program/ProgramParts.h"
#include "program/ToolSession.h"

#include <memory>

/// The hand, for as long as the space bar is down; a drag goes on to its own end.
std::unique_ptr<CToolSession> MakeHeldHand(ProgramParts& parts);
