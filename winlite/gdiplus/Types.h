#pragma once

#include "base/Types.h"

// The values that GDI+ calls take and give. Enumerations hold only what winlite offers.

namespace Gdiplus
{

using REAL = float;
using ARGB = DWORD;

enum Status
{
    Ok = 0,
    GenericError = 1,
    InvalidParameter = 2,
    NotImplemented = 6,
    ValueOverflow = 11,
    FontFamilyNotFound = 14,
    GdiplusNotInitialized = 18,
};

enum Unit
{
    UnitPixel = 2,
};

enum SmoothingMode
{
    SmoothingModeNone = 3,
};

enum TextRenderingHint
{
    TextRenderingHintSystemDefault = 0,
    TextRenderingHintAntiAliasGridFit = 3,
};

enum InterpolationMode
{
    InterpolationModeNearestNeighbor = 5,
};

enum PixelOffsetMode
{
    PixelOffsetModeHalf = 4,
};

class Point
{
public:
    int X = 0;
    int Y = 0;
    Point() = default;
    Point(int x, int y) : X(x), Y(y) {}
    bool operator==(const Point&) const = default;
    bool Equals(const Point& other) const { return *this == other; }
};

class PointF
{
public:
    REAL X = 0;
    REAL Y = 0;
    PointF() = default;
    PointF(REAL x, REAL y) : X(x), Y(y) {}
    bool operator==(const PointF&) const = default;
    bool Equals(const PointF& other) const { return *this == other; }
};

class SizeF
{
public:
    REAL Width = 0;
    REAL Height = 0;
    SizeF() = default;
    SizeF(REAL cx, REAL cy) : Width(cx), Height(cy) {}
    bool operator==(const SizeF&) const = default;
    bool Equals(const SizeF& other) const { return *this == other; }
};

class Rect
{
public:
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
    Rect() = default;
    Rect(int x, int y, int cx, int cy) : X(x), Y(y), Width(cx), Height(cy) {}
    bool operator==(const Rect&) const = default;
    bool Equals(const Rect& other) const { return *this == other; }
};

class RectF
{
public:
    REAL X = 0;
    REAL Y = 0;
    REAL Width = 0;
    REAL Height = 0;
    RectF() = default;
    RectF(REAL x, REAL y, REAL cx, REAL cy) : X(x), Y(y), Width(cx), Height(cy) {}
    bool operator==(const RectF&) const = default;
    bool Equals(const RectF& other) const { return *this == other; }
};

/// A colour with alpha (255 is opaque), kept as 0xAARRGGBB; opaque black at first.
class Color
{
public:
    enum : ARGB
    {
        Black = 0xFF000000,
        White = 0xFFFFFFFF,
    };

    Color() = default;
    Color(ARGB uArgb) : m_uArgb(uArgb) {}
    Color(BYTE uRed, BYTE uGreen, BYTE uBlue) : Color(255, uRed, uGreen, uBlue) {}
    Color(BYTE uAlpha, BYTE uRed, BYTE uGreen, BYTE uBlue)
        : m_uArgb(ARGB{uAlpha} << 24 | ARGB{uRed} << 16 | ARGB{uGreen} << 8 | uBlue)
    {
    }

    BYTE GetA() const { return static_cast<BYTE>(m_uArgb >> 24); }
    BYTE GetR() const { return static_cast<BYTE>(m_uArgb >> 16); }
    BYTE GetG() const { return static_cast<BYTE>(m_uArgb >> 8); }
    BYTE GetB() const { return static_cast<BYTE>(m_uArgb); }
    ARGB GetValue() const { return m_uArgb; }

private:
    ARGB m_uArgb = Black;
};

} // namespace Gdiplus
