#pragma once

#include "brushes/EffectBrush.h"
#include "program/PaintTool.h"

constexpr int EFFECT_COUNT = 6;

/// The effect brush with the program's effects, which its settings keep by their GUIDs.
class CEffectTool : public CPaintTool<Pixtane::EmbeddedTool::EffectBrush>
{
public:
    CEffectTool() { ChooseEffect(0); }

    /// The number of the effect, in the order of the tool's row; counts from the next stroke.
    int Effect() const { return m_iEffect; }
    void ChooseEffect(int iEffect);

    int UnserializeToolSettings(const std::vector<BYTE>& vData) override;

private:
    int m_iEffect = 0;
};
