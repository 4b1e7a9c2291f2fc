#pragma once

#include "base/Utf8.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

/// A folder of its own for each test, which goes with it.
class CTestFolder
{
public:
    CTestFolder()
        : m_Path(std::filesystem::path(testing::TempDir()) /
                 testing::UnitTest::GetInstance()->current_test_info()->name())
    {
        std::filesystem::remove_all(m_Path);
        std::filesystem::create_directories(m_Path / "Sub");
    }
    ~CTestFolder() { std::filesystem::remove_all(m_Path); }

    void Write(const std::string& strName, const std::string& strBytes) const
    {
        std::ofstream(m_Path / strName) << strBytes;
    }

    /// The folder's path with a rest that begins with a separator.
    std::wstring operator+(const std::wstring& strRest) const { return *winlite::FromUtf8(m_Path.string()) + strRest; }

private:
    std::filesystem::path m_Path;
};
