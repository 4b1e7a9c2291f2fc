#pragma once

#include <optional>
#include <string>
#include <vector>

// Commands as text: a word and its arguments, separated by blanks. An argument that begins with ' or " goes on to the
// next such mark; the mark itself is written twice inside. Several commands in one text are separated by semicolons.

/// The commands of a text, without blanks around them; empty ones are left out. Nothing, with a message, when quotes do
/// not end.
std::optional<std::vector<std::string>> SplitCommands(const std::string& strText, std::string& strError);

/// Takes the next argument off the front of a text; empty when there is none. Nothing, with a message, when its quotes
/// do not end.
std::optional<std::string> TakeWord(std::string& strText, std::string& strError);

/// Without the blanks at its beginning and end.
std::string Trimmed(const std::string& strText);

/// As one argument, whatever is in it.
std::string Quoted(const std::string& strText);
