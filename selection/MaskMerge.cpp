#include "selection/MaskMerge.h"

#include "platform/minmax.h"

#include <algorithm>
#include <cstring>

namespace Pixtane
{

namespace
{

// Written so that compilers keep the bytes as bytes.
template<class F>
void Combine(std::span<BYTE> vMask, std::span<const BYTE> vShape, F combine)
{
    BYTE* const pMask = vMask.data();
    const BYTE* const pShape = vShape.data();
    const std::size_t nBytes = std::min(vMask.size(), vShape.size());
    for (std::size_t i = 0; i < nBytes; ++i)
        pMask[i] = combine(pMask[i], pShape[i]);
}

} // namespace

void AddMask(std::span<BYTE> vMask, std::span<const BYTE> vShape)
{
    Combine(vMask, vShape, [](BYTE a, BYTE b) { return static_cast<BYTE>(a + std::min(b, static_cast<BYTE>(~a))); });
}

void SubtractMask(std::span<BYTE> vMask, std::span<const BYTE> vShape)
{
    Combine(vMask, vShape, [](BYTE a, BYTE b) { return static_cast<BYTE>(a - std::min(a, b)); });
}

void IntersectMask(std::span<BYTE> vMask, std::span<const BYTE> vShape)
{
    Combine(vMask, vShape, [](BYTE a, BYTE b) { return static_cast<BYTE>(static_cast<WORD>(a * b) / 255); });
}

bool HasWeight(std::span<const BYTE> vMask)
{
    // A byte that is equal to its neighbour all the way, and is 0.
    return !vMask.empty() && (vMask.front() != 0 || std::memcmp(vMask.data(), vMask.data() + 1, vMask.size() - 1) != 0);
}

} // namespace Pixtane
