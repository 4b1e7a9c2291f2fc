#pragma once

#include "platform/framework.h"

#include <optional>
#include <string>

/// What a person is in the middle of beside the chosen tool, from its beginning to its one end: the hand for a moment,
/// a transform, the pick of a colour. The tool box owns it; when it has ended the chosen tool is in the view again.
/// User-interface thread.
class CToolSession
{
public:
    virtual ~CToolSession() = default;

    /// Takes the view over; FALSE, with a message, when it cannot begin.
    virtual bool Begin(std::string& strError) = 0;

    /// The end, however it comes: bApply says whether what was done counts.
    virtual void End(bool bApply) = 0;

    /// The view has told its parent something; a key has been let go.
    virtual void OnNotified(UINT) {}
    virtual void OnKeyUp(UINT) {}

    /// What the history will call it; undoing takes it back as a whole. Empty when it is nothing to undo.
    virtual std::string StepName() const { return {}; }

    /// The rectangle that a person may give by numbers, in bitmap pixels.
    virtual std::optional<CRect> Frame() const { return std::nullopt; }

    /// Puts the frame there; FALSE when it has none.
    virtual bool PlaceFrame(const CRect&) { return false; }

    /// The angle that a person may give by a number, in degrees.
    virtual std::optional<double> Angle() const { return std::nullopt; }

    /// Takes another angle; FALSE when it has none.
    virtual bool PlaceAngle(double) { return false; }

    /// Whether Esc ends it without counting, and it has no buttons of its own for that.
    virtual bool MayBeDropped() const { return false; }

    /// What the keys and the mouse do now, in place of the tool's hint; NULL for the same.
    virtual const char* Hint() const { return nullptr; }
};
