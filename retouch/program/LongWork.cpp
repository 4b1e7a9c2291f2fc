#include "program/LongWork.h"

#include "document/Message.h"
#include "document/SamplePicture.h"
#include "host/ViewHost.h"
#include "pixels/AutoContrast.h"
#include "pixels/Bands.h"
#include "pixels/MaskDistance.h"
#include "platform/vorpix.h"
#include "program/Selection.h"

#include <cstring>
#include <memory>

namespace
{

/// Work on a copy of all pixels, in place, which becomes a step.
using Change = std::function<bool(PixelView pixels, CProgress& progress)>;

CLargeBuffer CopyOf(CPhoto& photo, CProgress& progress)
{
    CLargeBuffer copy(photo.ByteCount());
    ForBands(photo.Height(), progress,
             [&](int iFirst, int iEnd)
             {
                 const std::size_t nBefore = static_cast<std::size_t>(iFirst) * photo.RowBytes();
                 std::memcpy(copy.Data() + nBefore, photo.Pixels() + nBefore,
                             static_cast<std::size_t>(iEnd - iFirst) * photo.RowBytes());
             });
    return copy;
}

std::optional<Job> PixelJob(ProgramParts& parts, const char* pszStep, Change change)
{
    CPhoto* const pPhoto = parts.document.Photo();
    if (!pPhoto)
        return std::nullopt;
    const auto pPixels = std::make_shared<CDocument::Pixels>();
    Job job;
    job.strName = pszStep;
    job.work = [=, &document = parts.document](CProgress& progress, std::string&)
    {
        CProgress copying; // It takes no time to speak of.
        CLargeBuffer copy = CopyOf(*pPhoto, copying);
        if (!change(pPhoto->ViewOf(copy), progress))
            return false;
        *pPixels = document.PixelsAfter(std::move(copy));
        return true;
    };
    job.commit = [=, &parts]
    {
        parts.document.Commit(*pPixels, pszStep);
        parts.view.UpdateBitmap(pPhoto->Info(), pPhoto->Pixels(), TRUE);
        *pPixels = {};
        parts.presenter.EndPreview();
    };
    job.drop = [&parts] { parts.presenter.EndPreview(); };
    return job;
}

/// The weights of a mask; without one every pixel takes part.
MaskView WeightsOf(const std::vector<BYTE>& vMask, int cx) { return {vMask.empty() ? nullptr : vMask.data(), cx}; }

/// Work on a copy of the selection's weights, which becomes a step.
std::optional<Job> MaskJob(ProgramParts& parts, const char* pszStep,
                           std::function<bool(std::vector<BYTE>& vMask, CProgress& progress)> change)
{
    if (!parts.document.Photo() || !parts.selection.IsThere())
        return std::nullopt;
    const auto pMask = std::make_shared<std::vector<BYTE>>(parts.selection.Mask());
    Job job;
    job.strName = pszStep;
    job.work = [=](CProgress& progress, std::string&) { return change(*pMask, progress); };
    job.commit = [=, &parts] { parts.selection.SelectMask(*pMask, pszStep); };
    return job;
}

Job ShowJob(ProgramParts& parts, const std::string& strPath,
            std::function<std::optional<CPhoto>(std::string& strError)> load)
{
    const auto pPhoto = std::make_shared<std::optional<CPhoto>>();
    Job job;
    job.strName = QT_TRANSLATE_NOOP("History", "Open");
    job.work = [=](CProgress&, std::string& strError)
    {
        *pPhoto = load(strError);
        return pPhoto->has_value();
    };
    job.commit = [=, &parts] { ShowPhoto(parts, std::move(**pPhoto), strPath); };
    return job;
}

/// What tells how far a feather is has no room for whose it is.
thread_local CProgress* s_pFeathering = nullptr;

bool Feather(std::vector<BYTE>& vMask, CRect rcBox, int iPixels, CSize szMask, CProgress& progress)
{
    s_pFeathering = &progress;
    const auto report = [](std::size_t nDone, std::size_t nAll) { s_pFeathering->Report(nDone, nAll); };
    return Vorpix::FeatherRegion(vMask, rcBox, iPixels, szMask.cx, szMask.cy, report, true) && !progress.IsCancelled();
}

} // namespace

void ShowPhoto(ProgramParts& parts, CPhoto photo, const std::string& strPath)
{
    // The view lets go of the old pixels before they go.
    const std::optional<CPhoto> old = parts.document.Replace(std::move(photo), strPath);
    parts.lastPick.reset();
    parts.selection.Forget();
    parts.presenter.Forget();
    parts.photoShown();
    parts.view.SetBitmap(parts.document.Photo()->Info(), parts.document.Photo()->Pixels());
    parts.host.Zoom().ZoomToFit();
}

Job OpenJob(ProgramParts& parts, const std::string& strPath)
{
    return ShowJob(parts, strPath, [strPath](std::string& strError) { return CPhoto::Load(strPath, strError); });
}

Job OpenSampleJob(ProgramParts& parts)
{
    return ShowJob(parts, {}, [](std::string&) { return std::optional(RenderSamplePicture()); });
}

std::optional<Job> AutoContrastJob(ProgramParts& parts)
{
    const auto vMask = parts.selection.IsThere() ? parts.selection.Mask() : std::vector<BYTE>();
    return PixelJob(parts, QT_TRANSLATE_NOOP("History", "Auto Contrast"),
                    [=](PixelView pixels, CProgress& progress)
                    { return StretchContrast(pixels, WeightsOf(vMask, pixels.cx), progress); });
}

std::optional<Job> BrightnessContrastJob(ProgramParts& parts, BrightnessContrast settings)
{
    const auto vMask = parts.selection.IsThere() ? parts.selection.Mask() : std::vector<BYTE>();
    return PixelJob(parts, QT_TRANSLATE_NOOP("History", "Brightness and Contrast"),
                    [=](PixelView pixels, CProgress& progress)
                    { return AdjustBrightnessContrast(pixels, WeightsOf(vMask, pixels.cx), settings, progress); });
}

std::optional<Job> RevertPixelsJob(ProgramParts& parts, const char* pszStep)
{
    const CTiledSnapshot* const pOriginal = parts.document.Original();
    if (!pOriginal)
        return std::nullopt;
    return PixelJob(
        parts, pszStep,
        [pOriginal](PixelView pixels, CProgress& progress)
        {
            // The buffer begins with the bottom row.
            pOriginal->Restore({pixels.Row(pixels.cy - 1), static_cast<std::size_t>(pixels.cx) * 4 * pixels.cy});
            return !progress.IsCancelled();
        });
}

std::optional<Job> GrowJob(ProgramParts& parts, int iPixels)
{
    const int iWidth = parts.view.iBmpWidth();
    return MaskJob(parts, QT_TRANSLATE_NOOP("History", "Grow Selection"),
                   [=](std::vector<BYTE>& vMask, CProgress& progress)
                   { return GrowMask(vMask, iWidth, iPixels, progress); });
}

std::optional<Job> ShrinkJob(ProgramParts& parts, int iPixels)
{
    const int iWidth = parts.view.iBmpWidth();
    return MaskJob(parts, QT_TRANSLATE_NOOP("History", "Shrink Selection"),
                   [=](std::vector<BYTE>& vMask, CProgress& progress)
                   { return ShrinkMask(vMask, iWidth, iPixels, progress); });
}

std::optional<Job> FeatherJob(ProgramParts& parts, int iPixels)
{
    const CRect rcBox = parts.selection.Box();
    const CSize szMask(parts.view.iBmpWidth(), parts.view.iBmpHeight());
    return MaskJob(parts, QT_TRANSLATE_NOOP("History", "Feather Selection"),
                   [=](std::vector<BYTE>& vMask, CProgress& progress)
                   { return Feather(vMask, rcBox, iPixels, szMask, progress); });
}
