#pragma once

#include "platform/framework.h"

#include <cstddef>
#include <vector>

/// The host's image-processing library.
namespace Vorpix
{

/// Softens the edge of a selection mask in place: iWidth x iHeight bytes, top row first, without padding. rcBox is the
/// box of the selected area; only that box grown by the kernel's reach and clipped to the image is written, and what
/// the mask holds outside of it counts as it is.
///
/// The kernel is close to a Gaussian with a standard deviation of exactly iRadius / 2, so a hard edge becomes soft over
/// about iRadius pixels to each side. In each direction, down the columns first, it is three boxes of iRadius pixels
/// and then [1 1] / 2 for an even, [1 6 1] / 8 for an odd radius, whose quarter of variance is what the boxes lack. Its
/// reach is (3 * iRadius - 1) / 2 pixels, rounded down. Beyond the image's border the outermost pixels go on for ever:
/// a fully selected mask stays so. Each direction is summed up exactly and rounded to whole levels, halves upwards,
/// with an error of less than 1/50 level beyond that. The result is the same on every machine and for any number of
/// threads, and the time taken does not grow with the radius up to 256; above, it is about twice as long.
///
/// A radius of 0 or less leaves the mask as it is, and one above 65536 or the longer side of the mask counts as that.
/// False, with nothing written, if a size is not positive, the mask has another size, the box has no pixel inside the
/// image, or memory runs out. pfnProgress, unless null, is called on the calling thread with the steps done and their
/// number. bReserved has no meaning. Any thread.
bool FeatherRegion(std::vector<unsigned char>& vMask, RECT& rcBox, int iRadius, int iWidth, int iHeight,
                   void (*pfnProgress)(size_t, size_t), bool bReserved);

/// Weighs the pixels of an area by how close they are to a colour (0x00BBGGRR). pBits are the bottom-up rows, padded to
/// 4 bytes, of a bitmap of 24 or 32 bits a pixel; vMask has one byte for each of its pixels, top row first, without
/// padding. Only the part of rcArea inside the bitmap is written.
///
/// The distance is the largest difference of the three channels; a fourth byte is ignored. Up to the tolerance the
/// weight is 255, from there it falls evenly to 0 over the next 16 levels or a quarter of the tolerance (rounded down),
/// whichever is more: rounded to the nearest level, with an error of less than 1/8 level beyond that. A tolerance of 0
/// selects exactly the colour, one of 255 or more everything.
///
/// False, with nothing written, without bits, for other bit counts, sizes that are not positive, a mask of another
/// size, a negative tolerance or an area with no pixel inside the bitmap. Progress is told as by FeatherRegion. Any
/// thread.
bool CreateRegionFromColor(const unsigned char* pBits, BITMAPINFO& info, RECT& rcArea,
                           std::vector<unsigned char>& vMask, unsigned long crColor, int iTolerance,
                           void (*pfnProgress)(size_t, size_t));

/// How Resize finds a pixel between others.
enum RESIZE_ALGORITHM : int
{
    RESIZE_LINEAR = 1, ///< Bilinear where it grows, the average of the area where it shrinks.
    RESIZE_CUBIC = 2,  ///< Catmull-Rom, spread over the area where it shrinks. Edges are sharper and may overshoot.
};

/// Scales an image of 8 bits a pixel, in rows without padding here and in vResult, to iWidth x iHeight pixels. The
/// result's header is the source's with the new width, height and biSizeImage. Pixels are areas: the images' borders
/// lie on each other, and beyond them the outermost pixels go on for ever.
///
/// Each direction, down the columns first, is a sum with weights in units of 1/16384 that add up to exactly 1, rounded
/// to whole levels, halves upwards; except that halving both directions with RESIZE_LINEAR rounds the mean of each four
/// pixels once. So an even image stays as it is, and so does any image in a direction whose size does not change.
/// Besides the result, memory is taken for 32 rows of the source and for the weights.
///
/// pBits may be vResult's own bytes. False, with nothing written, without bits, for other bit counts and algorithms,
/// sizes that are not positive, fewer than width x height bytes, a result of more than 2^31 - 1 pixels, or if memory
/// runs out. Progress is told as by FeatherRegion. Any thread.
bool Resize(const unsigned char* pBits, size_t nBytes, const BITMAPINFO& info, std::vector<unsigned char>& vResult,
            BITMAPINFO& infoResult, int iWidth, int iHeight, RESIZE_ALGORITHM eAlgorithm,
            void (*pfnProgress)(size_t, size_t));

} // namespace Vorpix
