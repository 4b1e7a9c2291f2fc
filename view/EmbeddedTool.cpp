#include "view/EmbeddedTool.h"

namespace Pixtane
{

CPixtane::IEmbeddedTool::IEmbeddedTool() = default;
CPixtane::IEmbeddedTool::~IEmbeddedTool() = default;

int CPixtane::IEmbeddedTool::OnLoad(CPixtane& view)
{
    pView = &view;
    return TRUE;
}

int CPixtane::IEmbeddedTool::UnserializeToolSettings(const std::vector<BYTE>& vData)
{
    constexpr std::size_t WORD_SIZE = 4;
    return vData.size() > WORD_SIZE && vData[0] <= uSettingsVersion;
}

void CPixtane::IEmbeddedTool::Reset() {}
void CPixtane::IEmbeddedTool::OnZoomChanged() {}
void CPixtane::IEmbeddedTool::OnDispPosChanged() {}

CPoint CPixtane::IEmbeddedTool::CursorInView() const
{
    CPoint ptCursor(0, 0);
    ::GetCursorPos(&ptCursor);
    pView->ScreenToClient(&ptCursor);
    return ptCursor;
}

bool CPixtane::IEmbeddedTool::IsCursorOverView() const
{
    CRect rcView(0, 0, 0, 0);
    pView->GetClientRect(&rcView);
    return rcView.PtInRect(CursorInView());
}

void CPixtane::IEmbeddedTool::CaptureMouse()
{
    // Captured again, a window is told that it lost the capture, to itself.
    if (::GetCapture() != pView->m_hWnd)
        pView->SetCapture();
}

void CPixtane::IEmbeddedTool::ReleaseMouse()
{
    if (IsHosted() && ::GetCapture() == pView->m_hWnd)
        ::ReleaseCapture();
}

} // namespace Pixtane
