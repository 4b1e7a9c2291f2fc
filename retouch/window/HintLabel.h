#pragma once

#include "program/Tool.h"

#include <QLabel>

/// What can be done with the tool; while modifier keys are held, what they do now.
class CHintLabel : public QLabel
{
public:
    explicit CHintLabel(QWidget* pParent);

    /// The tool, and its hint as it is translated.
    void Show(const Tool& tool, const QString& strHint);

protected:
    /// Keys of all windows of the program: whichever has the focus.
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    void Hold(Qt::KeyboardModifiers held);
    void Update();
    QString HeldText(Qt::KeyboardModifier eKey, UINT uKey, const QString& strAlways) const;

    const Tool* m_pTool = nullptr;
    QString m_strHint;
    Qt::KeyboardModifiers m_held;
};
