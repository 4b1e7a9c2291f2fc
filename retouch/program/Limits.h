#pragma once

/// The widest edge, growth and shrinkage that commands take, in pixels.
constexpr int MOST_PIXELS = 500;
