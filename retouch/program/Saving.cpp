#include "program/Saving.h"

#include "document/Document.h"
#include "document/SavePhoto.h"
#include "program/Message.h"

#include <memory>

std::optional<Job> SaveJob(ProgramParts& parts, const std::string& strPath, bool bOverwrite, std::string& strError)
{
    CPhoto* const pPhoto = parts.document.Photo();
    if (!pPhoto)
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "there is no photo to save"));
        return std::nullopt;
    }
    const auto pOrigin = std::make_shared<PhotoOrigin>(pPhoto->Origin());
    Job job;
    job.strName = QT_TRANSLATE_NOOP("History", "Save");
    // Nothing changes the pixels while a job runs.
    job.work = [=](CProgress& progress, std::string& strFailed)
    {
        const SaveOptions options = {.bOverwrite = bOverwrite};
        strFailed = SavePhoto(strPath, pPhoto->View(), *pOrigin, options, progress).value_or("");
        return strFailed.empty() && !progress.IsCancelled();
    };
    job.commit = [=] { pPhoto->SetOrigin(std::move(*pOrigin)); };
    return job;
}
