#pragma once

#include "program/ProgramParts.h"
#include "program/ToolSession.h"

#include <memory>

/// The next click in the picture chooses the colour of a range.
std::unique_ptr<CToolSession> MakeColourPick(ProgramParts& parts);

/// Selects the colour of a bitmap pixel wherever it occurs; FALSE, with a message, when the photo has no such pixel.
bool SelectColour(ProgramParts& parts, CPoint ptBitmap, std::string& strError);

/// Remembers a click of the wand.
void RememberWand(ProgramParts& parts, bool bStep);

/// Picks again what was picked last, so that a person sees what another tolerance does.
void RepeatPick(ProgramParts& parts);
