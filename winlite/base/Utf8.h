#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace winlite
{

/// The text in UTF-8; what is no character becomes U+FFFD.
std::string ToUtf8(std::wstring_view strText);

/// The text of UTF-8; nothing when it is not well-formed.
std::optional<std::wstring> FromUtf8(std::string_view strUtf8);

} // namespace winlite
