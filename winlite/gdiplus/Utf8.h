#pragma once

#include <string>
#include <string_view>

namespace winlite
{

/// The text in UTF-8; what is no character becomes U+FFFD.
std::string ToUtf8(std::wstring_view strText);

} // namespace winlite
