#pragma once

#include "document/TiledSnapshot.h"

#include <deque>
#include <string>

/// What a photo and its selection were after each step, to go back and forth between. Memory is bounded: where tiles are
/// not in a file (CSessionJournal), the oldest steps are forgotten first.
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
        unsigned uId = 0;            ///< Grows from state to state, and never comes again while a photo is worked on.
    };

    /// Starts anew with what the photo is now.
    void Reset(State state);

    /// Goes on with the states of a session that was interrupted.
    void Resume(std::deque<State> vStates, std::size_t iCurrent, unsigned uSaved);

    /// Adds what came of a step, and forgets the steps that were undone; FALSE, and nothing, when nothing changed.
    bool Add(State state);

    /// Gives the current state a selection, which it was added without.
    void CompleteStep(CTiledSnapshot mask, std::vector<RECT> vSelected);

    /// The number of the newest state.
    unsigned LastId() const { return m_uLastId; }

    /// Another number after every change of what is current, so that who remembers one knows whether there was any.
    unsigned Revision() const { return m_uRevision; }

    /// The pixels of the current state are what the photo's file holds. Later on, whether they are that again or still;
    /// selections are in no file.
    void MarkSaved() { m_uSaved = Current().uPixels; }
    unsigned SavedPixels() const { return m_uSaved; }
    bool IsSaved() const { return m_uSaved == Current().uPixels; }

    /// Whether two states select the same because nothing changed it between them.
    static bool SelectsSame(const State& one, const State& other);

    /// Gives every state the tiles of pixels that it does not have because nothing had changed them so far.
    void FillPixels(const std::vector<CTiledSnapshot::KeptTile>& vBefore);

    /// Whether the oldest steps are forgotten.
    bool HasForgotten() const { return m_bForgot; }

    /// The state now, and another one by its place, which becomes that; NULL when there is none.
    const State& Current() const { return m_vStates[m_iCurrent]; }
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
    unsigned m_uLastId = 0;
};
