#pragma once

#include "platform/quillog.h"

#include <functional>

/// One finished record, as a sink gets it.
struct QLRecord
{
    QL_LOGLEVEL level;
    CString strModule;
    CString strFunction;
    CString strText;
};
using QLSink = std::function<void(const QLRecord&)>;

/// Replaces what receives the records and returns what did so before; an empty one brings back the default, which
/// writes records up to the filter's level to standard error. The sink is called on the writing thread, one record at a
/// time, and must not write records itself. Any thread.
QLSink QLSetSink(QLSink sink);

/// Sets the highest level that the default sink writes (QL_WARNING at first). Any thread.
void QLSetLevel(QL_LOGLEVEL level);
