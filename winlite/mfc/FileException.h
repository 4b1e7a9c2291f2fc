#pragma once

#include "mfc/Exception.h"
#include "mfc/String.h"

/// Why a file could not be opened, read or written. Any thread.
class CFileException : public CException
{
    DECLARE_DYNAMIC(CFileException)

public:
    enum
    {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        invalidFile = 6,
        removeCurrentDir = 7,
        directoryFull = 8,
        badSeek = 9,
        hardIO = 10,
        sharingViolation = 11,
        lockViolation = 12,
        diskFull = 13,
        endOfFile = 14,
    };

    explicit CFileException(int cause = none, LONG lOsError = -1, LPCWSTR pszFileName = nullptr)
        : m_cause(cause), m_lOsError(lOsError), m_strFileName(pszFileName)
    {
    }

    /// The cause that stands for an error of GetLastError.
    static int OsErrorToException(LONG lOsError);

    /// The text of m_lOsError.
    BOOL GetErrorMessage(LPWSTR pszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;

    int m_cause;
    LONG m_lOsError; ///< What GetLastError says; -1 for none.
    CString m_strFileName;
};

/// Throws a CFileException.
[[noreturn]] void AfxThrowFileException(int cause, LONG lOsError = -1, LPCWSTR pszFileName = nullptr);
