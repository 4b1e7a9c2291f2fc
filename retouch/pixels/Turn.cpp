#include "pixels/Turn.h"

PixelPlace SourceOf(Turn eTurn, PixelPlace place, int cx, int cy)
{
    switch (eTurn)
    {
    case Turn::Left:
        return {cx - 1 - place.y, place.x};
    case Turn::Right:
        return {place.y, cy - 1 - place.x};
    case Turn::Around:
        return {cx - 1 - place.x, cy - 1 - place.y};
    case Turn::Mirror:
        return {cx - 1 - place.x, place.y};
    case Turn::Flip:
        return {place.x, cy - 1 - place.y};
    }
    return place;
}
