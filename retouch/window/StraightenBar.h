#pragma once

#include "window/SessionBar.h"

class QDoubleSpinBox;

/// The angle by which the photo is being straightened.
class CStraightenBar : public CSessionBar
{
public:
    /// execute gets a command for each angle that is entered, and for Apply and Cancel.
    CStraightenBar(QWidget* pParent, ExecuteCommand execute);

    /// Shows the angle in degrees, without executing anything.
    void Show(double dDegrees);

private:
    QDoubleSpinBox* m_pAngle;
};
