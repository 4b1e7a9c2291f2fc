#pragma once

#include <functional>
#include <QObject>

class CPixtaneWidget;
class QMouseEvent;

/// Holds back what the person does with mouse and keys in the picture while commands wait, and delivers it afterwards
/// in its turn. Wheel, scroll bars and scrolling keys go on, and so do shortcuts while a job runs: their commands know
/// themselves what to do then.
class CHeldInput : public QObject
{
public:
    /// isBusy says whether to hold, isWorking whether that is for a job; whenIdle calls a function in its turn.
    CHeldInput(CPixtaneWidget& view, std::function<bool()> isBusy, std::function<bool()> isWorking,
               std::function<void(std::function<void()>)> whenIdle);

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

private:
    bool IsToHold(QObject* pWatched, const QEvent& event);
    void Deliver(QObject& target, QEvent& event);
    bool IsInPicture(QObject* pWatched, const QMouseEvent& event) const;

    CPixtaneWidget& m_view;
    std::function<bool()> m_IsBusy;
    std::function<bool()> m_IsWorking;
    std::function<void(std::function<void()>)> m_WhenIdle;
    bool m_bButtonHeld = false; ///< A press was held, so what follows is, too, as long as anything waits.
    bool m_bDelivering = false; ///< What comes now was held before.
};
