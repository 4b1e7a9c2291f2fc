#include "support/RecordingTool.h"
#include "support/TestView.h"

#include <cstring>

namespace
{

/// Where virtual operations stand in their table: the first word of a pointer to each, less 1.
template<class... T>
std::vector<std::uintptr_t> SlotsOf(T... members)
{
    const auto slot = [](auto member)
    {
        std::uintptr_t uWord;
        std::memcpy(&uWord, &member, sizeof(uWord));
        return (uWord - 1) / sizeof(void*);
    };
    return {slot(members)...};
}

/// Shows what a derived class of a host may rely on.
class CLayoutProbe : public Pixtane::CPixtane
{
public:
    std::vector<const void*> Fields() const
    {
        return {&m_strWndClass,      &m_hDrawDib,          &m_iBmpWidth,     &m_iBmpHeight,
                &m_pBmpData,         &m_BmpInfo,           &m_pGdipBitmap,   &m_pCachedDC,
                &m_bCacheDirty,      &m_vCoverBmpData,     &m_CoverBmpInfo,  &m_rcCoverBmp,
                &m_bShowCover,       &m_bCoverImageCoords, &m_bRedrawLocked, &m_dbZoom,
                &m_dbLastZoom,       &m_bZooming,          &m_szZoomed,      &m_ptDispPos,
                &m_rcDrawDest,       &m_rcDrawSrc,         &m_rgnBitmap,     &m_ptMouse,
                &m_bShowScrollBar,   &m_bShowSelection,    &m_rgnSelect,     &m_rgnSelectScaled,
                &m_bNoSelectMask,    &m_iSelectMaskSize,   &m_vSelectMask,   &m_vSelectMask_Cur,
                &m_uBorderPhase,     &m_bmpPattern,        &m_brPattern,     &m_dcSelectBorderMask,
                &m_hSelectBorderBmp, &m_crBackground,      &m_sbHorz,        &m_sbVert,
                &m_bHScrollShown,    &m_bVScrollShown,     &m_pEmbeddedTool, &m_hDefCursor,
                &m_bDblClk};
    }

    static std::vector<std::uintptr_t> Slots()
    {
        return SlotsOf(&CLayoutProbe::GetClientRect, &CLayoutProbe::OnPaint, &CLayoutProbe::OnHScroll,
                       &CLayoutProbe::OnVScroll);
    }
};

} // namespace

TEST(InterfaceTest, FieldsAndVirtualOperationsStandInTheirOrder)
{
    const std::vector<const void*> vFields = CLayoutProbe().Fields();
    for (std::size_t i = 1; i < vFields.size(); ++i)
        EXPECT_LT(vFields[i - 1], vFields[i]) << "field " << i;
    const std::vector<std::uintptr_t> vSlots = CLayoutProbe::Slots();
    for (std::size_t i = 1; i < vSlots.size(); ++i)
        EXPECT_EQ(vSlots[i], vSlots[i - 1] + 1);

    using Tool = CRecordingTool;
    const std::vector<std::uintptr_t> vToolSlots =
        SlotsOf(&Tool::GetToolName, &Tool::OnLoad, &Tool::SerializeToolSettings, &Tool::UnserializeToolSettings,
                &Tool::OnUnload, &Tool::Reset, &Tool::OnPrePaint, &Tool::OnPostPaint, &Tool::OnSetCursor,
                &Tool::OnTimer, &Tool::OnLButtonDown, &Tool::OnLButtonUp, &Tool::OnLButtonDblClk, &Tool::OnMouseMove,
                &Tool::OnMouseWheel, &Tool::OnKeyDown, &Tool::OnKeyUp, &Tool::OnSysKeyDown, &Tool::OnSysKeyUp,
                &Tool::OnCaptureChanged, &Tool::OnZoomChanged, &Tool::OnDispPosChanged);
    for (std::size_t i = 0; i < vToolSlots.size(); ++i)
        EXPECT_EQ(vToolSlots[i], i + 2) << "the destructor has two entries of its own before the first";
}

TEST(InterfaceTest, WithoutTheModuleAViewCannotBeMade)
{
    AfxWinTerm();
    try
    {
        Pixtane::CPixtane view;
        ADD_FAILURE();
    }
    catch (const wchar_t* pszReason)
    {
        EXPECT_STREQ(pszReason, L"Failed to load bitmap from resouce!");
    }
    ASSERT_TRUE(AfxWinInit(nullptr, nullptr, nullptr, 0));
    Pixtane::CPixtane view;
    EXPECT_STREQ(view.GetRuntimeClass()->m_lpszClassName, "CPixtane");
    EXPECT_STREQ(view.GetRuntimeClass()->m_pBaseClass->m_lpszClassName, "CUXWnd");
    EXPECT_TRUE(view.IsKindOf(RUNTIME_CLASS(CWnd)));
    EXPECT_EQ(view.BmpInfo().bmiHeader.biSize, 40u);
    EXPECT_EQ(view.BmpInfo().bmiHeader.biBitCount, 32);
    EXPECT_EQ(view.CoverBmpInfo().bmiHeader.biPlanes, 1);
    EXPECT_EQ(view.GetZoom(), 1.0);
    EXPECT_NE(view.GetDefCursor(), nullptr);
}

TEST_F(CViewTest, CreateMakesAHiddenChildWithTwoHiddenBars)
{
    CTestView view;
    ASSERT_TRUE(view.Create(CRect(5, 6, 105, 86), pHost.get(), 500, 0));
    EXPECT_FALSE(view.IsWindowVisible());
    EXPECT_EQ(view.GetStyle() & (WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VISIBLE | WS_CLIPCHILDREN),
              WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP);
    EXPECT_EQ(view.m_sbHorz.GetDlgCtrlID(), 501);
    EXPECT_EQ(view.m_sbVert.GetDlgCtrlID(), 502);
    CRect rcBar;
    view.m_sbHorz.GetWindowRect(&rcBar);
    EXPECT_EQ(rcBar, CRect(15, 26 + 80 - BAR, 15 + 100 - BAR, 26 + 80));
    EXPECT_FALSE(CTestView().Create(CRect(0, 0, 10, 10), nullptr, 1, 0)) << "a child needs a parent";
}
