#pragma once

#include "platform/framework.h"
#include "window/SessionBar.h"

#include <array>

class QSpinBox;

/// The numbers of a transform of the selection.
class CTransformBar : public CSessionBar
{
public:
    /// execute gets a command for each number that is entered, and for Apply and Cancel.
    CTransformBar(QWidget* pParent, ExecuteCommand execute);

    /// Shows where the transform stands, in a photo of that size, without executing anything.
    void Show(const CRect& rc, CSize szPhoto);

private:
    void Send();

    std::array<QSpinBox*, 4> m_vNumbers = {}; ///< Left, top, width and height.
};
