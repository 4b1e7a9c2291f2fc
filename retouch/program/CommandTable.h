#pragma once

#include "program/Command.h"

/// All commands, with those that the options of the tools are set by.
const std::vector<Command>& Commands();

/// What a recorded session says after a command that the program had to refuse.
inline constexpr const char* REFUSED_COMMAND = "refused";

/// Ends what the person is in the middle of, as many commands do before their own work.
inline constexpr const char* END_MIDDLE_COMMAND = "end-tool";
