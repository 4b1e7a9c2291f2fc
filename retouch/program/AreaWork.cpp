#include "program/AreaWork.h"

#include "document/Message.h"
#include "pixels/Heal.h"
#include "pixels/RedEye.h"
#include "program/Selection.h"

#include <functional>
#include <memory>

namespace
{

/// Work on an area of a copy of the pixels.
using Change = std::function<bool(PixelView picture, PixelView copy, MaskView weights, CProgress& progress)>;

std::optional<Job> AreaJob(ProgramParts& parts, const char* pszStep, CRect rc, Change change)
{
    CPhoto* const pPhoto = parts.document.Photo();
    if (!pPhoto || !rc.IntersectRect(CRect(rc), CRect(0, 0, pPhoto->Width(), pPhoto->Height())))
        return std::nullopt;
    const auto vMask = parts.selection.IsThere() ? parts.selection.Mask() : std::vector<BYTE>();
    const auto pCopy = std::make_shared<CLargeBuffer>();
    Job job;
    job.strName = pszStep;
    job.work = [=, &document = parts.document](CProgress& progress, std::string&)
    {
        *pCopy = document.CopyArea(rc);
        return change(pPhoto->View(), pPhoto->ViewOf(*pCopy), {vMask.empty() ? nullptr : vMask.data(), pPhoto->Width()},
                      progress);
    };
    job.commit = [=, &parts]
    {
        parts.document.CommitArea(pCopy->Data(), rc, pszStep);
        parts.view.UpdateBitmap(pPhoto->Info(), pPhoto->Pixels(), TRUE);
        *pCopy = {};
        parts.presenter.EndPreview();
    };
    return job;
}

} // namespace

std::optional<Job> RedeyeJob(ProgramParts& parts, const CRect& rc, int iAmount)
{
    const PixelRect rect = {rc.left, rc.top, rc.right, rc.bottom};
    // A pupil at the rectangle's edge is corrected with its rim.
    CRect rcReached = rc;
    rcReached.InflateRect(rc.Width() / 4 + 3, rc.Height() / 4 + 3);
    return AreaJob(parts, QT_TRANSLATE_NOOP("History", "Remove Red Eyes"), rcReached,
                   [=](PixelView, PixelView copy, MaskView weights, CProgress& progress)
                   { return RemoveRedEye(copy, weights, rect, iAmount, progress); });
}

std::optional<Job> HealJob(ProgramParts& parts, const Spot& spot)
{
    const PixelRect box = spot.Box();
    return AreaJob(parts, QT_TRANSLATE_NOOP("History", "Remove Spot"), {box.left, box.top, box.right, box.bottom},
                   [=](PixelView picture, PixelView copy, MaskView weights, CProgress& progress)
                   { return HealSpot(picture, copy, weights, spot, progress); });
}
