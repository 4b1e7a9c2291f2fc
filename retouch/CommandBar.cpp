#include "retouch/CommandBar.h"

#include "retouch/ToolIcons.h"

#include <QCoreApplication>

CChoiceGroup::CChoiceGroup(QToolBar& bar, const std::string& strCommand, const std::vector<Choice>& vChoices,
                           std::function<void(const std::string& strCommand)> execute)
    : QActionGroup(&bar)
{
    for (const Choice& choice : vChoices)
    {
        const QString strText = QCoreApplication::translate("CChoiceGroup", choice.pszText);
        QAction* pAction = bar.addAction(IconFor(choice.pszName), strText);
        pAction->setObjectName(choice.pszName);
        pAction->setCheckable(true);
        pAction->setShortcut(QKeySequence(choice.pszKey));
        pAction->setToolTip(QString("%1 (%2)").arg(strText, pAction->shortcut().toString(QKeySequence::NativeText)));
        addAction(pAction);
        const std::string strWhole = strCommand + " " + choice.pszName;
        connect(pAction, &QAction::triggered, this, [execute, strWhole] { execute(strWhole); });
    }
}

void CChoiceGroup::Show(const std::string& strName)
{
    for (QAction* pAction : actions())
        pAction->setChecked(pAction->objectName().toStdString() == strName);
}
