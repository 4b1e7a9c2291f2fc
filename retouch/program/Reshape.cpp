#include "program/Reshape.h"

#include "document/Message.h"
#include "host/ViewHost.h"
#include "pixels/Straighten.h"
#include "program/LongWork.h"
#include "program/Selection.h"
#include "view/Pixtane.h"

#include <cstring>
#include <memory>

namespace
{

/// A photo and its selection's weights, a byte a pixel, top row first; none without a selection.
struct Picture
{
    CPhoto photo;
    std::vector<BYTE> vMask;
};

/// Makes another picture of one; nothing when cancelled.
using Shape =
    std::function<std::optional<Picture>(PixelView photo, const std::vector<BYTE>& vMask, CProgress& progress)>;

std::optional<Job> ShapeJob(ProgramParts& parts, const char* pszStep, Shape shape)
{
    CPhoto* const pPhoto = parts.document.Photo();
    if (!pPhoto)
        return std::nullopt;
    struct Result
    {
        std::optional<CDocument::Shaped> shaped;
        std::vector<BYTE> vMask;
    };
    const auto pResult = std::make_shared<Result>();
    const auto vMask = parts.selection.IsThere() ? parts.selection.Mask() : std::vector<BYTE>();
    Job job;
    job.strName = pszStep;
    job.work = [=, &document = parts.document](CProgress& progress, std::string&)
    {
        std::optional<Picture> picture = shape(pPhoto->View(), vMask, progress);
        if (!picture)
            return false;
        pResult->vMask = std::move(picture->vMask);
        pResult->shaped = document.ShapedTo(std::move(picture->photo));
        return true;
    };
    job.commit = [=, &parts]
    {
        ShowShaped(parts, [&] { return parts.document.Commit(std::move(*pResult->shaped), pszStep); });
        if (!pResult->vMask.empty())
            parts.selection.CompleteStep(pResult->vMask);
        parts.presenter.Update();
    };
    return job;
}

Picture Cropped(PixelView photo, const std::vector<BYTE>& vMask, const CRect& rc)
{
    Picture picture = {CPhoto(rc.Width(), rc.Height()), {}};
    const auto nWidth = static_cast<std::size_t>(rc.Width());
    for (int y = 0; y < rc.Height(); ++y)
    {
        std::memcpy(picture.photo.Row(y), photo.Row(rc.top + y) + std::ptrdiff_t{rc.left} * 4, nWidth * 4);
        const auto itRow = vMask.begin() + std::ptrdiff_t{rc.top + y} * photo.cx + rc.left;
        if (!vMask.empty())
            picture.vMask.insert(picture.vMask.end(), itRow, itRow + rc.Width());
    }
    return picture;
}

std::optional<Picture> Turned(PixelView photo, const std::vector<BYTE>& vMask, Turn eTurn, CProgress& progress)
{
    const PixelSize size = TurnedSize({photo.cx, photo.cy}, eTurn);
    Picture picture = {CPhoto(size.cx, size.cy), {}};
    progress.SetStages(2);
    const bool bTurned = TurnPicture(photo, picture.photo.View(), eTurn, progress) &&
                         (vMask.empty() || TurnMask(vMask, photo.cx, picture.vMask, eTurn, progress));
    return bTurned ? std::optional(std::move(picture)) : std::nullopt;
}

/// The weights as a picture, so that they turn like one; what lies beyond it is not selected.
std::vector<BYTE> StraightMask(const std::vector<BYTE>& vMask, CSize szBefore, CSize szAfter, double dDegrees,
                               CProgress& progress)
{
    // A border of nothing, which repeats.
    CPhoto before(szBefore.cx + 2, szBefore.cy + 2);
    for (int y = 0; y < szBefore.cy; ++y)
    {
        for (int x = 0; x < szBefore.cx; ++x)
            before.Row(y + 1)[(x + 1) * 4] = vMask[static_cast<std::size_t>(y) * szBefore.cx + x];
    }
    CPhoto after(szAfter.cx, szAfter.cy);
    std::vector<BYTE> vTurned;
    if (!Straighten(before.View(), after.View(), dDegrees, progress))
        return vTurned;
    for (int y = 0; y < szAfter.cy; ++y)
    {
        for (int x = 0; x < szAfter.cx; ++x)
            vTurned.push_back(after.Row(y)[x * 4]);
    }
    return vTurned;
}

std::optional<Picture> Straightened(PixelView photo, const std::vector<BYTE>& vMask, double dDegrees, bool bCrop,
                                    CProgress& progress)
{
    const PixelSize whole = {photo.cx, photo.cy};
    const PixelSize size = bCrop ? InscribedSize(photo.cx, photo.cy, dDegrees) : whole;
    Picture picture = {CPhoto(size.cx, size.cy), {}};
    progress.SetStages(vMask.empty() ? 1 : 2);
    if (!Straighten(photo, picture.photo.View(), dDegrees, progress))
        return std::nullopt;
    if (!vMask.empty())
        picture.vMask = StraightMask(vMask, {photo.cx, photo.cy}, {size.cx, size.cy}, dDegrees, progress);
    return progress.IsCancelled() ? std::nullopt : std::optional(std::move(picture));
}

} // namespace

std::optional<Job> TurnJob(ProgramParts& parts, Turn eTurn)
{
    const bool bMirror = eTurn == Turn::MirrorLeftRight || eTurn == Turn::MirrorUpsideDown;
    return ShapeJob(parts, bMirror ? QT_TRANSLATE_NOOP("History", "Mirror") : QT_TRANSLATE_NOOP("History", "Turn"),
                    [=](PixelView photo, const std::vector<BYTE>& vMask, CProgress& progress)
                    { return Turned(photo, vMask, eTurn, progress); });
}

std::optional<Job> StraightenJob(ProgramParts& parts, double dDegrees, bool bCrop)
{
    return ShapeJob(parts, QT_TRANSLATE_NOOP("History", "Straighten"),
                    [=](PixelView photo, const std::vector<BYTE>& vMask, CProgress& progress)
                    { return Straightened(photo, vMask, dDegrees, bCrop, progress); });
}

void ShowShaped(ProgramParts& parts, const std::function<CPhoto()>& replace)
{
    const CPhoto old = replace(); // The view lets go of its pixels before they go.
    parts.lastPick.reset();
    parts.presenter.EndPreview();
    parts.view.SetBitmap(parts.document.Photo()->Info(), parts.document.Photo()->Pixels());
    parts.host.Zoom().ZoomToFit();
}

std::optional<Job> CropJob(ProgramParts& parts, const CRect& rc, std::string& strError)
{
    CPhoto* const pPhoto = parts.document.Photo();
    CRect rcInside(0, 0, pPhoto ? pPhoto->Width() : 0, pPhoto ? pPhoto->Height() : 0);
    if (!rcInside.IntersectRect(CRect(rcInside), rc))
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "nothing of the photo lies there"));
        return std::nullopt;
    }
    if (rcInside.Size() == CSize(pPhoto->Width(), pPhoto->Height()))
        return std::nullopt;
    return ShapeJob(parts, QT_TRANSLATE_NOOP("History", "Crop"),
                    [=](PixelView photo, const std::vector<BYTE>& vMask, CProgress&)
                    { return std::optional(Cropped(photo, vMask, rcInside)); });
}

std::optional<Job> CropToSelectionJob(ProgramParts& parts, std::string& strError)
{
    if (parts.selection.IsThere())
        return CropJob(parts, parts.selection.Box(), strError);
    strError = Message(QT_TRANSLATE_NOOP("Program", "there is no selection to crop to"));
    return std::nullopt;
}

std::optional<Job> RevertJob(ProgramParts& parts)
{
    const CTiledSnapshot& original = parts.document.Opened();
    const char* const pszStep = QT_TRANSLATE_NOOP("History", "Revert");
    if (original.HasSizeOf(parts.document.History().Current().pixels))
        return RevertPixelsJob(parts, pszStep);
    return ShapeJob(
        parts, pszStep,
        [&original](PixelView, const std::vector<BYTE>&, CProgress&)
        {
            const CTiledSnapshot::Area whole = original.Whole();
            Picture picture = {CPhoto(static_cast<int>(whole.nBytes / 4), static_cast<int>(whole.nRows)), {}};
            original.Restore({picture.photo.Pixels(), picture.photo.ByteCount()});
            return std::optional(std::move(picture));
        });
}
