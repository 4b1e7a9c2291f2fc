#pragma once

#include "window/CommandBar.h"
#include <QDialog>
#include <string>

class QSlider;

/// Asks for brightness and contrast, and shows meanwhile what they would do. Everything happens by commands: accepting
/// adjusts the photo, cancelling leaves it.
class CBrightnessDialog : public QDialog
{
public:
    CBrightnessDialog(QWidget* pParent, ExecuteCommand execute);

private:
    QSlider* AddSlider(const QString& strLabel);
    std::string Values() const;

    ExecuteCommand m_Execute;
    class QFormLayout* m_pForm;
    QSlider* m_pBrightness;
    QSlider* m_pContrast;
};
