#include "window/WorkBar.h"

#include <QCoreApplication>

CWorkBar::CWorkBar(QWidget* pParent, std::function<ProgramState()> state)
    : QProgressBar(pParent), m_State(std::move(state))
{
    constexpr int PERIOD_MS = 100;
    setMaximumWidth(260);
    setAccessibleName(tr("Progress"));
    setVisible(false);
    m_timer.setInterval(PERIOD_MS);
    connect(&m_timer, &QTimer::timeout, this,
            [this]
            {
                const ProgramState now = m_State();
                setVisible(now.work.has_value());
                Show(now);
            });
}

void CWorkBar::Show(const ProgramState& state)
{
    if (!state.work)
    {
        m_timer.stop();
        setVisible(false);
        return;
    }
    if (!m_timer.isActive())
        m_timer.start();
    setFormat(tr("%1, %p %; Esc cancels").arg(QCoreApplication::translate("History", state.work->strName.c_str())));
    setValue(state.work->iPercent);
}
