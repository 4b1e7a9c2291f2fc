#pragma once

#include "pixels/Progress.h"

#include <functional>

/// Calls work(iFirst, iEnd) for bands of nRows rows, on all cores, and ends a stage of the progress; FALSE when that
/// was cancelled in between. work must not throw, and no band may touch another's.
bool ForBands(int nRows, CProgress& progress, const std::function<void(int iFirst, int iEnd)>& work);
