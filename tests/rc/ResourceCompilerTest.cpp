#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

class ResourceCompilerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_folder = fs::temp_directory_path() / ("rc-test-" + std::to_string(::getpid()));
        fs::create_directories(m_folder);
        Write("a.bmp", "BM345678901234bits of a");
        Write("c.cur", std::string("\0\0\2\0\1\0 and so on", 16));
        Write("no.bmp", "PNG");
    }
    void TearDown() override { fs::remove_all(m_folder); }

    void Write(const char* pszName, const std::string& strText) const
    {
        std::ofstream(m_folder / pszName, std::ios::binary) << strText;
    }
    std::string Read(const char* pszName) const
    {
        std::ostringstream text;
        text << std::ifstream(m_folder / pszName).rdbuf();
        return text.str();
    }

    /// Compiles the script; whether it succeeded.
    bool Compile(const std::string& strScript) const
    {
        Write("in.rc", strScript);
        const std::string strFolder = m_folder.string();
        return std::system(
                   (RESOURCE_COMPILER " " + strFolder + "/in.rc " + strFolder + "/out.cpp Some 2>" + strFolder + "/err")
                       .c_str()) == 0;
    }

    fs::path m_folder;
};

} // namespace

TEST_F(ResourceCompilerTest, FilesAreEmbeddedByKindAndComments)
{
    ASSERT_TRUE(
        Compile("// 1 BITMAP \"none.bmp\"\n\n/* 2 BITMAP\n */ 3000 BITMAP \"a.bmp\"\n3005 CURSOR \"c.cur\" // tail\n"))
        << Read("err");
    const std::string strSource = Read("out.cpp");
    EXPECT_NE(strSource.find("3000"), std::string::npos);
    EXPECT_NE(strSource.find("3005"), std::string::npos);
    EXPECT_EQ(strSource.find("none"), std::string::npos);
    EXPECT_NE(strSource.find("L\"Some\""), std::string::npos);
}

TEST_F(ResourceCompilerTest, MistakesNameFileLineAndReasonAndLeaveNothing)
{
    const struct
    {
        const char* pszScript;
        const char* pszLine;
    } vCases[] = {
        {"3000 BITMAP \"a.bmp\"\n3001 BITMAP \"missing.bmp\"\n", "in.rc:2"},
        {"\n\n3000 PICTURE \"a.bmp\"\n", "in.rc:3"},
        {"3000 BITMAP a.bmp\n", "in.rc:1"},
        {"3000 BITMAP \"a.bmp\"\n\n3000 BITMAP \"a.bmp\"\n", "in.rc:3"},
        {"3000 BITMAP \"no.bmp\"\n", "in.rc:1"},
        {"99999999999 BITMAP \"a.bmp\"\n", "in.rc:1"},
    };
    for (const auto& c : vCases)
    {
        EXPECT_FALSE(Compile(c.pszScript)) << c.pszScript;
        EXPECT_NE(Read("err").find(c.pszLine), std::string::npos) << Read("err");
        EXPECT_FALSE(fs::exists(m_folder / "out.cpp"));
    }
}
