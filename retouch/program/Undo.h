#pragma once

#include "document/Document.h"
#include "program/ProgramParts.h"

/// Goes to another state of the history, if there is one.
void GoTo(ProgramParts& parts, const CHistory::State* (CHistory::*pStep)());
