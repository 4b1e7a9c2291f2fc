#include "journal/JournalPlayer.h"
#include "journal/JournalWriter.h"
#include "support/User.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace
{

/// A view that is recorded, and played again in another window.
class JournalTest : public CViewTest
{
protected:
    void TearDown() override
    {
        CViewTest::TearDown();
        std::filesystem::remove(strPath);
    }

    void OpenSession()
    {
        Open(300, 200);
        pView->SetBitmap(bitmap.info, bitmap.vBits.data());
        pView->SetZoom(3);
    }

    /// Zoom, keys, the bars' mouse tracking with its repeat by a timer, a command.
    winlite::Picture Record()
    {
        OpenSession();
        winlite::JournalWriter journal(strPath);
        strLog.clear();
        CUser user(*pView);
        user.Wheel(-240, CPoint(50, 60));
        user.Type(VK_RIGHT);
        user.Press(CPoint(290, 175));
        user.Wait(700);
        user.Release(CPoint(290, 175));
        user.Drag(CPoint(100, 100), CPoint(160, 140));
        winlite::TheJournal().OnCommand("zoom 1.75");
        pView->SetZoom(1.75);
        user.Move(CPoint(77, 33));
        journal.WriteEnd("done");
        return Screen();
    }

    winlite::Picture Play(std::istream& stream, const std::string& strCommand = "zoom 1.75")
    {
        OpenSession();
        winlite::JournalPlayer player(stream);
        strLog.clear();
        player.Play(static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()),
                    [&](const std::string& strGiven)
                    {
                        if (strGiven != strCommand)
                            return false;
                        pView->SetZoom(1.75);
                        return true;
                    });
        EXPECT_EQ(player.End(), "done");
        return Screen();
    }

    const std::string strPath = std::filesystem::temp_directory_path() / ("journal" + std::to_string(getpid()));
    CTestBitmap bitmap = CTestBitmap::Numbered(400, 300);
};

TEST_F(JournalTest, APlayedSessionComesToTheSamePixelsAndNotifications)
{
    const winlite::Picture recorded = Record();
    const std::string strRecorded = TakeLog();
    ASSERT_GT(strRecorded.size(), 20U);
    for (int i = 0; i < 2; ++i)
    {
        std::ifstream file(strPath);
        const winlite::Picture played = Play(file);
        EXPECT_EQ(played.vPixels, recorded.vPixels);
        EXPECT_EQ(TakeLog(), strRecorded);
    }
}

TEST_F(JournalTest, WhereProgramAndJournalPartIsSaid)
{
    Record();
    std::stringstream text;
    text << std::ifstream(strPath).rdbuf();
    const auto changed = [&](const std::string& strFrom, const std::string& strTo)
    {
        std::string strText = text.str();
        strText.replace(strText.find(strFrom), strFrom.size(), strTo);
        return std::istringstream(strText);
    };
    const auto failure = [&](std::istringstream stream) -> std::string
    {
        try
        {
            Play(stream);
            return "none";
        }
        catch (const std::runtime_error& error)
        {
            return error.what();
        }
    };
    EXPECT_NE(failure(changed(" paint ", " paint 9")).find("where the program has"), std::string::npos);
    EXPECT_NE(failure(changed("command zoom", "command dance")).find("cannot do \"dance 1.75\""), std::string::npos);
    EXPECT_NE(failure(changed(" command", " timer 1 77\n5 command")).find("has nothing to do with"), std::string::npos);
}

TEST(JournalFormatTest, WhatIsNoJournalIsRefusedByItsLine)
{
    const struct
    {
        const char* pszText;
        const char* pszError;
    } CASES[] = {
        {"", "does not begin with"},
        {"winlite journal 2\nscreen 1 1 scale 1\n", "does not begin with"},
        {"winlite journal 1\nscreen 1 1 scale 0\n", "line 2"},
        {"winlite journal 1\nscreen 1 1 scale nan\n", "line 2"},
        {"winlite journal 1\nscreen 1 1 scale 1\n5 paint 1\n5 paint\n", "line 4"},
        {"winlite journal 1\nscreen 1 1 scale 1\n5 paint 1 2\n", "line 3"},
        {"winlite journal 1\nscreen 1 1 scale 1\n5 move 1 99999999999 2 3\n", "line 3"},
        {"winlite journal 1\nscreen 1 1 scale 1\n99999999999 paint 1\n", "line 3"},
        {"winlite journal 1\nscreen 1 1 scale 1\n5 dance\n", "line 3"},
        {"winlite journal 1\nscreen 1 1 scale 1\n5 end x\n6 paint 1\n", "line 4"},
    };
    for (const auto& c : CASES)
    {
        std::istringstream stream(c.pszText);
        try
        {
            winlite::JournalPlayer player(stream);
            ADD_FAILURE() << c.pszText;
        }
        catch (const std::runtime_error& error)
        {
            EXPECT_NE(std::string(error.what()).find(c.pszError), std::string::npos) << error.what();
        }
    }
}

} // namespace
