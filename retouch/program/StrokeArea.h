#pragma once

#include "view/Pixtane.h"

#include <vector>

/// Where a stroke has painted, and the selection that limits it. Begin and Box on the user-interface thread while no
/// stroke runs, the rest on the worker that draws one.
class CStrokeArea
{
public:
    /// A stroke may begin on the view's bitmap, with the selection as it is.
    void Begin(Pixtane::CPixtane& view);

    bool IsLimited() const { return !m_vWeights.empty(); }

    /// The stroke has changed a rectangle of the bitmap.
    void Add(const CRect& rc) { m_rcBox.UnionRect(CRect(m_rcBox), rc); }

    /// Takes back from painted pixels what the selection does not hold: full weight keeps them, none brings the
    /// unpainted ones back. Both are buffers like the bitmap's, of 32 bits a pixel, bottom-up.
    void Limit(const CRect& rc, BYTE* pPainted, const BYTE* pUnpainted) const;

    /// The bitmap rectangle that was painted; empty for nothing.
    const CRect& Box() const { return m_rcBox; }

private:
    std::vector<BYTE> m_vWeights; ///< A byte a pixel, top row first; empty without a selection.
    CSize m_szBitmap{0, 0};
    CRect m_rcBox{0, 0, 0, 0};
};
