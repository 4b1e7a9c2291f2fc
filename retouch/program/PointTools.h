#pragma once

#include "program/ProgramParts.h"
#include "program/Tool.h"

#include <string>

// What the rows of the tools for red eyes, spots and colours are made of.

extern const ToolOption REDEYE_AMOUNT;
extern const ToolOption SPOT_SIZE;
extern const ToolOption SAMPLE_SIZE;

Pixtane::CPixtane::IEmbeddedTool& PrepareRedeye(CToolBox& tools);
Pixtane::CPixtane::IEmbeddedTool& PrepareSpot(CToolBox& tools);
Pixtane::CPixtane::IEmbeddedTool& PreparePicker(CToolBox& tools);

// The commands that they stand for.
std::string RedeyeCommand(ProgramParts& parts);
std::string HealCommand(ProgramParts& parts);
std::string PickBegins(ProgramParts& parts);
std::string PickCommand(ProgramParts& parts);
