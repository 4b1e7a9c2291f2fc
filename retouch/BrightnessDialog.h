#pragma once

#include <functional>
#include <QDialog>
#include <string>

class QSlider;

/// Asks for brightness and contrast, and shows meanwhile what they would do. Everything happens by commands: accepting
/// adjusts the photo, cancelling leaves it.
class CBrightnessDialog : public QDialog
{
public:
    CBrightnessDialog(QWidget* pParent, std::function<void(const std::string& strCommand)> execute);

private:
    QSlider* AddSlider(const QString& strLabel);
    std::string Values() const;

    std::function<void(const std::string& strCommand)> m_Execute;
    class QFormLayout* m_pForm;
    QSlider* m_pBrightness;
    QSlider* m_pContrast;
};
