#pragma once

#include "program/ProgramParts.h"
#include "program/Tool.h"
#include "selection/RegionSelector.h"

#include <functional>
#include <map>
#include <typeindex>

/// The tools, the one that is chosen, and what a person is in the middle of with it. User-interface thread.
class CToolBox
{
public:
    /// The view must outlive it.
    explicit CToolBox(Pixtane::CPixtane& view) : m_view(view) {}
    ~CToolBox();

    /// The library's tool of a class, made when it is first asked for, with its settings.
    template<class T>
    T& Embedded() const
    {
        std::unique_ptr<Pixtane::CPixtane::IEmbeddedTool>& pTool = m_vEmbedded[typeid(T)];
        if (!pTool)
            pTool = std::make_unique<T>();
        return static_cast<T&>(*pTool);
    }

    /// Whether the chosen tool is the hand, which needs none for a moment.
    bool IsHand() const { return m_pChosen == &Tools().front(); }

    /// The tool that the person works with: a session's own, otherwise the chosen one.
    const Tool& Current() const { return m_pSessionTool ? *m_pSessionTool : *m_pChosen; }

    /// Chooses a tool after ending what is under way; FALSE, with a message and the one before in the view, when it
    /// cannot begin.
    bool Choose(const Tool& tool, ProgramParts& parts, std::string& strError);

    /// Puts the chosen tool into the view, also when it is there: a shape that is being drawn ends as it does when the
    /// mouse is taken away.
    void LoadChosen();

    /// Begins a session in place of the one there is, which ends without counting.
    bool BeginSession(std::unique_ptr<CToolSession> pSession, std::string& strError, const Tool* pTool = nullptr);
    CToolSession* Session() const { return m_pSession.get(); }
    void EndSession(bool bApply);

    /// Whether the person is in the middle of anything: a session, or a gesture that holds the mouse.
    bool IsInMiddle() const { return m_pSession || IsGesture(); }
    bool IsGesture() const { return ::GetCapture() == m_view.m_hWnd; }
    bool IsSelecting() const { return IsGesture() && !m_pSession && !m_pChosen->vSteps.empty(); }
    void EndMiddle(bool bApply);

    /// Ends a gesture so that nothing comes of it.
    void DropGesture();
    bool IsDropping() const { return m_bDropping; }

    /// Puts a tool into the view for one operation of its own, and the chosen one back. That unloads the person's tool
    /// and loads it again, which stops and starts a brush's threads: for operations that no other way leads to.
    template<class T, class F>
    void Borrow(F operate)
    {
        T tool;
        m_view.LoadEmbeddedTool(tool);
        operate(tool);
        LoadChosen();
    }

    /// The chosen tool as a brush; NULL when it is none.
    CPainter* Painter() const { return m_pChosen->pPainter ? m_pChosen->pPainter(*this) : nullptr; }

    /// Is called when a stroke of a brush has ended and the view shows its bitmap again.
    std::function<void()> strokeEnded;

    /// What the history calls a change of the selection, or a stroke, that the view tells of; NULL when it is none.
    const char* StepNameOf(UINT uCode) const { return NameOf(uCode, &Tool::vSteps); }
    const char* StrokeNameOf(UINT uCode) const { return NameOf(uCode, &Tool::vStrokes); }

    /// The settings kept under a name, as the tool's own bytes.
    std::vector<BYTE> Settings(const char* pszSettings);

    /// The commands that bring kept settings back; none when the tool refuses them.
    std::vector<std::string> CommandsOf(const char* pszSettings, const std::vector<BYTE>& vSettings);

private:
    const char* NameOf(UINT uCode, std::span<const StepName> Tool::*pNames) const;
    Pixtane::CPixtane::IEmbeddedTool& Keeper(const char* pszSettings);

    Pixtane::CPixtane& m_view;
    mutable std::map<std::type_index, std::unique_ptr<Pixtane::CPixtane::IEmbeddedTool>> m_vEmbedded;
    const Tool* m_pChosen = &Tools().front();
    std::unique_ptr<CToolSession> m_pSession;
    bool m_bDropping = false;
    const Tool* m_pSessionTool = nullptr; ///< The row that began the session, if one did.
};
