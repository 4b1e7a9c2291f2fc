#include "window/TransformBar.h"

#include "window/NumberBox.h"

#include <QLabel>
#include <QScopedValueRollback>

CTransformBar::CTransformBar(QWidget* pParent, ExecuteCommand execute)
    : CSessionBar(tr("Transform"), pParent, std::move(execute))
{
    const QString vLabels[] = {tr(" &X "), tr("  &Y "), tr("  &Width "), tr("  Hei&ght ")};
    for (std::size_t i = 0; i < m_vNumbers.size(); ++i)
    {
        auto* const pLabel = new QLabel(vLabels[i], this);
        QSpinBox* const pNumber = m_vNumbers[i] = new CNumberBox(this);
        pNumber->setSuffix(tr(" px"));
        pNumber->setKeyboardTracking(false);
        pLabel->setBuddy(pNumber);
        addWidget(pLabel);
        addWidget(pNumber);
        connect(pNumber, &QSpinBox::valueChanged, this, &CTransformBar::Send);
    }
    AddEnds("apply-transform", "cancel-transform");
}

void CTransformBar::Send()
{
    if (m_bShowing)
        return;
    std::string strCommand = "transform-to";
    for (const QSpinBox* const pNumber : m_vNumbers)
        strCommand += " " + std::to_string(pNumber->value());
    m_Execute(strCommand);
}

void CTransformBar::Show(const CRect& rc, CSize szPhoto)
{
    const QScopedValueRollback<bool> showing(m_bShowing, true);
    const int vMost[] = {szPhoto.cx - 1, szPhoto.cy - 1, szPhoto.cx, szPhoto.cy};
    const int vNow[] = {rc.left, rc.top, rc.Width(), rc.Height()};
    for (std::size_t i = 0; i < m_vNumbers.size(); ++i)
    {
        m_vNumbers[i]->setRange(i < 2 ? 0 : 1, vMost[i]);
        m_vNumbers[i]->setValue(vNow[i]);
    }
}
