#pragma once

/// The widest edge, growth and shrinkage that commands take, in pixels.
constexpr int MOST_PIXELS = 500;

/// The largest spot that is removed, across, in pixels.
constexpr int LARGEST_SPOT = 500;
