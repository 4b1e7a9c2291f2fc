#pragma once

#include <QSpinBox>

/// A number to type, which takes one out of its range as it was typed and says on entering what the range is, instead
/// of leaving digits out.
class CNumberBox : public QSpinBox
{
    Q_OBJECT

public:
    using QSpinBox::QSpinBox;

protected:
    QValidator::State validate(QString& strText, int& iPosition) const override;
    void fixup(QString& strText) const override;
};
