#include "journal/JournalPlayer.h"
#include "journal/JournalWriter.h"
#include "support/InvertBrush.h"
#include "support/User.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace
{

/// Strokes of a brush, whose worker asks for pointer and button, recorded and played again.
class WorkerJournalTest : public CViewTest
{
protected:
    static winlite::HeadlessDesktop& Desktop() { return static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()); }

    /// The results of all strokes that a session comes to.
    std::vector<BYTE> ResultsOf(const std::function<void()>& session)
    {
        CInvertBrush brush;
        brush.SetPen(CInvertBrush::SketchPen::COMPUTED, 15, 50, 80);
        Open(300, 200);
        Show(400, 300);
        pView->SetZoom(1.5);
        pView->LoadEmbeddedTool(brush);
        std::vector<BYTE> vResults;
        pHost->answer = [&](UINT uCode)
        {
            BITMAPINFO info = {};
            if (const BYTE* pResult = uCode == Pixtane::PVN_DODGE_END ? brush.GetBitmap(info) : nullptr)
                vResults.insert(vResults.end(), pResult, pResult + info.bmiHeader.biSizeImage);
            return 0;
        };
        session();
        pView->UnloadEmbeddedTool(); // A stroke that runs on ends here.
        return vResults;
    }

    /// Two strokes, with zoom and scrolling in between.
    void PlayStrokes(CUser& user)
    {
        for (int i = 0; i < 12; ++i)
        {
            i % 6 ? user.Move(CPoint(40 + 19 * i, 50 + 77 * i % 120)) : user.Press(CPoint(20 + 3 * i, 30));
            user.Wheel(i % 2 ? 120 : -120, CPoint(50, 60));
            winlite::TheJournal().OnCommand(i % 2 ? "zoom in" : "zoom out");
            pView->SetZoom(i % 2 ? 3 : 1.5);
            EXPECT_TRUE(Desktop().WaitUntilWorkersAskedForPointer(9));
            if (i % 6 == 5)
                user.Release(CPoint(130, 90)), user.Wait(520); // no double click
        }
    }

    std::vector<BYTE> Play()
    {
        return ResultsOf(
            [this]
            {
                try
                {
                    std::ifstream file(strPath);
                    winlite::JournalPlayer player(file);
                    player.Play(Desktop(), [this](const std::string& strCommand)
                                { return pView->SetZoom(strCommand == "zoom in" ? 3 : 1.5); });
                }
                catch (const std::runtime_error& error)
                {
                    strParted = error.what();
                }
            });
    }

    std::string Journal() const
    {
        std::stringstream text;
        text << std::ifstream(strPath).rdbuf();
        return text.str();
    }

    void TearDown() override
    {
        CViewTest::TearDown();
        std::filesystem::remove(strPath);
    }

    std::string strParted;
    const std::string strPath = std::filesystem::temp_directory_path() / ("workers" + std::to_string(getpid()));
};

TEST_F(WorkerJournalTest, StrokesComeBackToThePixel)
{
    const std::vector<BYTE> vRecorded = ResultsOf(
        [this]
        {
            winlite::JournalWriter journal(strPath);
            CUser user(*pView);
            PlayStrokes(user);
        });
    ASSERT_EQ(vRecorded.size(), 2U * 400 * 300 * 4);
    const std::string strText = Journal();
    int nAnswers = 0;
    for (std::size_t i = 0; (i = strText.find(" worker-pointer ", i + 1)) != std::string::npos; ++nAnswers)
    {
    }
    EXPECT_GE(nAnswers, 100);
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(Play() == vRecorded) << strParted;
    EXPECT_EQ(strParted, "");
}

TEST_F(WorkerJournalTest, AStrokeThatTheRecordingLeavesOpenIsPlayedToItsEnd)
{
    ResultsOf(
        [this]
        {
            winlite::JournalWriter journal(strPath);
            CUser user(*pView);
            user.Press(CPoint(20, 30));
            user.Move(CPoint(200, 130));
            EXPECT_TRUE(Desktop().WaitUntilWorkersAskedForPointer(20)); // after the last input
        });
    EXPECT_FALSE(Play().empty());
    EXPECT_EQ(strParted, "");
}

TEST_F(WorkerJournalTest, AWorkerThatAsksForSomethingElseParts)
{
    ResultsOf(
        [this]
        {
            winlite::JournalWriter journal(strPath);
            CUser user(*pView);
            user.Press(CPoint(20, 30));
            EXPECT_TRUE(Desktop().WaitUntilWorkersAskedForPointer(2));
        });
    std::string strText = Journal();
    const std::string strWord = " worker-origin ";
    strText.replace(strText.find(strWord), strWord.size(), " worker-pointer ");
    std::ofstream(strPath) << strText;
    Play();
    EXPECT_NE(strParted.find("\"worker-origin\" of the same worker"), std::string::npos) << strParted;
}

} // namespace
