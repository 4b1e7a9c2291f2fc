// The resource compiler: turns the BITMAP and CURSOR lines of a .rc file into a C++ source that holds the files' bytes
// and registers them, with the module's entry function, as a winlite::Module (base/Module.h).

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

constexpr int TYPE_BITMAP = 2;
constexpr int TYPE_CURSOR = 12;
constexpr std::size_t BITMAPFILEHEADER_BYTES = 14;

/// One resource, ready to embed.
struct Entry
{
    int iType;
    int iId;
    std::string strBytes;
};

std::string ReadFile(const std::filesystem::path& path)
{
    if (std::filesystem::is_directory(path))
        throw std::runtime_error(path.string() + " is a folder");
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + path.string());
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// Overwrites comments with blanks; line breaks stay, so that line numbers do, and quoted text is left alone.
void BlankComments(std::string& strText)
{
    static const std::regex reQuoteOrComment(R"re("[^"\n]*"|//[^\n]*|/\*[^]*?\*/)re");
    const std::string strSource = strText;
    for (std::sregex_iterator it(strSource.begin(), strSource.end(), reQuoteOrComment), itEnd; it != itEnd; ++it)
    {
        if (it->str().front() == '"')
            continue;
        for (auto iAt = it->position(); iAt < it->position() + it->length(); ++iAt)
            if (strText[iAt] != '\n')
                strText[iAt] = ' ';
    }
}

/// The part of the file that is embedded: a bitmap loses its file header, a cursor stays whole.
std::string ReadResource(const std::filesystem::path& path, int iType)
{
    std::string strBytes = ReadFile(path);
    if (iType == TYPE_CURSOR)
    {
        if (strBytes.substr(0, 4) != std::string("\0\0\2\0", 4))
            throw std::runtime_error(path.string() + " is not a cursor file");
        return strBytes;
    }
    if (strBytes.substr(0, 2) != "BM" || strBytes.size() <= BITMAPFILEHEADER_BYTES)
        throw std::runtime_error(path.string() + " is not a bitmap file");
    return strBytes.substr(BITMAPFILEHEADER_BYTES);
}

Entry ParseLine(const std::string& strLine, const std::filesystem::path& folder)
{
    static const std::regex reEntry(R"re(\s*(\d+)\s+(BITMAP|CURSOR)\s+"([^"]+)"\s*)re");
    std::smatch match;
    if (!std::regex_match(strLine, match, reEntry))
        throw std::runtime_error("expected: NUMBER BITMAP or CURSOR \"FILE\"");
    const std::string strId = match[1];
    int iId = 0;
    const auto result = std::from_chars(strId.data(), strId.data() + strId.size(), iId);
    if (result.ec != std::errc() || iId < 1 || iId > 0xFFFF)
        throw std::runtime_error("number " + strId + " is not in 1..65535");
    const int iType = match[2] == "BITMAP" ? TYPE_BITMAP : TYPE_CURSOR;
    std::string strFile = match[3];
    for (char& ch : strFile)
        ch = ch == '\\' ? '/' : ch;
    return {iType, iId, ReadResource(folder / strFile, iType)};
}

void AddEntry(std::vector<Entry>& vEntries, Entry entry)
{
    for (const Entry& other : vEntries)
        if (other.iType == entry.iType && other.iId == entry.iId)
            throw std::runtime_error("duplicate number " + std::to_string(entry.iId));
    vEntries.push_back(std::move(entry));
}

/// All resources of the .rc file; files are named relative to its folder. Throws with file, line and reason.
std::vector<Entry> ReadScript(const std::filesystem::path& path)
{
    std::string strText = ReadFile(path);
    BlankComments(strText);
    std::vector<Entry> vEntries;
    std::istringstream lines(strText);
    std::string strLine;
    for (int iLine = 1; std::getline(lines, strLine); ++iLine)
    {
        if (strLine.find_first_not_of(" \t\r") == std::string::npos)
            continue;
        try
        {
            AddEntry(vEntries, ParseLine(strLine, path.parent_path()));
        }
        catch (const std::exception& error)
        {
            throw std::runtime_error(path.string() + ":" + std::to_string(iLine) + ": " + error.what());
        }
    }
    return vEntries;
}

std::string BytesName(const Entry& entry)
{
    return (entry.iType == TYPE_BITMAP ? "s_vBitmap" : "s_vCursor") + std::to_string(entry.iId);
}

void WriteBytes(std::ostream& out, const Entry& entry)
{
    constexpr std::size_t NUMBERS_PER_LINE = 24;
    // The readers of these bytes look at structures of 32-bit numbers.
    out << "alignas(4) const BYTE " << BytesName(entry) << "[] = {";
    for (std::size_t i = 0; i < entry.strBytes.size(); ++i)
        out << (i % NUMBERS_PER_LINE == 0 ? "\n    " : " ") << int(static_cast<unsigned char>(entry.strBytes[i]))
            << ",";
    out << "\n};\n\n";
}

std::string SourceText(const std::vector<Entry>& vEntries, const std::string& strModule)
{
    std::ostringstream out;
    out << "// Written by winlite_rc; changes here are lost.\n\n"
           "#include \"base/Module.h\"\n\n#include <array>\n\n"
           "extern \"C\" BOOL DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID pReserved);\n\n"
           "namespace\n{\n\n";
    for (const Entry& entry : vEntries)
        WriteBytes(out, entry);
    out << "const std::array<winlite::Resource, " << vEntries.size() << "> s_vResources = {{\n";
    for (const Entry& entry : vEntries)
        out << "    {" << entry.iType << ", " << entry.iId << ", " << BytesName(entry) << "},\n";
    out << "}};\n\n"
        << "const winlite::Module s_module = {L\"" << strModule << "\", &DllMain, s_vResources};\n\n"
        << "} // namespace\n\nstatic winlite::ModuleRegistration s_registration(s_module);\n";
    return out.str();
}

void WriteFile(const std::string& strPath, const std::string& strText)
{
    std::ofstream file(strPath, std::ios::binary);
    file << strText;
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + strPath);
}

} // namespace

int main(int iArgCount, char** ppszArgs)
{
    if (iArgCount != 4 || !std::regex_match(ppszArgs[3], std::regex("[A-Za-z0-9_.-]+")))
    {
        std::cerr << "usage: winlite_rc INPUT.rc OUTPUT.cpp MODULE_NAME\n";
        return 1;
    }
    try
    {
        WriteFile(ppszArgs[2], SourceText(ReadScript(ppszArgs[1]), ppszArgs[3]));
        return 0;
    }
    catch (const std::exception& error)
    {
        std::cerr << error.what() << "\n";
        // A stale output would look like a success to the build.
        std::remove(ppszArgs[2]);
        return 1;
    }
}
