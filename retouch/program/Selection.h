#pragma once

#include "document/Document.h"
#include "program/Presenter.h"

#include <functional>
#include <string>
#include <vector>

/// The view's selection as a part of the document: every change of it is a step of the history. User-interface thread.
class CSelection
{
public:
    CSelection(Pixtane::CPixtane& view, CDocument& document, CPresenter& presenter)
        : m_view(view), m_document(document), m_presenter(presenter)
    {
    }

    bool IsThere() const;

    /// The box of what is selected, in bitmap pixels; empty when nothing is.
    CRect Box() const;
    std::vector<BYTE>& Mask() { return m_view.vSelectMask(); }

    // Each is a step. They need a photo, and do nothing when there is nothing to do.
    void SelectAll();
    void SelectNone();
    void Invert();
    void Reselect();
    void SelectMask(const std::vector<BYTE>& vMask, const std::string& strStep);

    /// Adds the selection as it is now as a step; FALSE when it is as before.
    bool AddStep(const std::string& strStep);

    /// The step that is current gets this selection, which its pixels came with.
    void CompleteStep(const std::vector<BYTE>& vMask);

    /// Puts back what a state of the history says.
    void Restore(const CHistory::State& state);

    /// Forgets what was selected: there is another photo.
    void Forget();

    // How it is shown.
    void HideOutline(bool bHide);
    void HoldOutlineStill(bool bStill);
    bool IsOutlineHidden() const { return m_bOutlineHidden; }
    bool IsOutlineStill() const { return m_bOutlineStill; }

private:
    Pixtane::CPixtane& m_view;
    CDocument& m_document;
    CPresenter& m_presenter;
    CHistory::State m_last; ///< The selection that was dropped last, for Reselect.
    bool m_bOutlineHidden = false;
    bool m_bOutlineStill = false;
};
