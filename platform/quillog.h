#pragma once

#include "platform/framework.h"

/// Importance of a log record.
enum QL_LOGLEVEL
{
    QL_ERROR = 1,
    QL_WARNING = 2,
    QL_INFO = 3,
};

/// Writes one log record: the module's name, the operation as class, two colons and name, and a text with its arguments
/// in the wide printf format of Windows (%s takes wide text). Any thread.
void QLWriteLog(QL_LOGLEVEL level, const wchar_t* pszModule, const wchar_t* pszFunction, const wchar_t* pszFormat, ...);
