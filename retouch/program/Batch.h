#pragma once

#include <string>
#include <vector>

/// Carries out commands, separated by semicolons, on a photo (the sample picture for an empty name) without a display.
/// All of them are read before the first is done. FALSE, with a message that names the command or the file, for what
/// cannot be read, opened or done.
bool DoCommands(const std::string& strCommands, const std::string& strPhoto, std::string& strError);

/// Whether they can be read; FALSE with a message that names the one that cannot.
bool AreCommands(const std::string& strCommands, std::string& strError);

/// The files that the commands would save that photo to.
std::vector<std::string> FilesSavedTo(const std::string& strCommands, const std::string& strPhoto);
