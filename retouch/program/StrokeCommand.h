#pragma once

#include "program/Command.h"

/// Paints a stroke of the chosen brush through points of the photo, as a hand does it: a press, the pointer's places, a
/// release. FALSE, with a message, without a brush or a photo, when the brush refuses, and in a program with a display,
/// whose pointer is the person's. User-interface thread.
bool PaintStroke(ProgramParts& parts, const Points& vPoints, std::string& strError);
