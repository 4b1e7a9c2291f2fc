#include "selection/RegionSelector.h"
#include "selection/SelectionModifier.h"
#include "support/RecordingTool.h"
#include "support/ShortMemory.h"
#include "support/TestView.h"

namespace
{

class OutOfMemoryTest : public CViewTest
{
protected:
    static constexpr int CX = 640, CY = 480;
};

TEST_F(OutOfMemoryTest, OperationsFailAndPutBackWhatWasBegun)
{
    std::vector<BYTE> vRagged(CX * CY);
    for (int i = 0; i < CX * CY; ++i)
        vRagged[i] = (i + i / CX) % 2 ? 255 : 0;
    std::vector<BYTE> vMask;
    CTestBitmap bitmap = CTestBitmap::Numbered(CX, CY);
    CRgn rgnRagged, rgn;
    ASSERT_TRUE(Pixtane::CPixtane::CreateRgnFromMask(rgnRagged, vRagged, CX, CY));
    CTestView maskless(TRUE);
    ASSERT_TRUE(maskless.Create(CRect(0, 0, 30, 20), pHost.get(), VIEW_ID + 5, BACKGROUND));
    Pixtane::EmbeddedTool::SelectionModifier modifier;
    Pixtane::EmbeddedTool::RegionSelector selector;
    selector.SetSelectMode(selector.SM_MAGICWAND);
    const struct
    {
        const char* pszName;
        std::function<bool()> fails;
    } vCases[] = {
        {"SetBitmap",
         [&]
         {
             return !pView->SetBitmap(bitmap.info, bitmap.vBits.data()) && !pView->pBmpData() && !pView->iBmpWidth() &&
                    !pView->rgnBitmap().GetSafeHandle() && PixelOf(Screen(), 150, 100) == BACKGROUND_PIXEL;
         }},
        {"CreateSelectMask", [&] { return !pView->CreateSelectMask(rgnRagged, vMask, CX, CY, 0) && vMask.empty(); }},
        {"CreateRgnFromMask", [&] { return !pView->CreateRgnFromMask(rgn, vRagged, CX, CY) && !rgn.GetSafeHandle(); }},
        {"FromBitmapToWnd", [&] { return pView->FromBitmapToWnd(rgnRagged, rgn), !rgn.GetSafeHandle(); }},
        {"SelectionModifier", [&] { return !pView->LoadEmbeddedTool(modifier); }},
        {"magic wand",
         [&]
         {
             selector.OnLButtonDown(0, {5, 5});
             selector.OnLButtonUp(0, {5, 5});
             return !maskless.GetSelectRegion(rgn);
         }},
        {"SelectColorRange", [&] { return selector.SelectColorRange(0, 255), !maskless.GetSelectRegion(rgn); }},
    };
    maskless.SetBitmap(bitmap.info, bitmap.vBits.data());
    maskless.LoadEmbeddedTool(selector);
    for (const auto& [pszName, fails] : vCases)
    {
        for (const Shortage eShortage : {Shortage::Standard, Shortage::Framework})
        {
            SCOPED_TRACE(pszName);
            pView->SetBitmap(bitmap.info, bitmap.vBits.data());
            pView->UpdateSelection(rgnRagged, vRagged);
            rgn.DeleteObject();
            LetMemoryRunOut(eShortage, CX * CY);
            EXPECT_TRUE(fails());
            EXPECT_TRUE(HasMemoryRunOut());
        }
    }
    pHost->answer = [](UINT) -> LRESULT { throw "a host's own exception"; };
    EXPECT_THROW(pView->SetBitmap(bitmap.info, bitmap.vBits.data()), const char*);
    EXPECT_EQ(pView->pBmpData(), nullptr);
    pHost->answer = {};
    maskless.UnloadEmbeddedTool();
    maskless.DestroyWindow();
}

TEST_F(OutOfMemoryTest, ThePaintThatEndsByAnExceptionEndsForTheToolToo)
{
    Show(CX, CY);
    CRecordingTool tool(strLog);
    pView->LoadEmbeddedTool(tool);
    tool.bLogPaints = true;
    tool.inside = [](const std::string& strCall)
    {
        if (strCall == "pre")
            LetMemoryRunOut(Shortage::Standard, 0);
    };
    pView->ShowCoverImage(FALSE, FALSE); // The rendering is drawn anew.
    strLog.clear();
    EXPECT_THROW(pView->UpdateWindow(), std::bad_alloc);
    EXPECT_EQ(TakeLog(), "pre post ");
    pView->UnloadEmbeddedTool();
}

} // namespace
