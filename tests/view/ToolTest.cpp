#include "support/LogRecorder.h"
#include "support/RecordingTool.h"
#include "support/TestView.h"
#include "view/ToolSettings.h"

class ToolTest : public CViewTest
{
protected:
    CTestBitmap bitmap = CTestBitmap::Numbered(100, 80);
    CRecordingTool first{strLog, L"first"};
    CRecordingTool second{strLog, L"second"};
};

TEST_F(ToolTest, LoadingUnloadsTheToolBefore)
{
    EXPECT_TRUE(pView->LoadEmbeddedTool(first));
    EXPECT_EQ(pView->pEmbeddedTool(), &first);
    EXPECT_EQ(first.View(), pView.get());
    EXPECT_TRUE(pView->LoadEmbeddedTool(first));
    EXPECT_TRUE(pView->LoadEmbeddedTool(second));
    pView->ResetEmbeddedTool();
    EXPECT_EQ(TakeLog(), "load unload load unload load reset ");
    first.results["load"] = 0;
    EXPECT_FALSE(pView->LoadEmbeddedTool(first));
    EXPECT_EQ(pView->pEmbeddedTool(), nullptr) << "the tool before is gone all the same";
    pView->UnloadEmbeddedTool();
    pView->ResetEmbeddedTool();
    EXPECT_EQ(TakeLog(), "unload load ");
}

TEST_F(ToolTest, PaintsZoomsAndScrollsReachTheTool)
{
    pView->LoadEmbeddedTool(first);
    first.bLogPaints = true;
    Screen();
    strLog.clear();
    pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    EXPECT_EQ(TakeLog(), "pre post DISPLAYCHANGED zoomed ");
    pView->SetZoom(4);
    EXPECT_EQ(TakeLog(), "pre post DISPLAYCHANGED zoomed ");
    pView->SetDispPosition(3, 4);
    EXPECT_EQ(TakeLog(), "pre post DISPLAYCHANGED scrolled ");
    pView->SetDispPosition(3, 4);
    EXPECT_EQ(TakeLog(), "pre post ") << "not moved: no layout, nobody told";
    pView->LockRedraw();
    pView->UnlockRedraw();
    pView->UnlockRedraw();
    EXPECT_EQ(TakeLog(), "pre post DISPLAYCHANGED ");
    pView->UnloadEmbeddedTool();
}

TEST_F(ToolTest, ToolsMayUnloadOrReplaceThemselvesFromAnyCall)
{
    pView->SetBitmap(bitmap.info, bitmap.vBits.data());
    for (Pixtane::CPixtane::IEmbeddedTool* const pNext : {&first, &second, static_cast<CRecordingTool*>(nullptr)})
    {
        for (const std::string strFrom : {"pre", "post", "down", "up", "double", "move", "wheel", "key", "keyup",
                                          "syskey", "syskeyup", "capture", "timer", "zoomed", "scrolled"})
        {
            SCOPED_TRACE(strFrom);
            first.bLogPaints = second.bLogPaints = true;
            bool bDone = false;
            first.inside = [&](const std::string& strCall)
            {
                if (strCall != strFrom || std::exchange(bDone, true))
                    return;
                pNext ? static_cast<void>(pView->LoadEmbeddedTool(*pNext)) : pView->UnloadEmbeddedTool();
            };
            ASSERT_TRUE(pView->LoadEmbeddedTool(first));
            pView->SetZoom(8);
            pView->SetDispPosition(40, 40);
            for (const UINT uMessage : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP, WM_MOUSEMOVE,
                                        WM_MOUSEWHEEL, WM_TIMER, WM_KEYDOWN, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSKEYUP})
                pView->SendMessage(uMessage, 100, MAKELPARAM(5, 5));
            pView->SendMessage(WM_CAPTURECHANGED, 0, 0);
            // Who did not see a paint begin does not see it end.
            EXPECT_EQ(TakeLog().find(pNext ? "pre unload load post" : "pre unload post"), std::string::npos);
            EXPECT_EQ(pView->pEmbeddedTool(), pNext);
            pView->UnloadEmbeddedTool();
            first.inside = nullptr;
            pView->SetZoom(1);
        }
    }
}

TEST_F(ToolTest, LoadsFromInsideLoadAndUnloadAreRefused)
{
    int iResult = -1;
    first.inside = [&](const std::string& strCall)
    {
        if (strCall == "load" || strCall == "unload")
            iResult = pView->LoadEmbeddedTool(second);
    };
    EXPECT_TRUE(pView->LoadEmbeddedTool(first));
    EXPECT_EQ(iResult, FALSE);
    iResult = -1;
    pView->UnloadEmbeddedTool();
    EXPECT_EQ(iResult, FALSE);
    EXPECT_EQ(pView->pEmbeddedTool(), nullptr);
    EXPECT_EQ(TakeLog(), "load unload ");
}

TEST_F(ToolTest, TheBaseTakesAnythingLongEnoughThatIsNotNewer)
{
    const std::pair<std::vector<BYTE>, int> vCases[] = {{{}, FALSE},
                                                        {{1, 0, 0, 0}, FALSE},
                                                        {{1, 0, 0, 0, 0}, TRUE},
                                                        {{2, 0, 0, 0, 0}, FALSE},
                                                        {{1, 1, 0, 0, 9, 9, 9, 9}, TRUE},
                                                        {{0, 0, 0, 0, 0}, TRUE}};
    for (const auto& [vData, iTaken] : vCases)
        EXPECT_EQ(first.UnserializeToolSettings(vData), iTaken);
}

TEST_F(ToolTest, SettingsOfEveryLengthAndVersion)
{
    CLogRecorder records;
    static constexpr Pixtane::ToolSettingsLayout LAYOUTS[] = {{1, 1}, {3, 2}};
    for (BYTE uVersion = 0; uVersion < 6; ++uVersion)
    {
        for (std::size_t nBytes = 0; nBytes < 20; ++nBytes)
        {
            std::vector<BYTE> vData(nBytes, 0x80);
            if (nBytes)
                vData[0] = uVersion;
            records.vRecords.clear();
            const auto blob = Pixtane::ReadToolSettings(vData, 3, LAYOUTS, L"Some::Operation");
            const bool bAcceptable = nBytes > 4 && uVersion <= 3;
            const std::size_t nWanted = uVersion == 1 ? 8 : uVersion == 3 ? 12 : nBytes;
            ASSERT_EQ(blob.has_value(), bAcceptable && nBytes == nWanted) << int{uVersion} << ", " << nBytes;
            if (blob)
                continue;
            ASSERT_EQ(records.vRecords.size(), 1u);
            EXPECT_TRUE(records.vRecords[0].strModule == L"Pixtane" &&
                        records.vRecords[0].strFunction == L"Some::Operation");
            EXPECT_EQ(records.Take(),
                      bAcceptable ? "1 Invalid parameter data size for version " + std::to_string(uVersion) + ".|"
                                  : "1 Invalid parameter data size or version.|");
        }
    }
    std::vector<BYTE> vData(50, 7);
    Pixtane::WriteToolSettings(vData, 3, {0x01020304, 0xFFFFFFFF});
    EXPECT_EQ(vData, (std::vector<BYTE>{3, 0, 0, 0, 4, 3, 2, 1, 255, 255, 255, 255}));
    EXPECT_EQ(Pixtane::ReadToolSettings(vData, 3, LAYOUTS, L"")->vSettings,
              (std::vector<DWORD>{0x01020304, 0xFFFFFFFF}));
}
