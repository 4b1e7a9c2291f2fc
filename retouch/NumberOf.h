#pragma once

#include <charconv>
#include <optional>
#include <string>

/// A command's number; nothing, with a message, for what is none or out of range.
inline std::optional<int> NumberOf(const std::string& strText, int iLeast, int iMost, std::string& strError)
{
    int iNumber = 0;
    const char* const pEnd = strText.data() + strText.size();
    const auto [pRead, error] = std::from_chars(strText.data(), pEnd, iNumber);
    if (error == std::errc() && pRead == pEnd && iNumber >= iLeast && iNumber <= iMost)
        return iNumber;
    strError = "\"" + strText + "\" is no number from " + std::to_string(iLeast) + " to " + std::to_string(iMost);
    return std::nullopt;
}
