#include "window/StraightenBar.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QScopedValueRollback>

CStraightenBar::CStraightenBar(QWidget* pParent, ExecuteCommand execute)
    : CSessionBar(tr("Straighten"), pParent, std::move(execute)), m_pAngle(new QDoubleSpinBox(this))
{
    constexpr double HALF_TURN = 180;
    constexpr double STEP = 0.1;
    m_pAngle->setRange(-HALF_TURN, HALF_TURN);
    m_pAngle->setDecimals(2);
    m_pAngle->setSingleStep(STEP);
    m_pAngle->setSuffix(tr("\u00B0"));
    m_pAngle->setToolTip(tr("How far the photo is turned, clockwise; drawing a line adds to it"));
    m_pAngle->setKeyboardTracking(false);
    auto* const pLabel = new QLabel(tr(" &Angle "), this);
    pLabel->setBuddy(m_pAngle);
    addWidget(pLabel);
    addWidget(m_pAngle);
    connect(m_pAngle, &QDoubleSpinBox::valueChanged, this,
            [this](double dDegrees)
            {
                // Commands are the same in every locale.
                if (!m_bShowing)
                    m_Execute("straighten-to " + QByteArray::number(dDegrees, 'f', 2).toStdString());
            });
    AddEnds("apply-straighten", "cancel-straighten");
}

void CStraightenBar::Show(double dDegrees)
{
    const QScopedValueRollback<bool> showing(m_bShowing, true);
    m_pAngle->setValue(dDegrees);
}
