#pragma once

#include "document/Photo.h"
#include "host/ViewHost.h"
#include "program/Retoucher.h"
#include "tools/MovableRectangle.h"

#include <optional>
#include <vector>

/// A small view of the whole photo with a frame around what the large view shows; the frame moves the large view. All
/// it does comes from the two views' notifications, so that a recorded session needs no words for it. User-interface
/// thread.
class CNavigator
{
public:
    /// All must outlive it; nothing else may use the small view.
    CNavigator(CViewHost& small, CViewHost& large, CRetoucher& retoucher);
    ~CNavigator();
    CNavigator(const CNavigator&) = delete;
    CNavigator& operator=(const CNavigator&) = delete;

private:
    void Follow();
    bool IsCurrent() const;
    CSize FittedSize() const;
    void ShowPhoto();
    void ShowFrame();
    void MoveLarge();
    CSize PhotoSize() const { return {m_large.View().iBmpWidth(), m_large.View().iBmpHeight()}; }

    CViewHost& m_small;
    CViewHost& m_large;
    CRetoucher& m_retoucher;
    Pixtane::EmbeddedTool::MovableRectangle m_frame;
    std::optional<CPhoto> m_picture;               ///< The photo, as large as it fits into the small view.
    std::optional<CRetoucher::PixelState> m_shown; ///< What it was made of.
    std::vector<CViewHost::Subscription> m_vSubscriptions;
};
