#pragma once

#include "window/CommandBar.h"

#include <QToolBar>
#include <string>

/// The numbers of what has an end of its own, and the buttons that end it. It is to be seen only meanwhile: its keys,
/// Enter and Esc, are other widgets' otherwise.
class CSessionBar : public QToolBar
{
public:
    /// Shows or hides the bar and its keys.
    void SetUsable(bool bUsable);

protected:
    CSessionBar(const QString& strTitle, QWidget* pParent, ExecuteCommand execute);

    /// Adds the two buttons.
    void AddEnds(const std::string& strApply, const std::string& strCancel);

    ExecuteCommand m_Execute;
    bool m_bShowing = false; ///< The numbers follow the program, not the person.

private:
    void AddEnd(const QString& strText, const std::string& strCommand, const QList<QKeySequence>& vKeys);
};
