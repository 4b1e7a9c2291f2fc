#include "program/Recovery.h"

#include "document/Document.h"
#include "document/Message.h"
#include "document/SamplePicture.h"
#include "document/SessionReader.h"
#include "program/LongWork.h"
#include "program/Reshape.h"
#include "program/Selection.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace
{

/// What is shown, and what came of it.
struct Recovered
{
    std::optional<CPhoto> original;
    std::optional<RecoveredWork> work;
};

/// The photo that a session began with; nothing, with a message, when its file is not what it was.
std::optional<CPhoto> OriginalOf(const SessionPhoto& photo, std::string& strError)
{
    if (photo.strPath.empty())
        return RenderSamplePicture();
    SessionPhoto now = {.strPath = photo.strPath};
    IdentifyFile(now);
    if (now.nBytes == photo.nBytes && now.uChecksum == photo.uChecksum)
        return CPhoto::Load(photo.strPath, strError);
    strError =
        Message(QT_TRANSLATE_NOOP("Program", "%1: the photo has changed since, and the work on it cannot be done "
                                             "again"),
                {photo.strPath});
    return std::nullopt;
}

bool Load(const LostSession& session, Recovered& recovered, std::string& strError)
{
    recovered.original =
        session.photo.bWhole ? CPhoto::Load(session.strPath, strError) : OriginalOf(session.photo, strError);
    if (session.photo.bWhole)
        strError.clear(); // What was saved lately has what is said about the photo, but is not needed.
    else if (!recovered.original)
        return false;
    std::optional<CPhoto> base;
    if (!session.photo.bWhole)
    {
        base = CPhoto(recovered.original->Width(), recovered.original->Height());
        std::memcpy(base->Pixels(), recovered.original->Pixels(), base->ByteCount());
    }
    recovered.work = RecoverWork(session.strFile, std::move(base), strError);
    if (recovered.work && !recovered.original)
        recovered.original = CPhoto(recovered.work->photo.Width(), recovered.work->photo.Height());
    return recovered.work.has_value();
}

} // namespace

std::optional<Job> RecoverJob(ProgramParts& parts, const std::string& strFile, std::string& strError)
{
    const std::optional<LostSession> session = LostSessionOf(strFile);
    if (!session)
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "%1: there is no work to recover"), {strFile});
        return std::nullopt;
    }
    const auto pRecovered = std::make_shared<Recovered>();
    Job job;
    job.strName = QT_TRANSLATE_NOOP("History", "Recover");
    job.work = [=](CProgress&, std::string& strFailed) { return Load(*session, *pRecovered, strFailed); };
    job.commit = [=, &parts]
    {
        ShowPhoto(parts, std::move(*pRecovered->original), session->strPath);
        ShowShaped(parts, [&] { return parts.document.Resume(*pRecovered->work); });
        parts.selection.Restore(parts.document.History().Current());
        parts.presenter.Update();
    };
    return job;
}
