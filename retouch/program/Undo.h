#pragma once

#include "document/Document.h"
#include "program/ProgramParts.h"

// To another state of the history, if there is one: the one before, the one after, the one of a number (0 the oldest).
void Undo(ProgramParts& parts);
void Redo(ProgramParts& parts);
void GoToState(ProgramParts& parts, std::size_t iState);
