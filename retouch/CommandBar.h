#pragma once

#include <functional>
#include <QActionGroup>
#include <QToolBar>
#include <string>
#include <vector>

/// Buttons of which one is down, each for a command: the tools in the palette, the rules in the options.
class CChoiceGroup : public QActionGroup
{
public:
    /// A button's word in commands ("lasso"), what the person reads, and its key.
    struct Choice
    {
        const char* pszName;
        const char* pszText;
        const char* pszKey;
    };

    /// Adds a button for each choice to the bar; execute gets strCommand, a blank and the choice's word.
    CChoiceGroup(QToolBar& bar, const std::string& strCommand, const std::vector<Choice>& vChoices,
                 std::function<void(const std::string& strCommand)> execute);

    /// Shows a choice as the one that is down, without executing anything.
    void Show(const std::string& strName);
};
