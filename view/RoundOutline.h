#pragma once

#include "view/Pixtane.h"

namespace Pixtane
{

/// The diameter in window pixels of something round of iSize bitmap pixels.
int RoundScreenSize(int iSize, double dbZoom);

/// Outlines something round of iSize bitmap pixels about one of them, ptBitmap: black, with white around it, so that it
/// shows on any ground; square where a circle would be no more than a dot. It moves by whole bitmap pixels. Nothing
/// is drawn when the diameter, iScreenSize window pixels, reaches the screen's smaller side.
void DrawRoundOutline(CDC& dc, const CPixtane& view, CPoint ptBitmap, int iSize, int iScreenSize);

} // namespace Pixtane
