#pragma once

#include "host/ViewZoom.h"
#include "view/Pixtane.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The view's parent window: keeps the view as large as itself, hands the keys on to it, takes Ctrl and the wheel for
/// zooming, and reports the view's notifications. While it is the window used last it is the thread's main window. A
/// widget shows it (CPixtaneWidget); without one it is a view of a program that has no display.
class CViewHost : public CWnd
{
public:
    /// Makes both windows, the host's hidden and without a size. Throws std::runtime_error when they cannot be made.
    CViewHost();
    ~CViewHost() override;

    Pixtane::CPixtane& View() { return m_view; }
    CViewZoom& Zoom() { return m_Zoom; }

    /// Holds a listener in place for as long as it is kept.
    using Subscription = std::shared_ptr<const void>;

    /// Hears every notification of the view, by its code (view/Notifications.h) and the pointer's place at that moment
    /// (window coordinates of the view); its result, unless 0, is the reply to the view. It must not end the host.
    using Listener = std::function<LRESULT(UINT uCode, CPoint ptWindow)>;
    [[nodiscard]] Subscription Listen(Listener listener);

    /// Hears of the keys on their way to the view, before it does: virtual codes, repeated while they are held.
    using KeyListener = std::function<void(UINT uKey, bool bDown)>;
    [[nodiscard]] Subscription ListenToKeys(KeyListener listener);

    /// Says when double clicks shall be two presses: the view keeps a double click's release from its tool, so that a
    /// brush would lose every second of fast dabs.
    void SetPressesOnly(std::function<bool()> isWanted) { m_IsPressesOnly = std::move(isWanted); }

    /// Moves the picture as a gesture outside winlite's input asks: to the right and down where positive.
    void ScrollByGesture(int dx, int dy);
    void ZoomByGesture(double dbZoom, ExactPoint ptWindow);

    /// Shows the cursor of what is under the pointer, as if it had moved: after a change of the tool nothing else does.
    void ShowCursor();

    /// The pointer has left the picture: what a tool shows about it goes.
    void PointerLeft();

    /// Repeats one of these three from a recorded session; FALSE for other commands, and those of another view.
    bool Execute(const std::string& strCommand);

    /// Tells this view's commands from those of another one in the program: a word, none at first.
    void SetName(const std::string& strName) { m_strPrefix = strName + " "; }

protected:
    BOOL PreTranslateMessage(MSG* pMsg) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* plResult) override;
    void OnSize(UINT uType, int cx, int cy);
    void OnSetFocus(CWnd* pOld);
    DECLARE_MESSAGE_MAP()

private:
    bool Holds(HWND hWnd) const;
    void WriteDown(const std::string& strCommand) const;
    void TellKey(const MSG& msg);

    std::vector<std::weak_ptr<const Listener>> m_vListeners;
    std::vector<std::weak_ptr<const KeyListener>> m_vKeyListeners;
    std::function<bool()> m_IsPressesOnly;
    std::string m_strPrefix; ///< Of the commands.
    Pixtane::CPixtane m_view;
    CViewZoom m_Zoom{m_view};
};
