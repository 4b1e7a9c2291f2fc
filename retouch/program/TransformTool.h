#pragma once

#include "selection/SelectionModifier.h"

#include <functional>

/// The library's tool that moves and resizes the selection, which also hands on the keys pressed over it.
class CTransformTool : public Pixtane::EmbeddedTool::SelectionModifier
{
public:
    /// Takes a key and tells whether it was meant for it.
    std::function<bool(UINT uKey)> takeKey;

    int OnKeyDown(UINT nChar, UINT, UINT) override { return takeKey && takeKey(nChar); }
};
