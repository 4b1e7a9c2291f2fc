#pragma once

#include "program/ProgramState.h"

#include <functional>
#include <QProgressBar>
#include <QTimer>

/// How far the work is that the program does in the background; not to be seen while there is none, nor for work that
/// is over at once.
class CWorkBar : public QProgressBar
{
public:
    /// state is asked again and again while there is work.
    CWorkBar(QWidget* pParent, std::function<ProgramState()> state);

    void Show(const ProgramState& state);

private:
    std::function<ProgramState()> m_State;
    QTimer m_timer;
};
