#pragma once

#include "document/Document.h"
#include "program/VisiblePart.h"

#include <functional>
#include <span>

/// The owner of the view's one cover. Those who claim it get it in this order: the original, a preview, the tint of
/// what is not selected. The cover is filled for what is visible only, and again whenever that changes. Who else shows
/// a cover: a brush has it during a stroke, whatever else is on. User-interface thread.
class CPresenter
{
public:
    /// Changes visible pixels as far as the selection's weights say.
    using Adjust = std::function<void(PixelView pixels, MaskView weights)>;

    CPresenter(Pixtane::CPixtane& view, CDocument& document) : m_view(view), m_document(document) {}

    /// Says whether a brush has the cover.
    void SetStroke(std::function<bool()> isPainting) { m_IsPainting = std::move(isPainting); }

    /// Draws what a preview shows in place of the visible pixels.
    using Draw = std::function<void(const VisiblePart& part, PixelView cover)>;

    /// Nothing happens while there is no other original.
    void ShowOriginal(bool bShow);
    void ShowPreview(Adjust adjust);
    void ShowDrawing(Draw draw);
    void EndPreview() { ShowPreview({}); }
    void ShowTint(bool bShow);
    bool IsTinted() const { return m_bTint; }

    /// Drops all claims: there is another photo.
    void Forget();

    /// Must be called when the photo, the selection, or what the view shows of them has changed.
    void Update();

private:
    bool IsOriginalShown() const { return m_bOriginal && (m_document.Original() || IsReshaped()); }
    bool IsReshaped() const;
    bool IsPhotoInView() const;
    bool IsPreview() const { return m_Preview || m_Drawing; }
    void DrawReshapedOriginal(PixelView cover);
    bool IsSelected() const;
    void Fill(const VisiblePart& part);
    void FillRow(const VisiblePart& part, int y, PixelView pixels);
    void PickPhotoRow(const VisiblePart& part, int y, std::uint8_t* pPixel);
    std::vector<BYTE> PickWeights(const VisiblePart& part) const;

    Pixtane::CPixtane& m_view;
    CDocument& m_document;
    std::function<bool()> m_IsPainting;
    bool m_bOriginal = false;
    Adjust m_Preview;
    Draw m_Drawing; ///< In place of a preview.
    bool m_bTint = false;
    bool m_bShown = false; ///< The view's cover is ours.
};
