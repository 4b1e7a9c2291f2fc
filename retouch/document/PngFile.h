#pragma once

#include <cstdint>
#include <string>

/// Writes pixels (0x00RRGGBB, top row first, no padding) as a PNG file; FALSE with a message that names the file and
/// the reason.
bool WritePng(const std::string& strPath, int cx, int cy, const std::uint32_t* pPixels, std::string& strError);
