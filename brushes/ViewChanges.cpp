#include "brushes/ViewChanges.h"

#include "view/Rounding.h"

namespace Pixtane
{

CPoint ViewState::ToBitmap(CPoint ptClient) const
{
    return bHasBitmap ? BitmapPixelAt(ptClient, ptDispPos, dbZoom) : ptClient;
}

void CViewChanges::Begin(const ViewState& state)
{
    m_First = state;
    m_Last = state;
    m_vWaiting.clear();
    m_evtPending.ResetEvent();
}

void CViewChanges::Tell(const ViewState& state)
{
    if (state == m_Last)
        return;
    m_Last = state;
    const CSingleLock lock(&m_csWaiting, TRUE);
    m_vWaiting.push_back(state);
    m_evtPending.SetEvent();
}

ViewState CViewChanges::TakeUp()
{
    const CSingleLock lock(&m_csWaiting, TRUE);
    if (m_vWaiting.empty())
        return m_First; // Only a replay that has parted from its recording comes here.
    const ViewState state = m_vWaiting.front();
    m_vWaiting.pop_front();
    if (m_vWaiting.empty())
        m_evtPending.ResetEvent();
    return state;
}

} // namespace Pixtane
