#include "support/TestView.h"

#include <cstring>

namespace
{

/// Shows what a derived class of a host may rely on: the order of fields and of virtual operations.
class CLayoutProbe : public Pixtane::CPixtane
{
public:
    static std::vector<std::ptrdiff_t> FieldOffsets(CLayoutProbe& view)
    {
        const auto offset = [&view](const auto& field)
        { return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&view); };
        return {offset(view.m_strWndClass),      offset(view.m_hDrawDib),          offset(view.m_iBmpWidth),
                offset(view.m_iBmpHeight),       offset(view.m_pBmpData),          offset(view.m_BmpInfo),
                offset(view.m_pGdipBitmap),      offset(view.m_pCachedDC),         offset(view.m_bCacheDirty),
                offset(view.m_vCoverBmpData),    offset(view.m_CoverBmpInfo),      offset(view.m_rcCoverBmp),
                offset(view.m_bShowCover),       offset(view.m_bCoverImageCoords), offset(view.m_bRedrawLocked),
                offset(view.m_dbZoom),           offset(view.m_dbLastZoom),        offset(view.m_bZooming),
                offset(view.m_szZoomed),         offset(view.m_ptDispPos),         offset(view.m_rcDrawDest),
                offset(view.m_rcDrawSrc),        offset(view.m_rgnBitmap),         offset(view.m_ptMouse),
                offset(view.m_bShowScrollBar),   offset(view.m_bShowSelection),    offset(view.m_rgnSelect),
                offset(view.m_rgnSelectScaled),  offset(view.m_bNoSelectMask),     offset(view.m_iSelectMaskSize),
                offset(view.m_vSelectMask),      offset(view.m_vSelectMask_Cur),   offset(view.m_uBorderPhase),
                offset(view.m_bmpPattern),       offset(view.m_brPattern),         offset(view.m_dcSelectBorderMask),
                offset(view.m_hSelectBorderBmp), offset(view.m_crBackground),      offset(view.m_sbHorz),
                offset(view.m_sbVert),           offset(view.m_bHScrollShown),     offset(view.m_bVScrollShown),
                offset(view.m_pEmbeddedTool),    offset(view.m_hDefCursor),        offset(view.m_bDblClk)};
    }

    static std::vector<std::uintptr_t> VirtualSlots()
    {
        return {Slot(&CLayoutProbe::GetClientRect), Slot(&CLayoutProbe::OnPaint), Slot(&CLayoutProbe::OnHScroll),
                Slot(&CLayoutProbe::OnVScroll)};
    }

private:
    /// Where a virtual operation stands in the table: the first word of a pointer to it, less 1.
    template<class T>
    static std::uintptr_t Slot(T pMember)
    {
        std::uintptr_t uWord;
        std::memcpy(&uWord, &pMember, sizeof(uWord));
        return (uWord - 1) / sizeof(void*);
    }
};

} // namespace

TEST(InterfaceTest, FieldsStandInTheirOrder)
{
    CLayoutProbe view;
    const std::vector<std::ptrdiff_t> vOffsets = CLayoutProbe::FieldOffsets(view);
    for (std::size_t i = 1; i < vOffsets.size(); ++i)
        EXPECT_LT(vOffsets[i - 1], vOffsets[i]) << "field " << i;
}

TEST(InterfaceTest, NewVirtualOperationsFollowEachOther)
{
    const std::vector<std::uintptr_t> vSlots = CLayoutProbe::VirtualSlots();
    for (std::size_t i = 1; i < vSlots.size(); ++i)
        EXPECT_EQ(vSlots[i], vSlots[i - 1] + 1);
}

TEST(InterfaceTest, RunTimeClassAndFieldsOfAFreshView)
{
    Pixtane::CPixtane view;
    const CRuntimeClass* pClass = view.GetRuntimeClass();
    EXPECT_STREQ(pClass->m_lpszClassName, "CPixtane");
    EXPECT_STREQ(pClass->m_pBaseClass->m_lpszClassName, "CUXWnd");
    EXPECT_TRUE(view.IsKindOf(RUNTIME_CLASS(CWnd)));
    EXPECT_EQ(view.BmpInfo().bmiHeader.biSize, 40u);
    EXPECT_EQ(view.BmpInfo().bmiHeader.biBitCount, 32);
    EXPECT_EQ(view.CoverBmpInfo().bmiHeader.biPlanes, 1);
    EXPECT_EQ(view.GetZoom(), 1.0);
    EXPECT_NE(view.GetDefCursor(), nullptr);
    EXPECT_EQ(view.pEmbeddedTool(), nullptr);
}

TEST(InterfaceTest, WithoutTheModuleAViewCannotBeMade)
{
    AfxWinTerm();
    EXPECT_THROW(Pixtane::CPixtane(), const wchar_t*);
    try
    {
        Pixtane::CPixtane view;
    }
    catch (const wchar_t* pszReason)
    {
        EXPECT_STREQ(pszReason, L"Failed to load bitmap from resouce!");
    }
    ASSERT_TRUE(AfxWinInit(nullptr, nullptr, nullptr, 0));
    Pixtane::CPixtane view;
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
