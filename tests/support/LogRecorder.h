#pragma once

#include "base/Utf8.h"
#include "hostlibs/Quillog.h"

#include <string>
#include <utility>
#include <vector>

/// Keeps what is logged while it exists.
class CLogRecorder
{
public:
    CLogRecorder()
    {
        QLSetSink([this](const QLRecord& record) { vRecords.push_back(record); });
    }
    ~CLogRecorder() { QLSetSink({}); }
    CLogRecorder(const CLogRecorder&) = delete;
    CLogRecorder& operator=(const CLogRecorder&) = delete;

    /// The records' levels and texts, "1 Text|" each; empties them.
    std::string Take()
    {
        std::string strTexts;
        for (const QLRecord& record : std::exchange(vRecords, {}))
            strTexts += std::to_string(record.level) + " " + winlite::ToUtf8(record.strText.GetString()) + "|";
        return strTexts;
    }

    std::vector<QLRecord> vRecords;
};
