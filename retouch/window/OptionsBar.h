#pragma once

#include "program/ProgramState.h"
#include "window/CommandBar.h"

#include <QToolBar>

class QSpinBox;

/// The options of the current tool, from the tools' rows: buttons for choices, numbers for the rest. It is not to be
/// seen while the tool has none.
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
        QList<QAction*> vActions; ///< All that belongs to it in the bar.
    };

    void AddChoices(const ToolOption& option);
    void AddNumber(const ToolOption& option);

    ExecuteCommand m_Execute;
    std::function<void()> m_Done;
    std::vector<Entry> m_vEntries;
    bool m_bShowing = false; ///< The bar follows the program, not the person.
};
