#include "window/BrightnessDialog.h"

#include "window/NumberBox.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QSlider>
#include <utility>

CBrightnessDialog::CBrightnessDialog(QWidget* pParent, ExecuteCommand execute)
    : QDialog(pParent), m_Execute(std::move(execute)), m_pForm(new QFormLayout(this)),
      m_pBrightness(AddSlider(tr("&Brightness"))), m_pContrast(AddSlider(tr("&Contrast")))
{
    setWindowTitle(tr("Brightness and Contrast"));
    auto* pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_pForm->addRow(pButtons);
    connect(pButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(this, &QDialog::accepted, this, [this] { m_Execute("brightness-contrast " + Values()); });
    connect(this, &QDialog::rejected, this, [this] { m_Execute("end-preview"); });
}

QSlider* CBrightnessDialog::AddSlider(const QString& strLabel)
{
    auto* pSlider = new QSlider(Qt::Horizontal, this);
    auto* pNumber = new CNumberBox(this);
    pSlider->setRange(-100, 100);
    pSlider->setMinimumWidth(240);
    pNumber->setRange(-100, 100);
    connect(pSlider, &QSlider::valueChanged, pNumber, &QSpinBox::setValue);
    connect(pNumber, &QSpinBox::valueChanged, pSlider, &QSlider::setValue);
    connect(pSlider, &QSlider::valueChanged, this, [this] { m_Execute("preview-brightness-contrast " + Values()); });
    auto* pRow = new QHBoxLayout;
    pRow->addWidget(pSlider);
    pRow->addWidget(pNumber);
    m_pForm->addRow(strLabel, pRow);
    return pSlider;
}

std::string CBrightnessDialog::Values() const
{
    return std::to_string(m_pBrightness->value()) + " " + std::to_string(m_pContrast->value());
}
