#pragma once

#include "pixels/PixelSize.h"
#include "pixels/PixelView.h"
#include "pixels/Progress.h"

#include <vector>

/// What moves every pixel to another place and changes none.
enum class Turn
{
    Left,  ///< A quarter counter-clockwise: the top right corner becomes the top left one.
    Right, ///< A quarter clockwise.
    Around,
    MirrorLeftRight,
    MirrorUpsideDown
};

/// The size that a picture has after a turn.
PixelSize TurnedSize(PixelSize size, Turn turn);

/// Turns a picture, all four bytes of a pixel, into another of the turned size; they must not overlap or be empty.
/// FALSE when cancelled, half done. Any thread.
bool TurnPicture(const PixelView& source, const PixelView& target, Turn turn, CProgress& progress);

/// Turns a mask of iWidth bytes a row into another vector, which gets its length. FALSE when cancelled, half done. Any
/// thread.
bool TurnMask(const std::vector<std::uint8_t>& vSource, int iWidth, std::vector<std::uint8_t>& vTarget, Turn turn,
              CProgress& progress);
