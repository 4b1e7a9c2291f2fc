#pragma once

#include <cstddef>
#include <cstdint>

/// How a picture is laid down anew without losing anything.
enum class Turn
{
    Left,   ///< A quarter turn, counter-clockwise.
    Right,  ///< A quarter turn, clockwise.
    Around, ///< Upside down by half a turn.
    Mirror, ///< Left and right change places.
    Flip,   ///< Top and bottom change places.
};

/// Whether width and height change places.
constexpr bool IsQuarterTurn(Turn eTurn) { return eTurn == Turn::Left || eTurn == Turn::Right; }

/// A place in a picture.
struct PixelPlace
{
    int x, y;
};

/// Where the pixel comes from that lies at a place of the turned picture; cx and cy are the size before.
PixelPlace SourceOf(Turn eTurn, PixelPlace place, int cx, int cy);

/// Turns rows of cx pixels: calls move(place, source) for each pixel of the turned picture, row by row. Any thread.
template<class F>
void ForTurned(Turn eTurn, int cx, int cy, F move)
{
    const int nColumns = IsQuarterTurn(eTurn) ? cy : cx;
    const int nRows = IsQuarterTurn(eTurn) ? cx : cy;
    for (int y = 0; y < nRows; ++y)
    {
        for (int x = 0; x < nColumns; ++x)
            move(PixelPlace{x, y}, SourceOf(eTurn, {x, y}, cx, cy));
    }
}
