#pragma once

#include "platform/framework.h"
#include "window/CommandBar.h"

#include <array>
#include <QToolBar>
#include <string>

class QSpinBox;

/// The numbers of a transform of the selection, and the buttons that end it. It is to be seen only meanwhile: its keys,
/// Enter and Esc, are other widgets' otherwise.
class CTransformBar : public QToolBar
{
public:
    /// execute gets a command for each number that is entered, and for Apply and Cancel.
    CTransformBar(QWidget* pParent, ExecuteCommand execute);

    /// Shows where the transform stands, in a photo of that size, without executing anything.
    void Show(const CRect& rc, CSize szPhoto);

    /// Shows or hides the bar and its keys.
    void SetUsable(bool bUsable);

private:
    void AddEnd(const QString& strText, const std::string& strCommand, const QList<QKeySequence>& vKeys);
    void Send();

    ExecuteCommand m_Execute;
    std::array<QSpinBox*, 4> m_vNumbers = {}; ///< Left, top, width and height.
    bool m_bShowing = false;                  ///< The numbers follow the program, not the person.
};
