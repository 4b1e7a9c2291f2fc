#include "document/PngFile.h"
#include "headless/HeadlessDesktop.h"
#include "program/Retoucher.h"
#include "support/TestFolder.h"
#include "support/User.h"

#include <gtest/gtest.h>
#include <new>
#include <QCoreApplication>
#include <thread>

namespace
{

/// The program with its long work in the background of an event loop.
class JobTest : public testing::Test
{
protected:
    void SetUp() override
    {
        host.MoveWindow(0, 0, 600, 400);
        host.ShowWindow(SW_SHOW);
        retoucher.emplace(host, CRetoucher::LongWork::InBackground);
        retoucher->SetListener([this](const std::string& strError) { strErrors += strError; });
        CPhoto photo(900, 700);
        for (std::size_t i = 0; i < photo.ByteCount(); ++i)
            photo.Pixels()[i] = static_cast<BYTE>(60 + i / 9 % 100);
        retoucher->ShowPhoto(std::move(photo));
        Do("brightness-contrast 10 0");
        Do("tool ellipse");
        CUser(host.View()).Drag({100, 100}, {300, 300});
    }

    /// A photo as a file, to open.
    std::string PhotoFile() const
    {
        const std::string strPath = winlite::ToUtf8(folder + L"/photo.png");
        const std::vector<std::uint32_t> vPixels(20 * 10, 0x123456);
        std::string strError;
        EXPECT_TRUE(WritePng(strPath, 20, 10, vPixels.data(), strError)) << strError;
        return strPath;
    }
    std::vector<std::string> Jobs() const
    {
        return {"auto-contrast",        "brightness-contrast 40 20", "revert", "grow 9", "shrink 9", "heal 450 350 500",
                "feather-selection 20", "open " + PhotoFile()};
    }

    static void Begin(CRetoucher& program, const std::string& strCommand)
    {
        std::string strError;
        EXPECT_TRUE(program.Execute(strCommand, strError)) << strCommand << ": " << strError;
    }
    void Settle()
    {
        while (retoucher->IsBusy())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        CUser::Settle();
    }
    void Do(const std::string& strCommand)
    {
        Begin(*retoucher, strCommand);
        Settle();
    }

    /// All that a person would see changed.
    std::string Seen()
    {
        const ProgramState state = retoucher->State();
        CPhoto& photo = *retoucher->Photo();
        const std::string_view pixels(reinterpret_cast<const char*>(photo.Pixels()), photo.ByteCount());
        const std::vector<BYTE>& vMask = host.View().vSelectMask();
        const std::string_view mask(reinterpret_cast<const char*>(vMask.data()), vMask.size());
        return state.strUndo + "|" + state.strRedo + "|" + std::to_string(std::hash<std::string_view>()(pixels)) + "|" +
               std::to_string(std::hash<std::string_view>()(mask)) + "|" + std::to_string(state.uPhotos);
    }

    int iArguments = 1;
    char szName[5] = "test";
    char* vArguments[2] = {szName, nullptr};
    QCoreApplication application{iArguments, vArguments};
    CTestFolder folder;
    CViewHost host;
    std::optional<CRetoucher> retoucher;
    std::string strErrors;
};

TEST_F(JobTest, AJobThatIsCancelledAtAnyMomentHasNotBeen)
{
    const std::string strBefore = Seen();
    for (const std::string& strJob : Jobs())
    {
        // At its very beginning, in its middle, and when it is done but not yet committed.
        for (const int iPercent : {0, 1, 50, 100})
        {
            Begin(*retoucher, strJob);
            while (retoucher->State().work->iPercent < iPercent)
                std::this_thread::yield();
            Do("cancel");
            EXPECT_EQ(Seen(), strBefore) << strJob << " at " << iPercent;
        }
    }
    EXPECT_EQ(strErrors, "");
    for (const std::string& strJob : Jobs())
    {
        const std::string strNow = Seen();
        Do(strJob);
        EXPECT_NE(Seen(), strNow) << strJob;
    }
}

TEST_F(JobTest, WhatComesMeanwhileHasItsTurnAndScrollingGoesOn)
{
    std::string strOrder;
    const double dbBefore = host.View().dbZoom();
    Begin(*retoucher, "auto-contrast");
    Begin(*retoucher, "zoom-in");
    EXPECT_GT(host.View().dbZoom(), dbBefore) << "at once";
    retoucher->WhenIdle([&] { strOrder += retoucher->State().strUndo + "; "; });
    Begin(*retoucher, "grow 5");
    retoucher->WhenIdle([&] { strOrder += retoucher->State().strUndo + "; "; });
    Begin(*retoucher, "select-all");
    retoucher->WhenIdle([&] { strOrder += retoucher->State().strUndo + "; "; });
    Begin(*retoucher, "open /no/such/file.png");
    Begin(*retoucher, "undo");
    Settle();
    EXPECT_EQ(strOrder, "Ellipse Selection; Grow Selection; Select All; ") << "opening a photo cancels what runs";
    EXPECT_NE(strErrors.find("/no/such/file.png"), std::string::npos);
    EXPECT_EQ(retoucher->State().strUndo, "Grow Selection");
    EXPECT_FALSE(retoucher->State().work);
}

TEST_F(JobTest, ClicksOnSpotsQueueWhileOneIsRemoved)
{
    Do("select-none");
    Do("tool spot");
    Do("spot-size 500");
    CUser user(host.View());
    for (const int x : {100, 200, 300, 400})
    {
        user.Click({x, 150});
        Begin(*retoucher, "zoom-in"); // Goes on meanwhile.
        Begin(*retoucher, "zoom-out");
    }
    Settle();
    int nSpots = 0;
    for (; retoucher->State().strUndo == "Remove Spot"; ++nSpots)
        Do("undo");
    EXPECT_EQ(nSpots, 4);
}

TEST_F(JobTest, AnotherPhotoAndTheEndOfTheProgramEndAJob)
{
    Begin(*retoucher, "grow 50");
    Begin(*retoucher, "open " + PhotoFile());
    Settle();
    EXPECT_EQ(retoucher->State().strUndo, "") << "nothing came of the first";
    EXPECT_EQ(retoucher->State().szPhoto, CSize(20, 10));
    for (const std::string& strJob : Jobs())
    {
        Begin(*retoucher, strJob);
        retoucher.emplace(host, CRetoucher::LongWork::InBackground);
        retoucher->ShowPhoto(CPhoto(900, 700));
        Do("select-all");
        QCoreApplication::processEvents();
        EXPECT_EQ(retoucher->State().strUndo, "Select All") << strJob;
    }
}

TEST_F(JobTest, MemoryThatRunsOutIsAMessage)
{
    CJobs jobs(true);
    std::string strError;
    bool bCommitted = false;
    bool bDropped = false;
    jobs.SetListener([&](const std::string& strTold) { strError += strTold; });
    const Job job = {"Work", [](CProgress&, std::string&) -> bool { throw std::bad_alloc(); },
                     [&] { bCommitted = true; }, [&] { bDropped = true; }};
    jobs.Run(job, strError);
    while (jobs.IsBusy())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_TRUE(bDropped && !bCommitted);
    EXPECT_NE(strError.find("memory"), std::string::npos);
    strError.clear();
    EXPECT_FALSE(CJobs(false).Run(job, strError));
    EXPECT_NE(strError.find("memory"), std::string::npos);
}

} // namespace
