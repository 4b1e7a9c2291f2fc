#include "document/History.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace
{

constexpr std::size_t MOST_BYTES = std::size_t{512} << 20;

std::size_t BytesBeyond(const CHistory::State& state, const CHistory::State& earlier)
{
    return state.pixels.BytesBeyond(earlier.pixels) + state.mask.BytesBeyond(earlier.mask) +
           state.vSelected.size() * sizeof(RECT);
}

bool SameRects(const std::vector<RECT>& v1, const std::vector<RECT>& v2)
{
    return v1.size() == v2.size() && (v1.empty() || std::memcmp(v1.data(), v2.data(), v1.size() * sizeof(RECT)) == 0);
}

} // namespace

void CHistory::Reset(State state)
{
    m_vStates.clear();
    state.uPixels = ++m_uPixels;
    state.uId = ++m_uLastId;
    m_vStates.push_back(std::move(state));
    m_vBytes.assign(1, 0);
    m_iCurrent = 0;
    m_bForgot = false;
    MarkSaved();
    ++m_uRevision;
}

void CHistory::Resume(std::deque<State> vStates, std::size_t iCurrent, unsigned uSaved)
{
    m_vStates = std::move(vStates);
    m_vBytes.assign(m_vStates.size(), 0); // They are in a file.
    m_iCurrent = iCurrent;
    m_bForgot = !m_vStates.front().strName.empty();
    m_uSaved = uSaved;
    for (const State& state : m_vStates)
    {
        m_uPixels = std::max(m_uPixels, state.uPixels);
        m_uLastId = std::max(m_uLastId, state.uId);
    }
    ++m_uRevision;
}

bool CHistory::SelectsSame(const State& one, const State& other)
{
    return one.mask.IsSameAs(other.mask) && SameRects(one.vSelected, other.vSelected);
}

bool CHistory::Add(State state)
{
    const State& now = Current();
    const bool bSamePixels = state.pixels.IsSameAs(now.pixels);
    if (bSamePixels && SelectsSame(state, now))
        return false;
    state.uPixels = bSamePixels ? now.uPixels : ++m_uPixels;
    state.uId = ++m_uLastId;
    ++m_uRevision;
    m_vStates.resize(m_iCurrent + 1);
    m_vBytes.resize(m_iCurrent + 1);
    m_vBytes.push_back(BytesBeyond(state, Current()));
    m_vStates.push_back(std::move(state));
    ++m_iCurrent;
    ForgetOldest();
    return true;
}

void CHistory::CompleteStep(CTiledSnapshot mask, std::vector<RECT> vSelected)
{
    m_vStates[m_iCurrent].mask = std::move(mask);
    m_vStates[m_iCurrent].vSelected = std::move(vSelected);
    m_vStates[m_iCurrent].uId = ++m_uLastId;
    ++m_uRevision;
    if (m_iCurrent > 0)
        m_vBytes[m_iCurrent] = BytesBeyond(Current(), m_vStates[m_iCurrent - 1]);
}

void CHistory::FillPixels(const std::vector<CTiledSnapshot::KeptTile>& vBefore)
{
    for (State& state : m_vStates)
        state.pixels.Fill(vBefore);
}

void CHistory::ForgetOldest()
{
    // The photo itself, which the first state holds, does not count.
    const auto bytes = [this] { return std::accumulate(m_vBytes.begin() + 1, m_vBytes.end(), std::size_t{0}); };
    if (bytes() <= MOST_BYTES)
        return;
    for (std::size_t i = 1; i < m_vStates.size(); ++i) // Some may be in a file by now.
        m_vBytes[i] = BytesBeyond(m_vStates[i], m_vStates[i - 1]);
    while (bytes() > MOST_BYTES && m_vStates.size() > 2)
    {
        m_vStates.pop_front();
        m_vBytes.pop_front();
        --m_iCurrent;
        m_bForgot = true;
    }
}

const CHistory::State* CHistory::To(std::size_t iState)
{
    if (iState >= m_vStates.size())
        return nullptr;
    m_iCurrent = iState;
    ++m_uRevision;
    return &Current();
}

std::string CHistory::ForthName() const
{
    return m_iCurrent + 1 < m_vStates.size() ? m_vStates[m_iCurrent + 1].strName : "";
}
