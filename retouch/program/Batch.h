#pragma once

#include <string>

/// Carries out commands, separated by semicolons, on a photo (the sample picture for an empty name) without a display.
/// All of them are read before the first is done. FALSE, with a message that names the command or the file, for what
/// cannot be read, opened or done.
bool DoCommands(const std::string& strCommands, const std::string& strPhoto, std::string& strError);
