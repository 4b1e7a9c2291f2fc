#pragma once

#include "document/TiledSnapshot.h"

#include <deque>
#include <string>

/// What a photo and its selection were after each step, to go back and forth between. Memory is bounded: the oldest
/// steps are forgotten first.
class CHistory
{
public:
    struct State
    {
        std::string strName;         ///< What the person did to come here.
        CTiledSnapshot pixels;       ///< The photo's buffer, as far as anything changes it.
        CTiledSnapshot mask;         ///< The selection's weights.
        std::vector<RECT> vSelected; ///< The selection's rectangles; none when nothing is selected.
        unsigned uPixels = 0;        ///< Equal numbers, equal pixels: the history counts their changes.
    };

    /// Starts anew with what the photo is now.
    void Reset(State state);

    /// Adds what came of a step, and forgets the steps that were undone; FALSE, and nothing, when nothing changed.
    bool Add(State state);

    /// Gives the current state a selection, which it was added without.
    void CompleteStep(CTiledSnapshot mask, std::vector<RECT> vSelected);

    /// Another number after every change of what is current, so that who remembers one knows whether there was any.
    unsigned Revision() const { return m_uRevision; }

    /// The pixels of the current state are what the photo's file holds. Later on, whether they are that again or still;
    /// selections are in no file.
    void MarkSaved() { m_uSaved = Current().uPixels; }
    bool IsSaved() const { return m_uSaved == Current().uPixels; }

    /// Whether two states select the same because nothing changed it between them.
    static bool SelectsSame(const State& one, const State& other);

    /// Gives every state the tiles of pixels that it does not have because nothing had changed them so far.
    void FillPixels(const std::vector<CTiledSnapshot::KeptTile>& vBefore);

    /// Whether the oldest steps are forgotten.
    bool HasForgotten() const { return m_bForgot; }

    /// The state now, and the ones to go back and forth to; NULL when there is none.
    const State& Current() const { return m_vStates[m_iCurrent]; }
    const State* Back() { return m_iCurrent > 0 ? To(m_iCurrent - 1) : nullptr; }
    const State* Forth() { return To(m_iCurrent + 1); }
    const State* To(std::size_t iState);

    /// All states there are, the oldest first, and which of them is the current one.
    const std::deque<State>& States() const { return m_vStates; }
    std::size_t CurrentIndex() const { return m_iCurrent; }

    /// What would be undone or done again; empty when nothing would.
    std::string BackName() const { return m_iCurrent > 0 ? Current().strName : ""; }
    std::string ForthName() const;

private:
    void ForgetOldest();

    std::deque<State> m_vStates{1};
    std::deque<std::size_t> m_vBytes{0}; ///< What each holds beyond the one before.
    std::size_t m_iCurrent = 0;
    unsigned m_uRevision = 0;
    bool m_bForgot = false;
    unsigned m_uPixels = 0; ///< Changes of the pixels so far.
    unsigned m_uSaved = 0;
};
