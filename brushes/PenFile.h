#pragma once

#include "brushes/Sketcher.h"

#include <optional>
#include <vector>

namespace Pixtane
{

// A pen file is the bytes "SKPN", the number of its pens, and the pens back to back: style, size, the centre's x and y,
// then size x size weights row by row. Numbers have 32 bits, the low byte first. The functions read on from where the
// file stands, and take a failure to read as the end of the file. Any thread, one at a time for a file.

/// Whether the file goes on with the bytes that pen files begin with.
bool ReadPenMagic(CFile& file);

/// How many pens the file declares; nothing when it ends before that.
std::optional<DWORD> ReadPenCount(CFile& file);

/// Appends up to dwDeclared pens of the file, and returns how many were whole. The first that is not ends the reading,
/// and so does one whose size is below 1, whose weights' bytes 32 bits cannot count, or which memory has no room for.
int AppendPens(CFile& file, DWORD dwDeclared, std::vector<EmbeddedTool::Sketcher::SketchPen>& vPens);

} // namespace Pixtane
