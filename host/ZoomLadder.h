#pragma once

/// The smallest and largest zoom that ZoomLadderStep gives.
constexpr double MIN_ZOOM = 0.05;
constexpr double MAX_ZOOM = 32;

/// The zoom nSteps further up (or, negative, down) the ladder of handy zooms, 100 % among them, from any zoom; the
/// ladder's end when it is too short.
double ZoomLadderStep(double dbZoom, int nSteps);
