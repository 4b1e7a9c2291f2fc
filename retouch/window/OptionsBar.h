#pragma once

#include "program/ProgramState.h"
#include "window/CommandBar.h"

#include <QHash>
#include <QToolBar>

class QSpinBox;

/// The options of the current tool, from the tools' rows: buttons for choices and actions, numbers for the rest, with
/// the keys that change them. It is not to be seen while the tool has none.
class COptionsBar : public QToolBar
{
public:
    /// execute gets a command for each change; done is called when a number has been typed.
    COptionsBar(QWidget* pParent, ExecuteCommand execute, std::function<void()> done);

    /// Shows what is chosen, without executing anything.
    void Show(const ProgramState& state);

private:
    /// An option and what shows it.
    struct Entry
    {
        const ToolOption* pOption;
        CChoiceGroup* pChoices;   ///< Or
        QSpinBox* pNumber;        ///< this.
        QList<QAction*> vActions; ///< All that belongs to it in the bar, and its keys.
    };

    void AddChoices(const ToolOption& option);
    void AddNumber(const ToolOption& option);
    void AddActions(const Tool& tool);
    QList<QAction*> KeysOf(const ToolOption& option, QSpinBox& number);
    QAction* AddKey(const QString& strKey, std::function<void()> press);

    ExecuteCommand m_Execute;
    std::function<void()> m_Done;
    std::vector<Entry> m_vEntries;
    QHash<QAction*, const Tool*> m_vToolActions; ///< The buttons of tools' actions.
    bool m_bShowing = false;                     ///< The bar follows the program, not the person.
};
