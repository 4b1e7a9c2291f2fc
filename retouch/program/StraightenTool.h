#pragma once

#include "program/ProgramParts.h"
#include "program/Tool.h"
#include "program/ToolSession.h"

#include <memory>

/// Whether straightening cuts off what then has no picture.
extern const ToolOption HORIZON_CROP;

/// The photo is shown straightened by an angle, which lines drawn along what should be level or upright add to, and a
/// number replaces: one step in the end, or none.
std::unique_ptr<CToolSession> MakeStraighten(ProgramParts& parts);
