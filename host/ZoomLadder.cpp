#include "host/ZoomLadder.h"

#include <algorithm>
#include <iterator>

namespace
{

// Below 100 % simple fractions, above it zooms at which bitmap pixels have whole or half sizes.
constexpr double LADDER[] = {MIN_ZOOM, 1.0 / 16, 1.0 / 12, 1.0 / 8, 1.0 / 6, 1.0 / 4, 1.0 / 3, 1.0 / 2, 2.0 / 3, 1, 1.5,
                             2,        3,        4,        6,       8,       12,      16,      24,      MAX_ZOOM};
constexpr int LAST = static_cast<int>(std::size(LADDER)) - 1;

// A zoom this near to a step stands on it.
constexpr double SAME = 1e-6;

} // namespace

double ZoomLadderStep(double dbZoom, int nSteps)
{
    if (nSteps == 0)
        return dbZoom;
    // The first step above or the last one below is one step away.
    const auto itFirst = nSteps > 0 ? std::ranges::upper_bound(LADDER, dbZoom * (1 + SAME))
                                    : std::ranges::lower_bound(LADDER, dbZoom * (1 - SAME));
    const int iFirst = static_cast<int>(itFirst - std::begin(LADDER)) - (nSteps > 0 ? 1 : 0);
    return LADDER[std::clamp(iFirst + nSteps, 0, LAST)];
}
