#include "window/NumberBox.h"

#include <algorithm>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QStatusTipEvent>

void CNumberBox::keyPressEvent(QKeyEvent* pEvent)
{
    QSpinBox::keyPressEvent(pEvent);
    if (pEvent->key() == Qt::Key_Return || pEvent->key() == Qt::Key_Enter)
        emit Entered();
}

QValidator::State CNumberBox::validate(QString& strText, int& iPosition) const
{
    const QValidator::State eState = QSpinBox::validate(strText, iPosition);
    if (eState != QValidator::Invalid)
        return eState;
    const bool bInside = strText.startsWith(prefix()) && strText.endsWith(suffix());
    QString strNumber = bInside ? strText.mid(prefix().size(), strText.size() - prefix().size() - suffix().size()) : "";
    if (strNumber.startsWith('-'))
        strNumber.remove(0, 1);
    const bool bDigits = std::ranges::all_of(strNumber, [](QChar c) { return c.isDigit(); });
    return bInside && bDigits ? QValidator::Intermediate : QValidator::Invalid;
}

void CNumberBox::fixup(QString& strText) const
{
    const QString strTyped = strText.chopped(strText.endsWith(suffix()) ? suffix().size() : 0);
    const QString strNumber = strTyped.trimmed();
    QSpinBox::fixup(strText);
    if (strNumber.isEmpty() || strNumber == "-")
        return;
    // What does not fit a number is far beyond it.
    const bool bNegative = strNumber.startsWith('-');
    bool bRead = false;
    const int iTyped = locale().toInt(strNumber, &bRead);
    const int iMeant = std::clamp(bRead ? iTyped : bNegative ? minimum() : maximum(), minimum(), maximum());
    strText = textFromValue(iMeant) + suffix();
    QStatusTipEvent tip(tr("%1 is not from %2 to %3.").arg(strNumber).arg(minimum()).arg(maximum()));
    QCoreApplication::sendEvent(parentWidget(), &tip);
}
