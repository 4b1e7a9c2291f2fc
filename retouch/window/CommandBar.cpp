#include "window/CommandBar.h"

#include "window/ToolIcons.h"

#include <QCoreApplication>

CChoiceGroup::CChoiceGroup(QToolBar& bar, const std::string& strCommand, const std::vector<Choice>& vChoices,
                           ExecuteCommand execute)
    : QActionGroup(&bar)
{
    for (const Choice& choice : vChoices)
    {
        const QString strText = QCoreApplication::translate("Tool", choice.pszText);
        QAction* pAction = bar.addAction(IconFor(choice.icon), strText);
        pAction->setObjectName(choice.pszWord);
        pAction->setCheckable(true);
        pAction->setShortcut(QKeySequence(choice.pszKey));
        pAction->setToolTip(QString("%1 (%2)").arg(strText, pAction->shortcut().toString(QKeySequence::NativeText)));
        addAction(pAction);
        bar.widgetForAction(pAction)->setFocusPolicy(Qt::TabFocus);
        const std::string strWhole = strCommand + " " + choice.pszWord;
        connect(pAction, &QAction::triggered, this, [execute, strWhole] { execute(strWhole); });
    }
}

void CChoiceGroup::Enable(const std::string& strWord, bool bEnabled)
{
    for (QAction* pAction : actions())
    {
        if (pAction->objectName().toStdString() == strWord)
            pAction->setEnabled(bEnabled);
    }
}

void CChoiceGroup::Show(const std::string& strWord)
{
    for (QAction* pAction : actions())
        pAction->setChecked(pAction->objectName().toStdString() == strWord);
}
