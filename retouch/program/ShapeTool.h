#pragma once

#include "selection/RegionSelector.h"

/// The library's tool that draws selections, for which a shape too small to be seen, or drawn by a click that
/// trembled, is a click: it selects nothing.
class CShapeTool : public Pixtane::EmbeddedTool::RegionSelector
{
public:
    int OnLButtonUp(UINT nFlags, CPoint point) override;

private:
    bool IsClick(CPoint ptWindow) const;
};
