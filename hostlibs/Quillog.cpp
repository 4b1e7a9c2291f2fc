#include "hostlibs/Quillog.h"

#include <cstdio>
#include <mutex>

namespace
{

std::mutex s_Mutex;
QLSink s_Sink;
QL_LOGLEVEL s_Level = QL_WARNING;

void WriteToStandardError(const QLRecord& record)
{
    if (record.level > s_Level)
        return;
    // Formatted as wide text and written as narrow, so that standard error keeps its orientation.
    std::fprintf(stderr, "%d %ls %ls: %ls\n", record.level, record.strModule.GetString(),
                 record.strFunction.GetString(), record.strText.GetString());
}

} // namespace

QLSink QLSetSink(QLSink sink)
{
    std::lock_guard lock(s_Mutex);
    std::swap(s_Sink, sink);
    return sink;
}

void QLSetLevel(QL_LOGLEVEL level)
{
    std::lock_guard lock(s_Mutex);
    s_Level = level;
}

void QLWriteLog(QL_LOGLEVEL level, const wchar_t* pszModule, const wchar_t* pszFunction, const wchar_t* pszFormat, ...)
{
    QLRecord record{level, pszModule, pszFunction, {}};
    va_list args;
    va_start(args, pszFormat);
    record.strText.FormatV(pszFormat, args);
    va_end(args);
    std::lock_guard lock(s_Mutex);
    s_Sink ? s_Sink(record) : WriteToStandardError(record);
}
