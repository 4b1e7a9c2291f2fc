#pragma once

#include "document/Photo.h"

/// Renders the bundled sample photo, the same every time: a lake in the evening with a tilted horizon, dust spots in
/// the sky, a painted wall and a face with red eyes, so that every tool has something to do. 1800 x 1200 pixels.
CPhoto RenderSamplePicture();
