#pragma once

#include <string>
#include <string_view>

namespace winlite
{

/// The text with capital letters of every alphabet, whatever the program's locale is.
std::wstring Uppercase(std::wstring_view strText);

/// Whether a file's name fits a pattern, both in capital letters: * is any characters, ? is one, or none before a dot
/// and at the end, and *.* fits names without a dot too.
bool FitsPattern(std::wstring_view strName, std::wstring_view strPattern);

} // namespace winlite
