#pragma once

#include "program/Tool.h"

#include <functional>
#include <QActionGroup>
#include <QToolBar>
#include <string>
#include <vector>

/// Takes a command of one line.
using ExecuteCommand = std::function<void(const std::string& strCommand)>;

/// Buttons of which one is down, each for a command: the tools in the palette, the choices of an option.
class CChoiceGroup : public QActionGroup
{
public:
    /// Adds a button for each choice to the bar; execute gets strCommand, a blank and the choice's word.
    CChoiceGroup(QToolBar& bar, const std::string& strCommand, const std::vector<Choice>& vChoices,
                 ExecuteCommand execute);

    /// Shows a choice as the one that is down, without executing anything.
    void Show(const std::string& strWord);

    /// Whether a choice can be made.
    void Enable(const std::string& strWord, bool bEnabled);
};
