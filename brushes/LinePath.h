#pragma once

#include "platform/framework.h"

#include <list>

namespace Pixtane
{

/// Makes points the 4-connected path of pixels from one point to another, both included, each listed once. The line is
/// followed in single precision, which for points far apart may miss the end by a step of the shorter side: the path
/// then goes straight to it. Any thread.
void MakeLinePath(const CPoint& ptFrom, const CPoint& ptTo, std::list<CPoint>& points);

} // namespace Pixtane
