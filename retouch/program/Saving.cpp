#include "program/Saving.h"

#include "document/Document.h"
#include "document/Message.h"
#include "document/SavePhoto.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string_view>

std::optional<std::string> FilledIn(const std::string& strPattern, const std::string& strOpened, std::string& strError)
{
    const std::filesystem::path path = strOpened;
    const std::pair<std::string_view, std::string> vFields[] = {
        {"{dir}", path.has_parent_path() ? path.parent_path().string() : "."}, {"{name}", path.stem().string()}};
    std::string strPath;
    for (std::string_view rest = strPattern; !rest.empty();)
    {
        const auto it = std::ranges::find_if(vFields, [&](const auto& field) { return rest.starts_with(field.first); });
        const bool bField = it != std::end(vFields);
        if (bField && strOpened.empty())
        {
            strError = Message(QT_TRANSLATE_NOOP("Program", "\"%1\": the photo comes from no file"), {strPattern});
            return std::nullopt;
        }
        strPath += bField ? it->second : std::string(1, rest.front());
        rest.remove_prefix(bField ? it->first.size() : 1);
    }
    return strPath;
}

std::optional<Job> SaveJob(ProgramParts& parts, const std::string& strPattern, bool bOverwrite, std::string& strError)
{
    CPhoto* const pPhoto = parts.document.Photo();
    if (!pPhoto)
    {
        strError = Message(QT_TRANSLATE_NOOP("Program", "there is no photo to save"));
        return std::nullopt;
    }
    const auto strPath = FilledIn(strPattern, parts.document.OpenedPath(), strError);
    if (!strPath)
        return std::nullopt;
    const auto pOrigin = std::make_shared<PhotoOrigin>(pPhoto->Origin());
    const SaveOptions options = {.iQuality = parts.iJpegQuality, .bOverwrite = bOverwrite};
    Job job;
    job.strName = QT_TRANSLATE_NOOP("History", "Save");
    // Nothing changes the pixels while a job runs.
    job.work = [=](CProgress& progress, std::string& strFailed)
    {
        strFailed = SavePhoto(*strPath, pPhoto->View(), *pOrigin, options, progress).value_or("");
        return strFailed.empty() && !progress.IsCancelled();
    };
    job.commit = [=, &document = parts.document] { document.Saved(std::move(*pOrigin)); };
    return job;
}
