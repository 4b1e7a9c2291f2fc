#pragma once

#include "document/JpegHeader.h"

/// What a segment of a JPEG file becomes when its picture is saved upright and retouched, cx by cy pixels: in EXIF the
/// orientation, the sizes and the software are set, and the thumbnail, which shows what was, goes; the orientation in
/// XMP follows. All other segments stay as they are. A segment that makes no sense stays as it is.
JpegSegment UprightSegment(JpegSegment segment, int cx, int cy);
