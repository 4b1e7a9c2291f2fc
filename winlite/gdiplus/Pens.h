#pragma once

#include "gdiplus/Types.h"

namespace Gdiplus
{

class Brush
{
public:
    virtual ~Brush() = default;
    Brush(const Brush&) = delete;
    Brush& operator=(const Brush&) = delete;

    virtual Status GetLastStatus() const = 0;

protected:
    Brush() = default;
    friend class Graphics;
    virtual Color Paint() const = 0; ///< What to fill with.
};

class SolidBrush : public Brush
{
public:
    explicit SolidBrush(const Color& color) : m_Color(color) {}

    Status GetColor(Color* pColor) const;
    Status SetColor(const Color& color);
    Status GetLastStatus() const override { return Ok; }

private:
    Color Paint() const override { return m_Color; }

    Color m_Color;
};

/// A solid pen. Outlines are one pixel wide, which every width up to 1 means; InvalidParameter for a width that is
/// negative or not finite.
class Pen
{
public:
    explicit Pen(const Color& color, REAL fWidth = 1.0F);
    Pen(const Pen&) = delete;
    Pen& operator=(const Pen&) = delete;

    Status GetColor(Color* pColor) const;
    Status SetColor(const Color& color);
    REAL GetWidth() const { return m_fWidth; }
    Status GetLastStatus() const { return m_Status; }

private:
    Color m_Color;
    REAL m_fWidth;
    Status m_Status = Ok;
};

} // namespace Gdiplus
