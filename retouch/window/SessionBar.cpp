#include "window/SessionBar.h"

#include <QAbstractSpinBox>

CSessionBar::CSessionBar(const QString& strTitle, QWidget* pParent, ExecuteCommand execute)
    : QToolBar(strTitle, pParent), m_Execute(std::move(execute))
{
    setMovable(false);
}

void CSessionBar::AddEnds(const std::string& strApply, const std::string& strCancel)
{
    addSeparator();
    AddEnd(tr("Apply"), strApply, {QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
    AddEnd(tr("Cancel"), strCancel, {QKeySequence(Qt::Key_Escape)});
}

void CSessionBar::AddEnd(const QString& strText, const std::string& strCommand, const QList<QKeySequence>& vKeys)
{
    QAction* const pAction = addAction(strText);
    widgetForAction(pAction)->setFocusPolicy(Qt::TabFocus);
    pAction->setShortcuts(vKeys);
    connect(pAction, &QAction::triggered, this,
            [this, strCommand]
            {
                for (QAbstractSpinBox* const pNumber : findChildren<QAbstractSpinBox*>())
                    pNumber->interpretText(); // What is being typed counts.
                m_Execute(strCommand);
            });
}

void CSessionBar::SetUsable(bool bUsable)
{
    setVisible(bUsable);
    for (QAction* const pAction : actions())
        pAction->setEnabled(bUsable);
}
