#include "program/CommandTable.h"
#include "program/CommandText.h"

#include <gtest/gtest.h>

namespace
{

/// What a line is read as: the word and its values, or the message.
std::string Read(const std::string& strLine)
{
    std::string strRead;
    const std::optional<CommandCall> call = ParseCommand(Commands(), strLine, strRead);
    if (!call)
        return strRead;
    strRead = call->pCommand->strWord;
    for (const auto& value : call->vValues)
        strRead += "," + (value.index() == 0 ? std::to_string(std::get<int>(value)) : std::get<std::string>(value));
    return strRead;
}

std::string Split(const std::string& strText)
{
    std::string strSplit;
    const auto vCommands = SplitCommands(strText, strSplit);
    for (const std::string& strCommand : vCommands.value_or(std::vector<std::string>()))
        strSplit += "[" + strCommand + "]";
    return strSplit;
}

TEST(CommandTest, LinesAreReadOrNamedWithWhatIsWrong)
{
    const struct
    {
        const char* pszLine;
        const char* pszRead;
    } vCases[] = {
        {"undo", "undo"},
        {"  grow\t 5  ", "grow,5"},
        {"brightness-contrast -100 100", "brightness-contrast,-100,100"},
        {"grow \"5\"", "grow,5"},
        {"tool wand", "tool,wand"},
        {"rule 'add'", "rule,add"},
        {"open /a photo, it's 1.png", "open,/a photo, it's 1.png"},
        {"open \"/a \"\"b\"\"; c.png\"", "open,/a \"b\"; c.png"},
        {"open ''", "open,"},
        {"save a b.png --overwrite", "save,a b.png,1"},
        {"save  'a.png'  --overwrite ", "save,a.png,1"},
        {"save 'a --overwrite'", "save,a --overwrite,0"},
        {"save a --overwrite.png", "save,a --overwrite.png,0"},
        {"save --overwrite", "FILE is missing"},
        {"save 'a.png' --over", "\"--over\" is one argument too many"},
        {"", "there is no command \"\""},
        {"dance", "there is no command \"dance\""},
        {"Undo", "there is no command \"Undo\""},
        {"grow", "PIXELS is missing"},
        {"open", "PATH is missing"},
        {"transform-to 1 2 3", "HEIGHT is missing"},
        {"grow 5 6", "\"6\" is one argument too many"},
        {"undo it now", "\"it now\" is one argument too many"},
        {"open 'a' b", "\"b\" is one argument too many"},
        {"grow 0", "\"0\" is no number from 1 to 500"},
        {"grow 501", "\"501\" is no number from 1 to 500"},
        {"feather -1", "\"-1\" is no number from 0 to 500"},
        {"tolerance 99999999999999999999", "\"99999999999999999999\" is no number from 0 to 255"},
        {"feather 5x", "\"5x\" is no number from 0 to 500"},
        {"feather 5.0", "\"5.0\" is no number from 0 to 500"},
        {"feather 1,000", "\"1,000\" is no number from 0 to 500"},
        {"feather \"\"", "\"\" is no number from 0 to 500"},
        {"rule xor", "\"xor\" is none of new|add|subtract|intersect"},
        {"grow \"5", "the quotes of \"5 do not end"},
        {"\"undo", "the quotes of \"undo do not end"},
    };
    for (const auto& c : vCases)
        EXPECT_EQ(Read(c.pszLine), c.pszRead) << c.pszLine;
}

TEST(CommandTest, SemicolonsSeparateCommandsOutsideQuotes)
{
    const struct
    {
        const char* pszText;
        const char* pszSplit;
    } vCases[] = {
        {"select-all; feather 20;auto-contrast", "[select-all][feather 20][auto-contrast]"},
        {" ;; undo ; ", "[undo]"},
        {"open \"a;b\"; undo", "[open \"a;b\"][undo]"},
        {"open 'a\"\"; ''b'';'; undo", "[open 'a\"\"; ''b'';'][undo]"},
        {"open it's; undo", "[open it's][undo]"},
        {"undo; open \"a; undo", "the quotes of \"a; undo do not end"},
        {"", ""},
    };
    for (const auto& c : vCases)
        EXPECT_EQ(Split(c.pszText), c.pszSplit) << c.pszText;
    for (const char* pszPath : {"/a b;c.png", "\"", "it's \"it\"", "", " x "})
        EXPECT_EQ(Read("open " + Quoted(pszPath)), std::string("open,") + pszPath);
}

} // namespace
