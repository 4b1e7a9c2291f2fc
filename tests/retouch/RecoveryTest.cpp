#include "document/PngFile.h"
#include "document/SessionReader.h"
#include "program/Retoucher.h"
#include "support/User.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <QTemporaryDir>
#include <random>

namespace
{

namespace fs = std::filesystem;

std::string BytesOf(const std::string& strFile)
{
    std::ifstream file(strFile, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const std::string& strFile, const std::string& strBytes)
{
    std::ofstream(strFile, std::ios::binary) << strBytes;
}

/// A program that keeps its work, and a file that it may have opened.
class RecoveryTest : public testing::Test
{
protected:
    void SetUp() override
    {
        host.MoveWindow(0, 0, 600, 400);
        host.ShowWindow(SW_SHOW);
        std::vector<std::uint32_t> vPixels(150 * 90);
        std::mt19937 random(2);
        std::ranges::generate(vPixels, [&] { return static_cast<std::uint32_t>(random() & 0x3F3F3F); });
        std::string strError;
        ASSERT_TRUE(WritePng(strPhoto, 150, 90, vPixels.data(), strError)) << strError;
        Restart();
    }

    /// The program anew, as after its end; whatever it had not told anybody is gone.
    void Restart()
    {
        retoucher.reset();
        retoucher.emplace(host);
        retoucher->KeepSteps(strSessions);
        retoucher->SetListener([this](const std::string& strError) { strTold += strError; });
    }
    void Do(const std::string& strCommand)
    {
        std::string strError;
        EXPECT_TRUE(retoucher->Execute(strCommand, strError)) << strCommand << ": " << strError;
        CUser::Settle();
    }

    /// The session's file as it is now, elsewhere.
    std::string CopyOfSession()
    {
        retoucher->FlushSteps();
        for (const auto& entry : fs::directory_iterator(strSessions))
            fs::copy_file(entry.path(), strCopy, fs::copy_options::overwrite_existing);
        return strCopy;
    }

    /// The program ends without a word. Returns the file that it leaves.
    std::string Crash()
    {
        CopyOfSession();
        Restart();
        const std::string strLost = strSessions + "/lost.session";
        fs::copy_file(strCopy, strLost, fs::copy_options::overwrite_existing);
        return strLost;
    }

    /// Photo and selection of every state there is; in the end the current one is shown again.
    std::vector<std::string> AllSeen()
    {
        const ProgramState state = retoucher->State();
        std::vector<std::string> vSeen;
        for (std::size_t i = 0; i < state.vSteps.size(); ++i)
        {
            Do("history " + std::to_string(i));
            vSeen.push_back(state.vSteps[i].strName + "|" + Seen());
        }
        Do("history " + std::to_string(state.iStep));
        return vSeen;
    }

    /// Photo and selection.
    std::string Seen()
    {
        CPhoto& photo = *retoucher->Photo();
        std::string strSeen(reinterpret_cast<const char*>(photo.Pixels()), photo.ByteCount());
        const std::vector<BYTE>& vMask = host.View().vSelectMask();
        const bool bSelected = !retoucher->State().rcSelection.IsRectEmpty();
        return strSeen + "|" + (bSelected ? std::string(vMask.begin(), vMask.end()) : "");
    }

    const QTemporaryDir folder;
    const std::string strFolder = folder.path().toStdString();
    const std::string strPhoto = strFolder + "/photo.png";
    const std::string strSessions = strFolder + "/state/retouch";
    const std::string strCopy = strFolder + "/copy.session";
    CViewHost host;
    std::optional<CRetoucher> retoucher;
    std::string strTold;
};

TEST_F(RecoveryTest, WorkComesBackAsItWas)
{
    const struct
    {
        const char* pszName;
        std::vector<std::string> vCommands;
        const char* pszSavesTo;
    } CASES[] = {
        {"one area", {"heal 40 40 15"}, "photo.png"},
        {"all of it, and a soft selection",
         {"auto-contrast", "select-all", "shrink 20", "feather-selection 9"},
         "photo.png"},
        {"another shape", {"brightness-contrast 9 0", "turn-left", "crop 10 5 60 70", "heal 30 30 9"}, "photo.png"},
        {"undone", {"heal 40 40 15", "heal 90 40 15", "invert", "undo", "undo"}, "photo.png"},
        {"after saving elsewhere", {"heal 9 9 9", "save " + strFolder + "/b.jpg", "heal 80 50 20"}, "b.jpg"},
        {"undone to before it was saved", {"heal 9 9 9", "save " + strFolder + "/b.jpg --overwrite", "undo"}, "b.jpg"},
        {"the sample", {"open-sample", "heal 300 200 30"}, ""}};
    for (const auto& test : CASES)
    {
        Do("open " + strPhoto);
        for (const std::string& strCommand : test.vCommands)
            Do(strCommand);
        const std::vector<std::string> vSeen = AllSeen();
        const std::string strSeen = Seen();
        const int iStep = retoucher->State().iStep;
        for (const char* pszTime : {"", ", twice"}) // What was recovered is kept, too.
        {
            Do("recover " + Crash());
            EXPECT_TRUE(Seen() == strSeen) << test.pszName << pszTime;
            EXPECT_TRUE(retoucher->State().bUnsaved) << test.pszName;
            EXPECT_EQ(fs::path(retoucher->State().strPath).filename(), test.pszSavesTo);
            EXPECT_EQ(retoucher->State().iStep, iStep);
            EXPECT_TRUE(AllSeen() == vSeen) << test.pszName << pszTime;
        }
        // It goes on as if nothing had been.
        Do("history 0");
        Do("show-original");
        Do("show-result");
        Do("heal 20 20 9");
        EXPECT_EQ(AllSeen().size(), 2U) << test.pszName;
    }
    EXPECT_EQ(strTold, "");
}

TEST_F(RecoveryTest, NothingIsLeftOfWorkThatIsDoneOrUndone)
{
    Do("open " + strPhoto);
    const auto hasWork = [this] { return LostSessionOf(CopyOfSession()).has_value(); };
    EXPECT_FALSE(hasWork());
    Do("select-all");
    EXPECT_FALSE(hasWork()) << "a selection alone";
    Do("heal 40 40 15");
    EXPECT_TRUE(hasWork());
    EXPECT_TRUE(FindLostSessions(strSessions).empty()) << "the program runs";
    Do("undo");
    EXPECT_FALSE(hasWork());
    Do("redo");
    EXPECT_TRUE(hasWork());
    Do("save " + strFolder + "/c.png");
    EXPECT_FALSE(hasWork());
    const auto permissions = fs::status(strSessions).permissions();
    EXPECT_EQ(permissions & (fs::perms::group_all | fs::perms::others_all), fs::perms::none);
    retoucher.reset();
    EXPECT_TRUE(fs::is_empty(strSessions));
}

TEST_F(RecoveryTest, FilesCutAtAnyByteOrDamagedGiveWholeStepsOrNothing)
{
    Do("open " + strPhoto);
    std::vector<std::string> vStates;
    for (const char* pszCommand : {"heal 40 40 9", "select-all", "crop 8 4 70 60", "heal 20 30 9"})
    {
        Do(pszCommand);
        vStates.push_back(Seen());
    }
    const std::string strWhole = BytesOf(CopyOfSession());
    Restart();
    std::mt19937 random(4);
    std::size_t nSteps = 0;
    std::size_t nRefused = 0;
    for (int i = 0; i < 300; ++i)
    {
        std::string strBytes = strWhole;
        const bool bCut = i < 150;
        if (bCut)
            strBytes.resize(strBytes.size() * static_cast<std::size_t>(i + 1) / 150);
        else
            strBytes[random() % strBytes.size()] ^= static_cast<char>(1 << random() % 8);
        const std::string strFile = strCopy + std::to_string(i); // The one before is the program's now.
        Write(strFile, strBytes);
        std::string strError;
        if (!retoucher->Execute("recover " + strFile, strError))
        {
            EXPECT_NE(strError, "");
            ++nRefused;
            continue;
        }
        const auto it = std::ranges::find(vStates, Seen());
        ASSERT_NE(it, vStates.end()) << i;
        const auto nNow = static_cast<std::size_t>(it - vStates.begin()) + 1;
        EXPECT_TRUE(!bCut || nNow >= nSteps) << "more of the file, more of the work";
        nSteps = bCut ? nNow : nSteps;
    }
    EXPECT_EQ(nSteps, vStates.size());
    EXPECT_GT(nRefused, 5U);
}

TEST_F(RecoveryTest, StepsAreInTheFileAndNotInTheMemory)
{
    Do("open " + strPhoto);
    std::vector<std::string> vSeen = {Seen()};
    for (const char* pszCommand : {"heal 40 40 9", "auto-contrast", "select-all", "brightness-contrast 9 9"})
    {
        Do(pszCommand);
        vSeen.push_back(Seen());
    }
    retoucher->FlushSteps();
    for (const int i : {0, 4, 2, 3, 1, 4})
    {
        Do("history " + std::to_string(i));
        EXPECT_TRUE(Seen() == vSeen[static_cast<std::size_t>(i)]) << i;
    }
    // Somebody takes it away: what can be done is done, and the rest is said.
    for (const auto& entry : fs::directory_iterator(strSessions))
        fs::resize_file(entry.path(), 100);
    std::string strError;
    EXPECT_FALSE(retoucher->Execute("history 2", strError));
    EXPECT_NE(strError.find("cannot be read"), std::string::npos) << strError;
    EXPECT_EQ(retoucher->State().iStep, 4);
    Do("history 0");
    EXPECT_TRUE(Seen() == vSeen[0]) << "the photo as it was opened stays in the memory";
}

TEST_F(RecoveryTest, WhatCannotBeRecoveredSaysSo)
{
    std::string strError;
    const auto refusal = [&](const std::string& strFile)
    {
        strError.clear();
        return retoucher->Execute("recover " + strFile, strError) ? "done" : strError;
    };
    Do("open " + strPhoto);
    Do("heal 40 40 15");
    const std::string strFile = CopyOfSession();
    EXPECT_NE(refusal(strFolder + "/none.session").find("no work"), std::string::npos);
    Write(strPhoto, BytesOf(strPhoto) + "more");
    EXPECT_NE(refusal(strFile).find("changed since"), std::string::npos);
    EXPECT_TRUE(fs::exists(strFile));
    // Files of other versions, and without a step, go; those with work are found, the last one first.
    Write(strSessions + "/1-0.session", "retouch session 1\nsomething");
    Write(strSessions + "/1-1.session", "");
    fs::copy_file(strFile, strSessions + "/1-2.session");
    const std::vector<LostSession> vFound = FindLostSessions(strSessions);
    ASSERT_EQ(vFound.size(), 1U);
    EXPECT_EQ(vFound.front().photo.strPath, strPhoto);
    EXPECT_FALSE(fs::exists(strSessions + "/1-0.session") || fs::exists(strSessions + "/1-1.session"));
    // No folder: the program tells it once, and goes on.
    retoucher->KeepSteps(strPhoto + "/no-folder");
    Do("open-sample");
    Do("heal 40 40 15");
    EXPECT_NE(strTold.find("recovery"), std::string::npos);
    EXPECT_EQ(strTold.find("recovery"), strTold.rfind("recovery"));
}

} // namespace
