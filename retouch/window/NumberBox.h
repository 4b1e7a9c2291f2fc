#pragma once

#include <QSpinBox>

/// A number to type, which takes one out of its range as it was typed and says on entering what the range is, instead
/// of leaving digits out.
class CNumberBox : public QSpinBox
{
    Q_OBJECT

public:
    using QSpinBox::QSpinBox;

signals:
    /// The person has entered the number, and not only gone on to something else.
    void Entered();

protected:
    void keyPressEvent(QKeyEvent* pEvent) override;
    QValidator::State validate(QString& strText, int& iPosition) const override;
    void fixup(QString& strText) const override;
};
