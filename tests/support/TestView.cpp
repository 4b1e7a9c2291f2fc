#include "support/TestView.h"

#include "base/HandleTable.h"
#include "user/Workers.h"

#include "view/Notifications.h"

#include <cstring>
#include <map>
#include <sstream>

namespace
{

/// The picture a screen of 8 bits a channel shows of a five-bit channel.
std::uint32_t Widened(std::uint32_t uFiveBits) { return uFiveBits << 3 | uFiveBits >> 2; }

/// A notification's name without its prefix.
std::string NameOf(UINT uCode)
{
#define NAMED(name)                                                                                                    \
    {                                                                                                                  \
        Pixtane::PVN_##name, #name                                                                                     \
    }
    static const std::map<UINT, std::string> s_Names = {
        NAMED(MOUSEMOVE),           NAMED(LBUTTONDOWN),       NAMED(LBUTTONUP),         NAMED(RBUTTONDOWN),
        NAMED(RBUTTONUP),           NAMED(DISPLAYCHANGED),    NAMED(SELECT_NEW),        NAMED(SELECT_ADD),
        NAMED(SELECT_SUBTRACT),     NAMED(SELECT_INTERSECT),  NAMED(SELECTION_CLEARED), NAMED(SELECTION_INVERTED),
        NAMED(SELECTION_MOVED),     NAMED(IMAGEMOVER_BEGIN),  NAMED(IMAGEMOVER_MOVING), NAMED(IMAGEMOVER_END),
        NAMED(CLONESTAMP_NOSOURCE), NAMED(SELMOD_LEFT),       NAMED(SELMOD_TOP),        NAMED(SELMOD_RIGHT),
        NAMED(SELMOD_BOTTOM),       NAMED(SELMOD_SIZE),       NAMED(SELMOD_RECT),       NAMED(DODGE_BEGIN),
        NAMED(BURN_BEGIN),          NAMED(BURN_END),          NAMED(CLONESTAMP_SOURCE), NAMED(CLONESTAMP_BEGIN),
        NAMED(CLONESTAMP_END),      NAMED(EFFECTBRUSH_BEGIN), NAMED(EFFECTBRUSH_END),   NAMED(DODGE_END),
        NAMED(SPOTREMOVER_SPOT),    NAMED(REDEYE_DETECT),     NAMED(COLORPICKER_COLOR), NAMED(HORILINE_DRAWN),
        NAMED(MOVABLERECT_MOVED)};
#undef NAMED
    const auto it = s_Names.find(uCode);
    return it == s_Names.end() ? "NOTIFICATION_" + std::to_string(uCode) : it->second;
}

} // namespace

CTestBitmap::CTestBitmap(int cx, int cy, int iBitsPixel)
{
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = cx;
    info.bmiHeader.biHeight = cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(iBitsPixel);
    vBits.resize(static_cast<std::size_t>((cx * iBitsPixel + 31) / 32 * 4) * cy);
    info.bmiHeader.biSizeImage = static_cast<DWORD>(vBits.size());
}

CTestBitmap CTestBitmap::Numbered(int cx, int cy, int iBitsPixel)
{
    CTestBitmap bitmap(cx, cy, iBitsPixel);
    for (int y = 0; y < cy; ++y)
    {
        for (int x = 0; x < cx; ++x)
            bitmap.Set(x, y,
                       static_cast<std::uint32_t>(x * 37 % 256 << 16 | y * 53 % 256 << 8 | (x * 8 + y * 24) % 256));
    }
    return bitmap;
}

BYTE* CTestBitmap::Pixel(int x, int y)
{
    const BITMAPINFOHEADER& header = info.bmiHeader;
    const std::size_t nRow = static_cast<std::size_t>((header.biWidth * header.biBitCount + 31) / 32 * 4);
    return &vBits[nRow * (header.biHeight - 1 - y) + static_cast<std::size_t>(x * header.biBitCount / 8)];
}

void CTestBitmap::Set(int x, int y, std::uint32_t uRgb)
{
    if (info.bmiHeader.biBitCount != 16)
    {
        std::memcpy(Pixel(x, y), &uRgb, info.bmiHeader.biBitCount / 8);
        return;
    }
    const auto uPacked =
        static_cast<std::uint16_t>((uRgb >> 19 & 31) << 10 | (uRgb >> 11 & 31) << 5 | (uRgb >> 3 & 31));
    std::memcpy(Pixel(x, y), &uPacked, 2);
}

std::uint32_t CTestBitmap::At(int x, int y) const
{
    std::uint32_t uValue = 0;
    std::memcpy(&uValue, const_cast<CTestBitmap*>(this)->Pixel(x, y), info.bmiHeader.biBitCount / 8);
    if (info.bmiHeader.biBitCount != 16)
        return uValue & 0xFFFFFF;
    return Widened(uValue >> 10 & 31) << 16 | Widened(uValue >> 5 & 31) << 8 | Widened(uValue & 31);
}

BOOL CTestHost::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* plResult)
{
    const NMHDR* pNotify = reinterpret_cast<const NMHDR*>(lParam);
    EXPECT_EQ(wParam, reinterpret_cast<WPARAM>(pNotify->hwndFrom));
    EXPECT_EQ(::GetParent(pNotify->hwndFrom), m_hWnd);
    EXPECT_EQ(pNotify->idFrom, static_cast<UINT_PTR>(::GetDlgCtrlID(pNotify->hwndFrom)));
    if (pLog)
        *pLog += NameOf(pNotify->code) + " ";
    const UINT uCode = pNotify->code;
    if (uCode == Pixtane::PVN_CLONESTAMP_NOSOURCE)
        delete pNotify; // It is posted, and its receiver's.
    *plResult = answer ? answer(uCode) : 0;
    return TRUE;
}

LRESULT CTestHost::WindowProc(UINT uMessage, WPARAM wParam, LPARAM lParam)
{
    if (uMessage == WM_MOUSEWHEEL && pLog)
        *pLog += "parent-wheel ";
    return CWnd::WindowProc(uMessage, wParam, lParam);
}

void CViewTest::SetUp()
{
    m_nHandles = winlite::OpenHandleCount();
    Open(300, 200);
}

void CViewTest::TearDown()
{
    Close();
    EXPECT_TRUE(winlite::Workers::WaitUntilAllEnded(std::chrono::minutes(1)));
    EXPECT_EQ(winlite::OpenHandleCount(), m_nHandles);
}

void CViewTest::Open(int cx, int cy)
{
    Close();
    pHost = std::make_unique<CTestHost>();
    ASSERT_TRUE(
        pHost->CreateEx(0, AfxRegisterWndClass(0), L"host", WS_VISIBLE, CRect(10, 20, 10 + cx, 20 + cy), nullptr, 0));
    AfxGetThread()->m_pMainWnd = pHost.get();
    pView = std::make_unique<CTestView>();
    ASSERT_TRUE(pView->Create(CRect(0, 0, cx, cy), pHost.get(), VIEW_ID, BACKGROUND));
    pView->ShowWindow(SW_SHOW);
    Pump();
    pHost->pLog = &strLog;
}

void CViewTest::Close()
{
    if (pView)
        pView->DestroyWindow();
    pView.reset();
    pHost.reset();
    AfxGetThread()->m_pMainWnd = nullptr;
}

void CViewTest::Pump() { static_cast<winlite::HeadlessDesktop&>(winlite::TheDesktop()).DispatchPending(); }

CTestBitmap& CViewTest::Show(int cx, int cy, int iBitsPixel)
{
    CTestBitmap bitmap = CTestBitmap::Numbered(cx, cy, iBitsPixel);
    EXPECT_TRUE(pView->SetBitmap(bitmap.info, bitmap.vBits.data()));
    return m_Shown = std::move(bitmap);
}

void CViewTest::Select(const CRect& rc)
{
    CRgn rgn;
    rgn.CreateRectRgnIndirect(&rc);
    std::vector<BYTE> vMask;
    Pixtane::CPixtane::CreateSelectMask(rgn, vMask, pView->iBmpWidth(), pView->iBmpHeight(), 0);
    pView->UpdateSelection(rgn, vMask);
}

std::string CViewTest::Told()
{
    std::istringstream log(TakeLog());
    std::string strTold;
    for (std::string strWord; log >> strWord;)
        strTold += strWord.find('_') != std::string::npos ? strWord + " " : "";
    return strTold;
}

void CViewTest::InsideFirst(UINT uCode, std::function<void()> act)
{
    pHost->answer = [uCode, act = std::move(act), bDone = false](UINT uTold) mutable
    {
        if (uTold == uCode && !std::exchange(bDone, true))
            act();
        return LRESULT{0};
    };
}

winlite::Picture CViewTest::Screen()
{
    Pump();
    return winlite::WindowPicture(pHost->m_hWnd);
}

std::uint32_t CViewTest::PixelOf(const winlite::Picture& picture, int x, int y)
{
    return picture.vPixels.at(static_cast<std::size_t>(y) * picture.cx + x) & 0xFFFFFF;
}
