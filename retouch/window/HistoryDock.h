#pragma once

#include "document/Photo.h"
#include "program/ProgramState.h"
#include "window/CommandBar.h"

#include <QDockWidget>
#include <QIcon>
#include <QMap>

class QListWidget;

/// The steps of the history with small pictures, at the window's right edge; choosing one goes there.
class CHistoryDock : public QDockWidget
{
public:
    CHistoryDock(QWidget* pParent, ExecuteCommand execute);

    /// Shows the steps, without executing anything. The photo is as the current one says; NULL for none.
    void Show(const ProgramState& state, CPhoto* pPhoto);

private:
    void TakePicture(const ProgramState& state, CPhoto& photo);
    void ShowSteps(const ProgramState& state);

    ExecuteCommand m_Execute;
    QListWidget* m_pList;
    unsigned m_uPhotos = 0;
    QMap<unsigned, QIcon> m_vPictures; ///< By the number of the pixels.
    bool m_bShowing = false;           ///< The list follows the program, not the person.
};
